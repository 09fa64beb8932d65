// The page "Filter": the choice of the files and its pattern.

#include "OpenPage.h"

#include <gtest/gtest.h>

#include "resources/resource.h"
#include "support/ui/FocusWatch.h"

using TestSupport::DwordValue;
using TestSupport::StringValue;
using TestSupport::TestRegistry;

namespace {

const std::wstring Filter = PresetKey + L"\\Filter";

struct FilterRow {
    const wchar_t* label;
    const wchar_t* pattern;
};

const FilterRow Filters[] = {
    {L"All files", L"*"},
    {L"Audio files", L"*.mp3:*.flac:*.wma:*.wav:*.au:*.ogg:*.mid"},
    {L"Video files", L"*.mpg:*.mpeg:*.mp4:*.avi:*.mkv:*.wmv:*.mov:*.ts:*.webm:*.m4v:*.mts"},
    {L"Picture files", L"*.jpg:*.jpeg:*.png:*.bmp:*.gif:*.psd:*.tif:*.tiff"},
    {L"Document files", L"*.txt:*.rtf:*.pdf:*.doc:*.docx:*.xls:*.xlsx:*.ppt:*.pptx:*.ods:*.odt:*.odp"},
    {L"Compressed files", L"*.zip:*.7z:*.rar:*.arj:*.cab:*.ace:*.lzh:*.gz:*.tar:*.bz2"},
    {L"Executable files", L"*.exe:*.dll:*.com:*.bat:*.msi:*.msp:*.cmd:*.scr:*.cpl"},
    {L"Unix Dot-files", L".*"},
    {L"Custom filter...", L"own pattern"},
};
constexpr int Custom = 8;

TEST(FilterPage, StoredFilterIsShownWithItsPattern) {
    for (int i = 0; i <= Custom; ++i) {
        SCOPED_TRACE(i);
        const TestRegistry registry;
        registry.SetDword(Filter, L"PresetSearchPattern", static_cast<uint32_t>(i));
        registry.SetString(Filter, L"CustomSearchPattern", L"own pattern");
        const OpenPage open(Kind::Filter);
        ASSERT_EQ(open.Entries(IDC_FILTER_TYPE).size(), std::size(Filters));
        EXPECT_EQ(open.Entries(IDC_FILTER_TYPE)[static_cast<size_t>(i)], Filters[i].label);
        EXPECT_EQ(open.Entry(IDC_FILTER_TYPE), i);
        EXPECT_EQ(open.Text(IDC_FILTER_PATTERN), Filters[i].pattern);
        EXPECT_EQ(open.IsEnabled(IDC_FILTER_PATTERN), i == Custom);
        EXPECT_EQ(registry.Get(Filter, L"CustomSearchPattern"), StringValue(L"own pattern"));
    }
}

TEST(FilterPage, ChosenFilterIsStoredAndShowsItsPattern) {
    const TestRegistry registry;
    registry.SetString(Filter, L"CustomSearchPattern", L"own pattern");
    OpenPage open(Kind::Filter);
    for (int i = Custom; i >= 0; i--) {
        SCOPED_TRACE(i);
        open.Choose(IDC_FILTER_TYPE, i);
        EXPECT_EQ(registry.Get(Filter, L"PresetSearchPattern"), DwordValue(static_cast<uint32_t>(i)));
        EXPECT_EQ(open.Text(IDC_FILTER_PATTERN), Filters[i].pattern);
        EXPECT_EQ(open.IsEnabled(IDC_FILTER_PATTERN), i == Custom);
        EXPECT_EQ(registry.Get(Filter, L"CustomSearchPattern"), StringValue(L"own pattern"));
    }
}

TEST(FilterPage, FilterOutOfRangeIsClampedAndThenStored) {
    const std::pair<uint32_t, uint32_t> rows[] = {{99, 8}, {9, 8}, {0xFFFFFFFF, 0}, {0x80000000, 0}};
    for (const auto& [stored, shown] : rows) {
        SCOPED_TRACE(stored);
        const TestRegistry registry;
        registry.SetDword(Filter, L"PresetSearchPattern", stored);
        const OpenPage open(Kind::Filter);
        EXPECT_EQ(open.Entry(IDC_FILTER_TYPE), static_cast<int>(shown));
        EXPECT_EQ(registry.Get(Filter, L"PresetSearchPattern"), DwordValue(shown));
    }
}

TEST(FilterPage, CustomPatternIsStoredWithEachKey) {
    const TestRegistry registry;
    registry.SetDword(Filter, L"PresetSearchPattern", Custom);
    OpenPage open(Kind::Filter);
    EXPECT_EQ(open.Text(IDC_FILTER_PATTERN), L"*");
    open.Focus(IDC_FILTER_PATTERN);
    SendMessageW(open.Control(IDC_FILTER_PATTERN), EM_SETSEL, 1, 1);
    Ui::TypeText(open.pump, L".");
    EXPECT_EQ(registry.Get(Filter, L"CustomSearchPattern"), StringValue(L"*."));
    Ui::TypeText(open.pump, L"c");
    EXPECT_EQ(registry.Get(Filter, L"CustomSearchPattern"), StringValue(L"*.c"));
}

TEST(FilterPage, CustomPatternSurvivesAnotherChoice) {
    const TestRegistry registry;
    registry.SetDword(Filter, L"PresetSearchPattern", Custom);
    registry.SetString(Filter, L"CustomSearchPattern", L"*.cpp:*.h");
    OpenPage open(Kind::Filter);
    open.Choose(IDC_FILTER_TYPE, 1);
    EXPECT_EQ(registry.Get(Filter, L"CustomSearchPattern"), StringValue(L"*.cpp:*.h"));
    open.Choose(IDC_FILTER_TYPE, Custom);
    EXPECT_EQ(open.Text(IDC_FILTER_PATTERN), L"*.cpp:*.h");
    EXPECT_EQ(registry.Get(Filter, L"CustomSearchPattern"), StringValue(L"*.cpp:*.h"));
}

TEST(FilterPage, DisabledPatternPassesTheFocusToTheChoice) {
    const TestRegistry registry;
    registry.SetDword(Filter, L"PresetSearchPattern", Custom);
    const OpenPage open(Kind::Filter);
    open.Focus(IDC_FILTER_PATTERN);
    const HWND choice = open.Control(IDC_FILTER_TYPE);
    const Ui::FocusWatch watch(open.Control(IDC_FILTER_PATTERN));
    SendMessageW(choice, CB_SETCURSEL, 1, 0);
    SendMessageW(open.window, WM_COMMAND, MAKEWPARAM(IDC_FILTER_TYPE, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(choice));
    EXPECT_FALSE(open.IsEnabled(IDC_FILTER_PATTERN));
    EXPECT_EQ(GetFocus(), choice);
    EXPECT_EQ(watch.Lost(), (Ui::FocusLosses{{choice, true, true}}));
}

TEST(FilterPage, EmptyCustomPatternIsShownAndStoredEmpty) {
    const TestRegistry registry;
    registry.SetDword(Filter, L"PresetSearchPattern", Custom);
    registry.SetString(Filter, L"CustomSearchPattern", L"");
    const OpenPage open(Kind::Filter);
    EXPECT_EQ(open.Text(IDC_FILTER_PATTERN), L"");
    EXPECT_EQ(registry.Get(Filter, L"CustomSearchPattern"), StringValue(L""));
}

TEST(FilterPage, TheCaptionBesideThePatternStaysHidden) {
    const TestRegistry registry;
    OpenPage open(Kind::Filter);
    EXPECT_FALSE(IsWindowVisible(open.Control(IDC_FILTER_PATTERN_CAPTION)));
    open.Choose(IDC_FILTER_TYPE, Custom);
    EXPECT_FALSE(IsWindowVisible(open.Control(IDC_FILTER_PATTERN_CAPTION)));
}

}  // namespace
