// What Explorer shows of the built files.

#include <gtest/gtest.h>

#include <vector>

#include "BuiltFile.h"

namespace {

struct VersionRow {
    const wchar_t* file;
    DWORD type;
    const wchar_t* description;
};

constexpr VersionRow Files[] = {
    {L"tamblewick.exe", VFT_APP, L"Tamblewick"},
    {L"tamblewick.dll", VFT_DLL, L"Tamblewick in the context menus of folders"},
};

class Version {
public:
    explicit Version(const std::wstring& path) : data_(GetFileVersionInfoSizeW(path.c_str(), nullptr)) {
        GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(data_.size()), data_.data());
    }

    VS_FIXEDFILEINFO Numbers() const {
        void* value = nullptr;
        UINT size = 0;
        const BOOL found = VerQueryValueW(data_.data(), L"\\", &value, &size);
        EXPECT_TRUE(found);
        return found ? *static_cast<const VS_FIXEDFILEINFO*>(value) : VS_FIXEDFILEINFO{};
    }

    std::wstring Text(const wchar_t* name) const {
        void* value = nullptr;
        UINT size = 0;
        // American English in Unicode.
        const std::wstring block = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
        return VerQueryValueW(data_.data(), block.c_str(), &value, &size) ? static_cast<const wchar_t*>(value)
                                                                          : L"(none)";
    }

    DWORD Translation() const {
        void* value = nullptr;
        UINT size = 0;
        const BOOL found = VerQueryValueW(data_.data(), L"\\VarFileInfo\\Translation", &value, &size);
        EXPECT_TRUE(found);
        return found && size == sizeof(DWORD) ? *static_cast<const DWORD*>(value) : 0;
    }

private:
    std::vector<std::byte> data_;
};

TEST(VersionResource, HoldsTheNumbers) {
    for (const VersionRow& row : Files) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.file)));
        const VS_FIXEDFILEINFO numbers = Version(BuiltFile(row.file).Path()).Numbers();
        EXPECT_EQ(numbers.dwFileVersionMS, static_cast<DWORD>(MAKELONG(0, 4)));
        EXPECT_EQ(numbers.dwFileVersionLS, static_cast<DWORD>(MAKELONG(0, 1)));
        EXPECT_EQ(numbers.dwProductVersionMS, numbers.dwFileVersionMS);
        EXPECT_EQ(numbers.dwProductVersionLS, numbers.dwFileVersionLS);
        EXPECT_EQ(numbers.dwFileFlagsMask, static_cast<DWORD>(VS_FFI_FILEFLAGSMASK));
        EXPECT_EQ(numbers.dwFileFlags, 0u) << "neither a trial nor a private build";
        EXPECT_EQ(numbers.dwFileOS, static_cast<DWORD>(VOS_NT_WINDOWS32));
        EXPECT_EQ(numbers.dwFileType, row.type);
        EXPECT_EQ(numbers.dwFileSubtype, 0u);
    }
}

TEST(VersionResource, HoldsTheTexts) {
    for (const VersionRow& row : Files) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.file)));
        const Version version(BuiltFile(row.file).Path());
        EXPECT_EQ(version.Translation(), static_cast<DWORD>(MAKELONG(0x0409, 0x04B0)));
        EXPECT_EQ(version.Text(L"CompanyName"), L"Tamblewick");
        EXPECT_EQ(version.Text(L"FileDescription"), row.description);
        EXPECT_EQ(version.Text(L"FileVersion"), L"4.0.1");
        EXPECT_EQ(version.Text(L"InternalName"), L"tamblewick");
        EXPECT_EQ(version.Text(L"LegalCopyright"), L"Copyright \x00A9 2026 Ostrel Vane");
        EXPECT_EQ(version.Text(L"OriginalFilename"), row.file);
        EXPECT_EQ(version.Text(L"ProductName"), L"Tamblewick");
        EXPECT_EQ(version.Text(L"ProductVersion"), L"4.0.1");
    }
}

}  // namespace
