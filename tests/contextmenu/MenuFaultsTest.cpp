// The menu when memory, thread-local slots or the menu functions of the system fail: the shell gets an error,
// no entry, and nothing is left.
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <vector>

#include "contextmenu/FailingAllocation.h"
#include "contextmenu/FileData.h"
#include "contextmenu/HeapUse.h"
#include "contextmenu/LoadedModule.h"
#include "support/TempFolder.h"
#include "support/TestRegistry.h"
#include "winlib/Handles.h"

namespace {

HMENU refusedSubmenu = nullptr;

BOOL WINAPI RefuseItem(HMENU, UINT, BOOL, LPCMENUITEMINFOW item) {
    refusedSubmenu = item->hSubMenu;
    SetLastError(ERROR_NOT_ENOUGH_QUOTA);
    return FALSE;
}

BOOL WINAPI RefuseSlot(DWORD, LPVOID) {
    return FALSE;
}

// Takes all thread-local slots of the process.
class AllSlots {
public:
    AllSlots() {
        for (DWORD slot = TlsAlloc(); slot != TLS_OUT_OF_INDEXES; slot = TlsAlloc())
            slots_.push_back(slot);
    }
    ~AllSlots() {
        for (const DWORD slot : slots_)
            TlsFree(slot);
    }
    AllSlots(const AllSlots&) = delete;
    AllSlots& operator=(const AllSlots&) = delete;

private:
    std::vector<DWORD> slots_;
};

// A data object that calls a function before it gives its data.
class CallingData : public FileData {
public:
    CallingData(std::vector<std::wstring> paths, std::function<void()> call)
        : FileData(std::move(paths)), call_(std::move(call)) {}

    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override {
        call_();
        return FileData::GetData(format, medium);
    }

private:
    const std::function<void()> call_;
};

class MenuFaultsTest : public testing::Test {
protected:
    MenuFaultsTest() {
        registry_.SetString(L"Software\\Tamblewick\\aaa", L"Name", L"A name that is not short");
        registry_.SetStringList(L"Software\\Tamblewick\\aaa\\Filter", L"ExcludedFolders", {L"one", L"two"});
    }

    Com<IContextMenu> NewHandler() const { return module_.NewHandler({folder_.Path(), folder_.Path()}); }

    // Asks for the entries and returns the result, S_OK for any success. The menu is empty again afterwards.
    HRESULT Query(IContextMenu& handler) const {
        const HRESULT result = handler.QueryContextMenu(menu_.get(), 0, 1, 9, CMF_NORMAL);
        EXPECT_EQ(GetMenuItemCount(menu_.get()), FAILED(result) ? 0 : 1);
        DeleteMenu(menu_.get(), 0, MF_BYPOSITION);
        return FAILED(result) ? result : S_OK;
    }

    // Calls operation, which returns a result of the module, with one allocation after the other failing,
    // until none does, and expects that no memory is lost. Threads of the system allocate and free meanwhile,
    // so a loss counts only if three rounds show it.
    template <typename Operation>
    void ExpectOutOfMemory(const Operation& operation) const {
        EXPECT_EQ(operation(), S_OK);
        bool losesMemory = true;
        for (int round = 0; round < 3 && losesMemory; ++round) {
            const size_t before = HeapUse();
            FailEachAllocation(operation);
            losesMemory = HeapUse() > before;
        }
        EXPECT_FALSE(losesMemory);
    }

    template <typename Operation>
    void FailEachAllocation(const Operation& operation) const {
        int number = 0;
        for (bool failed = true; failed;) {
            const FailingAllocation allocation(module_.Handle(), ++number);
            const HRESULT result = operation();
            failed = allocation.HasFailed();
            EXPECT_EQ(result, failed ? E_OUTOFMEMORY : S_OK) << number;
        }
        EXPECT_GT(number, 1);
    }

    const TestSupport::TestRegistry registry_;
    const TestSupport::TempFolder folder_;
    const LoadedModule module_;
    const WinLib::UniqueHandle<HMENU> menu_{CreatePopupMenu()};
};

TEST_F(MenuFaultsTest, FailedAllocationForAHandlerIsReported) {
    ExpectOutOfMemory([&] {
        HRESULT result = S_OK;
        module_.NewHandler({folder_.Path(), folder_.Path()}, result);
        return result;
    });
    EXPECT_EQ(module_.CanUnload(), S_OK);
}

TEST_F(MenuFaultsTest, FailedAllocationForTheEntriesIsReported) {
    const Com<IContextMenu> handler = NewHandler();
    ExpectOutOfMemory([&] { return Query(*handler); });
}

TEST_F(MenuFaultsTest, FailedAllocationForATextIsReported) {
    const Com<IContextMenu> handler = NewHandler();
    QueryMenu(*handler);
    std::array<char, 200> text = {};
    ExpectOutOfMemory([&] {
        return handler->GetCommandString(0, GCS_HELPTEXTA, nullptr, text.data(),
                                         static_cast<UINT>(text.size()));
    });
}

// The data object calls another handler, as one of the shell may do when it serves messages meanwhile. Each
// call reports its own exceptions.
TEST_F(MenuFaultsTest, CallsWithinCallsReportTheirOwnFailures) {
    const Com<IContextMenu> outer = NewHandler();
    const Com<IContextMenu> inner = NewHandler();
    HRESULT innerResult = S_OK;
    CallingData data({folder_.Path(), folder_.Path()}, [&] { innerResult = Query(*inner); });
    void* object = nullptr;
    ASSERT_EQ(outer->QueryInterface(IID_IShellExtInit, &object), S_OK);
    const Com<IShellExtInit> init(static_cast<IShellExtInit*>(object));
    bool outerFailed = false;
    bool innerFailed = false;
    bool failed = true;
    for (int number = 1; failed; ++number) {
        innerResult = S_OK;
        const FailingAllocation allocation(module_.Handle(), number);
        const HRESULT result = init->Initialize(nullptr, &data, nullptr);
        failed = allocation.HasFailed();
        EXPECT_EQ(result == E_OUTOFMEMORY || innerResult == E_OUTOFMEMORY, failed) << number;
        EXPECT_TRUE(result == S_OK || innerResult == S_OK) << number;
        outerFailed |= result != S_OK;
        innerFailed |= innerResult != S_OK;
    }
    EXPECT_TRUE(outerFailed);
    EXPECT_TRUE(innerFailed);
}

TEST_F(MenuFaultsTest, RefusedEntryIsReportedAndItsSubmenuDestroyed) {
    const Com<IContextMenu> handler = NewHandler();
    {
        const ImportHook hook(module_.Handle(), "InsertMenuItemW", RefuseItem);
        EXPECT_EQ(Query(*handler), HRESULT_FROM_WIN32(ERROR_NOT_ENOUGH_QUOTA));
    }
    EXPECT_FALSE(IsMenu(refusedSubmenu));
    // It is not known then, and nothing can be chosen.
    EXPECT_EQ(handler->GetCommandString(0, GCS_VALIDATEW, nullptr, nullptr, 0), S_FALSE);
    EXPECT_EQ(Invoke(*handler, 0), E_INVALIDARG);
}

TEST_F(MenuFaultsTest, NothingIsDoneWithoutAPlaceForExceptions) {
    const Com<IContextMenu> handler = NewHandler();
    const ImportHook hook(module_.Handle(), "TlsSetValue", RefuseSlot);
    EXPECT_EQ(Query(*handler), E_OUTOFMEMORY);
    HRESULT result = S_OK;
    module_.NewHandler({folder_.Path()}, result);
    EXPECT_EQ(result, E_OUTOFMEMORY);
}

TEST(LoadingFaultsTest, ModuleIsNotLoadedWithoutAThreadLocalSlot) {
    {
        const AllSlots slots;
        EXPECT_EQ(LoadLibraryW(ModulePath().c_str()), nullptr);
    }
    const LoadedModule module;
    EXPECT_EQ(module.CanUnload(), S_OK);
}

}  // namespace
