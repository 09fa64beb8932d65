#include "SampleTree.h"

#include <array>
#include <string>
#include <vector>

#include "FakeWin.h"

namespace {

constexpr int64_t FilesInAFolder = 9;
constexpr int64_t SubfoldersOfAFolder = 4;

// The number of an entry without its order: each gives another one.
std::wstring Scramble(int64_t number) {
    return std::to_wstring(static_cast<uint32_t>(number) * 2654435761u);
}

std::wstring FileName(int64_t number) {
    constexpr std::array Extensions = {L".txt", L".jpg", L".mp3", L".html", L""};
    return L"File " + Scramble(number) + Extensions[static_cast<size_t>(number) % Extensions.size()];
}

}  // namespace

void MakeSampleTree(int64_t entries) {
    static int64_t present = 0;
    if (present == entries)
        return;
    present = entries;

    FakeWin::Reset();
    FakeWin::SetLogging(false);
    const int64_t folderCount = entries / (1 + FilesInAFolder);
    std::vector<std::wstring> folders = {SampleRoot};
    for (int64_t number = 1; number <= folderCount; ++number) {
        const auto parent = static_cast<size_t>((number - 1) / SubfoldersOfAFolder);
        folders.push_back(folders[parent] + L"\\Folder " + Scramble(number));
        FakeWin::AddFolder(folders.back());
        for (int64_t file = 0; file < FilesInAFolder; ++file) {
            const int64_t fileNumber = number * FilesInAFolder + file;
            FakeWin::AddFile(folders.back() + L"\\" + FileName(fileNumber),
                             static_cast<uint64_t>(fileNumber) * 7919 % 1'000'000);
        }
    }
}

Scanner::Options WholeTree(Scanner::Listener& listener) {
    Scanner::Options options;
    options.collectFolders = true;
    options.collectFiles = true;
    options.recursive = true;
    options.searchPattern = L"*";
    options.listener = &listener;
    return options;
}

void AtAllSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

void CountTime(benchmark::State& state) {
    state.counters["time/entry"] =
        benchmark::Counter(static_cast<double>(state.range(0)),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void CountBytes(benchmark::State& state, const char* name, size_t bytes) {
    state.counters[name] = static_cast<double>(bytes) / static_cast<double>(state.range(0));
}
