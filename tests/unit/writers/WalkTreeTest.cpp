#include "writers/WalkTree.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Text.h"
#include "support/lists/ListSupport.h"
#include "writers/ListVisitor.h"
#include "writers/PathState.h"

namespace {

using Steps = std::vector<std::string>;

// Writes down every call with what the state shows at that moment.
class Recorder : public ListVisitor {
public:
    void WriteHeader(const PathState& state, const Scanner::Folder& root) override {
        Note("WriteHeader " + Utf8(root.name) + " at " + Utf8(state.path));
    }
    void WriteFooter(const PathState& state, const Scanner::Folder& root) override {
        Note("WriteFooter " + Utf8(root.name) + " at " + Utf8(state.path));
    }
    void BeginFolders(uint64_t count) override { Note("BeginFolders " + std::to_string(count)); }
    void WriteFolder(const PathState& state, const Scanner::Folder& folder) override {
        Note("WriteFolder " + std::to_string(state.folderNumber) + " " + Utf8(folder.name) + " at " +
             Utf8(state.path));
    }
    void EndFolders(uint64_t count) override { Note("EndFolders " + std::to_string(count)); }
    void BeginFiles() override { Note("BeginFiles"); }
    void WriteFile(const PathState& state, const Scanner::File& file) override {
        Note("WriteFile " + std::to_string(state.fileNumber) + " " + Utf8(file.fullName) + " at " +
             Utf8(state.path));
    }
    void EndFiles() override { Note("EndFiles"); }
    void Indent() override { Note("Indent"); }
    void Unindent() override { Note("Unindent"); }

    Steps steps;

private:
    static std::string Utf8(std::wstring_view text) { return TestSupport::Utf8(text); }
    void Note(const std::string& step) { steps.push_back(step); }
};

Steps StepsOf(const ScanTree& tree, bool flat) {
    Recorder recorder;
    WalkTree(recorder, tree.root, flat);
    return recorder.steps;
}

TEST(WalkTree, EmptyFolderHasNoGroups) {
    const ScanTree tree;
    const Steps expected = {
        "WriteHeader C:\\Data at C:\\Data",
        "Unindent",
        "WriteFooter C:\\Data at ",
    };
    EXPECT_EQ(StepsOf(tree, false), expected);
    EXPECT_EQ(StepsOf(tree, true), expected);
}

TEST(WalkTree, FolderWithOnlyFilesEndsItsFoldersInTheGroupedStyleAlone) {
    ScanTree tree;
    tree.AddFile(tree.root, L"a.txt");
    tree.AddFile(tree.root, L"b.txt");
    const Steps grouped = {
        "WriteHeader C:\\Data at C:\\Data",
        "BeginFiles",
        "WriteFile 1 a.txt at C:\\Data",
        "WriteFile 2 b.txt at C:\\Data",
        "EndFiles",
        "EndFolders 0",
        "Unindent",
        "WriteFooter C:\\Data at ",
    };
    EXPECT_EQ(StepsOf(tree, false), grouped);
    const Steps flat = {
        "WriteHeader C:\\Data at C:\\Data", "BeginFiles", "WriteFile 1 a.txt at C:\\Data",
        "WriteFile 2 b.txt at C:\\Data",    "EndFiles",   "Unindent",
        "WriteFooter C:\\Data at ",
    };
    EXPECT_EQ(StepsOf(tree, true), flat);
}

ScanTree TwoLevels() {
    ScanTree tree;
    Scanner::Node& first = tree.AddFolder(tree.root, L"First");
    tree.AddFile(tree.AddFolder(first, L"Inner"), L"deep");
    tree.AddFolder(first, L"Empty");
    tree.AddFile(first, L"one");
    tree.AddFile(first, L"two");
    tree.AddFile(tree.AddFolder(tree.root, L"Second"), L"three");
    tree.AddFile(tree.root, L"top");
    return tree;
}

TEST(WalkTree, FoldersComeBeforeFilesAndNumbersRestart) {
    const Steps grouped = {
        "WriteHeader C:\\Data at C:\\Data",
        "BeginFolders 2",
        "WriteFolder 1 First at C:\\Data",
        "Indent",
        "BeginFolders 2",
        "WriteFolder 1 Inner at C:\\Data\\First",
        "Indent",
        "BeginFiles",
        "WriteFile 1 deep at C:\\Data\\First\\Inner",
        "EndFiles",
        "EndFolders 0",
        "Unindent",
        "WriteFolder 2 Empty at C:\\Data\\First",
        "Indent",
        "Unindent",
        "BeginFiles",
        "WriteFile 1 one at C:\\Data\\First",
        "WriteFile 2 two at C:\\Data\\First",
        "EndFiles",
        "EndFolders 2",
        "Unindent",
        "WriteFolder 2 Second at C:\\Data",
        "Indent",
        "BeginFiles",
        "WriteFile 1 three at C:\\Data\\Second",
        "EndFiles",
        "EndFolders 0",
        "Unindent",
        "BeginFiles",
        "WriteFile 1 top at C:\\Data",
        "EndFiles",
        "EndFolders 2",
        "Unindent",
        "WriteFooter C:\\Data at ",
    };
    EXPECT_EQ(StepsOf(TwoLevels(), false), grouped);
}

TEST(WalkTree, FlatTreeEndsItsFoldersBeforeTheFiles) {
    ScanTree tree = TwoLevels();
    tree.Flatten();
    const Steps flat = {
        "WriteHeader C:\\Data at C:\\Data",
        "BeginFolders 4",
        "WriteFolder 1 First at C:\\Data",
        "Indent",
        "Unindent",
        "WriteFolder 2 Inner at C:\\Data",
        "Indent",
        "Unindent",
        "WriteFolder 3 Empty at C:\\Data",
        "Indent",
        "Unindent",
        "WriteFolder 4 Second at C:\\Data",
        "Indent",
        "Unindent",
        "EndFolders 4",
        "BeginFiles",
        "WriteFile 1 deep at C:\\Data",
        "WriteFile 2 one at C:\\Data",
        "WriteFile 3 two at C:\\Data",
        "WriteFile 4 three at C:\\Data",
        "WriteFile 5 top at C:\\Data",
        "EndFiles",
        "Unindent",
        "WriteFooter C:\\Data at ",
    };
    EXPECT_EQ(StepsOf(tree, true), flat);
}

TEST(WalkTree, ScannedPathIsBroughtIntoItsCanonicalForm) {
    ScanTree tree(L"C:\\");
    tree.AddFile(tree.root, L"top");
    EXPECT_EQ(StepsOf(tree, false)[2], "WriteFile 1 top at C:");
}

class Counter : public ListVisitor {
public:
    void WriteHeader(const PathState&, const Scanner::Folder&) override {}
    void WriteFooter(const PathState&, const Scanner::Folder&) override {}
    void BeginFolders(uint64_t) override {}
    void WriteFolder(const PathState&, const Scanner::Folder&) override { ++folders; }
    void EndFolders(uint64_t) override {}
    void BeginFiles() override {}
    void WriteFile(const PathState&, const Scanner::File&) override {}
    void EndFiles() override {}
    void Indent() override { ++depth; }
    void Unindent() override { --depth; }

    int folders = 0;
    int depth = 0;
};

// Folders without a name keep the path short. One call for each level would take more stack than there is.
TEST(WalkTree, FollowsAnyDepth) {
    constexpr int Levels = 200000;
    ScanTree tree;
    Scanner::Node* node = &tree.root;
    std::vector<Scanner::Folder> records(Levels);
    for (Scanner::Folder& record : records) {
        record.parent = node->folder;
        record.name = record.fullName = record.extension = Scanner::EmptyText;
        node = &node->folders.emplace_back(&record);
    }
    Counter counter;
    WalkTree(counter, tree.root, false);
    EXPECT_EQ(counter.folders, Levels);
    EXPECT_EQ(counter.depth, -1);
}

}  // namespace
