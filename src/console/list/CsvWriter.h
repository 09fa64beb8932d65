// Writes a list as comma-separated values by RFC 4180: a heading, a line for each row, CR LF, UTF-8, quotes
// where needed. Excel reads UTF-8 only after a byte-order mark, separates by the system's list separator and
// takes some texts for formulas, so there is a variant for it.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "console/list/RowWriter.h"

namespace Console {

struct CsvOptions {
    RowOptions rows;

    // Whether the list begins with a byte-order mark, and an apostrophe precedes texts that begin as
    // formulas.
    bool forExcel = false;
    std::wstring separator = L",";  // not empty
};

class CsvWriter : public RowWriter {
public:
    // As RowWriter.
    CsvWriter(const CsvOptions& options, std::FILE* stream);

    void WriteHeader(const PathState& state, const Scanner::Folder& root) override;
    void WriteFooter(const PathState& state, const Scanner::Folder& root) override;

protected:
    void BeginField(std::string_view name) override;
    void OmitField() override;
    void EndRow() override;
    void WriteText(std::wstring_view text) override;
    void WriteWord(std::string_view word) override;

private:
    bool NeedsQuotes(std::wstring_view text) const;

    const std::string separator_;
    const wchar_t separatorStart_;
    const bool forExcel_;
    bool inRow_ = false;  // whether the row has a field already
};

}  // namespace Console
