// The menu as the built program contains it; the program adds the templates.

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "BuiltFile.h"
#include "resources/resource.h"

namespace {

// An entry as the resource stores it: popups have no id, a separator has neither id nor text. MF_END marks
// the last entry of its menu.
struct Entry {
    WORD flags;
    WORD id;
    std::wstring text;

    bool operator==(const Entry&) const = default;
};

void PrintTo(const Entry& entry, std::ostream* out) {
    *out << std::hex << entry.flags << " " << std::dec << entry.id << " "
         << testing::PrintToString(entry.text);
}

std::vector<Entry> ReadMenu(std::span<const std::byte> bytes) {
    size_t at = 0;
    const auto next = [&] {
        WORD word = 0;
        std::memcpy(&word, bytes.subspan(at, sizeof(word)).data(), sizeof(word));
        at += sizeof(word);
        return word;
    };
    EXPECT_EQ(next(), 0) << "the version of the plain form";
    EXPECT_EQ(next(), 0) << "the size of its header";
    std::vector<Entry> entries;
    while (at + 2 * sizeof(WORD) <= bytes.size()) {
        Entry entry = {next(), 0, L""};
        if (!(entry.flags & MF_POPUP))
            entry.id = next();
        while (const WORD unit = next())
            entry.text += static_cast<wchar_t>(unit);
        entries.push_back(entry);
    }
    return entries;
}

TEST(MenuResource, HoldsTheCommandsWithTheirKeys) {
    const BuiltFile program(L"tamblewick.exe");
    const Entry separator = {0, 0, L""};
    const std::vector<Entry> expected = {
        {MF_POPUP, 0, L"&File"},
        {0, 40007, L"&New\tF5"},
        separator,
        {MF_END, 40009, L"E&xit\tALT+F4"},
        {MF_POPUP, 0, L"&Edit"},
        {0, 40015, L"&Duplicate\tF6"},
        {0, 40016, L"&Rename\tF2"},
        separator,
        {0, 40017, L"Re&move\tDEL"},
        separator,
        {MF_END, 40028, L"&Options...\tF7"},
        {MF_POPUP | MF_END, 0, L"&Help"},
        {MF_END, 40006, L"&About...\tF1"},
    };
    EXPECT_EQ(ReadMenu(program.Resource(ResourceType::Menu, IDR_MENU)), expected);
}

}  // namespace
