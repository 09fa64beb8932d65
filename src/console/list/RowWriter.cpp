#include "console/list/RowWriter.h"

#include <algorithm>
#include <charconv>

#include "console/list/UtcTime.h"
#include "winlib/Windows.h"

namespace Console {

namespace {

using Scanner::Folder;
using Scanner::Record;

struct Letter {
    char letter;
    uint32_t attribute;
};
constexpr std::array<Letter, 8> Letters = {{
    {'R', FILE_ATTRIBUTE_READONLY},
    {'H', FILE_ATTRIBUTE_HIDDEN},
    {'S', FILE_ATTRIBUTE_SYSTEM},
    {'A', FILE_ATTRIBUTE_ARCHIVE},
    {'L', FILE_ATTRIBUTE_REPARSE_POINT},
    {'C', FILE_ATTRIBUTE_COMPRESSED},
    {'E', FILE_ATTRIBUTE_ENCRYPTED},
    {'O', FILE_ATTRIBUTE_OFFLINE},
}};

using AttributeText = std::array<char, Letters.size()>;

// Returns a view of `memory`.
std::string_view FormatAttributes(uint32_t attributes, AttributeText& memory) {
    size_t length = 0;
    for (const Letter& letter : Letters)
        if ((attributes & letter.attribute) != 0)
            memory[length++] = letter.letter;
    return {memory.data(), length};
}

}  // namespace

// Later versions may only append fields.
constexpr std::array<RowWriter::Field, 13> RowWriter::Fields = {{
    {"type", false,
     [](RowWriter& writer, const Row& row) { writer.WriteWord(row.isFolder ? "directory" : "file"); }},
    {"path", false, [](RowWriter& writer, const Row& row) { writer.WriteText(writer.PathOf(row.record)); }},
    {"name", false, [](RowWriter& writer, const Row& row) { writer.WriteText(row.record.fullName); }},
    {"extension", false, [](RowWriter& writer, const Row& row) { writer.WriteText(row.record.extension); }},
    {"size", false, [](RowWriter& writer, const Row& row) { writer.WriteNumber(row.record.size); }},
    {"attributes", false,
     [](RowWriter& writer, const Row& row) {
         AttributeText memory;
         writer.WriteWord(FormatAttributes(row.record.attributes, memory));
     }},
    {"created", false, [](RowWriter& writer, const Row& row) { writer.WriteTime(row.record.timeCreated); }},
    {"modified", false,
     [](RowWriter& writer, const Row& row) { writer.WriteTime(row.record.lastTimeWritten); }},
    {"accessed", false,
     [](RowWriter& writer, const Row& row) { writer.WriteTime(row.record.lastTimeAccessed); }},
    {"files", true, [](RowWriter& writer, const Row& row) { writer.WriteNumber(row.record.totalFiles); }},
    {"folders", true, [](RowWriter& writer, const Row& row) { writer.WriteNumber(row.record.totalFolders); }},
    {"depth", false,
     [](RowWriter& writer, const Row& row) { writer.WriteNumber(static_cast<uint64_t>(row.record.depth)); }},
    {"error", false,
     [](RowWriter& writer, const Row& row) {
         writer.WriteWord((row.record.flags & Record::AccessDenied) != 0 ? "access-denied" : "");
     }},
}};

RowWriter::RowWriter(const RowOptions& options, std::FILE* stream) : options_(options), output_(stream) {}

void RowWriter::WriteFolder(const PathState&, const Folder& folder) {
    if (options_.folders)
        WriteRow({folder, true});
}

void RowWriter::WriteFile(const PathState&, const Scanner::File& file) {
    if (options_.files)
        WriteRow({file, false});
}

void RowWriter::WriteTime(const FILETIME& time) {
    UtcText memory;
    WriteWord(FormatUtc(time, memory));
}

void RowWriter::WriteNumber(uint64_t number) {
    constexpr size_t MostDigits = 20;
    char* const digits = output_.Reserve(MostDigits);
    output_.Commit(std::to_chars(digits, digits + MostDigits, number).ptr);
}

void RowWriter::WriteRow(const Row& row) {
    for (const Field& field : Fields) {
        if (field.foldersOnly && !row.isFolder) {
            OmitField();
            continue;
        }
        BeginField(field.name);
        field.write(*this, row);
    }
    EndRow();
}

// The walk's own path is that of the scanned folder for every row of a flat list.
std::wstring_view RowWriter::PathOf(const Record& record) {
    if (record.parent != folder_)
        SetFolder(*record.parent);
    path_.resize(nameStart_);
    return path_.append(record.fullName);
}

// Filled from its end, since a record knows only its parent.
void RowWriter::SetFolder(const Folder& folder) {
    const auto isPart = [this](const Folder* part) {
        return part != nullptr && (part->parent != nullptr || options_.absolutePaths);
    };
    nameStart_ = 0;
    for (const Folder* part = &folder; isPart(part); part = part->parent)
        nameStart_ += std::wstring_view(part->fullName).size() + 1;
    path_.resize(nameStart_);
    auto end = path_.end();
    for (const Folder* part = &folder; isPart(part); part = part->parent) {
        const std::wstring_view name = part->fullName;
        *--end = L'\\';
        end = std::copy_backward(name.begin(), name.end(), end);
    }
    folder_ = &folder;
}

}  // namespace Console
