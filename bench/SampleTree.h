// The trees that are scanned: folders with nine files and up to four subfolders each, with names in no order.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>

#include "scanner/Listener.h"
#include "scanner/Options.h"

inline constexpr wchar_t SampleRoot[] = L"C:\\Sample";

// Fills the stand-in's file system with a tree of this many entries. Keeps the one that is there if it has
// that size.
void MakeSampleTree(int64_t entries);

// Never cancels and takes no notice.
class QuietListener : public Scanner::Listener {
public:
    void OnProgress(const std::wstring&, const std::wstring&) override {}
    void OnError(const std::wstring&) override {}
    Scanner::AccessDeniedAnswer OnAccessDenied(const std::wstring&) override {
        return Scanner::AccessDeniedAnswer::Continue;
    }
    bool IsCancelled() override { return false; }
};

// Options for the whole tree in the order of the file system.
Scanner::Options WholeTree(Scanner::Listener& listener);

// Runs a benchmark at 10 thousand, 100 thousand and 1 million entries, state.range(0).
void AtAllSizes(benchmark::internal::Benchmark* benchmark);

// Adds the time that one iteration took for each entry.
void CountTime(benchmark::State& state);

// Adds a number of bytes as a share of each entry.
void CountBytes(benchmark::State& state, const char* name, size_t bytes);
