// What the module leaves in the process that loaded it: nothing, however often it is loaded and unloaded.
#include <gtest/gtest.h>

#include <optional>
#include <thread>

#include "contextmenu/FakePrograms.h"
#include "contextmenu/HeapUse.h"
#include "contextmenu/LoadedModule.h"
#include "support/TempFolder.h"
#include "support/TestRegistry.h"
#include "support/windows/Resources.h"

namespace {

constexpr int Loads = 500;
constexpr size_t Allowed = 64 * 1024;

class UnloadTest : public testing::Test {
protected:
    UnloadTest() { registry_.SetString(L"Software\\Tamblewick\\aaa", L"Name", L"First"); }

    // A lone surrogate in a word that is looked up in a table: reading the presets throws.
    void DamagePreset() const {
        registry_.SetString(L"Software\\Tamblewick\\aaa\\Format", L"ListStyle",
                            std::wstring(1, wchar_t(0xD800)));
    }

    // Loads the module, asks a handler for its menu and frees the module. Returns the menu's result.
    HRESULT UseMenu() const {
        const LoadedModule module;
        return QueryMenu(*module.NewHandler({folder_.Path()}));
    }

    // Loads the module, chooses a preset for two folders and frees the module, which one of its threads needs
    // until it ends.
    void UseThread() const {
        std::optional<LoadedModule> module(std::in_place);
        FakePrograms programs(module->Handle());
        {
            const Com<IContextMenu> handler = module->NewHandler({folder_.Path(), folder_.Path()});
            EXPECT_EQ(QueryMenu(*handler), MAKE_HRESULT(SEVERITY_SUCCESS, 0, 2));
            EXPECT_EQ(Invoke(*handler, 0), S_OK);
        }
        module.reset();
        programs.EndAtOnce();
        programs.End(0);
        EXPECT_TRUE(programs.WaitForThreads());
        EXPECT_EQ(programs.CommandLines().size(), 2u);
    }

    // Calls once for each of many loads and expects that nothing is left of them.
    template <typename Once>
    static void ExpectNothingLeft(const Once& once) {
        // What the system allocates for the first use of anything stays.
        for (int i = 0; i < 10; ++i)
            once();
        const size_t slots = FreeThreadLocalSlots();
        const Resources resources = Resources::Now();
        const size_t heap = HeapUse();
        for (int i = 0; i < Loads; ++i)
            once();
        EXPECT_LT(HeapUse(), heap + Allowed);
        EXPECT_EQ(FreeThreadLocalSlots(), slots);
        EXPECT_TRUE(Resources::Now().IsWithin(resources)) << resources << " " << Resources::Now();
        EXPECT_EQ(GetModuleHandleW(ModulePath().c_str()), nullptr);
    }

    const TestSupport::TestRegistry registry_;
    const TestSupport::TempFolder folder_;
};

TEST_F(UnloadTest, MenusLeaveNothing) {
    ExpectNothingLeft([&] { EXPECT_EQ(UseMenu(), MAKE_HRESULT(SEVERITY_SUCCESS, 0, 2)); });
}

TEST_F(UnloadTest, ExceptionsOnALastingThreadLeaveNothing) {
    DamagePreset();
    ExpectNothingLeft([&] { EXPECT_EQ(UseMenu(), E_UNEXPECTED); });
}

TEST_F(UnloadTest, ExceptionsOnThreadsThatEndLeaveNothing) {
    DamagePreset();
    ExpectNothingLeft([&] { std::thread([&] { EXPECT_EQ(UseMenu(), E_UNEXPECTED); }).join(); });
}

TEST_F(UnloadTest, ThreadOfTheModuleLeavesNothing) {
    ExpectNothingLeft([&] { UseThread(); });
}

}  // namespace
