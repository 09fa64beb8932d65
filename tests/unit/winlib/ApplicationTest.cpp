#include "winlib/Application.h"

#include <gtest/gtest.h>

using WinLib::Application;

namespace {

TEST(Application, HoldsWhatTheEntryPointWasGiven) {
    int module = 0;
    const auto instance = reinterpret_cast<HINSTANCE>(&module);
    const Application application(instance, L"key C:\\Data", SW_SHOWMAXIMIZED);
    EXPECT_EQ(application.Instance, instance);
    EXPECT_EQ(application.CommandLine, L"key C:\\Data");
    EXPECT_EQ(application.ShowCommand, SW_SHOWMAXIMIZED);
    EXPECT_TRUE(application.Dialogs.empty());
    EXPECT_EQ(application.AcceleratorWindow, nullptr);
    EXPECT_EQ(application.Accelerators, nullptr);
}

// That the first is destroyed shows under AddressSanitizer, which reports one that is not.
TEST(Application, ASecondReplacesTheFirst) {
    EXPECT_EQ(Application::Current(), nullptr);
    for (int i = 0; i < 2; ++i) {
        auto application = std::make_unique<Application>(nullptr, std::to_wstring(i), 0);
        const Application* const expected = application.get();
        Application::Install(std::move(application));
        EXPECT_EQ(Application::Current(), expected);
        EXPECT_EQ(Application::Current()->CommandLine, std::to_wstring(i));
    }
    Application::Install(nullptr);
    EXPECT_EQ(Application::Current(), nullptr);
}

}  // namespace
