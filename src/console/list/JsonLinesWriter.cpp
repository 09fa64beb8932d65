#include "console/list/JsonLinesWriter.h"

#include <algorithm>

#include "console/EncodeValid.h"
#include "resources/version.h"

namespace Console {

namespace {

constexpr size_t LongestUnit = 6;  // of a control character
constexpr size_t Quotes = 2;

constexpr char Digits[] = "0123456789abcdef";

constexpr auto WriteEscaped = [](char character, char* out) {
    const auto value = static_cast<unsigned char>(character);
    if (value < 0x20) {
        for (const char part : {'\\', 'u', '0', '0', Digits[value >> 4], Digits[value & 0xF]})
            *out++ = part;
        return out;
    }
    if (character == '"' || character == '\\')
        *out++ = '\\';
    *out++ = character;
    return out;
};

}  // namespace

JsonLinesWriter::JsonLinesWriter(const JsonLinesOptions& options, std::FILE* stream)
    : RowWriter(options.rows, stream),
      preset_(options.preset),
      created_(options.created),
      unreadable_(options.unreadable) {}

void JsonLinesWriter::WriteHeader(const PathState&, const Scanner::Folder& root) {
    BeginField("type");
    WriteWord("list");
    BeginField("format");
    WriteNumber(1);
    BeginField("program");
    WriteWord(PROGRAM_TITLE);
    BeginField("root");
    WriteText(root.fullName);
    BeginField("preset");
    WriteText(preset_);
    BeginField("created");
    WriteTime(created_);
    EndRow();
}

void JsonLinesWriter::WriteFooter(const PathState&, const Scanner::Folder& root) {
    BeginField("type");
    WriteWord("summary");
    BeginField("size");
    WriteNumber(root.size);
    BeginField("folders");
    WriteNumber(root.totalFolders);
    BeginField("files");
    WriteNumber(root.totalFiles);
    BeginField("unreadable");
    WriteNumber(unreadable_);
    if (Hasher() != nullptr) {
        BeginField("unreadable_files");
        WriteNumber(Hasher()->Unreadable());
    }
    EndRow();
}

void JsonLinesWriter::BeginField(std::string_view name) {
    constexpr size_t Around = 4;
    char* out = Output().Reserve(name.size() + Around);
    *out++ = inRow_ ? ',' : '{';
    *out++ = '"';
    out = std::ranges::copy(name, out).out;
    *out++ = '"';
    *out++ = ':';
    Output().Commit(out);
    inRow_ = true;
}

// The object has no such member.
void JsonLinesWriter::OmitField() {}

void JsonLinesWriter::EndRow() {
    Output().Append(lossy_ ? ",\"lossy\":true}\n" : "}\n");
    inRow_ = false;
    lossy_ = false;
}

void JsonLinesWriter::WriteText(std::wstring_view text) {
    char* out = Output().Reserve(text.size() * LongestUnit + Quotes);
    *out++ = '"';
    out = EncodeValid(text, out, lossy_, WriteEscaped);
    *out++ = '"';
    Output().Commit(out);
}

void JsonLinesWriter::WriteWord(std::string_view word) {
    char* out = Output().Reserve(word.size() + Quotes);
    *out++ = '"';
    out = std::ranges::copy(word, out).out;
    *out++ = '"';
    Output().Commit(out);
}

}  // namespace Console
