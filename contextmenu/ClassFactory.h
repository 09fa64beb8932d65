// Creates the handlers for the shell.
#pragma once

#include "contextmenu/ComObject.h"

class ClassFactory : public ComObject<IClassFactory> {
public:
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

private:
    ~ClassFactory() override = default;
};
