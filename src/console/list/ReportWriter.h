// Writes a list as a report: one HTML page with the list as data and a script that shows it. Names are data
// only, and nothing in them can end the element that holds them.
//
// The data is JSON in script elements that are not run. The first describes the list, each other is a block
// of up to BlockRows rows in the order of the walk, a column in each member:
//
//   rows      how many
//   names     joined by U+0008, which Windows allows in no name
//   tree      how the rows are nested: "(" is a folder, "[" one that could not be read, ")" the end of
//             either, and a number that many files; a folder may end in a later block
//   sizes     of the files
//   modified  the seconds since the value before; empty if there is no time
//   created   the seconds since the row's modified; empty if there is no time
//
// The numbers of a column are in base 36 with a comma after each. Times count from 1970 in UTC. What is left
// out, the totals of folders, the page computes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "console/list/ByteOutput.h"
#include "scanner/Records.h"
#include "writers/ListVisitor.h"

namespace Console {

struct ReportOptions {
    std::wstring preset;  // its name
    FILETIME created;     // of the list, in UTC
};

class ReportWriter : public ListVisitor {
public:
    static constexpr size_t BlockRows = 4096;

    // Writes to a stream that is open for binary writing, which is not closed and must outlive the writer.
    // The walk must be that of a grouped list.
    ReportWriter(const ReportOptions& options, std::FILE* stream);

    // Writes the rest to the stream and the system. Returns whether the whole page was written.
    bool Finish() { return output_.Finish(); }

    void WriteHeader(const PathState& state, const Scanner::Folder& root) override;
    void WriteFooter(const PathState& state, const Scanner::Folder& root) override;
    void WriteFolder(const PathState& state, const Scanner::Folder& folder) override;
    void WriteFile(const PathState& state, const Scanner::File& file) override;
    void Unindent() override;
    void BeginFolders(uint64_t) override {}
    void EndFolders(uint64_t) override {}
    void BeginFiles() override {}
    void EndFiles() override {}
    void Indent() override {}

private:
    struct Block {
        size_t rows = 0;
        size_t files = 0;  // rows at the end that are not in tree yet
        std::string names;
        std::string tree;
        std::string sizes;
        std::string modified;
        std::string created;
        int64_t lastModified = 0;
    };

    void BeginRow();
    void AddRow(const Scanner::Record& record);
    void EndFileRun();
    void WriteBlock();

    const ReportOptions options_;
    ByteOutput output_;
    Block block_;
    uint64_t openFolders_ = 0;  // below the root
};

}  // namespace Console
