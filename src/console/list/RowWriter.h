// The base of the list formats for other programs: one row for each folder and file with a fixed set of
// fields. The formats differ in how they write a value and what they put around it.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "console/list/ByteOutput.h"
#include "scanner/Records.h"
#include "writers/ListVisitor.h"

namespace Console {

struct RowOptions {
    bool folders = true;  // whether folders have rows
    bool files = true;
    bool absolutePaths = false;  // the default is relative to the listed folder
};

class RowWriter : public ListVisitor {
public:
    // Writes the rest to the stream and the system. Returns whether the whole list was written.
    bool Finish() { return output_.Finish(); }

    void WriteFolder(const PathState& state, const Scanner::Folder& folder) final;
    void WriteFile(const PathState& state, const Scanner::File& file) final;
    void BeginFolders(uint64_t) final {}
    void EndFolders(uint64_t) final {}
    void BeginFiles() final {}
    void EndFiles() final {}
    void Indent() final {}
    void Unindent() final {}

protected:
    struct Row {
        const Scanner::Record& record;
        bool isFolder;
    };
    struct Field {
        std::string_view name;
        bool foldersOnly;
        void (*write)(RowWriter& writer, const Row& row);
    };
    static const std::array<Field, 13> Fields;

    // Writes to a stream that is open for binary writing, which is not closed and must outlive the writer.
    RowWriter(const RowOptions& options, std::FILE* stream);

    // The parts of a row. BeginField is followed by its value; OmitField takes the place of both for a field
    // that files do not have.
    virtual void BeginField(std::string_view name) = 0;
    virtual void OmitField() = 0;
    virtual void EndRow() = 0;

    // The values. A word is plain ASCII that needs no quoting, and may be empty.
    virtual void WriteText(std::wstring_view text) = 0;
    virtual void WriteWord(std::string_view word) = 0;
    void WriteTime(const FILETIME& time);
    void WriteNumber(uint64_t number);

    ByteOutput& Output() { return output_; }

private:
    void WriteRow(const Row& row);
    std::wstring_view PathOf(const Scanner::Record& record);
    void SetFolder(const Scanner::Folder& folder);

    const RowOptions options_;
    ByteOutput output_;

    // The path of the last row. Up to nameStart_ it is the path of folder_ with a backslash.
    std::wstring path_;
    size_t nameStart_ = 0;
    const Scanner::Folder* folder_ = nullptr;
};

}  // namespace Console
