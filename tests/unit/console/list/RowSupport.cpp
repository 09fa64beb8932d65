#include "RowSupport.h"

#include <gtest/gtest.h>
#include <share.h>

#include <cstdio>
#include <memory>

#include "support/TempFolder.h"
#include "writers/WalkTree.h"

namespace RowSupport {

namespace {

template <typename Writer, typename Options>
std::string TableOf(const ScanTree& tree, const Options& options, bool flat) {
    const TestSupport::TempFolder folder;
    const std::wstring path = folder.Path(L"table");
    {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(
            _wfsopen(path.c_str(), L"wb", _SH_DENYNO), std::fclose);
        Writer writer(options, stream.get());
        WalkTree(writer, tree.root, flat);
        EXPECT_TRUE(writer.Finish());
    }
    return folder.Read(L"table").value_or("no file");
}

}  // namespace

std::string CsvOf(const ScanTree& tree, const Console::CsvOptions& options, bool flat) {
    return TableOf<Console::CsvWriter>(tree, options, flat);
}

std::string JsonOf(const ScanTree& tree, const Console::JsonLinesOptions& options, bool flat) {
    return TableOf<Console::JsonLinesWriter>(tree, options, flat);
}

std::string ReportOf(const ScanTree& tree, const Console::ReportOptions& options) {
    return TableOf<Console::ReportWriter>(tree, options, false);
}

Console::JsonLinesOptions PlainJson() {
    return {.rows = {}, .preset = L"Names", .created = {}, .unreadable = 0};
}

std::string RowsOf(const std::string& csv) {
    return csv.substr(csv.find("\r\n") + 2);
}

std::string ObjectsOf(const std::string& json) {
    const size_t begin = json.find('\n') + 1;
    const size_t end = json.rfind('\n', json.size() - 2) + 1;
    return json.substr(begin, end - begin);
}

std::string OnlyCell(const std::string& csv, size_t field) {
    std::string row = RowsOf(csv);
    for (size_t i = 0; i < field; ++i)
        row = row.substr(row.find(',') + 1);
    return row.substr(0, row.find_first_of(",\r"));
}

std::string OnlyMember(const std::string& json, std::string_view name) {
    const std::string key = "\"" + std::string(name) + "\":";
    const std::string object = ObjectsOf(json);
    const size_t place = object.find(key);
    if (place == std::string::npos)
        return "no member";
    const std::string value = object.substr(place + key.size());
    return value.substr(0, value.find_first_of(",}"));
}

FILETIME Ticks(uint64_t ticks) {
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

std::wstring Units(std::initializer_list<int> units) {
    std::wstring text;
    for (const int unit : units)
        text += static_cast<wchar_t>(unit);
    return text;
}

}  // namespace RowSupport
