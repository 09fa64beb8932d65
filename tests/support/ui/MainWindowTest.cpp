#include "support/ui/MainWindowTest.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>

#include "app/MessageLoop.h"
#include "resources/resource.h"
#include "support/ui/CommonControls.h"
#include "winlib/Controller.h"

namespace {

constexpr UINT PollInterval = 10;
constexpr std::chrono::seconds Patience(20);

// What the running RunLoopUntil waits for. The loop takes no argument, so its timer finds it here.
const std::function<bool()>* awaited = nullptr;
std::chrono::steady_clock::time_point deadline;
bool timedOut = false;

void CALLBACK Poll(HWND, UINT, UINT_PTR, DWORD) {
    timedOut = std::chrono::steady_clock::now() > deadline;
    if (timedOut || (*awaited)())
        PostQuitMessage(0);
}

BOOL CALLBACK AppendChild(HWND child, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
    return TRUE;
}

// The number that a REG_DWORD of 4 bytes holds.
uint32_t Number(const std::optional<TestSupport::RegistryValue>& value) {
    for (uint32_t number = 0; number < 1000; ++number)
        if (value == TestSupport::DwordValue(number))
            return number;
    ADD_FAILURE() << "no small number: " << testing::PrintToString(value);
    return 0;
}

// The text that a REG_SZ holds, two bytes to a character, its terminator included.
std::wstring TextOf(const std::optional<TestSupport::RegistryValue>& value) {
    std::wstring text;
    if (!value || value->type != REG_SZ || value->data.size() < sizeof(wchar_t))
        ADD_FAILURE() << "no text: " << testing::PrintToString(value);
    else
        text.assign(reinterpret_cast<const wchar_t*>(value->data.data()),
                    value->data.size() / sizeof(wchar_t) - 1);
    return text;
}

}  // namespace

const std::vector<int> MainWindowTest::PageGroups = {
    IDC_FORMAT_GROUP,  IDC_DISPLAY_GROUP, IDC_FILTER_GROUP,  IDC_COLUMNS_GROUP,
    IDC_SORTING_GROUP, IDC_SAVING_GROUP,  IDC_OPENING_GROUP,
};

MainWindowTest::MainWindowTest() {
    Ui::InitCommonControls();
    WinLib::Application::Install(
        std::make_unique<WinLib::Application>(GetModuleHandleW(nullptr), L"", SW_SHOWNORMAL));
}

MainWindowTest::~MainWindowTest() {
    if (IsWindow(window))
        DestroyWindow(window);
    controller.reset();
    MSG left;
    while (PeekMessageW(&left, nullptr, 0, 0, PM_REMOVE)) {
    }
}

std::wstring MainWindowTest::KeyOf(size_t index) {
    return std::wstring(MainSettings::RootKey) + L"\\preset" + std::to_wstring(index);
}

void MainWindowTest::Store(const std::vector<std::wstring>& names) {
    for (size_t i = 0; i < names.size(); ++i) {
        registry.SetString(KeyOf(i), L"Name", names[i]);
        registry.SetDword(KeyOf(i), L"Position", static_cast<uint32_t>(names.size() - i));
    }
}

void MainWindowTest::Open() {
    controller = std::make_unique<MainController>();
    WinLib::CreateModeless(Process(), window, *controller, IDD_MAIN, nullptr, Process().Instance);
    tree = TreeReader(Control(IDC_MAIN_TREE));
}

int MainWindowTest::RunLoop() {
    // Comes out of the queue when nothing else is left in it.
    PostQuitMessage(0);
    return RunMessageLoop(Process());
}

int MainWindowTest::RunLoopUntil(const std::function<bool()>& done, const char* what) {
    awaited = &done;
    deadline = std::chrono::steady_clock::now() + Patience;
    const UINT_PTR timer = SetTimer(nullptr, 0, PollInterval, Poll);
    const int code = RunMessageLoop(Process());
    KillTimer(nullptr, timer);
    awaited = nullptr;
    EXPECT_FALSE(timedOut) << "waiting for " << what;
    return code;
}

void MainWindowTest::PostKey(WORD key) {
    const LPARAM down = 1 | static_cast<LPARAM>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)) << 16;
    const HWND focus = GetFocus();
    PostMessageW(focus, WM_KEYDOWN, key, down);
    PostMessageW(focus, WM_KEYUP, key, down | static_cast<LPARAM>(3U << 30));
}

void MainWindowTest::Press(WORD key) {
    AwaitSecond();
    PostKey(key);
    RunLoop();
}

void MainWindowTest::Type(const std::wstring& text) {
    for (const wchar_t unit : text)
        PostMessageW(GetFocus(), WM_CHAR, unit, 1);
    RunLoop();
}

void MainWindowTest::Command(WORD id) {
    AwaitSecond();
    SendMessageW(window, WM_COMMAND, id, 0);
}

void MainWindowTest::AwaitSecond() {
    const auto isGood = [](std::time_t second) {
        std::srand(static_cast<unsigned>(second));
        return std::rand() % 37 != 36;
    };
    const auto areGood = [&] { return isGood(std::time(nullptr)) && isGood(std::time(nullptr) + 1); };
    if (!areGood())
        RunLoopUntil(areGood, "a second with a key");
}

void MainWindowTest::NextSecond() {
    const std::time_t now = std::time(nullptr);
    RunLoopUntil([now] { return std::time(nullptr) > now; }, "the next second");
}

std::vector<HWND> MainWindowTest::Pages() const {
    std::vector<HWND> children;
    EnumChildWindows(window, AppendChild, reinterpret_cast<LPARAM>(&children));
    std::erase_if(children, [](HWND child) {
        return std::ranges::none_of(PageGroups,
                                    [&](int group) { return GetDlgItem(child, group) != nullptr; });
    });
    return children;
}

int MainWindowTest::VisiblePage() const {
    int visible = 0;
    for (const HWND page : Pages()) {
        if (!IsWindowVisible(page))
            continue;
        const auto group = std::ranges::find_if(
            PageGroups, [&](int candidate) { return GetDlgItem(page, candidate) != nullptr; });
        visible = visible == 0 ? *group : -1;
    }
    return visible;
}

bool MainWindowTest::InstructionsVisible() const {
    std::vector<HWND> children;
    EnumChildWindows(window, AppendChild, reinterpret_cast<LPARAM>(&children));
    return std::ranges::any_of(children, [](HWND child) {
        return GetDlgItem(child, IDC_MANAGE_GROUP) != nullptr && IsWindowVisible(child);
    });
}

MainWindowTest::Stored MainWindowTest::StoredPresets() const {
    Stored stored;
    for (const std::wstring& key : registry.Subkeys(MainSettings::RootKey)) {
        const std::wstring path = std::wstring(MainSettings::RootKey) + L"\\" + key;
        stored.emplace_back(TextOf(registry.Get(path, L"Name")), Number(registry.Get(path, L"Position")));
    }
    std::ranges::stable_sort(stored, std::ranges::greater(),
                             [](const auto& preset) { return preset.second; });
    return stored;
}

std::wstring MainWindowTest::OtherKey(const std::vector<std::wstring>& known) const {
    std::vector<std::wstring> keys = registry.Subkeys(MainSettings::RootKey);
    std::erase_if(keys, [&](const std::wstring& key) { return std::ranges::count(known, key) != 0; });
    EXPECT_EQ(keys.size(), 1u);
    return keys.empty() ? std::wstring() : std::wstring(MainSettings::RootKey) + L"\\" + keys.front();
}

bool MainWindowTest::IsBusy() const {
    return (GetWindowLongPtrW(Control(IDC_MAIN_BUSY_BAR), GWL_STYLE) & WS_VISIBLE) != 0;
}

std::vector<UINT> MainWindowTest::EditStates() const {
    std::vector<UINT> states;
    for (const UINT command : {IDM_DUPLICATE, IDM_RENAME, IDM_REMOVE})
        states.push_back(GetMenuState(GetMenu(window), command, MF_BYCOMMAND));
    return states;
}
