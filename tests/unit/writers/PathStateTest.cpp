#include "writers/PathState.h"

#include <gtest/gtest.h>

namespace {

TEST(PathState, StartsWithoutNumbersAndPath) {
    const PathState state;
    EXPECT_EQ(state.folderNumber, 0u);
    EXPECT_EQ(state.fileNumber, 0u);
    EXPECT_TRUE(state.path.empty());
    EXPECT_TRUE(state.savedLengths.empty());
}

TEST(PathState, PushJoinsAndPopCutsBack) {
    PathState state;
    state.Push(L"C:\\Data");
    state.Push(L"Sub");
    state.Push(L"Deep");
    EXPECT_TRUE(state.path == L"C:\\Data\\Sub\\Deep");
    EXPECT_EQ(state.savedLengths.top(), 11u);
    state.Pop();
    EXPECT_TRUE(state.path == L"C:\\Data\\Sub");
    state.Push(L"Other");
    EXPECT_TRUE(state.path == L"C:\\Data\\Sub\\Other");
    state.Pop();
    state.Pop();
    EXPECT_TRUE(state.path == L"C:\\Data");
    state.Pop();
    EXPECT_TRUE(state.path.empty());
    EXPECT_TRUE(state.savedLengths.empty());
}

TEST(PathState, PushMakesTheCanonicalForm) {
    struct Row {
        const wchar_t* root;
        const wchar_t* path;
        const wchar_t* below;
    };
    const Row rows[] = {
        {L"C:\\", L"C:", L"C:\\Sub"},
        {L"C:\\Data\\\\More\\", L"C:\\Data\\More", L"C:\\Data\\More\\Sub"},
        {L"\\\\server\\share", L"\\\\server\\share", L"\\\\server\\share\\Sub"},
    };
    for (const Row& row : rows) {
        PathState state;
        state.Push(row.root);
        EXPECT_TRUE(state.path == row.path);
        state.Push(L"Sub");
        EXPECT_TRUE(state.path == row.below);
        state.Pop();
        EXPECT_TRUE(state.path == row.path);
    }
}

}  // namespace
