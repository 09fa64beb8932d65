// Text on its way into a list: its bytes, and the parts of a file's name.
#include "fuzz/Check.h"
#include "fuzz/Input.h"
#include "fuzz/Reference.h"
#include "scanner/SplitName.h"
#include "support/Text.h"
#include "writers/Encoding.h"

using namespace Fuzz;
using TestSupport::Utf8;

namespace {

// One code point: by its size alone, so that what is no code point has bytes too.
void AppendBytes(uint32_t point, std::string& bytes) {
    const auto append = [&](uint32_t byte) { bytes += static_cast<char>(byte); };
    const auto follow = [&](uint32_t shift) { append(0x80 | (point >> shift & 0x3F)); };
    if (point < 0x80) {
        append(point);
    } else if (point < 0x800) {
        append(0xC0 | point >> 6);
        follow(0);
    } else if (point < 0x10000) {
        append(0xE0 | point >> 12);
        follow(6);
        follow(0);
    } else {
        append(0xF0 | point >> 18);
        follow(12);
        follow(6);
        follow(0);
    }
}

std::string Encoded(const std::wstring& text) {
    std::string bytes;
    for (size_t i = 0; i < text.size(); ++i) {
        auto point = static_cast<uint32_t>(text[i]);
        if (point >= 0xD800 && point <= 0xDBFF) {
            ++i;
            point = (point << 10) + (i < text.size() ? static_cast<uint32_t>(text[i]) : 0) - 0x35FDC00;
        }
        AppendBytes(point, bytes);
    }
    return bytes;
}

void CheckEncoding(const std::wstring& text) {
    std::string memory;
    const std::string_view bytes = EncodeText(text, memory);
    Check(bytes == Encoded(text), "text is encoded unit by unit", Utf8(text));
    if (IsUtf16(text))
        Check(bytes == Utf8(text), "UTF-16 becomes UTF-8", Utf8(text));
}

void CheckSplitting(const std::wstring& text) {
    Scanner::StringPool strings;
    Scanner::File file = {};
    file.fullName = text.c_str();
    Scanner::SplitName(file, strings);

    const std::wstring name = file.name;
    const std::wstring extension = file.extension;
    const std::string shown = Utf8(text);
    if (file.extension == Scanner::EmptyText) {
        Check(file.name == file.fullName, "a name without extension is shared", shown);
        Check(text.find(L'.', 1) == std::wstring::npos, "a dot after the first character separates", shown);
        return;
    }
    Check(name + L"." + extension == text, "name and extension are the whole", shown);
    Check(!name.empty(), "a dot in front belongs to the name", shown);
    // Another dot may only follow directly after the dot that separates.
    Check(extension.find(L'.', 1) == std::wstring::npos, "the last dot separates", shown);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring text = Input(data, size).Rest();
    CheckEncoding(text);
    CheckSplitting(text);
    return 0;
}
