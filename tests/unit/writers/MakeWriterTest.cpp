#include "writers/MakeWriter.h"

#include <gtest/gtest.h>
#include <share.h>

#include <cstdio>
#include <memory>
#include <string>

#include "support/TempFolder.h"
#include "support/lists/ListSupport.h"
#include "writers/HtmlWriter.h"
#include "writers/TextWriter.h"
#include "writers/WalkTree.h"

namespace {

using TestSupport::TempFolder;

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File Open(const std::wstring& path) {
    return {_wfsopen(path.c_str(), L"w", _SH_DENYNO), std::fclose};
}

TEST(MakeWriter, ChoosesTheFormatByTheListStyle) {
    const TempFolder folder;
    const std::wstring path = folder.Path(L"list");
    const auto isPage = [&](ListStyle style) {
        return dynamic_cast<HtmlWriter*>(MakeWriter(ListPreset().Style(style), path.c_str()).get()) !=
               nullptr;
    };
    EXPECT_TRUE(isPage(ListStyle::Html));
    EXPECT_FALSE(isPage(ListStyle::Text));
    EXPECT_FALSE(isPage(static_cast<ListStyle>(2)));
}

// The list, with the moment replaced, of a walk to a stream that the test has opened.
std::string StreamedList(const ListPreset& preset, const ScanTree& tree) {
    const TempFolder folder;
    {
        const File stream = Open(folder.Path(L"list"));
        const std::unique_ptr<Writer> writer = MakeWriter(preset, stream.get());
        WalkTree(*writer, tree.root, preset.Get(Display::ShowFlatStyle));
        EXPECT_TRUE(writer->stream.Finish());
    }
    std::string list = folder.Read(L"list").value_or("no file");
    const size_t moment = list.find("Created: ") + 9;
    return list.replace(moment, list.find_first_of("\r<", moment) - moment, "*");
}

TEST(MakeWriter, AnOpenStreamTakesTheSameBytesAsAFile) {
    ScanTree tree;
    Scanner::Node& sub = tree.AddFolder(tree.root, L"S\x00FCtten");
    for (int i = 0; i < 2000; ++i)
        tree.AddFile(sub, L"File " + std::to_wstring(i) + L".txt", static_cast<uint64_t>(i) * 1000);
    tree.AddFile(tree.root, L"top");
    ScanTree flatTree;
    flatTree.AddFile(flatTree.AddFolder(flatTree.root, L"Sub"), L"a.txt", 7);
    flatTree.Flatten();
    for (const ListStyle style : {ListStyle::Text, ListStyle::Html}) {
        ListPreset preset;
        preset.Style(style).Utf8().Statistics();
        preset.Folders({FolderColumn::Name, FolderColumn::Size})
            .Files({FileColumn::PathAndFilename, FileColumn::Size, FileColumn::LastTimeWritten});
        EXPECT_EQ(StreamedList(preset, tree), ListOf(preset, tree));
        preset.Flat();
        EXPECT_EQ(StreamedList(preset, flatTree), ListOf(preset, flatTree));
    }
}

}  // namespace
