#include "scanner/Records.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>
#include <utility>

using namespace Scanner;

TEST(Record, KeepsTheOrderOfItsFields) {
    const size_t offsets[] = {
        offsetof(Record, parent),          offsetof(Record, name),
        offsetof(Record, extension),       offsetof(Record, fullName),
        offsetof(Record, flags),           offsetof(Record, attributes),
        offsetof(Record, depth),           offsetof(Record, totalFolders),
        offsetof(Record, totalFiles),      offsetof(Record, folderCount),
        offsetof(Record, fileCount),       offsetof(Record, size),
        offsetof(Record, timeCreated),     offsetof(Record, lastTimeAccessed),
        offsetof(Record, lastTimeWritten),
    };
    const size_t expected[] = {0, 8, 16, 24, 32, 36, 40, 48, 56, 64, 72, 80, 88, 96, 104};
    for (size_t i = 0; i < std::size(expected); ++i)
        EXPECT_EQ(offsets[i], expected[i]) << "field " << i;
    EXPECT_EQ(sizeof(Record), 112u);
}

TEST(Record, IsOneShapeForFoldersAndFiles) {
    EXPECT_TRUE((std::is_same_v<Folder, File>));
    EXPECT_EQ(Record::AccessDenied, 1u);
}

TEST(Node, MovesByTakingOverItsLists) {
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<Node>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<Node>);
    EXPECT_FALSE(std::is_copy_constructible_v<Node>);

    Record record{};
    Node node(&record);
    node.folders.emplace_back(&record);
    node.files.push_back(&record);
    const Node* const child = node.folders.data();
    File* const* const file = node.files.data();
    const Node moved = std::move(node);
    EXPECT_EQ(moved.folder, &record);
    EXPECT_EQ(moved.folders.data(), child);
    EXPECT_EQ(moved.files.data(), file);
}

// Deep enough to break the stack of any thread if each level took a part of it.
TEST(Node, IsDestroyedWithoutRecursion) {
    constexpr int Levels = 200'000;
    Node root;
    Node* node = &root;
    for (int level = 0; level < Levels; ++level) {
        node->folders.resize(3);
        node = &node->folders[static_cast<size_t>(level % 3)];
    }
}

TEST(Node, IsReplacedWithoutRecursion) {
    Node root;
    Node* node = &root;
    for (int level = 0; level < 200'000; ++level)
        node = &node->folders.emplace_back();
    root = Node();
    EXPECT_TRUE(root.folders.empty());
}

// A leak or a node destroyed twice is for the sanitizers to see; here every kind of branching occurs.
TEST(Node, IsDestroyedWhateverItsShape) {
    for (unsigned shape = 0; shape < 1u << 12; ++shape) {
        Node root;
        Node* nodes[13] = {&root};
        for (size_t i = 0; i < 12; ++i) {
            Node& parent = *nodes[shape >> i & 1 ? i : i / 2];
            parent.folders.reserve(12);
            nodes[i + 1] = &parent.folders.emplace_back();
            nodes[i + 1]->files.resize(2);
        }
    }
}
