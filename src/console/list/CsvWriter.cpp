#include "console/list/CsvWriter.h"

#include <algorithm>

#include "console/EncodeValid.h"
#include "console/Utf8.h"

namespace Console {

namespace {

constexpr std::wstring_view FormulaStarts = L"=+-@\t";

constexpr auto WriteDoublingQuotes = [](char character, char* out) {
    *out++ = character;
    if (character == '"')
        *out++ = '"';
    return out;
};

}  // namespace

CsvWriter::CsvWriter(const CsvOptions& options, std::FILE* stream)
    : RowWriter(options.rows, stream),
      separator_(ToUtf8(options.separator)),
      separatorStart_(options.separator.front()),
      forExcel_(options.forExcel) {}

void CsvWriter::WriteHeader(const PathState&, const Scanner::Folder&) {
    if (forExcel_)
        Output().Append("\xEF\xBB\xBF");
    for (const Field& field : Fields()) {
        BeginField(field.name);
        WriteWord(field.name);
    }
    EndRow();
}

void CsvWriter::WriteFooter(const PathState&, const Scanner::Folder&) {}

void CsvWriter::BeginField(std::string_view) {
    if (inRow_)
        Output().Append(separator_);
    inRow_ = true;
}

// Each row has all fields.
void CsvWriter::OmitField() {
    BeginField({});
}

void CsvWriter::EndRow() {
    Output().Append("\r\n");
    inRow_ = false;
}

void CsvWriter::WriteText(std::wstring_view text) {
    constexpr size_t LongestUnit = 3;
    constexpr size_t Around = 3;  // two quotes and an apostrophe
    const bool quoted = NeedsQuotes(text);
    char* out = Output().Reserve(text.size() * LongestUnit + Around);
    if (quoted)
        *out++ = '"';
    if (forExcel_ && !text.empty() && FormulaStarts.find(text.front()) != std::wstring_view::npos)
        *out++ = '\'';
    bool lossy = false;
    out = EncodeValid(text, out, lossy, WriteDoublingQuotes);
    if (quoted)
        *out++ = '"';
    Output().Commit(out);
}

void CsvWriter::WriteWord(std::string_view word) {
    Output().Append(word);
}

bool CsvWriter::NeedsQuotes(std::wstring_view text) const {
    return std::ranges::any_of(
        text,
        [this](wchar_t unit) {
            return unit == L'"' || unit == L'\r' || unit == L'\n' || unit == separatorStart_;
        });
}

}  // namespace Console
