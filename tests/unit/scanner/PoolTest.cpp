#include <gtest/gtest.h>

#include <cwchar>
#include <new>
#include <string>
#include <type_traits>
#include <vector>

#include "scanner/RecordPool.h"
#include "scanner/Result.h"
#include "scanner/StringPool.h"

using namespace Scanner;

TEST(RecordPool, HoldsTheAgreedNumberOfRecordsInABlock) {
    EXPECT_EQ(RecordPool::BlockCapacity, 4681u);
}

TEST(RecordPool, ReturnsTheRecordsOfABlockSideBySide) {
    RecordPool pool;
    Record* const first = pool.Allocate();
    for (size_t i = 1; i < RecordPool::BlockCapacity; ++i)
        ASSERT_EQ(pool.Allocate(), first + i);
}

TEST(RecordPool, StartsASecondBlockBehindTheFirstAndLeavesTheFirstWhereItIs) {
    RecordPool pool;
    std::vector<Record*> records;
    for (size_t i = 0; i < RecordPool::BlockCapacity; ++i) {
        records.push_back(pool.Allocate());
        records.back()->size = i;
    }
    Record* const next = pool.Allocate();
    EXPECT_NE(next, records.back() + 1);
    EXPECT_EQ(pool.Allocate(), next + 1);
    next->size = 0;
    for (size_t i = 0; i < records.size(); ++i)
        ASSERT_EQ(records[i]->size, i);
}

TEST(RecordPool, AlignsRecords) {
    EXPECT_EQ(alignof(Record), 8u);
    RecordPool pool;
    EXPECT_EQ(reinterpret_cast<uintptr_t>(pool.Allocate()) % 8, 0u);
}

TEST(RecordPool, OutlivesItsReservedBlocks) {
    RecordPool pool;
    std::vector<Record*> firstOfBlock;
    for (uint64_t block = 0; block < 130; ++block) {
        firstOfBlock.push_back(pool.Allocate());
        firstOfBlock.back()->size = block;
        for (size_t i = 1; i < RecordPool::BlockCapacity; ++i)
            pool.Allocate();
    }
    for (uint64_t block = 0; block < firstOfBlock.size(); ++block)
        ASSERT_EQ(firstOfBlock[block]->size, block);
}

TEST(StringPool, HoldsTheAgreedNumberOfCharactersInABlock) {
    EXPECT_EQ(StringPool::BlockCapacity, 131072u);
}

TEST(StringPool, DuplicatesTextWithItsTerminator) {
    StringPool pool;
    std::wstring text = L"Photos";
    const wchar_t* const copy = pool.Duplicate(text.c_str());
    text[0] = L'X';
    EXPECT_STREQ(copy, L"Photos");
    EXPECT_EQ(pool.Allocate(1), copy + 7);
}

TEST(StringPool, DuplicatesEmptyText) {
    StringPool pool;
    const wchar_t* const copy = pool.Duplicate(L"");
    EXPECT_STREQ(copy, L"");
    EXPECT_EQ(pool.Allocate(1), copy + 1);
}

TEST(StringPool, KeepsATextThatExactlyFillsTheRestOfABlock) {
    StringPool pool;
    const wchar_t* const first = pool.Allocate(StringPool::BlockCapacity - 7);
    EXPECT_EQ(pool.Duplicate(L"sixsix"), first + StringPool::BlockCapacity - 7);
    EXPECT_NE(pool.Allocate(1), first + StringPool::BlockCapacity);
}

TEST(StringPool, AbandonsARestThatIsOneCharacterTooSmall) {
    StringPool pool;
    const wchar_t* const first = pool.Allocate(StringPool::BlockCapacity - 7);
    const wchar_t* const text = pool.Duplicate(L"sevenxx");
    EXPECT_NE(text, first + StringPool::BlockCapacity - 7);
    EXPECT_STREQ(text, L"sevenxx");
    EXPECT_EQ(pool.Allocate(1), text + 8) << "the abandoned rest is not used again";
}

TEST(StringPool, GivesAWholeBlockAtOnce) {
    StringPool pool;
    wchar_t* const block = pool.Allocate(StringPool::BlockCapacity);
    std::wmemset(block, L'x', StringPool::BlockCapacity);
    EXPECT_NE(pool.Allocate(1), nullptr);
}

TEST(StringPool, ThrowsForMoreThanABlock) {
    StringPool pool;
    EXPECT_THROW(pool.Allocate(StringPool::BlockCapacity + 1), std::bad_alloc);
    const std::wstring longest(StringPool::BlockCapacity - 1, L'x');
    EXPECT_EQ(pool.Duplicate(longest.c_str()), longest);
    EXPECT_THROW(pool.Duplicate((longest + L'x').c_str()), std::bad_alloc);
}

TEST(StringPool, StaysUsableAfterARefusal) {
    StringPool pool;
    wchar_t* const before = pool.Allocate(3);
    EXPECT_THROW(pool.Allocate(StringPool::BlockCapacity + 1), std::bad_alloc);
    EXPECT_EQ(pool.Allocate(1), before + 3);
}

TEST(Result, BeginsWithAnEmptyRoot) {
    const Result result;
    EXPECT_EQ(result.root.folder, nullptr);
    EXPECT_TRUE(result.root.folders.empty());
    EXPECT_TRUE(result.root.files.empty());
}

TEST(Result, StaysWhereItIs) {
    EXPECT_FALSE(std::is_copy_constructible_v<Result>);
    EXPECT_FALSE(std::is_move_constructible_v<Result>);
}
