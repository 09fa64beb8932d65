// Writes the report of a tree that is made up:
//
//   make_report small FILE             a few entries, whose figures the tests of the page know
//   make_report sample ENTRIES FILE    folders with files of many kinds, sizes and times
//   make_report hostile FILE           names that would do harm if a page took them for anything but text
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <memory>
#include <random>
#include <string>

#include "console/list/ReportWriter.h"
#include "support/lists/ListSupport.h"
#include "writers/WalkTree.h"

namespace {

constexpr uint64_t TicksOfASecond = 10'000'000;
constexpr uint64_t From1601To2020 = 13'222'310'400 * TicksOfASecond;
constexpr uint64_t Year = 31'536'000 * TicksOfASecond;

FILETIME TimeOf(uint64_t ticks) {
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

void FillSmall(ScanTree& tree) {
    tree.root.folders.reserve(4);
    const auto addFolder = [&](Scanner::Node& parent, const wchar_t* name) -> Scanner::Node& {
        Scanner::Node& folder = tree.AddFolder(parent, name);
        folder.folder->lastTimeWritten = TimeOf(From1601To2020);
        return folder;
    };
    const auto addFile = [&](Scanner::Node& parent, const wchar_t* name, uint64_t size, uint64_t minute) {
        Scanner::File& file = tree.AddFile(parent, name, size);
        file.lastTimeWritten = TimeOf(From1601To2020 + minute * 60 * TicksOfASecond);
        file.timeCreated = TimeOf(From1601To2020);
    };
    Scanner::Node& photos = addFolder(tree.root, L"Photos");
    photos.folders.reserve(2);
    Scanner::Node& first = addFolder(photos, L"2025");
    addFile(first, L"beach.jpg", 600'000, 1);
    addFile(first, L"dunes.JPG", 300'000, 3);
    addFile(addFolder(photos, L"2026"), L"party.jpg", 50'000, 2);
    addFile(photos, L"cover.png", 50'000, 4);
    Scanner::Node& music = addFolder(tree.root, L"Music");
    addFile(music, L"song10.mp3", 4'000, 5);
    addFile(music, L"song2.mp3", 6'000, 6);
    addFolder(tree.root, L"Empty");
    Scanner::Folder& refused = *addFolder(tree.root, L"Private").folder;
    refused.flags = Scanner::Record::AccessDenied;
    refused.lastTimeWritten = {};
    addFile(tree.root, L"notes (old).txt", 100, 7);
    addFile(tree.root, L"Readme.md", 900, 9);
    addFile(tree.root, L"data", 39'000, 8);
}

// A tree in which each folder has some files and subfolders: breadth first, until there are enough entries.
// The last folder has as many files as a tenth of all.
void FillSample(ScanTree& tree, uint64_t entries) {
    constexpr std::array Words = {L"annual", L"backup", L"Capture", L"draft",   L"export", L"figure",
                                  L"Garden", L"House",  L"invoice", L"journey", L"letter", L"Music"};
    constexpr std::array Extensions = {L".jpg", L".JPG", L".pdf",  L".docx", L".mp3", L".txt",
                                       L".png", L".zip", L".html", L"",      L".c",   L".h"};
    std::mt19937_64 random(4711);
    const auto name = [&](uint64_t number) {
        return std::wstring(Words[random() % Words.size()]) + L' ' + std::to_wstring(number);
    };
    const auto setTimes = [&](Scanner::Record& record) {
        const uint64_t modified = From1601To2020 + random() % (6 * Year);
        record.lastTimeWritten = TimeOf(modified);
        record.timeCreated = TimeOf(modified - random() % Year);
    };
    const auto addFile = [&](Scanner::Node& folder, uint64_t number) {
        const size_t kind = random() % Extensions.size();
        const uint64_t size = random() >> (30 + random() % 34);
        setTimes(tree.AddFile(folder, name(number) + Extensions[kind], size));
    };

    uint64_t made = 0;
    std::deque<Scanner::Node*> unfilled = {&tree.root};
    const uint64_t large = entries / 10;
    while (made + large + 16 < entries) {
        Scanner::Node& node = *unfilled.front();
        unfilled.pop_front();
        const uint64_t folders = 3 + random() % 3;
        // Their nodes must not move while one is filled.
        node.folders.reserve(folders);
        for (uint64_t i = 0; i < folders; ++i) {
            Scanner::Node& child = tree.AddFolder(node, name(++made));
            setTimes(*child.folder);
            unfilled.push_back(&child);
        }
        for (uint64_t i = random() % 12; i > 0; --i)
            addFile(node, ++made);
    }
    while (made < entries)
        addFile(*unfilled.back(), ++made);
}

std::wstring Units(std::initializer_list<int> units) {
    std::wstring text;
    for (const int unit : units)
        text += static_cast<wchar_t>(unit);
    return text;
}

void FillHostile(ScanTree& tree) {
    const std::wstring names[] = {
        L"<img src=x onerror=alert(1)>.png",
        L"</script><script>alert(1)</script>",
        L"<!--<script>alert(1)",
        L"-->&lt;b&gt;&amp;",
        L"'\"><svg onload=alert(1)>",
        L"{{data}}",
        L"javascript:alert(1)",
        L"__proto__",
        L"constructor.__proto__",
        Units({'p', 'h', 'o', 't', 'o', 0x202E, 'g', 'p', 'j', '.', 'e', 'x', 'e'}),
        Units({0x2069, 0x202E, 'u', 'p'}),
        Units({'h', 'a', 'l', 'f', 0xD83D, '.', 't', 'x', 't'}),
        Units({0xDE00, 'h', 'a', 'l', 'f'}),
        Units({'w', 'h', 'o', 'l', 'e', 0xD83D, 0xDE00}),
        L"two\nlines\r\n.txt",
        Units({'n', 1, 2, 0x7F, 0x2028, 0xFEFF}),
        std::wstring(255, L'w') + L".long",
        L"a\bb",
        L"quote\"back\\slash",
    };
    Scanner::Node& inner = tree.AddFolder(tree.root, L"<b>folder</b></script>");
    for (const std::wstring& name : names) {
        tree.AddFile(tree.root, name, 1000);
        tree.AddFile(inner, name, 500);
    }
    tree.AddFolder(tree.root, L"refused").folder->flags = Scanner::Record::AccessDenied;
}

int Run(int count, char** arguments) {
    const std::string kind = count > 1 ? arguments[1] : "";
    const bool sample = kind == "sample" && count == 4;
    const bool hostile = kind == "hostile" && count == 3;
    if (!sample && !hostile && !(kind == "small" && count == 3))
        return std::fputs("usage: make_report small FILE | sample ENTRIES FILE | hostile FILE\n", stderr), 2;
    ScanTree tree(hostile ? L"C:\\</script>\\<img src=x onerror=alert(1)>" : L"C:\\Data");
    if (sample)
        FillSample(tree, std::strtoull(arguments[2], nullptr, 10));
    else if (hostile)
        FillHostile(tree);
    else
        FillSmall(tree);

    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(arguments[count - 1], "wb"),
                                                                 std::fclose);
    if (stream == nullptr)
        return 1;
    const std::wstring preset = hostile ? L"</script><script>alert(1)</script>" : L"Everything";
    Console::ReportWriter writer({.preset = preset, .created = TimeOf(From1601To2020 + 6 * Year)},
                                 stream.get());
    WalkTree(writer, tree.root, false);
    return writer.Finish() ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
    return Run(count, arguments);
}
