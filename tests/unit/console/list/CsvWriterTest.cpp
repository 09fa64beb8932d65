#include "console/list/CsvWriter.h"

#include <gtest/gtest.h>

#include <string>

#include "RowSupport.h"

namespace {

using Console::CsvOptions;
using RowSupport::CsvOf;
using RowSupport::RowsOf;

constexpr char Heading[] =
    "type,path,name,extension,size,attributes,created,modified,accessed,files,folders,depth,error\r\n";

TEST(CsvWriter, AlwaysBeginsWithTheHeading) {
    EXPECT_EQ(CsvOf(ScanTree()), Heading);
    CsvOptions none;
    none.rows = {.folders = false, .files = false};
    EXPECT_EQ(CsvOf(ScanTree(), none), Heading);
}

TEST(CsvWriter, WritesEachFieldOfAFile) {
    ScanTree tree;
    Scanner::File& file = tree.AddFile(tree.AddFolder(tree.root, L"Sub"), L"a.b.txt", 18446744073709551615u);
    file.attributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE;
    file.timeCreated = RowSupport::Ticks(132224078450000000);
    file.lastTimeWritten = RowSupport::Ticks(132675269500000000);
    file.lastTimeAccessed = RowSupport::Ticks(133099639941234567);
    CsvOptions options;
    options.rows.folders = false;
    EXPECT_EQ(RowsOf(CsvOf(tree, options)),
              "file,Sub\\a.b.txt,a.b.txt,txt,18446744073709551615,RA,2020-01-02T03:04:05.0000000Z,"
              "2021-06-07T08:09:10.0000000Z,2022-10-11T12:13:14.1234567Z,,,1,\r\n");
}

TEST(CsvWriter, WritesEachFieldOfAFolder) {
    ScanTree tree;
    Scanner::Node& folder = tree.AddFolder(tree.root, L"Sub.x");
    folder.folder->attributes = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN;
    folder.folder->lastTimeWritten = RowSupport::Ticks(132675269500000000);
    folder.folder->flags = Scanner::Record::AccessDenied;
    tree.AddFile(tree.AddFolder(folder, L"Inner"), L"b", 500);
    tree.AddFile(folder, L"a", 7);
    CsvOptions options;
    options.rows.files = false;
    EXPECT_EQ(RowsOf(CsvOf(tree, options)),
              "directory,Sub.x,Sub.x,,507,H,,2021-06-07T08:09:10.0000000Z,,2,1,0,access-denied\r\n"
              "directory,Sub.x\\Inner,Inner,,500,,,,,1,0,1,\r\n");
}

TEST(CsvWriter, QuotesOnlyWhereNeeded) {
    struct Case {
        const wchar_t* name;
        const char* cell;
    };
    const Case cases[] = {
        {L"plain", "plain"},
        {L" with blanks ", " with blanks "},
        {L"semi;colon", "semi;colon"},
        {L"com,ma", "\"com,ma\""},
        {L"say \"hi\"", "\"say \"\"hi\"\"\""},
        {L"\"", "\"\"\"\""},
        {L"cr\rhere", "\"cr\rhere\""},
        {L"lf\nhere", "\"lf\nhere\""},
        {L"tab\there", "tab\there"},
        {L"it's", "it's"},
        {L"=cmd", "=cmd"},
        {L"\x202E"
         L"gpj.exe",
         "\xE2\x80\xAEgpj.exe"},
        {L"\x00E4,", "\"\xC3\xA4,\""},
    };
    for (const Case& test : cases) {
        ScanTree tree;
        tree.AddFolder(tree.root, test.name);
        EXPECT_EQ(RowsOf(CsvOf(tree)),
                  "directory," + std::string(test.cell) + "," + test.cell + ",,0,,,,,0,0,0,\r\n");
    }
}

TEST(CsvWriter, HalfASurrogatePairBecomesAReplacementCharacter) {
    ScanTree tree;
    tree.AddFolder(tree.root, RowSupport::Units({'a', 0xD83D, 'b', 0xDE00}));
    EXPECT_EQ(RowSupport::OnlyCell(CsvOf(tree), 2),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD");
}

CsvOptions Excel(const wchar_t* separator) {
    return {.rows = {}, .forExcel = true, .separator = separator};
}

TEST(CsvWriter, HasAMarkAndTheSystemsSeparatorForExcel) {
    ScanTree tree;
    tree.AddFile(tree.root, L"a,b;c", 5);
    EXPECT_EQ(CsvOf(tree, Excel(L";")),
              "\xEF\xBB\xBFtype;path;name;extension;size;attributes;created;modified;accessed;files;folders;"
              "depth;error\r\nfile;\"a,b;c\";\"a,b;c\";;5;;;;;;;0;\r\n");
    ScanTree comma;
    comma.AddFile(comma.root, L"a,b", 5);
    EXPECT_EQ(RowsOf(CsvOf(comma, Excel(L";"))), "file;a,b;a,b;;5;;;;;;;0;\r\n");
}

// The user may type any text for the separator.
TEST(CsvWriter, TakesSeparatorsOfSeveralCharacters) {
    ScanTree tree;
    tree.AddFile(tree.root, L"a\x060C");
    EXPECT_EQ(RowsOf(CsvOf(tree, Excel(L"\x060C "))),
              "file\xD8\x8C \"a\xD8\x8C\"\xD8\x8C \"a\xD8\x8C\"\xD8\x8C \xD8\x8C 0\xD8\x8C \xD8\x8C \xD8\x8C "
              "\xD8\x8C \xD8\x8C \xD8\x8C \xD8\x8C 0\xD8\x8C \r\n");
}

TEST(CsvWriter, APrecedingApostropheKeepsExcelFromCalculating) {
    struct Case {
        const wchar_t* name;
        const char* cell;
    };
    const Case cases[] = {
        {L"=cmd|' /C calc'!A0", "'=cmd|' /C calc'!A0"},
        {L"+1", "'+1"},
        {L"-1", "'-1"},
        {L"@SUM(1)", "'@SUM(1)"},
        {L"\t=1", "'\t=1"},
        {L"=1,2", "\"'=1,2\""},
        {L" =1", " =1"},
        {L"a=1", "a=1"},
        {L"1+1", "1+1"},
        {L"'=1", "'=1"},
    };
    for (const Case& test : cases) {
        ScanTree tree;
        tree.AddFolder(tree.root, test.name);
        EXPECT_EQ(RowsOf(CsvOf(tree, Excel(L","))),
                  "directory," + std::string(test.cell) + "," + test.cell + ",,0,,,,,0,0,0,\r\n");
    }
}

// Of these three fields only one begins as a formula.
TEST(CsvWriter, TheApostropheIsForTheTextThatBeginsAsAFormula) {
    ScanTree tree;
    tree.AddFile(tree.AddFolder(tree.root, L"Sub"), L"a.-x");
    CsvOptions options = Excel(L",");
    options.rows.folders = false;
    EXPECT_EQ(RowsOf(CsvOf(tree, options)), "file,Sub\\a.-x,a.-x,'-x,0,,,,,,,1,\r\n");
}

TEST(CsvWriter, WithoutExcelFormulasStayAsTheyAre) {
    ScanTree tree;
    tree.AddFile(tree.root, L"-a.=x");
    EXPECT_EQ(RowsOf(CsvOf(tree)), "file,-a.=x,-a.=x,=x,0,,,,,,,0,\r\n");
}

}  // namespace
