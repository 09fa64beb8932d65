// Takes the place of the shell: registers the module as regsvr32 does, makes handlers for selections and
// chooses from their menus.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "contextmenu/FileData.h"
#include "contextmenu/LoadedModule.h"
#include "support/TempFolder.h"
#include "support/TestRegistry.h"
#include "support/windows/Process.h"

#include <shellapi.h>
#include <shlobj.h>

namespace {

const wchar_t Root[] = L"Software\\Tamblewick";
constexpr UINT FirstId = 100;
constexpr UINT LastId = 199;

DWORD RunRegsvr32(const std::wstring& arguments) {
    return TestSupport::RunProcess(L"regsvr32.exe " + arguments);
}

// The text of a value below HKEY_CLASSES_ROOT, or "(none)".
std::wstring ClassesText(const std::wstring& key, const wchar_t* name) {
    std::array<wchar_t, 1024> text = {};
    DWORD size = sizeof(text);
    const LSTATUS status =
        RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text.data(), &size);
    return status == ERROR_SUCCESS ? text.data() : L"(none)";
}

const std::wstring DirectoryKey = L"Directory\\shellex\\ContextMenuHandlers\\Tamblewick";
const std::wstring DriveKey = L"Drive\\shellex\\ContextMenuHandlers\\Tamblewick";
const std::wstring ClassKey = std::wstring(L"CLSID\\") + HandlerClassId;
const std::wstring ServerKey = ClassKey + L"\\InProcServer32";

// An entry of the submenu as a person sees it; a separator is "-".
struct Shown {
    std::wstring text;
    UINT id;

    bool operator==(const Shown&) const = default;
};

void PrintTo(const Shown& shown, std::ostream* out) {
    *out << testing::PrintToString(shown.text) << " " << shown.id;
}

// One opening of the shell's menu on a selection.
class Menu {
public:
    explicit Menu(const std::vector<std::wstring>& selection, UINT flags = CMF_NORMAL, UINT lastId = LastId)
        : data_(selection), menu_(CreatePopupMenu()) {
        CLSID classId;
        CLSIDFromString(HandlerClassId, &classId);
        void* object = nullptr;
        created = CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IContextMenu, &object);
        handler.reset(static_cast<IContextMenu*>(object));
        if (FAILED(created))
            return;
        EXPECT_EQ(handler->QueryInterface(IID_IShellExtInit, &object), S_OK);
        const Com<IShellExtInit> init(static_cast<IShellExtInit*>(object));
        initialized = init->Initialize(nullptr, selection.empty() ? nullptr : &data_, nullptr);
        queried = handler->QueryContextMenu(menu_, 0, FirstId, lastId, flags);
    }
    Menu(const Menu&) = delete;
    Menu& operator=(const Menu&) = delete;
    ~Menu() { DestroyMenu(menu_); }

    // The entries of the submenu "Tamblewick", the menu's only item; empty if nothing was added.
    std::vector<Shown> Entries() const {
        std::vector<Shown> entries;
        if (GetMenuItemCount(menu_) == 0)
            return entries;
        EXPECT_EQ(GetMenuItemCount(menu_), 1);
        EXPECT_EQ(TextAt(menu_, 0), L"Tamblewick");
        const HMENU submenu = GetSubMenu(menu_, 0);
        for (int i = 0; i < GetMenuItemCount(submenu); ++i) {
            const bool separator =
                (GetMenuState(submenu, static_cast<UINT>(i), MF_BYPOSITION) & MF_SEPARATOR) != 0;
            entries.push_back(separator ? Shown{L"-", 0}
                                        : Shown{TextAt(submenu, i), GetMenuItemID(submenu, i)});
        }
        return entries;
    }

    HRESULT Invoke(UINT_PTR offset) const { return Invoke(reinterpret_cast<const char*>(offset)); }

    HRESULT Invoke(const char* verb) const {
        CMINVOKECOMMANDINFO info = {};
        info.cbSize = sizeof(info);
        info.lpVerb = verb;
        info.nShow = SW_SHOWNORMAL;
        return handler->InvokeCommand(&info);
    }

    HRESULT InvokeWide(const wchar_t* verb) const {
        CMINVOKECOMMANDINFOEX info = {};
        info.cbSize = sizeof(info);
        info.fMask = CMIC_MASK_UNICODE;
        info.lpVerb = "no such verb";
        info.lpVerbW = verb;
        return handler->InvokeCommand(reinterpret_cast<CMINVOKECOMMANDINFO*>(&info));
    }

    HRESULT created = E_FAIL;
    HRESULT initialized = E_FAIL;
    HRESULT queried = E_FAIL;
    Com<IContextMenu> handler;

private:
    static std::wstring TextAt(HMENU menu, int position) {
        std::array<wchar_t, 512> text = {};
        GetMenuStringW(menu, static_cast<UINT>(position), text.data(), static_cast<int>(text.size()),
                       MF_BYPOSITION);
        return text.data();
    }

    FileData data_;
    const HMENU menu_;
};

Com<IClassFactory> Factory() {
    CLSID classId;
    CLSIDFromString(HandlerClassId, &classId);
    void* object = nullptr;
    CoGetClassObject(classId, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, &object);
    return Com<IClassFactory>(static_cast<IClassFactory*>(object));
}

class ContextMenuTest : public testing::Test {
protected:
    ContextMenuTest() {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        EXPECT_EQ(RunRegsvr32(L"/s \"" + ModulePath() + L"\""), 0u);
        folder_.AddFile(L"One Folder\\a.txt", 1);
        folder_.AddFile(L"Two\\b.txt", 1);
        folder_.AddFile(L"Three\\c.txt", 1);
        folder_.AddFolder(L"Lists");
        folder_.AddFile(L"file.txt", 1);
    }

    ~ContextMenuTest() override {
        // The module stays until the last program that it has started has ended.
        for (int i = 0; i < 2000 && IsLoaded(); ++i) {
            CoFreeUnusedLibrariesEx(0, 0);
            Sleep(5);
        }
        EXPECT_FALSE(IsLoaded());
        CoUninitialize();
        RunRegsvr32(L"/s /u \"" + ModulePath() + L"\"");
    }

    static bool IsLoaded() { return GetModuleHandleW(ModulePath().c_str()) != nullptr; }

    // A preset whose lists go into the folder of lists.
    void AddPreset(const std::wstring& key, const std::wstring& name, uint32_t position) const {
        const std::wstring path = std::wstring(Root) + L"\\" + key;
        registry_.SetString(path, L"Name", name);
        registry_.SetDword(path, L"Position", position);
        registry_.SetString(path + L"\\Saving", L"SaveLocation", L"Custom");
        registry_.SetString(path + L"\\Saving", L"CustomFolderPath", folder_.Path(L"Lists"));
        registry_.SetString(path + L"\\Opening", L"OpenMethod", L"Nothing");
    }

    // Waits for a list of this name and for its last line.
    void ExpectList(const std::wstring& name, const std::string& content) const {
        for (int i = 0; i < 2000; ++i) {
            const std::optional<std::string> list = folder_.Read(L"Lists\\" + name);
            if (list && list->find(content) != std::string::npos)
                return;
            Sleep(5);
        }
        ADD_FAILURE() << "no list " << testing::PrintToString(name) << " with " << content;
    }

    TestSupport::TestRegistry registry_;
    TestSupport::TempFolder folder_;
};

TEST_F(ContextMenuTest, RegistrationWritesTheKeysThatTheProgramTests) {
    EXPECT_EQ(ClassesText(DirectoryKey, nullptr), HandlerClassId);
    EXPECT_EQ(ClassesText(DriveKey, nullptr), HandlerClassId);
    EXPECT_EQ(ClassesText(ServerKey, nullptr), ModulePath());
    EXPECT_EQ(ClassesText(ServerKey, L"ThreadingModel"), L"Apartment");
}

TEST_F(ContextMenuTest, RemovalDeletesAllKeysAndMayBeRepeated) {
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(RunRegsvr32(L"/s /u \"" + ModulePath() + L"\""), 0u);
        for (const std::wstring& key : {DirectoryKey, DriveKey, ClassKey}) {
            HKEY opened = nullptr;
            EXPECT_EQ(RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ, &opened),
                      ERROR_FILE_NOT_FOUND)
                << testing::PrintToString(key);
        }
    }
}

TEST_F(ContextMenuTest, PresetsStandInTheOrderOfTheTreeAndTheProgramLast) {
    AddPreset(L"bbb", L"Bottom", 1);
    AddPreset(L"aaa", L"Top & all", 3);
    AddPreset(L"ccc", L"Middle", 2);
    const Menu menu({folder_.Path(L"Two")});
    EXPECT_EQ(menu.initialized, S_OK);
    EXPECT_EQ(menu.queried, MAKE_HRESULT(SEVERITY_SUCCESS, 0, 4));
    EXPECT_EQ(menu.Entries(), (std::vector<Shown>{{L"Top && all", FirstId},
                                                  {L"Middle", FirstId + 1},
                                                  {L"Bottom", FirstId + 2},
                                                  {L"-", 0},
                                                  {L"Open Tamblewick...", FirstId + 3}}));
}

TEST_F(ContextMenuTest, ChangesShowInTheNextMenu) {
    AddPreset(L"aaa", L"First", 2);
    AddPreset(L"bbb", L"Second", 1);
    EXPECT_EQ(Menu({folder_.Path(L"Two")}).Entries()[0].text, L"First");
    registry_.SetDword(std::wstring(Root) + L"\\bbb", L"Position", 3);
    AddPreset(L"ddd", L"Third", 1);
    const Menu reordered({folder_.Path(L"Two")});
    ASSERT_EQ(reordered.Entries().size(), 5u);
    EXPECT_EQ(reordered.Entries()[0].text, L"Second");
    EXPECT_EQ(reordered.Entries()[1].text, L"First");
    EXPECT_EQ(reordered.Entries()[2].text, L"Third");
    registry_.DeleteKey(std::wstring(Root) + L"\\bbb");
    EXPECT_EQ(Menu({folder_.Path(L"Two")}).Entries()[0].text, L"First");
}

TEST_F(ContextMenuTest, WithoutPresetsTheProgramIsTheOnlyEntry) {
    registry_.CreateKey(Root);
    const Menu menu({folder_.Path(L"Two")});
    EXPECT_EQ(menu.Entries(), (std::vector<Shown>{{L"Open Tamblewick...", FirstId}}));
}

TEST_F(ContextMenuTest, WithoutStoredSettingsThereIsNoMenu) {
    const Menu menu({folder_.Path(L"Two")});
    EXPECT_EQ(menu.queried, S_OK);
    EXPECT_EQ(menu.Entries(), std::vector<Shown>{});
}

TEST_F(ContextMenuTest, DriveHasAMenu) {
    AddPreset(L"aaa", L"First", 1);
    EXPECT_EQ(Menu({L"C:\\"}).Entries().size(), 3u);
}

TEST_F(ContextMenuTest, FilesAndNothingHaveNoMenu) {
    AddPreset(L"aaa", L"First", 1);
    for (const std::vector<std::wstring>& selection :
         {std::vector<std::wstring>{folder_.Path(L"file.txt")}, std::vector<std::wstring>{},
          std::vector<std::wstring>{folder_.Path(L"missing")}}) {
        const Menu menu(selection);
        EXPECT_TRUE(FAILED(menu.initialized));
        EXPECT_EQ(menu.queried, S_OK);
        EXPECT_EQ(menu.Entries(), std::vector<Shown>{});
        EXPECT_TRUE(FAILED(menu.Invoke(UINT_PTR{0})));
    }
}

TEST_F(ContextMenuTest, DefaultOnlyAddsNothing) {
    AddPreset(L"aaa", L"First", 1);
    const Menu menu({folder_.Path(L"Two")}, CMF_DEFAULTONLY);
    EXPECT_EQ(menu.queried, S_OK);
    EXPECT_EQ(menu.Entries(), std::vector<Shown>{});
}

TEST_F(ContextMenuTest, TooFewIdsLeavePresetsOut) {
    AddPreset(L"aaa", L"First", 2);
    AddPreset(L"bbb", L"Second", 1);
    const Menu two({folder_.Path(L"Two")}, CMF_NORMAL, FirstId + 1);
    EXPECT_EQ(two.queried, MAKE_HRESULT(SEVERITY_SUCCESS, 0, 2));
    EXPECT_EQ(two.Entries(),
              (std::vector<Shown>{{L"First", FirstId}, {L"-", 0}, {L"Open Tamblewick...", FirstId + 1}}));
    const Menu one({folder_.Path(L"Two")}, CMF_NORMAL, FirstId);
    EXPECT_EQ(one.Entries(), (std::vector<Shown>{{L"Open Tamblewick...", FirstId}}));
    const Menu none({folder_.Path(L"Two")}, CMF_NORMAL, FirstId - 1);
    EXPECT_EQ(none.queried, S_OK);
    EXPECT_EQ(none.Entries(), std::vector<Shown>{});
}

TEST_F(ContextMenuTest, CommandStringsNameTheEntries) {
    AddPreset(L"aaa", L"First", 1);
    const Menu menu({folder_.Path(L"Two")});
    std::array<wchar_t, 64> wide = {};
    std::array<char, 64> narrow = {};
    const auto get = [&](UINT_PTR offset, UINT type, void* text) {
        return menu.handler->GetCommandString(offset, type, nullptr, static_cast<char*>(text), 64);
    };
    EXPECT_EQ(get(0, GCS_VERBW, wide.data()), S_OK);
    EXPECT_STREQ(wide.data(), L"tamblewick.aaa");
    EXPECT_EQ(get(1, GCS_VERBA, narrow.data()), S_OK);
    EXPECT_STREQ(narrow.data(), "tamblewick");
    EXPECT_EQ(get(0, GCS_HELPTEXTW, wide.data()), S_OK);
    EXPECT_STREQ(wide.data(), L"Lists the folder with the preset First.");
    EXPECT_EQ(get(1, GCS_HELPTEXTA, narrow.data()), S_OK);
    EXPECT_STREQ(narrow.data(), "Opens the window of Tamblewick.");
    EXPECT_EQ(get(1, GCS_VALIDATEW, nullptr), S_OK);
    EXPECT_EQ(get(2, GCS_VALIDATEW, nullptr), S_FALSE);
    EXPECT_TRUE(FAILED(get(2, GCS_VERBW, wide.data())));
    EXPECT_EQ(menu.handler->GetCommandString(0, GCS_VERBW, nullptr, reinterpret_cast<char*>(wide.data()), 5),
              S_OK);
    EXPECT_STREQ(wide.data(), L"tamb");
}

TEST_F(ContextMenuTest, ChosenPresetListsTheFolder) {
    AddPreset(L"aaa", L"First", 1);
    const Menu menu({folder_.Path(L"One Folder")});
    EXPECT_EQ(menu.Invoke(UINT_PTR{0}), S_OK);
    ExpectList(L"List of One Folder.txt", "a.txt\r\n");
}

TEST_F(ContextMenuTest, EachSelectedFolderIsListed) {
    AddPreset(L"aaa", L"First", 1);
    const Menu menu({folder_.Path(L"One Folder"), folder_.Path(L"Two"), folder_.Path(L"Three")});
    EXPECT_EQ(menu.Invoke(UINT_PTR{0}), S_OK);
    ExpectList(L"List of One Folder.txt", "a.txt\r\n");
    ExpectList(L"List of Two.txt", "b.txt\r\n");
    ExpectList(L"List of Three.txt", "c.txt\r\n");
}

// Each program must see the lists of those before it, to give its own another name.
TEST_F(ContextMenuTest, FoldersOfTheSameNameHaveAListEach) {
    AddPreset(L"aaa", L"First", 1);
    std::vector<std::wstring> folders;
    for (const wchar_t* parent : {L"v", L"w", L"x", L"y", L"z"}) {
        folder_.AddFile(std::wstring(parent) + L"\\Same\\" + parent + L".txt", 1);
        folders.push_back(folder_.Path(parent) + L"\\Same");
    }
    const Menu menu(folders);
    EXPECT_EQ(menu.Invoke(UINT_PTR{0}), S_OK);
    ExpectList(L"List of Same.txt", "v.txt\r\n");
    ExpectList(L"List of Same (2).txt", "w.txt\r\n");
    ExpectList(L"List of Same (3).txt", "x.txt\r\n");
    ExpectList(L"List of Same (4).txt", "y.txt\r\n");
    ExpectList(L"List of Same (5).txt", "z.txt\r\n");
}

TEST_F(ContextMenuTest, DriveSurvivesTheCommandLine) {
    AddPreset(L"aaa", L"First", 1);
    const Menu menu({L"C:\\"});
    EXPECT_EQ(menu.Invoke(UINT_PTR{0}), S_OK);
    ExpectList(L"List of C.txt", "Summary of path: C:\r\n");
}

TEST_F(ContextMenuTest, VerbsChooseEntries) {
    AddPreset(L"aaa", L"First", 1);
    const Menu narrow({folder_.Path(L"Two")});
    EXPECT_EQ(narrow.Invoke("tamblewick.AAA"), S_OK);
    ExpectList(L"List of Two.txt", "b.txt\r\n");
    const Menu wide({folder_.Path(L"Three")});
    EXPECT_EQ(wide.InvokeWide(L"tamblewick.aaa"), S_OK);
    ExpectList(L"List of Three.txt", "c.txt\r\n");
}

TEST_F(ContextMenuTest, WrongOffsetsAndVerbsAreRefused) {
    AddPreset(L"aaa", L"First", 1);
    const Menu menu({folder_.Path(L"Two")});
    EXPECT_EQ(menu.Invoke(UINT_PTR{2}), E_INVALIDARG);
    EXPECT_EQ(menu.Invoke("tamblewick.bbb"), E_INVALIDARG);
    EXPECT_EQ(menu.Invoke("open"), E_INVALIDARG);
    EXPECT_EQ(menu.InvokeWide(L"open"), E_INVALIDARG);
    EXPECT_EQ(menu.handler->InvokeCommand(nullptr), E_POINTER);
}

TEST_F(ContextMenuTest, LastEntryOpensTheWindow) {
    AddPreset(L"aaa", L"First", 1);
    const Menu menu({folder_.Path(L"Two")});
    EXPECT_EQ(menu.Invoke(UINT_PTR{1}), S_OK);
    HWND window = nullptr;
    for (int i = 0; i < 2000 && !(window && IsWindowVisible(window)); ++i) {
        window = FindWindowW(nullptr, L"Tamblewick 4.0.1");
        Sleep(5);
    }
    ASSERT_NE(window, nullptr);
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, processId);
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(WaitForSingleObject(process, 10'000), WAIT_OBJECT_0);
    CloseHandle(process);
}

TEST_F(ContextMenuTest, ModuleUnloadsWhenNothingOfItIsInUse) {
    AddPreset(L"aaa", L"First", 1);
    {
        const Menu menu({folder_.Path(L"Two")});
        ASSERT_TRUE(IsLoaded());
        CoFreeUnusedLibrariesEx(0, 0);
        EXPECT_TRUE(IsLoaded());
    }
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_FALSE(IsLoaded());
}

// The list of the first folder has been started when the choice returns. Nothing waits for the others.
TEST_F(ContextMenuTest, HostMayEndRightAfterTheChoice) {
    AddPreset(L"aaa", L"First", 1);
    const std::wstring host =
        (std::filesystem::path(ModulePath()).parent_path() / L"contextmenu_host.exe").wstring();
    EXPECT_EQ(TestSupport::RunProcess(L"\"" + host + L"\" \"" + folder_.Path(L"One Folder") + L"\" \"" +
                                      folder_.Path(L"Two") + L"\""),
              7u);
    ExpectList(L"List of One Folder.txt", "a.txt\r\n");
}

// COM's own operations, which the shell uses with care and others need not.
TEST_F(ContextMenuTest, MissingPlacesForResultsAndOuterObjectsAreRefused) {
    const Com<IClassFactory> factory = Factory();
    ASSERT_NE(factory, nullptr);
    EXPECT_EQ(factory->QueryInterface(IID_IClassFactory, nullptr), E_POINTER);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IContextMenu, nullptr), E_POINTER);
    void* object = &object;
    EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
    object = &object;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDataObject, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
}

TEST_F(ContextMenuTest, LockedServerStaysLoaded) {
    Com<IClassFactory> factory = Factory();
    ASSERT_NE(factory, nullptr);
    const HMODULE loaded = GetModuleHandleW(ModulePath().c_str());
    ASSERT_NE(loaded, nullptr);
    const auto canUnload = reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)()>(
        reinterpret_cast<void*>(GetProcAddress(loaded, "DllCanUnloadNow")));
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    factory.reset();
    EXPECT_EQ(canUnload(), S_FALSE);
    factory = Factory();
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    factory.reset();
    EXPECT_EQ(canUnload(), S_OK);
}

TEST_F(ContextMenuTest, VerbNeedsNoMenu) {
    AddPreset(L"aaa", L"First", 1);
    const Menu menu({folder_.Path(L"Two")}, CMF_DEFAULTONLY);
    EXPECT_TRUE(menu.Entries().empty());
    EXPECT_EQ(menu.Invoke("tamblewick.aaa"), S_OK);
    ExpectList(L"List of Two.txt", "b.txt\r\n");
}

TEST_F(ContextMenuTest, NothingSelectedIsNothingToDo) {
    AddPreset(L"aaa", L"First", 1);
    const Menu menu({});
    EXPECT_EQ(menu.Invoke("tamblewick.aaa"), E_FAIL);
}

TEST_F(ContextMenuTest, DamagedPresetsLeaveTheShellAlone) {
    AddPreset(L"aaa", L"First", 1);
    // A lone surrogate in a word that is looked up in a table.
    registry_.SetString(std::wstring(Root) + L"\\aaa\\Format", L"ListStyle",
                        std::wstring(1, wchar_t(0xD800)));
    const Menu menu({folder_.Path(L"Two")});
    EXPECT_EQ(menu.queried, E_UNEXPECTED);
    EXPECT_EQ(menu.Entries(), std::vector<Shown>{});
}

TEST_F(ContextMenuTest, NamesAreShownAsTheyAre) {
    const std::wstring longName(300, L'n');
    AddPreset(L"aaa", L"A & B && C", 4);
    AddPreset(L"bbb", L"left\tright", 3);
    AddPreset(L"ccc", longName, 2);
    AddPreset(L"ddd", L"", 1);
    const std::vector<Shown> entries = Menu({folder_.Path(L"Two")}).Entries();
    ASSERT_EQ(entries.size(), 6u);
    EXPECT_EQ(entries[0].text, L"A && B &&&& C");
    EXPECT_EQ(entries[1].text, L"left right");
    EXPECT_EQ(entries[2].text, longName);
    EXPECT_EQ(entries[3].text, L"");
}

TEST_F(ContextMenuTest, FiveHundredPresetsHaveFiveHundredEntries) {
    for (uint32_t i = 1; i <= 500; ++i)
        registry_.SetDword(std::wstring(Root) + L"\\p" + std::to_wstring(i), L"Position", i);
    const Menu menu({folder_.Path(L"Two")}, CMF_NORMAL, FirstId + 1000);
    EXPECT_EQ(menu.queried, MAKE_HRESULT(SEVERITY_SUCCESS, 0, 501));
    ASSERT_EQ(menu.Entries().size(), 502u);
    EXPECT_EQ(menu.Entries()[0], (Shown{L"New Preset", FirstId}));
    EXPECT_EQ(menu.Entries()[501], (Shown{L"Open Tamblewick...", FirstId + 500}));
}

TEST_F(ContextMenuTest, KeysWithValuesOfWrongTypesKeepTheDefaults) {
    const std::wstring key = std::wstring(Root) + L"\\aaa";
    registry_.SetDword(key, L"Name", 7);
    registry_.SetString(key, L"Position", L"high");
    registry_.CreateKey(std::wstring(Root) + L"\\Not a preset\\deeper");
    const std::vector<Shown> entries = Menu({folder_.Path(L"Two")}).Entries();
    ASSERT_EQ(entries.size(), 4u);
    EXPECT_EQ(entries[0].text, L"New Preset");
    EXPECT_EQ(entries[1].text, L"New Preset");
}

TEST_F(ContextMenuTest, KeysWithAQuoteHaveNoEntry) {
    AddPreset(L"a\"b", L"Quoted", 2);
    AddPreset(L"aaa", L"First", 1);
    EXPECT_EQ(Menu({folder_.Path(L"Two")}).Entries()[0].text, L"First");
}

TEST_F(ContextMenuTest, MissingProgramMeansNoMenu) {
    AddPreset(L"aaa", L"First", 1);
    const std::filesystem::path lonely = std::filesystem::path(folder_.Path(L"Two")) / L"tamblewick.dll";
    std::filesystem::copy_file(ModulePath(), lonely);
    ASSERT_EQ(RunRegsvr32(L"/s \"" + lonely.wstring() + L"\""), 0u);
    {
        const Menu menu({folder_.Path(L"Three")});
        EXPECT_EQ(menu.queried, S_OK);
        EXPECT_EQ(menu.Entries(), std::vector<Shown>{});
    }
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
}

TEST_F(ContextMenuTest, InstallForTheUserAloneWritesTheUsersClasses) {
    ASSERT_EQ(RunRegsvr32(L"/s /u \"" + ModulePath() + L"\""), 0u);
    const std::wstring key = L"Software\\Classes\\" + ServerKey;
    EXPECT_EQ(RunRegsvr32(L"/s /n /i:user \"" + ModulePath() + L"\""), 0u);
    EXPECT_EQ(registry_.Get(key, L""), TestSupport::StringValue(ModulePath()));
    EXPECT_EQ(RunRegsvr32(L"/s /u /n /i:user \"" + ModulePath() + L"\""), 0u);
    EXPECT_FALSE(registry_.KeyExists(key));
}

}  // namespace
