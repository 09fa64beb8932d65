// Writes the hashes of the listed files in the format of sha256sum: "HASH *path/of/file" in each line, with
// line feeds and UTF-8. The paths are relative to the listed folder. Files that were not read have no line.
#pragma once

#include <cstdio>
#include <string_view>

#include "console/list/ByteOutput.h"
#include "console/list/FileHasher.h"
#include "console/list/RowPath.h"
#include "writers/ListVisitor.h"

namespace Console {

// Appends the line of a file; path has slashes between the names.
void AppendSum(ByteOutput& output, std::string_view hex, std::wstring_view path);

class Sha256SumWriter : public ListVisitor {
public:
    // Writes to a stream that is open for binary writing, which is not closed. It and the hasher must outlive
    // the writer.
    Sha256SumWriter(FileHasher& hasher, std::FILE* stream);

    // Writes the rest to the stream and the system. Returns whether the whole list was written.
    bool Finish() { return output_.Finish(); }

    void WriteFile(const PathState& state, const Scanner::File& file) override;
    void WriteHeader(const PathState&, const Scanner::Folder&) override {}
    void WriteFooter(const PathState&, const Scanner::Folder&) override {}
    void BeginFolders(uint64_t) override {}
    void WriteFolder(const PathState&, const Scanner::Folder&) override {}
    void EndFolders(uint64_t) override {}
    void BeginFiles() override {}
    void EndFiles() override {}
    void Indent() override {}
    void Unindent() override {}

private:
    FileHasher& hasher_;
    ByteOutput output_;
    RowPath path_;
};

}  // namespace Console
