// The base of the list formats for other programs: one row for each folder and file with a fixed set of
// fields. The formats differ in how they write a value and what they put around it.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <span>
#include <string_view>

#include "console/list/ByteOutput.h"
#include "console/list/FileHasher.h"
#include "console/list/RowPath.h"
#include "scanner/Records.h"
#include "writers/ListVisitor.h"

namespace Console {

struct RowOptions {
    bool folders = true;  // whether folders have rows
    bool files = true;
    bool absolutePaths = false;  // the default is relative to the listed folder

    // Hashes the files, which then have a field more; must outlive the writer. Null: no hashes.
    FileHasher* hasher = nullptr;
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
        FileHash hash;
    };
    struct Field {
        std::string_view name;
        bool (*has)(const Row& row);  // null: each row has it
        void (*write)(RowWriter& writer, const Row& row);
    };

    // Returns the fields that the rows of this list have.
    std::span<const Field> Fields() const;

    // Writes to a stream that is open for binary writing, which is not closed and must outlive the writer.
    RowWriter(const RowOptions& options, std::FILE* stream);

    // The parts of a row. BeginField is followed by its value; OmitField takes the place of both for a field
    // that the row does not have.
    virtual void BeginField(std::string_view name) = 0;
    virtual void OmitField() = 0;
    virtual void EndRow() = 0;

    // The values. A word is plain ASCII that needs no quoting, and may be empty.
    virtual void WriteText(std::wstring_view text) = 0;
    virtual void WriteWord(std::string_view word) = 0;
    void WriteTime(const FILETIME& time);
    void WriteNumber(uint64_t number);

    ByteOutput& Output() { return output_; }

    // Null if no hashes are written.
    const FileHasher* Hasher() const { return options_.hasher; }

private:
    static const std::array<Field, 14> AllFields;

    void WriteRow(const Row& row);

    const RowOptions options_;
    ByteOutput output_;
    RowPath path_;
};

}  // namespace Console
