// Makes the files that docs/formats.md shows, with the real commands in the stand-in's world.
//
//   documented FOLDER
//
// Reads FOLDER/presets.json, and writes list.csv, list.jsonl, hashed.jsonl, list.sha256sum, compared.txt and
// exported.json to it, and the listed files to its folder Photos.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "FakeWin.h"
#include "console/Commands.h"
#include "console/Interrupt.h"
#include "console/Utf8.h"

namespace {

using FakeWin::MakeFileTime;

constexpr const wchar_t* Photos[] = {L"2026\\IMG_0001.jpg", L"2026\\IMG_0002, edited.jpg", L"notes.txt"};

void AddPhotos() {
    const FILETIME january = MakeFileTime(2026, 1, 2, 8, 0, 0);
    const FILETIME november = MakeFileTime(2026, 11, 20, 17, 30, 0);
    FakeWin::AddFile(L"D:\\Photos\\2026\\IMG_0001.jpg", std::string(2411724, '1'));
    FakeWin::AddFile(L"D:\\Photos\\2026\\IMG_0002, edited.jpg", std::string(2411828, '2'),
                     FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE);
    FakeWin::AddFolder(L"D:\\Photos\\Private");
    FakeWin::AddFile(L"D:\\Photos\\notes.txt", std::string(1204, 'n'));
    FakeWin::SetTimes(L"D:\\Photos\\2026\\IMG_0001.jpg", january, january, january);
    FakeWin::SetTimes(L"D:\\Photos\\2026\\IMG_0002, edited.jpg", january, november, november);
    FakeWin::SetTimes(L"D:\\Photos\\2026", january, november, november);
    FakeWin::SetTimes(L"D:\\Photos\\Private", january, january, january);
    FakeWin::SetTimes(L"D:\\Photos\\notes.txt", january, january, january);
    FakeWin::FailOn(FakeWin::Call::FindFirstFileExW, L"D:\\Photos\\Private", ERROR_ACCESS_DENIED);
}

// What has changed on the next day.
void ChangePhotos() {
    FakeWin::RemoveEntry(L"D:\\Photos\\Private");
    FakeWin::AddFile(L"D:\\Photos\\2026\\IMG_0001.jpg", 2412171);
    FakeWin::AddFile(L"D:\\Photos\\todo.txt", 10);
    const FILETIME later = MakeFileTime(2026, 11, 21, 9, 15, 0);
    FakeWin::SetTimes(L"D:\\Photos\\2026", MakeFileTime(2026, 1, 2, 8, 0, 0), later, later);
}

void Run(const Console::Arguments& arguments, Console::ExitCode expected) {
    if (Console::RunProgram(arguments) == expected)
        return;
    std::fprintf(stderr, "%s: %s", Console::ToUtf8(arguments[0] + L" " + arguments[1]).c_str(),
                 FakeWin::StandardError().c_str());
    std::exit(1);
}

void Save(const std::string& path, const std::wstring& file) {
    std::ofstream(path, std::ios::binary) << FakeWin::Contents(file).value_or("");
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2)
        return 2;
    const std::string folder = std::string(arguments[1]) + "/";
    std::ifstream presets(folder + "presets.json", std::ios::binary);
    FakeWin::Reset();
    FakeWin::AddFile(L"C:\\presets.json",
                     std::string(std::istreambuf_iterator<char>(presets), std::istreambuf_iterator<char>()));
    AddPhotos();
    Console::CatchInterrupts();

    using Console::ExitCode;
    Run({L"presets", L"import", L"C:\\presets.json"}, ExitCode::Complete);
    Run({L"presets", L"export", L"Photos", L"-o", L"C:\\exported.json"}, ExitCode::Complete);
    for (const wchar_t* format : {L"csv", L"jsonl", L"sha256sum"})
        Run({L"list", L"Photos", L"D:\\Photos", L"-f", format, L"-o", std::wstring(L"C:\\list.") + format,
             L"-q"},
            ExitCode::Incomplete);
    Run({L"list", L"Photos", L"D:\\Photos", L"-f", L"jsonl", L"--hash", L"sha256", L"-o", L"C:\\hashed.jsonl",
         L"-q"},
        ExitCode::Incomplete);
    std::filesystem::create_directories(folder + "Photos/2026");
    for (const std::wstring name : Photos) {
        std::string path = Console::ToUtf8(name);
        std::ranges::replace(path, '\\', '/');
        Save(folder + "Photos/" + path, L"D:\\Photos\\" + name);
    }
    Save(folder + "hashed.jsonl", L"C:\\hashed.jsonl");
    Save(folder + "list.sha256sum", L"C:\\list.sha256sum");
    ChangePhotos();
    Run({L"list", L"Photos", L"D:\\Photos", L"-f", L"jsonl", L"-o", L"C:\\next.jsonl", L"-q"},
        ExitCode::Complete);
    const size_t printed = FakeWin::StandardOutput().size();
    Run({L"compare", L"C:\\list.jsonl", L"C:\\next.jsonl"}, ExitCode::Complete);
    std::ofstream(folder + "compared.txt", std::ios::binary) << FakeWin::StandardOutput().substr(printed);
    Save(folder + "exported.json", L"C:\\exported.json");
    Save(folder + "list.csv", L"C:\\list.csv");
    Save(folder + "list.jsonl", L"C:\\list.jsonl");
    return 0;
}
