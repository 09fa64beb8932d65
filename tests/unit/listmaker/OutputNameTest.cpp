#include "listmaker/OutputName.h"

#include <gtest/gtest.h>

#include "settings/Preset.h"
#include "support/TempFolder.h"

namespace {

Preset MakePreset(SaveLocation location, const std::wstring& customFolder, bool overwrite,
                  ListStyle style = ListStyle::Text) {
    Preset preset(L"test");
    preset.Get(Format::ListStyle) = style;
    preset.Get(Saving::SaveLocation) = location;
    preset.Get(Saving::CustomFolderPath) = customFolder;
    preset.Get(Saving::OverwriteExisting) = overwrite;
    return preset;
}

// With a trailing backslash.
std::wstring TemporaryFolder() {
    std::wstring folder(300, L'\0');
    folder.resize(GetTempPathW(300, folder.data()));
    return folder;
}

TEST(OutputName, NamesTheLastPartOfThePath) {
    const struct {
        const wchar_t* path;
        const wchar_t* name;
    } rows[] = {
        {L"C:\\Data\\Photos", L"List of Photos.txt"},
        {L"C:/Data/Photos", L"List of Photos.txt"},
        {L"C:\\Data/Photos", L"List of Photos.txt"},
        {L"C:\\Photos", L"List of Photos.txt"},
        {L"\\\\server\\share", L"List of share.txt"},
        {L"C:\\a.b c", L"List of a.b c.txt"},
        // Of a drive its letter alone.
        {L"D:\\", L"List of D.txt"},
        {L"D:/", L"List of D.txt"},
        {L"D:", L"List of D.txt"},
        {L"d:x", L"List of d.txt"},
        {L"A:", L"List of A.txt"},
        {L"Z:\\", L"List of Z.txt"},
        {L"a:\\", L"List of a.txt"},
        {L"z:\\", L"List of z.txt"},
        // What is beside the letters is no drive.
        {L"1:\\", L"List of .txt"},
        {L"@:\\", L"List of .txt"},
        {L"[:\\", L"List of .txt"},
        {L"`:\\", L"List of .txt"},
        {L"{:\\", L"List of .txt"},
        {L"\u00C4:\\", L"List of .txt"},
        {L"C:xy", L"List of .txt"},
        {L"C:\\x", L"List of x.txt"},
        // Nothing after the last backslash, or no backslash at all.
        {L"C:\\Data\\", L"List of .txt"},
        {L"C:/Data/", L"List of .txt"},
        {L"Photos", L"List of .txt"},
        {L"\\", L"List of .txt"},
        {L"", L"List of .txt"},
    };
    const Preset preset = MakePreset(SaveLocation::Custom, L"E:\\Lists", true);
    for (const auto& row : rows)
        EXPECT_EQ(OutputName(preset, row.path), std::wstring(L"E:\\Lists\\") + row.name)
            << testing::PrintToString(std::wstring(row.path));
}

TEST(OutputName, EndsWithTheStylesExtension) {
    const struct {
        ListStyle style;
        const wchar_t* extension;
    } rows[] = {
        {ListStyle::Text, L".txt"},
        {ListStyle::Html, L".html"},
        {static_cast<ListStyle>(2), L".txt"},
    };
    for (const auto& row : rows) {
        const Preset preset = MakePreset(SaveLocation::Custom, L"E:\\Lists", true, row.style);
        EXPECT_EQ(OutputName(preset, L"C:\\Photos"),
                  std::wstring(L"E:\\Lists\\List of Photos") + row.extension);
    }
}

TEST(OutputName, LiesInTheTemporaryFolder) {
    const Preset preset = MakePreset(SaveLocation::Temporary, L"E:\\Unused", true);
    EXPECT_EQ(OutputName(preset, L"C:\\Data\\Photos"), TemporaryFolder() + L"List of Photos.txt");
}

TEST(OutputName, LiesInTheListedFolder) {
    const struct {
        const wchar_t* path;
        const wchar_t* name;
    } rows[] = {
        {L"C:\\Data\\Photos", L"C:\\Data\\Photos\\List of Photos.html"},
        {L"C:/Data/Photos", L"C:\\Data\\Photos\\List of Photos.html"},
        {L"C:\\Data\\", L"C:\\Data\\List of .html"},
        {L"D:\\", L"D:\\List of D.html"},
        {L"C:\\", L"C:\\List of C.html"},
        {L"\\\\server\\share", L"\\\\server\\share\\List of share.html"},
        {L"//server/share", L"\\\\server\\share\\List of share.html"},
        {L"", L"List of .html"},
    };
    const Preset preset = MakePreset(SaveLocation::SamePath, L"E:\\Unused", true, ListStyle::Html);
    for (const auto& row : rows)
        EXPECT_EQ(OutputName(preset, row.path), row.name) << testing::PrintToString(std::wstring(row.path));
}

TEST(OutputName, LiesInTheCustomFolder) {
    const struct {
        const wchar_t* folder;
        const wchar_t* name;
    } rows[] = {
        {L"E:\\Lists", L"E:\\Lists\\List of Photos.txt"},
        {L"E:/Lists/", L"E:\\Lists\\List of Photos.txt"},
        {L"E:\\", L"E:\\List of Photos.txt"},
        {L"", L"List of Photos.txt"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(OutputName(MakePreset(SaveLocation::Custom, row.folder, true), L"C:\\Data\\Photos"),
                  row.name)
            << testing::PrintToString(std::wstring(row.folder));
}

TEST(OutputName, IsRelativeForAnUnknownLocation) {
    const Preset preset = MakePreset(static_cast<SaveLocation>(3), L"E:\\Unused", true);
    EXPECT_EQ(OutputName(preset, L"C:\\Data\\Photos"), L"List of Photos.txt");
}

TEST(OutputName, CountsFromTwoWhileAFileExists) {
    const TestSupport::TempFolder folder;
    const Preset preset = MakePreset(SaveLocation::Custom, folder.Path(), false);
    const auto name = [&] { return OutputName(preset, L"C:\\Data\\Photos"); };

    EXPECT_EQ(name(), folder.Path(L"List of Photos.txt"));
    folder.AddFile(L"List of Photos (1).txt");
    folder.AddFile(L"List of Photos (3).txt");
    folder.AddFile(L"List of Photos.html");
    EXPECT_EQ(name(), folder.Path(L"List of Photos.txt"));
    folder.AddFile(L"List of Photos.txt");
    EXPECT_EQ(name(), folder.Path(L"List of Photos (2).txt"));
    folder.AddFile(L"List of Photos (2).txt");
    EXPECT_EQ(name(), folder.Path(L"List of Photos (4).txt"));
    for (int i = 4; i <= 11; ++i)
        folder.AddFile(L"List of Photos (" + std::to_wstring(i) + L").txt");
    EXPECT_EQ(name(), folder.Path(L"List of Photos (12).txt"));
}

TEST(OutputName, GivesTheThirdNameBesideTwoLists) {
    const TestSupport::TempFolder folder;
    folder.AddFile(L"List of Photos.txt");
    folder.AddFile(L"List of Photos (2).txt");
    const Preset preset = MakePreset(SaveLocation::Custom, folder.Path(), false);
    EXPECT_EQ(OutputName(preset, L"C:\\Data\\Photos"), folder.Path(L"List of Photos (3).txt"));
}

TEST(OutputName, CountsPastAFolderOfTheName) {
    const TestSupport::TempFolder folder;
    folder.AddFolder(L"List of Photos.txt");
    const Preset preset = MakePreset(SaveLocation::Custom, folder.Path(), false);
    EXPECT_EQ(OutputName(preset, L"C:\\Data\\Photos"), folder.Path(L"List of Photos (2).txt"));
}

TEST(OutputName, MayBeThatOfAnExistingFileIfThePresetOverwrites) {
    const TestSupport::TempFolder folder;
    folder.AddFile(L"List of Photos.txt");
    const Preset preset = MakePreset(SaveLocation::Custom, folder.Path(), true);
    EXPECT_EQ(OutputName(preset, L"C:\\Data\\Photos"), folder.Path(L"List of Photos.txt"));
}

TEST(OutputName, MakesNeitherFileNorFolder) {
    const TestSupport::TempFolder folder;
    const Preset preset = MakePreset(SaveLocation::Custom, folder.Path(L"missing"), false);
    EXPECT_EQ(OutputName(preset, L"C:\\Data\\Photos"), folder.Path(L"missing\\List of Photos.txt"));
    EXPECT_FALSE(folder.Exists(L"missing"));
}

}  // namespace
