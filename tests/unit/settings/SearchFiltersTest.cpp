#include "settings/SearchFilters.h"

#include <gtest/gtest.h>

#include "scanner/Patterns.h"
#include "support/Text.h"

using namespace Scanner;

TEST(SearchFilters, HasTheNineRowsInOrder) {
    const struct {
        const wchar_t* label;
        const wchar_t* pattern;
    } rows[] = {
        {L"All files", L"*"},
        {L"Audio files", L"*.mp3:*.flac:*.wma:*.wav:*.au:*.ogg:*.mid"},
        {L"Video files", L"*.mpg:*.mpeg:*.mp4:*.avi:*.mkv:*.wmv:*.mov:*.ts:*.webm:*.m4v:*.mts"},
        {L"Picture files", L"*.jpg:*.jpeg:*.png:*.bmp:*.gif:*.psd:*.tif:*.tiff"},
        {L"Document files", L"*.txt:*.rtf:*.pdf:*.doc:*.docx:*.xls:*.xlsx:*.ppt:*.pptx:*.ods:*.odt:*.odp"},
        {L"Compressed files", L"*.zip:*.7z:*.rar:*.arj:*.cab:*.ace:*.lzh:*.gz:*.tar:*.bz2"},
        {L"Executable files", L"*.exe:*.dll:*.com:*.bat:*.msi:*.msp:*.cmd:*.scr:*.cpl"},
        {L"Unix Dot-files", L".*"},
        {L"Custom filter...", L""},
    };
    ASSERT_EQ(SearchFilters.size(), std::size(rows));
    for (size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_STREQ(SearchFilters[i].label, rows[i].label);
        EXPECT_STREQ(SearchFilters[i].pattern, rows[i].pattern);
    }
}

TEST(SearchFilters, ArePatternsInLowerCase) {
    for (size_t i = 0; i + 1 < SearchFilters.size(); ++i) {
        const wchar_t* const pattern = SearchFilters[i].pattern;
        EXPECT_EQ(CompileSearchPatterns(pattern), SplitPatterns(pattern)) << TestSupport::Utf8(pattern);
    }
}
