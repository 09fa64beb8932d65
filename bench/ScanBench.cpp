// A whole scan, and the bare calls that it cannot do without.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "Memory.h"
#include "SampleTree.h"
#include "scanner/Scan.h"
#include "winlib/Windows.h"

namespace {

void BareWalk(benchmark::State& state) {
    MakeSampleTree(state.range(0));
    for (auto _ : state) {
        std::vector<std::wstring> folders = {SampleRoot};
        while (!folders.empty()) {
            const std::wstring path = std::move(folders.back());
            folders.pop_back();
            WIN32_FIND_DATAW entry;
            const HANDLE handle =
                FindFirstFileExW((L"\\\\?\\" + path + L"\\*").c_str(), FindExInfoBasic, &entry,
                                 FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
            do {
                if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY && entry.cFileName[0] != L'.')
                    folders.push_back(path + L"\\" + entry.cFileName);
            } while (FindNextFileW(handle, &entry));
            FindClose(handle);
        }
    }
    CountTime(state);
}

// From nothing to nothing: the release of the result counts as well. A character takes four bytes here and
// two on Windows, so names weigh double.
void ScanWith(benchmark::State& state, const Scanner::Options& options) {
    MakeSampleTree(state.range(0));
    size_t held = 0;
    size_t peak = 0;
    for (auto _ : state) {
        const size_t before = Memory::Live();
        Memory::ResetPeak();
        Scanner::Result result;
        if (!Scan(result, options, SampleRoot))
            state.SkipWithError("the scan failed");
        held = Memory::Live() - before;
        peak = Memory::Peak() - before;
    }
    CountTime(state);
    CountBytes(state, "bytes/entry", held);
    CountBytes(state, "peak/entry", peak);
}

void WholeScan(benchmark::State& state) {
    QuietListener listener;
    ScanWith(state, WholeTree(listener));
}

void FlatScan(benchmark::State& state) {
    QuietListener listener;
    Scanner::Options options = WholeTree(listener);
    options.flatten = true;
    ScanWith(state, options);
}

// Many patterns, none of which matches, and exclusions that are tested on every folder.
void FilteredScan(benchmark::State& state) {
    QuietListener listener;
    Scanner::Options options = WholeTree(listener);
    options.searchPattern = L"*.zip:*.7z:*.rar:*.arj:*.cab:*.ace:*.lzh:*.gz:*.tar:*.bz2";
    options.excludedFolders = {L"?:\\System Volume Information", L"*\\.git", L"*\\node_modules"};
    ScanWith(state, options);
}

BENCHMARK(BareWalk)->Apply(AtAllSizes);
BENCHMARK(WholeScan)->Apply(AtAllSizes);
BENCHMARK(FlatScan)->Apply(AtAllSizes);
BENCHMARK(FilteredScan)->Apply(AtAllSizes);

}  // namespace
