#include "contextmenu/ClassFactory.h"

#include "contextmenu/ContextMenu.h"

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) {
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    if (outer != nullptr)
        return CLASS_E_NOAGGREGATION;
    return Guarded([&] {
        IUnknown* const menu = static_cast<IContextMenu*>(new ContextMenu);
        const HRESULT result = menu->QueryInterface(iid, object);
        menu->Release();
        return result;
    });
}

HRESULT ClassFactory::LockServer(BOOL lock) {
    if (lock)
        Module::AddUse();
    else
        Module::ReleaseUse();
    return S_OK;
}
