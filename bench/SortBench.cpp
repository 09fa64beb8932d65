// The sorts of a scan. One list of all entries takes n log n comparisons, the lists of a tree stay short.
// A comparison of text costs here what the stand-in's CompareStringW costs.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <vector>

#include "Memory.h"
#include "SampleTree.h"
#include "scanner/FlatLists.h"
#include "scanner/PostProcess.h"
#include "scanner/Scan.h"

namespace {

using namespace Scanner;

void Shuffle(Node& root) {
    std::mt19937 random(1);
    std::vector<Node*> pending = {&root};
    while (!pending.empty()) {
        Node& node = *pending.back();
        pending.pop_back();
        std::shuffle(node.folders.begin(), node.folders.end(), random);
        std::shuffle(node.files.begin(), node.files.end(), random);
        for (Node& child : node.folders)
            pending.push_back(&child);
    }
}

bool ScanSample(benchmark::State& state, Result& result, bool flatten) {
    MakeSampleTree(state.range(0));
    QuietListener listener;
    Options options = WholeTree(listener);
    options.flatten = flatten;
    const bool done = Scan(result, options, SampleRoot);
    if (!done)
        state.SkipWithError("the scan failed");
    return done;
}

void SortTree(benchmark::State& state) {
    Result result;
    if (!ScanSample(state, result, false))
        return;
    const Comparator folders({{Comparison::Name, true}}, true, true);
    const Comparator files({{Comparison::Name, true}}, false, true);
    for (auto _ : state) {
        state.PauseTiming();
        Shuffle(result.root);
        state.ResumeTiming();
        PostProcess(result.root, folders, files);
    }
    CountTime(state);
}

void SortFlatFiles(benchmark::State& state, const std::vector<SortKey>& keys) {
    Result result;
    if (!ScanSample(state, result, true))
        return;
    const Comparator comparator(keys, false, true);
    size_t peak = 0;
    for (auto _ : state) {
        state.PauseTiming();
        Shuffle(result.root);
        const size_t before = Memory::Live();
        Memory::ResetPeak();
        state.ResumeTiming();
        SortFiles(result.root.files, comparator);
        peak = Memory::Peak() - before;
    }
    CountTime(state);
    CountBytes(state, "peak/entry", peak);
}

void SortFlatBySize(benchmark::State& state) {
    SortFlatFiles(state, {{Comparison::Size, true}});
}

void SortFlatByName(benchmark::State& state) {
    SortFlatFiles(state, {{Comparison::Name, true}});
}

void SortFlatByPath(benchmark::State& state) {
    SortFlatFiles(state, {{Comparison::Path, true}, {Comparison::Name, true}});
}

BENCHMARK(SortTree)->Apply(AtAllSizes);
BENCHMARK(SortFlatBySize)->Apply(AtAllSizes);
BENCHMARK(SortFlatByName)->Apply(AtAllSizes);
BENCHMARK(SortFlatByPath)->Apply(AtAllSizes);

}  // namespace
