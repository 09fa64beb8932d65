#include "console/list/Sha256SumWriter.h"

#include "console/EncodeValid.h"

namespace Console {

namespace {

constexpr auto WriteEscaped = [](char character, char* out) {
    if (character == '\\' || character == '\n' || character == '\r') {
        *out++ = '\\';
        character = character == '\n' ? 'n' : character == '\r' ? 'r' : '\\';
    }
    *out++ = character;
    return out;
};

}  // namespace

// A backslash at the beginning of a line says that its path is escaped. Windows allows such names nowhere,
// but servers of other systems do.
void AppendSum(ByteOutput& output, std::string_view hex, std::wstring_view path) {
    constexpr size_t LongestUnit = 3;
    if (path.find_first_of(L"\\\n\r") != std::wstring_view::npos)
        output.Append("\\");
    output.Append(hex);
    output.Append(" *");
    bool lossy = false;
    output.Commit(EncodeValid(path, output.Reserve(path.size() * LongestUnit), lossy, WriteEscaped));
    output.Append("\n");
}

Sha256SumWriter::Sha256SumWriter(FileHasher& hasher, std::FILE* stream)
    : hasher_(hasher), output_(stream), path_(false, L'/') {}

void Sha256SumWriter::WriteFile(const PathState&, const Scanner::File& file) {
    const FileHash hash = hasher_.Hash(file);
    if (!hash.hex.empty())
        AppendSum(output_, hash.hex, path_.Of(file));
}

}  // namespace Console
