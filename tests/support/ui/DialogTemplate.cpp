#include "support/ui/DialogTemplate.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>

namespace Ui {

namespace {

class Reader {
public:
    explicit Reader(const std::byte* begin) : begin_(begin), at_(begin) {}

    template <typename T>
    T Read() {
        T value;
        std::memcpy(&value, at_, sizeof(value));
        at_ += sizeof(value);
        return value;
    }

    int ReadShort() { return Read<int16_t>(); }

    std::wstring ReadText() {
        std::wstring text;
        while (const wchar_t unit = Read<wchar_t>())
            text += unit;
        return text;
    }

    // A text, or the unit FFFF and a number, which gives "#number".
    std::wstring ReadTextOrNumber() {
        if (Read<uint16_t>() == 0xFFFF)
            return L"#" + std::to_wstring(Read<uint16_t>());
        at_ -= sizeof(uint16_t);
        return ReadText();
    }

    void Skip(size_t bytes) { at_ += bytes; }

    void AlignToFour() { at_ += (4 - (at_ - begin_) % 4) % 4; }

private:
    const std::byte* const begin_;
    const std::byte* at_;
};

std::wstring ClassName(std::wstring text) {
    static constexpr const wchar_t* BuiltIn[] = {L"BUTTON",  L"EDIT",      L"STATIC",
                                                 L"LISTBOX", L"SCROLLBAR", L"COMBOBOX"};
    if (text.empty() || text[0] != L'#') {
        CharUpperW(text.data());
        return text;
    }
    return BuiltIn[std::stoi(text.substr(1)) - 0x80];
}

TemplateItem ReadItem(Reader& reader) {
    TemplateItem item;
    reader.AlignToFour();
    item.help = reader.Read<DWORD>();
    item.exStyle = reader.Read<DWORD>();
    item.style = reader.Read<DWORD>();
    item.x = reader.ReadShort();
    item.y = reader.ReadShort();
    item.cx = reader.ReadShort();
    item.cy = reader.ReadShort();
    item.id = static_cast<int>(reader.Read<DWORD>());
    item.className = ClassName(reader.ReadTextOrNumber());
    item.text = reader.ReadTextOrNumber();
    item.dataSize = reader.Read<WORD>();
    reader.Skip(item.dataSize);
    return item;
}

}  // namespace

DialogTemplate ReadDialogTemplate(int templateId, HMODULE module) {
    const HRSRC resource =
        FindResourceW(module, MAKEINTRESOURCEW(templateId), MAKEINTRESOURCEW(5));  // RT_DIALOG
    if (resource == nullptr)
        throw std::runtime_error("no dialog " + std::to_string(templateId));
    Reader reader(static_cast<const std::byte*>(LockResource(LoadResource(module, resource))));
    if (reader.Read<WORD>() != 1 || reader.Read<WORD>() != 0xFFFF)
        throw std::runtime_error("not of the extended form: dialog " + std::to_string(templateId));

    DialogTemplate dialog;
    dialog.help = reader.Read<DWORD>();
    dialog.exStyle = reader.Read<DWORD>();
    dialog.style = reader.Read<DWORD>();
    const WORD count = reader.Read<WORD>();
    reader.Skip(2 * sizeof(WORD));  // the place, which DS_CENTER replaces
    dialog.cx = reader.ReadShort();
    dialog.cy = reader.ReadShort();
    dialog.menu = reader.ReadTextOrNumber();
    dialog.className = reader.ReadTextOrNumber();
    dialog.caption = reader.ReadText();
    dialog.pointSize = reader.ReadShort();
    dialog.weight = reader.ReadShort();
    dialog.italic = reader.Read<BYTE>() != 0;
    dialog.charset = reader.Read<BYTE>();
    dialog.typeface = reader.ReadText();
    for (WORD i = 0; i < count; ++i)
        dialog.items.push_back(ReadItem(reader));
    return dialog;
}

}  // namespace Ui
