// What the module leaves in the process that loaded it: nothing, however often it comes and goes.
#include <gtest/gtest.h>

#include <thread>

#include "contextmenu/HeapUse.h"
#include "contextmenu/LoadedModule.h"
#include "support/TempFolder.h"
#include "support/TestRegistry.h"

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

    // Loads the module, asks a handler for its menu and frees it. Gives back the menu's result.
    HRESULT UseOnce() const {
        const LoadedModule module;
        const Com<IContextMenu> handler = module.NewHandler({folder_.Path()});
        return handler ? QueryMenu(*handler) : E_FAIL;
    }

    // How much the heap has grown after many loads. once is called for each.
    template <typename Once>
    static size_t Growth(const Once& once) {
        // What the system allocates for the first use of anything stays.
        for (int i = 0; i < 10; ++i)
            once();
        const size_t before = HeapUse();
        for (int i = 0; i < Loads; ++i)
            once();
        const size_t after = HeapUse();
        return after > before ? after - before : 0;
    }

    TestSupport::TestRegistry registry_;
    TestSupport::TempFolder folder_;
};

TEST_F(UnloadTest, MenusLeaveNoMemory) {
    EXPECT_LT(Growth([&] { EXPECT_EQ(UseOnce(), MAKE_HRESULT(SEVERITY_SUCCESS, 0, 2)); }), Allowed);
}

TEST_F(UnloadTest, ExceptionsOnALastingThreadLeaveNoMemory) {
    DamagePreset();
    EXPECT_LT(Growth([&] { EXPECT_EQ(UseOnce(), E_UNEXPECTED); }), Allowed);
}

TEST_F(UnloadTest, ExceptionsOnThreadsThatEndLeaveNoMemory) {
    DamagePreset();
    EXPECT_LT(Growth([&] { std::thread([&] { EXPECT_EQ(UseOnce(), E_UNEXPECTED); }).join(); }), Allowed);
}

TEST_F(UnloadTest, ExceptionsOnThreadsThatOutliveTheModuleLeaveNoThreadLocalSlot) {
    DamagePreset();
    EXPECT_EQ(UseOnce(), E_UNEXPECTED);
    const size_t before = FreeThreadLocalSlots();
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(UseOnce(), E_UNEXPECTED);
    EXPECT_EQ(FreeThreadLocalSlots(), before);
}

}  // namespace
