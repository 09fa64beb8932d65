#include "contextmenu/LoadedModule.h"

#include <array>
#include <filesystem>
#include <stdexcept>

#include "contextmenu/FileData.h"
#include "winlib/Handles.h"

const wchar_t HandlerClassId[] = L"{5E2C81D4-3B7F-4A16-9C0E-7F41D2A96B3C}";

namespace {

template <typename Function>
Function* Export(HMODULE module, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

HMODULE Load(const std::wstring& path) {
    const HMODULE module = LoadLibraryW(path.c_str());
    if (module == nullptr)
        throw std::runtime_error("LoadLibraryW failed with " + std::to_string(GetLastError()));
    return module;
}

template <typename Interface>
Com<Interface> Query(IUnknown& object) {
    void* found = nullptr;
    object.QueryInterface(__uuidof(Interface), &found);
    return Com<Interface>(static_cast<Interface*>(found));
}

}  // namespace

std::wstring ModulePath() {
    std::array<wchar_t, MAX_PATH> path;
    GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    return (std::filesystem::path(path.data()).parent_path() / L"tamblewick.dll").wstring();
}

LoadedModule::LoadedModule(const std::wstring& path) : handle_(Load(path)) {}

Com<IContextMenu> LoadedModule::NewHandler(const std::vector<std::wstring>& selection) const {
    HRESULT result = S_OK;
    return NewHandler(selection, result);
}

Com<IContextMenu> LoadedModule::NewHandler(const std::vector<std::wstring>& selection,
                                           HRESULT& result) const {
    CLSID classId;
    CLSIDFromString(HandlerClassId, &classId);
    const auto getClassObject = Export<decltype(DllGetClassObject)>(handle_, "DllGetClassObject");
    void* object = nullptr;
    result = getClassObject(classId, IID_IClassFactory, &object);
    if (FAILED(result))
        return nullptr;
    const Com<IClassFactory> factory(static_cast<IClassFactory*>(object));
    result = factory->CreateInstance(nullptr, IID_IContextMenu, &object);
    if (FAILED(result))
        return nullptr;
    Com<IContextMenu> handler(static_cast<IContextMenu*>(object));
    FileData data(selection);
    result = Query<IShellExtInit>(*handler)->Initialize(nullptr, &data, nullptr);
    if (FAILED(result))
        return nullptr;
    return handler;
}

HRESULT LoadedModule::CanUnload() const {
    return Export<decltype(DllCanUnloadNow)>(handle_, "DllCanUnloadNow")();
}

HRESULT LoadedModule::Install(BOOL install, const wchar_t* text) const {
    return Export<HRESULT STDMETHODCALLTYPE(BOOL, LPCWSTR)>(handle_, "DllInstall")(install, text);
}

HRESULT QueryMenu(IContextMenu& handler) {
    const WinLib::UniqueHandle<HMENU> menu(CreatePopupMenu());
    return handler.QueryContextMenu(menu.get(), 0, 1, 1000, CMF_NORMAL);
}

HRESULT Invoke(IContextMenu& handler, UINT_PTR offset) {
    CMINVOKECOMMANDINFO info = {};
    info.cbSize = sizeof(info);
    info.lpVerb = reinterpret_cast<const char*>(offset);
    info.nShow = SW_SHOWNORMAL;
    return handler.InvokeCommand(&info);
}
