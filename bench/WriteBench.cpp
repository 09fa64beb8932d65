// Writing the list of a whole tree with the columns that a new preset has.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>

#include "FakeWin.h"
#include "SampleTree.h"
#include "console/list/CsvWriter.h"
#include "console/list/JsonLinesWriter.h"
#include "console/list/ReportWriter.h"
#include "scanner/Scan.h"
#include "settings/Preset.h"
#include "writers/WalkTree.h"
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

// A format of the console companion. The real null device takes the list, so that the formatting is measured.
template <typename FormatWriter, typename Options>
void WriteFormat(benchmark::State& state, const Options& options) {
    MakeSampleTree(state.range(0));
    QuietListener listener;
    Scanner::Result result;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen("/dev/null", "wb"), std::fclose);
    if (!Scan(result, WholeTree(listener), SampleRoot) || stream == nullptr) {
        state.SkipWithError("the scan failed");
        return;
    }
    for (auto _ : state) {
        FormatWriter writer(options, stream.get());
        WalkTree(writer, result.root, false);
        if (!writer.Finish())
            state.SkipWithError("the list was not written");
    }
    CountTime(state);
}

void WriteCsv(benchmark::State& state) {
    WriteFormat<Console::CsvWriter>(state, Console::CsvOptions());
}

void WriteJsonLines(benchmark::State& state) {
    WriteFormat<Console::JsonLinesWriter>(
        state, Console::JsonLinesOptions{.rows = {}, .preset = L"bench", .created = {}, .unreadable = 0});
}

void WriteReport(benchmark::State& state) {
    WriteFormat<Console::ReportWriter>(state, Console::ReportOptions{.preset = L"bench", .created = {}});
}

BENCHMARK(WriteCsv)->Apply(AtAllSizes);
BENCHMARK(WriteJsonLines)->Apply(AtAllSizes);
BENCHMARK(WriteReport)->Apply(AtAllSizes);
BENCHMARK(WriteText)->Apply(AtAllSizes);
BENCHMARK(WriteHtml)->Apply(AtAllSizes);

}  // namespace
