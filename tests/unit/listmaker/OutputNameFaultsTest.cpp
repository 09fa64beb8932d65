#include <gtest/gtest.h>

#include "FakeWin.h"
#include "listmaker/OutputName.h"
#include "settings/Preset.h"

using FakeWin::Call;

namespace {

Preset TemporaryPreset() {
    Preset preset(L"test");
    preset.Get(Saving::SaveLocation) = SaveLocation::Temporary;
    preset.Get(Saving::OverwriteExisting) = false;
    return preset;
}

// A folder path of this many characters, with a trailing backslash.
std::wstring PathOfLength(size_t length) {
    std::wstring path = L"C:\\";
    path.resize(length - 1, L'x');
    return path + L'\\';
}

TEST(OutputNameFaults, ThereIsNoTemporaryFolder) {
    FakeWin::Fail(Call::GetTempPathW, ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_EQ(OutputName(TemporaryPreset(), L"C:\\Data\\Photos"), L"List of Photos.txt");
}

TEST(OutputNameFaults, TheTemporaryFoldersPathFillsTheBuffer) {
    const struct {
        DWORD result;
        bool used;
    } rows[] = {{275, true}, {276, false}, {277, false}};
    for (const auto& row : rows) {
        const std::wstring path = PathOfLength(row.result);
        FakeWin::SetTempPath(path);
        EXPECT_EQ(OutputName(TemporaryPreset(), L"C:\\Data\\Photos"),
                  row.used ? path + L"List of Photos.txt" : L"List of Photos.txt")
            << row.result;
    }
}

TEST(OutputNameFaults, TheTemporaryFoldersPathIsAnnouncedAsLongerThanTheBuffer) {
    FakeWin::SetTempPathResult(276);
    EXPECT_EQ(OutputName(TemporaryPreset(), L"C:\\Data\\Photos"), L"List of Photos.txt");
}

TEST(OutputNameFaults, AFileThatCannotBeExaminedCountsAsFree) {
    FakeWin::AddFile(L"C:\\Temp\\List of Photos.txt");
    FakeWin::FailOn(Call::GetFileAttributesW, L"C:\\Temp\\List of Photos.txt", ERROR_ACCESS_DENIED);
    EXPECT_EQ(OutputName(TemporaryPreset(), L"C:\\Data\\Photos"), L"C:\\Temp\\List of Photos.txt");
}

TEST(OutputNameFaults, NothingIsOpenedOrWritten) {
    FakeWin::AddFile(L"C:\\Temp\\List of Photos.txt", "old");
    EXPECT_EQ(OutputName(TemporaryPreset(), L"C:\\Data\\Photos"), L"C:\\Temp\\List of Photos (2).txt");
    EXPECT_TRUE(FakeWin::WrittenFiles().empty());
    EXPECT_EQ(FakeWin::Uses(Call::GetFileAttributesW), 2);
}

}  // namespace
