// Where the list goes, under which name, and how it is opened. A small recorder takes the place of the
// programs that open lists and writes down how it was called.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <optional>

#include "endtoend/Program.h"
#include "support/TempFolder.h"

using EndToEnd::FilesIn;
using EndToEnd::ListsFolder;
using EndToEnd::RunProgram;
using EndToEnd::StoredPreset;

namespace {

using Names = std::vector<std::wstring>;

struct Output : testing::Test {
    Output() { folder.AddFile(L"Photos\\a.txt", 1); }

    void MakeList(const std::wstring& path) { EXPECT_EQ(RunProgram(preset.Key + L" \"" + path + L"\""), 0u); }

    TestSupport::TempFolder folder;
    StoredPreset preset;
};

TEST_F(Output, NumberFollowsWhenTheNameIsTaken) {
    preset.Set(L"Saving", L"OverwriteExisting", 0u).Set(L"Format", L"ListStyle", L"Html");
    for (int i = 0; i < 3; ++i)
        MakeList(folder.Path() + L"\\Photos");
    EXPECT_EQ(FilesIn(ListsFolder()),
              (Names{L"List of Photos (2).html", L"List of Photos (3).html", L"List of Photos.html"}));
}

TEST_F(Output, OverwritingReplacesTheOlderList) {
    MakeList(folder.Path() + L"\\Photos");
    const std::string first = EndToEnd::ReadFile(ListsFolder() + L"\\List of Photos.txt");
    folder.AddFile(L"Photos\\b.txt", 1);
    MakeList(folder.Path() + L"\\Photos");
    EXPECT_EQ(FilesIn(ListsFolder()), Names{L"List of Photos.txt"});
    EXPECT_GT(EndToEnd::ReadFile(ListsFolder() + L"\\List of Photos.txt").size(), first.size());
}

TEST_F(Output, SamePathPutsTheListIntoTheListedFolder) {
    preset.Set(L"Saving", L"SaveLocation", L"SamePath");
    MakeList(folder.Path() + L"\\Photos");
    EXPECT_EQ(FilesIn(folder.Path() + L"\\Photos"), (Names{L"List of Photos.txt", L"a.txt"}));
}

TEST_F(Output, TemporaryIsTheUsersTemporaryFolder) {
    preset.Set(L"Saving", L"SaveLocation", L"Temporary");
    std::array<wchar_t, 276> temp;
    GetTempPathW(static_cast<DWORD>(temp.size()), temp.data());
    const std::filesystem::path list = std::filesystem::path(temp.data()) / L"List of Photos.txt";
    std::filesystem::remove(list);
    MakeList(folder.Path() + L"\\Photos");
    EXPECT_TRUE(std::filesystem::remove(list));
}

TEST_F(Output, ListThatCannotBeWrittenIsPassedOverInSilence) {
    preset.Set(L"Saving", L"CustomFolderPath", ListsFolder() + L"\\missing\\folder")
        .Set(L"Opening", L"OpenMethod", L"Default");
    MakeList(folder.Path() + L"\\Photos");
    EXPECT_EQ(FilesIn(ListsFolder()), Names{});
}

// What the recorder was started with; its own name comes first. Waits until the file can be opened: for a
// moment after its renaming that is refused.
std::string RecordedCommandLine() {
    std::optional<std::string> line;
    for (int i = 0; i < 2000 && !line; ++i) {
        Sleep(5);
        line = TestSupport::ReadBytes(ListsFolder() + L"\\recorded");
    }
    EXPECT_TRUE(line.has_value());
    return line.value_or("");
}

// The recorder, copied to a place with a blank in its name.
std::wstring InstallRecorder(const std::wstring& place) {
    std::filesystem::create_directories(place);
    const std::wstring path = place + L"\\list viewer.exe";
    std::filesystem::copy_file(EndToEnd::PathBeside(L"recorder.exe"), path,
                               std::filesystem::copy_options::overwrite_existing);
    return path;
}

// Lets a command open the files of an extension, as long as it lives.
class Association {
public:
    Association(const std::wstring& extension, const std::wstring& command) : extension_(extension) {
        DWORD size = sizeof(earlier_);
        RegGetValueW(HKEY_CLASSES_ROOT, extension.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, earlier_, &size);
        Set(Type + L"\\shell\\open\\command", command);
        Set(extension, Type);
    }
    Association(const Association&) = delete;
    Association& operator=(const Association&) = delete;
    ~Association() {
        Set(extension_, earlier_);
        RegDeleteTreeW(HKEY_CLASSES_ROOT, Type.c_str());
    }

private:
    inline static const std::wstring Type = L"Tamblewick.EndToEnd";

    static void Set(const std::wstring& key, const std::wstring& text) {
        ASSERT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, text.c_str(),
                                  static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
                  ERROR_SUCCESS);
    }

    const std::wstring extension_;
    wchar_t earlier_[256] = {};
};

TEST_F(Output, CustomProgramGetsTheListAsOneQuotedArgument) {
    const std::wstring recorder = InstallRecorder(folder.Path() + L"\\bin dir");
    preset.Set(L"Opening", L"OpenMethod", L"Custom").Set(L"Opening", L"CustomProgramPath", recorder);
    MakeList(folder.Path() + L"\\Photos");
    const std::string line = RecordedCommandLine();
    const std::string argument = " \"C:\\tamblewick-lists\\List of Photos.txt\"";
    ASSERT_GT(line.size(), argument.size());
    EXPECT_EQ(line.substr(line.size() - argument.size()), argument) << line;
}

TEST_F(Output, DefaultOpensTheListByItsAssociation) {
    const std::wstring recorder = InstallRecorder(folder.Path() + L"\\bin dir");
    const Association association(L".html", L"\"" + recorder + L"\" \"%1\"");
    preset.Set(L"Opening", L"OpenMethod", L"Default").Set(L"Format", L"ListStyle", L"Html");
    MakeList(folder.Path() + L"\\Photos");
    const std::string line = RecordedCommandLine();
    EXPECT_NE(line.find("\"C:\\tamblewick-lists\\List of Photos.html\""), std::string::npos) << line;
}

TEST_F(Output, NothingOpensNothing) {
    MakeList(folder.Path() + L"\\Photos");
    EXPECT_EQ(FilesIn(ListsFolder()), Names{L"List of Photos.txt"});
}

}  // namespace
