// Which resources the built program has at all.

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "BuiltFile.h"

namespace {

// The ids of each type. A name that is no number counts as -1.
using Contents = std::map<ResourceType, std::set<int>>;

int NumberOf(const wchar_t* name) {
    return IS_INTRESOURCE(name) ? static_cast<int>(reinterpret_cast<UINT_PTR>(name)) : -1;
}

BOOL CALLBACK AddLanguage(HMODULE, const wchar_t*, const wchar_t*, WORD language, LONG_PTR languages) {
    reinterpret_cast<std::set<int>*>(languages)->insert(language);
    return TRUE;
}

BOOL CALLBACK AddName(HMODULE module, const wchar_t* type, wchar_t* name, LONG_PTR contents) {
    (*reinterpret_cast<Contents*>(contents))[static_cast<ResourceType>(NumberOf(type))].insert(
        NumberOf(name));
    std::set<int> languages;
    EnumResourceLanguagesW(module, type, name, AddLanguage, reinterpret_cast<LONG_PTR>(&languages));
    EXPECT_EQ(languages, std::set<int>{0x0409}) << NumberOf(type) << " " << NumberOf(name);
    return TRUE;
}

BOOL CALLBACK AddType(HMODULE module, wchar_t* type, LONG_PTR contents) {
    return EnumResourceNamesW(module, type, AddName, contents);
}

TEST(Resources, AreTheseAndInEnglish) {
    const BuiltFile program(L"tamblewick.exe");
    Contents contents;
    EnumResourceTypesW(program.Module(), AddType, reinterpret_cast<LONG_PTR>(&contents));
    // The single images have numbers of the compiler's.
    EXPECT_EQ(contents[ResourceType::Icon].size(), 9 * 4 + 6u);
    contents.erase(ResourceType::Icon);
    const Contents expected = {
        {ResourceType::Menu, {153}},
        {ResourceType::Dialog, {9, 103, 104, 105, 106, 108, 109, 110, 111, 113, 115, 150}},
        {ResourceType::IconGroup, {116, 117, 118, 119, 120, 121, 122, 123, 124, 125}},
        {ResourceType::Version, {1}},
        {ResourceType::Manifest, {1}},
    };
    EXPECT_EQ(contents, expected);
}

}  // namespace
