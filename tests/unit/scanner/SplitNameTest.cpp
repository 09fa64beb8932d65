#include "scanner/SplitName.h"

#include <gtest/gtest.h>

#include "support/Text.h"

using namespace Scanner;
using TestSupport::Utf8;

namespace {

class SplitNameTest : public testing::Test {
protected:
    File Split(const wchar_t* fullName) {
        File file{};
        file.fullName = pool.Duplicate(fullName);
        SplitName(file, pool);
        return file;
    }

    StringPool pool;
};

}  // namespace

TEST_F(SplitNameTest, SeparatesStemAndExtension) {
    const struct {
        const wchar_t* fullName;
        const wchar_t* stem;
        const wchar_t* extension;
    } rows[] = {
        {L"a.txt", L"a", L"txt"},
        {L"a.b.c", L"a.b", L"c"},
        {L"a.tar.gz", L"a.tar", L"gz"},
        {L".a", L".a", L""},
        {L".gitignore", L".gitignore", L""},
        {L".a.b", L".a", L"b"},
        {L"a.", L"a", L""},
        {L"a..b", L"a", L".b"},
        {L"a...b", L"a..", L"b"},
        {L"a...", L"a..", L""},
        {L"a..", L"a", L"."},
        {L"..b", L".", L"b"},
        {L"a", L"a", L""},
        {L"makefile", L"makefile", L""},
        {L"", L"", L""},
    };
    for (const auto& row : rows) {
        const File file = Split(row.fullName);
        EXPECT_STREQ(file.name, row.stem) << Utf8(row.fullName);
        EXPECT_STREQ(file.extension, row.extension) << Utf8(row.fullName);
        EXPECT_STREQ(file.fullName, row.fullName);
    }
}

TEST_F(SplitNameTest, SharesTextWhereItCan) {
    for (const wchar_t* name : {L"makefile", L".a", L""}) {
        const File file = Split(name);
        EXPECT_EQ(file.name, file.fullName) << Utf8(name);
        EXPECT_EQ(file.extension, EmptyText) << Utf8(name);
    }
    const File file = Split(L"a.tar.gz");
    EXPECT_EQ(file.extension, file.fullName + 6);
    const File dotAtTheEnd = Split(L"a.");
    EXPECT_EQ(dotAtTheEnd.extension, dotAtTheEnd.fullName + 2);
}

TEST_F(SplitNameTest, TakesNoMoreOfThePoolThanTheStem) {
    const File file = Split(L"ab.c");
    EXPECT_EQ(file.name, file.fullName + 5);
    EXPECT_EQ(pool.Allocate(1), file.name + 3);
}
