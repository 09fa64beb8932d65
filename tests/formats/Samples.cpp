// Writes a list of hostile names in each format for other programs, and what the names are.
//
//   formats FOLDER
//
// In FOLDER are afterwards table.csv, excel.csv and table.jsonl, each with the same rows, and paths.txt with
// a line for each row: its type and the UTF-16 units of its path, as hexadecimal numbers.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "console/list/CsvWriter.h"
#include "console/list/JsonLinesWriter.h"
#include "support/Random.h"
#include "support/lists/ListSupport.h"
#include "writers/WalkTree.h"

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File Open(const std::string& path) {
    File file = {std::fopen(path.c_str(), "wb"), std::fclose};
    if (file == nullptr)
        std::exit(1);
    return file;
}

void Write(Console::RowWriter& writer, const ScanTree& tree) {
    WalkTree(writer, tree.root, false);
    if (!writer.Finish())
        std::exit(1);
}

// Units that mean something to one of the readers come often.
std::wstring HostileName(Random& random) {
    constexpr wchar_t Units[] = {L'"',   L',',   L';',   L'\'',  L'\t',  L'\r',  L'\n',  L'=',   L'+',
                                 L'-',   L'@',   L'\\',  L'/',   L' ',   L'{',   L'}',   L'[',   L':',
                                 L'.',   L'a',   L'0',   L'|',   0x7F,   0x01,   0x1F,   0xA0,   0xE9,
                                 0x202E, 0x2028, 0xFEFF, 0xFFFD, 0xFFFF, 0xD83D, 0xDE00, 0xD800, 0xDFFF};
    std::wstring name;
    const int length = random.Between(1, 12);
    for (int i = 0; i < length; ++i)
        name += random.Below(8) == 0 ? static_cast<wchar_t>(1 + random.Below(0xFFFF)) : random.Choose(Units);
    return name;
}

void FillTree(ScanTree& tree, Random& random) {
    for (const wchar_t* const name :
         {L"=cmd|' /C calc'!A0", L"+1", L"-1", L"@x", L"\t=1", L"\"", L"\"\"", L",", L"\r\n", L" ", L"a,b",
          L"null", L"true", L"1e5", L"007", L"..", L"'=1"})
        tree.AddFile(tree.root, name, 5);
    tree.AddFile(tree.root, std::wstring(255, L'\x20AC'));
    for (int folder = 0; folder < 50; ++folder) {
        Scanner::Node& node = tree.AddFolder(tree.root, HostileName(random));
        for (int file = 0; file < 50; ++file)
            tree.AddFile(node, HostileName(random), random.Bits());
    }
}

class PathRecorder : public ListVisitor {
public:
    explicit PathRecorder(std::FILE* stream) : stream_(stream) {}

    void WriteHeader(const PathState&, const Scanner::Folder&) override {}
    void WriteFooter(const PathState&, const Scanner::Folder&) override {}
    void BeginFolders(uint64_t) override {}
    void WriteFolder(const PathState&, const Scanner::Folder& folder) override {
        Record("directory", folder);
    }
    void EndFolders(uint64_t) override {}
    void BeginFiles() override {}
    void WriteFile(const PathState&, const Scanner::File& file) override { Record("file", file); }
    void EndFiles() override {}
    void Indent() override {}
    void Unindent() override {}

private:
    void Record(const char* type, const Scanner::Record& record) {
        std::wstring path = record.fullName;
        if (record.parent->parent != nullptr)
            path = record.parent->fullName + (L'\\' + path);
        std::fputs(type, stream_);
        for (const wchar_t unit : path)
            std::fprintf(stream_, " %x", static_cast<unsigned>(unit));
        std::fputs("\n", stream_);
    }

    std::FILE* const stream_;
};

}  // namespace

int main(int count, char** arguments) {
    if (count != 2)
        return 2;
    const std::string folder = std::string(arguments[1]) + "/";
    const uint32_t seed = FirstSeed();
    std::printf("TAMBLEWICK_SEED=%u\n", seed);
    Random random(seed);
    ScanTree tree;
    FillTree(tree, random);

    const File csv = Open(folder + "table.csv");
    Console::CsvWriter plain({}, csv.get());
    Write(plain, tree);
    const File excel = Open(folder + "excel.csv");
    Console::CsvWriter guarded({.rows = {}, .forExcel = true, .separator = L";"}, excel.get());
    Write(guarded, tree);
    const File lines = Open(folder + "table.jsonl");
    Console::JsonLinesWriter objects({.rows = {}, .preset = L"Sample", .created = {}, .unreadable = 0},
                                     lines.get());
    Write(objects, tree);
    const File paths = Open(folder + "paths.txt");
    PathRecorder recorder(paths.get());
    WalkTree(recorder, tree.root, false);
    return 0;
}
