// What Windows reads from the manifests inside the built programs.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "endtoend/Program.h"

namespace {

// The manifest resource of a program beside the test program, read by the system itself: one that is missing
// or cannot be read fails the test.
class Manifest {
public:
    explicit Manifest(const std::wstring& program) {
        const std::wstring path = EndToEnd::PathBeside(program);
        ACTCTXW source = {};
        source.cbSize = sizeof(source);
        source.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
        source.lpSource = path.c_str();
        source.lpResourceName = reinterpret_cast<const wchar_t*>(CREATEPROCESS_MANIFEST_RESOURCE_ID);
        context_ = CreateActCtxW(&source);
        EXPECT_NE(context_, INVALID_HANDLE_VALUE) << GetLastError();
    }
    ~Manifest() {
        if (context_ != INVALID_HANDLE_VALUE)
            ReleaseActCtx(context_);
    }
    Manifest(const Manifest&) = delete;
    Manifest& operator=(const Manifest&) = delete;

    // An element of windowsSettings in its namespace, which ends in this year; nothing if there is none.
    std::optional<std::wstring> Setting(const std::wstring& year, const wchar_t* name) const {
        const std::wstring space = L"http://schemas.microsoft.com/SMI/" + year + L"/WindowsSettings";
        std::array<wchar_t, 64> text = {};
        if (!QueryActCtxSettingsW(0, context_, space.c_str(), name, text.data(), text.size(), nullptr))
            return std::nullopt;
        return text.data();
    }

    ACTCTX_REQUESTED_RUN_LEVEL RunLevel() const {
        ACTIVATION_CONTEXT_RUN_LEVEL_INFORMATION level = {};
        EXPECT_TRUE(QueryActCtxW(0, context_, nullptr, RunlevelInformationInActivationContext, &level,
                                 sizeof(level), nullptr));
        return level.RunLevel;
    }

    // The systems that the program is made for, from the oldest on.
    std::vector<GUID> Systems() const {
        // The header of mingw-w64 does not know the last member, which Windows 10 brought.
        struct Element {
            GUID id;
            ACTCTX_COMPATIBILITY_ELEMENT_TYPE type;
            uint64_t maxVersionTested;
        };
        struct {
            DWORD count;
            std::array<Element, 16> elements;
        } information = {};
        EXPECT_TRUE(QueryActCtxW(0, context_, nullptr, CompatibilityInformationInActivationContext,
                                 &information, sizeof(information), nullptr));
        std::vector<GUID> systems;
        for (DWORD i = 0; i < information.count; ++i)
            systems.push_back(information.elements[i].id);
        return systems;
    }

    // The identities of the manifest and of the assemblies that it needs.
    std::vector<std::wstring> Assemblies() const {
        std::vector<std::wstring> identities;
        for (ULONG index = 1;; ++index) {
            alignas(ACTIVATION_CONTEXT_ASSEMBLY_DETAILED_INFORMATION) std::array<char, 4096> buffer = {};
            if (!QueryActCtxW(0, context_, &index, AssemblyDetailedInformationInActivationContext,
                              buffer.data(), buffer.size(), nullptr))
                return identities;
            identities.emplace_back(
                reinterpret_cast<const ACTIVATION_CONTEXT_ASSEMBLY_DETAILED_INFORMATION*>(buffer.data())
                    ->lpAssemblyEncodedAssemblyIdentity);
        }
    }

private:
    HANDLE context_ = INVALID_HANDLE_VALUE;
};

class Manifests : public testing::TestWithParam<const wchar_t*> {
protected:
    const Manifest manifest = Manifest(GetParam());
};

TEST_P(Manifests, AllowLongPaths) {
    EXPECT_EQ(manifest.Setting(L"2016", L"longPathAware"), L"true");
}

// The layout is in pixels, so Windows scales it. It does not if the manifest says anything about DPI.
TEST_P(Manifests, LeaveTheScalingToWindows) {
    EXPECT_EQ(manifest.Setting(L"2017", L"gdiScaling"), L"true");
    EXPECT_EQ(manifest.Setting(L"2005", L"dpiAware"), std::nullopt);
    EXPECT_EQ(manifest.Setting(L"2016", L"dpiAwareness"), std::nullopt);
}

TEST_P(Manifests, AskForNoMoreRights) {
    EXPECT_EQ(manifest.RunLevel(), ACTCTX_RUN_LEVEL_AS_INVOKER);
}

// Without these a program is shown an older Windows.
TEST_P(Manifests, NameEveryWindowsFromWindows7On) {
    constexpr GUID Windows7 = {0x35138b9a, 0x5d96, 0x4fbd, {0x8e, 0x2d, 0xa2, 0x44, 0x02, 0x25, 0xf9, 0x3a}};
    constexpr GUID Windows8 = {0x4a2f28e3, 0x53b9, 0x4441, {0xba, 0x9c, 0xd6, 0x9d, 0x4a, 0x4a, 0x6e, 0x38}};
    constexpr GUID Windows81 = {0x1f676c76, 0x80e1, 0x4239, {0x95, 0xbb, 0x83, 0xd0, 0xf6, 0xd0, 0xda, 0x78}};
    constexpr GUID Windows10 = {0x8e0f7a12, 0xbfb3, 0x4fe8, {0xb9, 0xa5, 0x48, 0xfd, 0x50, 0xa1, 0x5a, 0x9a}};
    EXPECT_EQ(manifest.Systems(), (std::vector<GUID>{Windows7, Windows8, Windows81, Windows10}));
}

TEST_P(Manifests, AskForTheControlsWithThemes) {
    const std::vector<std::wstring> assemblies = manifest.Assemblies();
    EXPECT_TRUE(std::ranges::any_of(assemblies, [](const std::wstring& identity) {
        return identity.starts_with(L"Microsoft.Windows.Common-Controls,") &&
               identity.find(L"version=\"6.0.") != std::wstring::npos;
    })) << testing::PrintToString(assemblies);
}

INSTANTIATE_TEST_SUITE_P(Programs, Manifests, testing::Values(L"tamblewick.exe", L"tamblewickc.exe"));

}  // namespace
