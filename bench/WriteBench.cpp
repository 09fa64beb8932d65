// Writing the list of a whole tree with the columns that a new preset has.
#include <benchmark/benchmark.h>

#include "FakeWin.h"
#include "SampleTree.h"
#include "scanner/Scan.h"
#include "settings/Preset.h"
#include "writers/WriteList.h"

namespace {

constexpr wchar_t OutputPath[] = L"C:\\Temp\\list";

Preset WholeList(ListStyle style) {
    Preset preset(L"bench");
    preset.Get(Format::ListStyle) = style;
    return preset;
}

void WriteWith(benchmark::State& state, const Preset& preset) {
    MakeSampleTree(state.range(0));
    QuietListener listener;
    Scanner::Result result;
    if (!Scan(result, WholeTree(listener), SampleRoot)) {
        state.SkipWithError("the scan failed");
        return;
    }
    size_t bytes = 0;
    for (auto _ : state) {
        WriteList(preset, result.root, OutputPath);
        state.PauseTiming();
        bytes = FakeWin::Contents(OutputPath).value().size();
        FakeWin::RemoveEntry(OutputPath);
        state.ResumeTiming();
    }
    CountTime(state);
    CountBytes(state, "written/entry", bytes);
}

void WriteText(benchmark::State& state) {
    WriteWith(state, WholeList(ListStyle::Text));
}

void WriteHtml(benchmark::State& state) {
    WriteWith(state, WholeList(ListStyle::Html));
}

BENCHMARK(WriteText)->Apply(AtAllSizes);
BENCHMARK(WriteHtml)->Apply(AtAllSizes);

}  // namespace
