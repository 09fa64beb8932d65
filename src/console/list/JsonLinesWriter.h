// Writes a list as JSON Lines: an object in each line, UTF-8, line feeds. The first describes the list, the
// last is its summary: a file without it is not complete.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "console/list/RowWriter.h"

namespace Console {

struct JsonLinesOptions {
    RowOptions rows;
    std::wstring preset;      // its name
    FILETIME created;         // of the list, in UTC
    uint64_t unreadable = 0;  // folders that could not be read
};

class JsonLinesWriter : public RowWriter {
public:
    // As RowWriter.
    JsonLinesWriter(const JsonLinesOptions& options, std::FILE* stream);

    void WriteHeader(const PathState& state, const Scanner::Folder& root) override;
    void WriteFooter(const PathState& state, const Scanner::Folder& root) override;

protected:
    void BeginField(std::string_view name) override;
    void OmitField() override;
    void EndRow() override;
    void WriteText(std::wstring_view text) override;
    void WriteWord(std::string_view word) override;

private:
    const std::wstring preset_;
    const FILETIME created_;
    const uint64_t unreadable_;
    bool inRow_ = false;  // whether the object has a member already
    bool lossy_ = false;  // whether a text of the object was not written as it is
};

}  // namespace Console
