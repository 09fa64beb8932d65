#include "console/list/ReportWriter.h"

#include <charconv>
#include <concepts>
#include <optional>

#include "console/EncodeValid.h"
#include "console/list/UtcTime.h"
#include "report/Page.h"
#include "resources/version.h"

namespace Console {

namespace {

constexpr std::string_view DataStart = "<script type=\"application/json\" class=\"";
constexpr std::string_view DataEnd = "</script>\n";
constexpr char NameSeparator = '\b';
constexpr std::string_view EscapedSeparator = "\\b";
constexpr size_t LongestUnit = 6;  // of an escaped character

// Escapes, beyond what JSON asks for, each character by which HTML leaves plain text.
char* WriteEscaped(char character, char* out) {
    static constexpr char Digits[] = "0123456789abcdef";
    static constexpr std::string_view Special = "\"\\<>&";
    const auto value = static_cast<unsigned char>(character);
    if (value >= 0x20 && Special.find(character) == std::string_view::npos) {
        *out++ = character;
        return out;
    }
    for (const char part : {'\\', 'u', '0', '0', Digits[value >> 4], Digits[value & 0xF]})
        *out++ = part;
    return out;
}

// If a name has the separator nevertheless, it must not move those after it.
char* WriteEscapedInName(char character, char* out) {
    constexpr uint32_t Replacement = 0xFFFD;
    if (character == NameSeparator)
        return utf8::unchecked::append(Replacement, out);
    return WriteEscaped(character, out);
}

template <typename WriteAscii>
void AppendText(std::string& column, std::wstring_view text, const WriteAscii& writeAscii) {
    const size_t before = column.size();
    column.resize(before + text.size() * LongestUnit);
    bool lossy = false;
    const char* const end = EncodeValid(text, column.data() + before, lossy, writeAscii);
    column.resize(static_cast<size_t>(end - column.data()));
}

template <std::integral Number>
void AppendNumber(std::string& column, Number number, int base) {
    constexpr size_t MostDigits = 21;
    char digits[MostDigits];
    column.append(digits, std::to_chars(digits, digits + MostDigits, number, base).ptr);
}

template <std::integral Number>
void AppendToColumn(std::string& column, Number number) {
    AppendNumber(column, number, 36);
    column += ',';
}

// Returns the seconds since 1970, or none if the file system has not set the time.
std::optional<int64_t> SecondsOf(const FILETIME& time) {
    constexpr uint64_t TicksOfASecond = 10'000'000;
    constexpr int64_t From1601To1970 = 11'644'473'600;
    const uint64_t ticks = uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
    if (ticks == 0)
        return std::nullopt;
    return static_cast<int64_t>(ticks / TicksOfASecond) - From1601To1970;
}

// Builds one JSON object in the page.
class DataElement {
public:
    DataElement(ByteOutput& output, std::string_view name) : output_(output) {
        output_.Append(DataStart);
        output_.Append(name);
        output_.Append("\">{");
    }
    DataElement(const DataElement&) = delete;
    DataElement& operator=(const DataElement&) = delete;
    ~DataElement() {
        output_.Append("}");
        output_.Append(DataEnd);
    }

    void Add(std::string_view name, std::wstring_view text) {
        std::string escaped;
        AppendText(escaped, text, WriteEscaped);
        AddWord(name, escaped);
    }
    void Add(std::string_view name, uint64_t number) {
        std::string digits;
        AppendNumber(digits, number, 10);
        Begin(name);
        output_.Append(digits);
    }

    // The word needs no escaping.
    void AddWord(std::string_view name, std::string_view word) {
        Begin(name);
        output_.Append("\"");
        output_.Append(word);
        output_.Append("\"");
    }

private:
    void Begin(std::string_view name) {
        output_.Append(first_ ? "\"" : ",\"");
        output_.Append(name);
        output_.Append("\":");
        first_ = false;
    }

    ByteOutput& output_;
    bool first_ = true;
};

}  // namespace

ReportWriter::ReportWriter(const ReportOptions& options, std::FILE* stream)
    : options_(options), output_(stream) {}

void ReportWriter::WriteHeader(const PathState&, const Scanner::Folder& root) {
    output_.Append(Report::PageStart);
    UtcText memory;
    DataElement list(output_, "list");
    list.Add("format", 1);
    list.AddWord("program", PROGRAM_TITLE);
    list.Add("root", root.fullName);
    list.Add("preset", options_.preset);
    list.AddWord("created", FormatUtc(options_.created, memory));
    list.Add("size", root.size);
    list.Add("folders", root.totalFolders);
    list.Add("files", root.totalFiles);
    list.Add("blockRows", BlockRows);
}

void ReportWriter::WriteFooter(const PathState&, const Scanner::Folder&) {
    WriteBlock();
    output_.Append(Report::PageEnd);
}

void ReportWriter::WriteFolder(const PathState&, const Scanner::Folder& folder) {
    BeginRow();
    EndFileRun();
    block_.tree += (folder.flags & Scanner::Record::AccessDenied) != 0 ? '[' : '(';
    ++openFolders_;
    AddRow(folder);
}

void ReportWriter::WriteFile(const PathState&, const Scanner::File& file) {
    BeginRow();
    ++block_.files;
    AppendToColumn(block_.sizes, file.size);
    AddRow(file);
}

void ReportWriter::Unindent() {
    if (openFolders_ == 0)
        return;
    --openFolders_;
    EndFileRun();
    block_.tree += ')';
}

void ReportWriter::BeginRow() {
    if (block_.rows == BlockRows)
        WriteBlock();
    else if (block_.rows > 0)
        block_.names += EscapedSeparator;
}

void ReportWriter::AddRow(const Scanner::Record& record) {
    ++block_.rows;
    AppendText(block_.names, record.fullName, WriteEscapedInName);
    const std::optional<int64_t> modified = SecondsOf(record.lastTimeWritten);
    const std::optional<int64_t> created = SecondsOf(record.timeCreated);
    if (modified)
        AppendToColumn(block_.modified, *modified - block_.lastModified);
    else
        block_.modified += ',';
    if (created)
        AppendToColumn(block_.created, *created - modified.value_or(0));
    else
        block_.created += ',';
    block_.lastModified = modified.value_or(block_.lastModified);
}

void ReportWriter::EndFileRun() {
    if (block_.files > 0)
        AppendNumber(block_.tree, block_.files, 10);
    block_.files = 0;
}

void ReportWriter::WriteBlock() {
    EndFileRun();
    {
        DataElement element(output_, "block");
        element.Add("rows", block_.rows);
        element.AddWord("names", block_.names);
        element.AddWord("tree", block_.tree);
        element.AddWord("sizes", block_.sizes);
        element.AddWord("modified", block_.modified);
        element.AddWord("created", block_.created);
    }
    block_.rows = 0;
    block_.lastModified = 0;
    for (std::string* column :
         {&block_.names, &block_.tree, &block_.sizes, &block_.modified, &block_.created})
        column->clear();
}

}  // namespace Console
