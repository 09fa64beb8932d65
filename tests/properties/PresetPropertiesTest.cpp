#include <gtest/gtest.h>

#include "console/presets/PresetChange.h"
#include "console/presets/PresetFile.h"
#include "settings/MainSettings.h"
#include "settings/metatypes/Memory.h"
#include "support/Random.h"
#include "support/TestRegistry.h"
#include "support/settings/RecordFields.h"

using MetaTypes::EnumRow;
using MetaTypes::StoreAs;
using MetaTypes::TypeCode;

namespace {

uint32_t AnyOf(Random& random, const EnumRow* rows) {
    uint32_t count = 0;
    while (rows[count].name != nullptr)
        ++count;
    return rows[random.Below(count)].value;
}

// Any value that the registry can hold: no text with a NUL in it, and no empty text in a list, which ends it.
void FillRandomly(Random& random, const RecordField& field) {
    switch (field.row->type) {
        case TypeCode::Bool:
            StoreAs(field.data, random.Bool());
            break;
        case TypeCode::Enumeration:
            StoreAs(field.data, AnyOf(random, static_cast<const EnumRow*>(field.row->subTable)));
            break;
        case TypeCode::Int32:
        case TypeCode::UInt32:
            StoreAs(field.data, static_cast<uint32_t>(random.Bits()));
            break;
        case TypeCode::WideString:
            *reinterpret_cast<std::wstring*>(field.data) = random.Text(300);
            break;
        case TypeCode::WideStringList: {
            auto& list = *reinterpret_cast<std::vector<std::wstring>*>(field.data);
            list.assign(random.Below(6), {});
            for (std::wstring& text : list)
                text = random.Text(20) + L"x";
            break;
        }
        default:
            ADD_FAILURE() << "a field of a type that is not filled";
    }
}

void FillRandomly(Random& random, MetaTypes::Settings& settings) {
    for (const RecordField& field : FieldsOf(settings))
        FillRandomly(random, field);
}

TEST(PresetProperties, ASavedPresetReadsBackEqual) {
    const TestSupport::TestRegistry registry;
    ForRandomInputs(30, [](Random& random) {
        Preset preset(L"random");
        FillRandomly(random, preset);
        EXPECT_TRUE(preset.Save());

        Preset again(L"random");
        FillRandomly(random, again);
        EXPECT_TRUE(again.Load());
        EXPECT_EQ(TextsOf(again), TextsOf(preset));
    });
}

TEST(PresetProperties, TheApplicationsValuesReadBackEqual) {
    const TestSupport::TestRegistry registry;
    ForRandomInputs(100, [](Random& random) {
        MainSettings settings;
        FillRandomly(random, settings);
        EXPECT_TRUE(settings.SaveMain());

        MainSettings again;
        EXPECT_TRUE(again.LoadAll());
        EXPECT_EQ(TextsOf(again), TextsOf(settings));
    });
}

TEST(PresetProperties, ACopyHasAllValuesAndAnAssignedPresetAllButThePosition) {
    ForRandomInputs(
        100,
        [](Random& random) {
            Preset preset(L"source");
            FillRandomly(random, preset);
            Preset copy(preset);
            EXPECT_EQ(TextsOf(copy), TextsOf(preset));

            Preset target(L"target");
            FillRandomly(random, target);
            const int32_t position = target.Get(Preset::Position);
            target.Assign(preset);
            EXPECT_EQ(target.Get(Preset::Position), position);
            target.Get(Preset::Position) = preset.Get(Preset::Position);
            EXPECT_EQ(TextsOf(target), TextsOf(preset));
        });
}

// Fills an array with each of its words once.
template <typename Section, typename Word, size_t N>
void ShuffleWords(Random& random, Preset& preset, MetaTypes::Field<Section, std::array<Word, N>> field) {
    std::array<Word, N> words;
    for (size_t i = 0; i < N; ++i)
        words[i] = static_cast<Word>(i);
    random.Shuffle(words);
    for (size_t i = 0; i < N; ++i)
        preset.Get(field, i) = words[i];
}

bool IsBetween(wchar_t unit, wchar_t first, wchar_t last) {
    return unit >= first && unit <= last;
}

// Half surrogate pairs become U+FFFD.
void ReplaceHalves(std::wstring& text) {
    for (size_t i = 0; i < text.size(); ++i)
        if (IsBetween(text[i], 0xD800, 0xDBFF) && i + 1 < text.size() &&
            IsBetween(text[i + 1], 0xDC00, 0xDFFF))
            ++i;
        else if (IsBetween(text[i], 0xD800, 0xDFFF))
            text[i] = 0xFFFD;
}

void ReplaceHalves(MetaTypes::Settings& settings) {
    for (const RecordField& field : FieldsOf(settings)) {
        if (field.row->type == TypeCode::WideString)
            ReplaceHalves(*reinterpret_cast<std::wstring*>(field.data));
        if (field.row->type == TypeCode::WideStringList)
            for (std::wstring& text : *reinterpret_cast<std::vector<std::wstring>*>(field.data))
                ReplaceHalves(text);
    }
}

// Any values that a file of presets can have.
void FillForFile(Random& random, Preset& preset) {
    FillRandomly(random, preset);
    preset.Get(Filter::PresetSearchPattern) = static_cast<int32_t>(random.Below(9));
    ShuffleWords(random, preset, Columns::FolderColumns);
    ShuffleWords(random, preset, Columns::FileColumns);
    ShuffleWords(random, preset, Sorting::FolderSortKeys);
    ShuffleWords(random, preset, Sorting::FileSortKeys);
}

TEST(PresetProperties, AnImportOfAnExportHasTheSameValues) {
    const TestSupport::TestRegistry registry;
    ForRandomInputs(30, [](Random& random) {
        Preset preset(L"random");
        FillForFile(random, preset);
        const Preset* const exported[] = {&preset};
        const std::vector<Preset> read = Console::ParsePresetFile(Console::FormatPresetFile(exported));
        ASSERT_EQ(read.size(), 1u);
        Console::PresetChange change;
        Preset stored(change.Add(read[0]));
        change.Commit();
        EXPECT_TRUE(stored.Load());
        stored.Get(Preset::Position) = preset.Get(Preset::Position);
        ReplaceHalves(preset);
        EXPECT_EQ(TextsOf(stored), TextsOf(preset));
    });
}

}  // namespace
