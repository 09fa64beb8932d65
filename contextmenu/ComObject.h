// Reference counting and the exception barrier at the COM boundary, for the classes of this module.
#pragma once

#include <atomic>
#include <new>

#include "contextmenu/ExceptionState.h"
#include "contextmenu/Module.h"
#include "winlib/Windows.h"

#include <unknwn.h>

// Runs the body of a COM operation and converts every exception to a result, since none may reach the shell.
template <typename Body>
HRESULT Guarded(const Body& body) noexcept {
    const ExceptionState state;
    if (!state)
        return E_OUTOFMEMORY;
    try {
        return body();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

// A COM object that implements the interfaces and deletes itself with its last reference. It begins with one,
// which belongs to its creator.
template <typename... Interfaces>
class ComObject : public Interfaces... {
public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr)
            return E_POINTER;
        *object = Find<Interfaces...>(iid);
        if (*object == nullptr)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }

    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

protected:
    virtual ~ComObject() = default;

private:
    // The first interface serves as IUnknown too.
    template <typename First, typename... Rest>
    void* Find(REFIID iid) {
        if (IsEqualIID(iid, __uuidof(First)) || IsEqualIID(iid, __uuidof(IUnknown)))
            return static_cast<First*>(this);
        if constexpr (sizeof...(Rest) != 0)
            return Find<Rest...>(iid);
        else
            return nullptr;
    }

    std::atomic<ULONG> references_ = 1;
    const Module::Use use_;
};
