#include "console/list/RowWriter.h"

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

// Later versions may only append fields. The last one is left out unless hashes are asked for.
constexpr std::array<RowWriter::Field, 14> RowWriter::AllFields = {{
    {"type", nullptr,
     [](RowWriter& writer, const Row& row) { writer.WriteWord(row.isFolder ? "directory" : "file"); }},
    {"path", nullptr,
     [](RowWriter& writer, const Row& row) { writer.WriteText(writer.path_.Of(row.record)); }},
    {"name", nullptr, [](RowWriter& writer, const Row& row) { writer.WriteText(row.record.fullName); }},
    {"extension", nullptr, [](RowWriter& writer, const Row& row) { writer.WriteText(row.record.extension); }},
    {"size", nullptr, [](RowWriter& writer, const Row& row) { writer.WriteNumber(row.record.size); }},
    {"attributes", nullptr,
     [](RowWriter& writer, const Row& row) {
         AttributeText memory;
         writer.WriteWord(FormatAttributes(row.record.attributes, memory));
     }},
    {"created", nullptr, [](RowWriter& writer, const Row& row) { writer.WriteTime(row.record.timeCreated); }},
    {"modified", nullptr,
     [](RowWriter& writer, const Row& row) { writer.WriteTime(row.record.lastTimeWritten); }},
    {"accessed", nullptr,
     [](RowWriter& writer, const Row& row) { writer.WriteTime(row.record.lastTimeAccessed); }},
    {"files", [](const Row& row) { return row.isFolder; },
     [](RowWriter& writer, const Row& row) { writer.WriteNumber(row.record.totalFiles); }},
    {"folders", [](const Row& row) { return row.isFolder; },
     [](RowWriter& writer, const Row& row) { writer.WriteNumber(row.record.totalFolders); }},
    {"depth", nullptr,
     [](RowWriter& writer, const Row& row) { writer.WriteNumber(static_cast<uint64_t>(row.record.depth)); }},
    {"error", nullptr,
     [](RowWriter& writer, const Row& row) {
         writer.WriteWord((row.record.flags & Record::AccessDenied) != 0 ? "access-denied" : row.hash.error);
     }},
    {"sha256", [](const Row& row) { return !row.hash.hex.empty(); },
     [](RowWriter& writer, const Row& row) { writer.WriteWord(row.hash.hex); }},
}};

RowWriter::RowWriter(const RowOptions& options, std::FILE* stream)
    : options_(options), output_(stream), path_(options.absolutePaths, L'\\') {}

void RowWriter::WriteFolder(const PathState&, const Folder& folder) {
    if (options_.folders)
        WriteRow({folder, true, {}});
}

void RowWriter::WriteFile(const PathState&, const Scanner::File& file) {
    if (options_.files)
        WriteRow({file, false, options_.hasher != nullptr ? options_.hasher->Hash(file) : FileHash()});
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
    for (const Field& field : Fields()) {
        if (field.has != nullptr && !field.has(row)) {
            OmitField();
            continue;
        }
        BeginField(field.name);
        field.write(*this, row);
    }
    EndRow();
}

std::span<const RowWriter::Field> RowWriter::Fields() const {
    return std::span(AllFields).first(AllFields.size() - (options_.hasher == nullptr));
}

}  // namespace Console
