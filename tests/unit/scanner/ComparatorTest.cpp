#include "scanner/Comparator.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "support/Text.h"
#include "unit/scanner/TestTree.h"

using namespace Scanner;

namespace {

constexpr bool Folders = true;
constexpr bool Files = false;

Comparator By(Comparison key, bool folderMode = Files, bool naturalSort = false) {
    return Comparator({{key, true}}, folderMode, naturalSort);
}

Record Named(const wchar_t* name, const wchar_t* extension = EmptyText) {
    Record record{};
    record.name = name;
    record.extension = extension;
    return record;
}

void ExpectBefore(const Comparator& comparator, const Record& a, const Record& b) {
    EXPECT_TRUE(comparator.Compare(a, b));
    EXPECT_FALSE(comparator.Compare(b, a));
}

void ExpectTie(const Comparator& comparator, const Record& a, const Record& b) {
    EXPECT_FALSE(comparator.Compare(a, b));
    EXPECT_FALSE(comparator.Compare(b, a));
}

}  // namespace

TEST(Comparator, ComparesNamesWithoutRegardToCase) {
    const Comparator comparator = By(Comparison::Name);
    ExpectBefore(comparator, Named(L"apple"), Named(L"Banana"));
    ExpectBefore(comparator, Named(L"Apple"), Named(L"banana"));
    ExpectTie(comparator, Named(L"README"), Named(L"readme"));
    ExpectTie(comparator, Named(L"a", L"txt"), Named(L"a", L"doc"));
}

TEST(Comparator, ComparesDigitsAsTextOrAsNumbers) {
    const Comparator text = By(Comparison::Name, Files, false);
    ExpectBefore(text, Named(L"a10"), Named(L"a2"));
    ExpectBefore(text, Named(L"file10"), Named(L"file9"));
    const Comparator natural = By(Comparison::Name, Files, true);
    ExpectBefore(natural, Named(L"a2"), Named(L"a10"));
    ExpectBefore(natural, Named(L"file9"), Named(L"file10"));
}

// Around each pair of digits are characters that other languages join, swap, weigh little or put together of
// two units.
TEST(Comparator, OrdersDigitsAsTheSystemDoesWhateverIsAroundThem) {
    const std::wstring beginnings[] = {L"",       L"a",      L"ch",     L"-",      L"co-",    L"'",
                                       L"IMG_",   L"1",      L"09",     L" ",      L"\u00E4", L"a\u0308",
                                       L"\u0308", L"\u3042", L"\u30FC", L"\u3005", L"\u0E40", L"\u1100",
                                       L"\xD83D", L"\xDE00", L"\x01"};
    const std::wstring ends[] = {L"", L"-", L"a", L"0", L"9", L"\u0301", L"\u20DD", L"\u30FC", L"\xDE00"};
    std::vector<std::wstring> texts;
    for (const bool natural : {false, true}) {
        const Comparator comparator({}, Files, natural);
        const DWORD flags = NORM_IGNORECASE | (natural ? SORT_DIGITSASNUMBERS : 0u);
        for (const std::wstring& beginning : beginnings) {
            texts.clear();
            for (const std::wstring& end : ends)
                for (wchar_t digit = L'0'; digit <= L'9'; ++digit)
                    texts.push_back(beginning + digit + end);
            for (const std::wstring& a : texts) {
                for (const std::wstring& b : texts) {
                    const int order =
                        CompareStringW(LOCALE_USER_DEFAULT, flags, a.c_str(), -1, b.c_str(), -1);
                    ASSERT_EQ(comparator.CompareText(a.c_str(), b.c_str()), order - CSTR_EQUAL)
                        << TestSupport::Utf8(a) << "\n"
                        << TestSupport::Utf8(b);
                }
            }
        }
    }
}

TEST(Comparator, ComparesExtensions) {
    const Comparator comparator = By(Comparison::Extension);
    ExpectBefore(comparator, Named(L"b", L"doc"), Named(L"a", L"txt"));
    ExpectBefore(comparator, Named(L"b"), Named(L"a", L"txt"));
    ExpectTie(comparator, Named(L"a", L"TXT"), Named(L"b", L"txt"));
    const Comparator natural = By(Comparison::Extension, Files, true);
    ExpectBefore(natural, Named(L"a", L"r2"), Named(L"a", L"r10"));
}

TEST(Comparator, ComparesNumbersWithoutSign) {
    const struct {
        Comparison key;
        uint64_t Record::*field;
    } rows[] = {
        {Comparison::Size, &Record::size},
        {Comparison::NumberOfFolders, &Record::folderCount},
        {Comparison::NumberOfFiles, &Record::fileCount},
        {Comparison::NumberOfFoldersAndFiles, &Record::folderCount},
        {Comparison::NumberOfFoldersAndFiles, &Record::fileCount},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.key));
        const Comparator comparator = By(row.key);
        Record small{};
        Record large{};
        small.*row.field = 1;
        large.*row.field = 0x8000'0000'0000'0000;
        ExpectBefore(comparator, small, large);
        large.*row.field = 0x1'0000'0000;
        ExpectBefore(comparator, small, large);
        large.*row.field = 1;
        ExpectTie(comparator, small, large);
    }
}

TEST(Comparator, AddsFoldersAndFiles) {
    Record a{};
    Record b{};
    a.folderCount = 5;
    a.fileCount = 2;
    b.folderCount = 1;
    b.fileCount = 6;
    ExpectTie(By(Comparison::NumberOfFoldersAndFiles), a, b);
    b.fileCount = 7;
    ExpectBefore(By(Comparison::NumberOfFoldersAndFiles), a, b);
}

TEST(Comparator, CountsOnlyWhatLiesDirectlyInAFolder) {
    Record a{};
    Record b{};
    a.totalFolders = 9;
    a.totalFiles = 9;
    for (const Comparison key :
         {Comparison::NumberOfFolders, Comparison::NumberOfFiles, Comparison::NumberOfFoldersAndFiles})
        ExpectTie(By(key, Folders), a, b);
}

TEST(Comparator, ComparesTimes) {
    const struct {
        Comparison key;
        FILETIME Record::*field;
    } rows[] = {
        {Comparison::TimeCreated, &Record::timeCreated},
        {Comparison::LastTimeAccessed, &Record::lastTimeAccessed},
        {Comparison::LastTimeWritten, &Record::lastTimeWritten},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.key));
        const Comparator comparator = By(row.key);
        Record early{};
        Record late{};
        early.*row.field = {0xFFFFFFFF, 1};
        late.*row.field = {0, 2};
        ExpectBefore(comparator, early, late);
        late.*row.field = early.*row.field;
        ExpectTie(comparator, early, late);
    }
}

TEST(Comparator, TurnsADescendingKeyRound) {
    const Comparator comparator({{Comparison::Name, false}}, Files, false);
    ExpectBefore(comparator, Named(L"b"), Named(L"a"));
    ExpectTie(comparator, Named(L"a"), Named(L"A"));
}

TEST(Comparator, AsksTheNextKeyOnATie) {
    const Comparator comparator({{Comparison::Name, true}, {Comparison::Size, false}}, Files, false);
    Record small = Named(L"same", L"doc");
    Record large = Named(L"Same", L"txt");
    small.size = 1;
    large.size = 2;
    ExpectBefore(comparator, large, small);
    small.name = L"earlier";
    ExpectBefore(comparator, small, large);
}

TEST(Comparator, TiesWithoutKeys) {
    const Comparator comparator({}, Files, false);
    EXPECT_FALSE(comparator.HasKeys());
    ExpectTie(comparator, Named(L"a"), Named(L"b"));
    EXPECT_TRUE(By(Comparison::Name).HasKeys());
}

TEST(Comparator, EndsTheKeysAtARepeat) {
    const Comparator comparator({{Comparison::Size, true},
                                 {Comparison::Name, true},
                                 {Comparison::Size, true},
                                 {Comparison::Extension, true}},
                                Files, false);
    ExpectTie(comparator, Named(L"a", L"doc"), Named(L"a", L"txt"));
    ExpectBefore(comparator, Named(L"a", L"txt"), Named(L"b", L"doc"));
}

TEST(Comparator, EndsTheKeysAtAnUnknownNumber) {
    const Comparator comparator(
        {{Comparison::Size, true}, {static_cast<Comparison>(11), true}, {Comparison::Name, true}}, Files,
        false);
    ExpectTie(comparator, Named(L"a"), Named(L"b"));
    EXPECT_FALSE(By(static_cast<Comparison>(0xFFFFFFFF)).HasKeys());
}

TEST(Comparator, RejectsTheNumberZero) {
    const SortKey zero = {static_cast<Comparison>(0), true};
    EXPECT_THROW(Comparator({zero}, Files, false), std::invalid_argument);
    EXPECT_THROW(Comparator({{Comparison::Name, true}, zero}, Folders, false), std::invalid_argument);
    // After the end of the list it is not read.
    EXPECT_NO_THROW(Comparator({{Comparison::Name, true}, {Comparison::Name, true}, zero}, Files, false));
}

TEST(Comparator, TakesAllTenKeys) {
    std::vector<SortKey> keys;
    for (uint32_t number = 10; number >= 2; --number)
        keys.push_back({static_cast<Comparison>(number), true});
    const Comparator comparator(keys, Files, false);
    ExpectBefore(comparator, Named(L"a"), Named(L"b"));
}
