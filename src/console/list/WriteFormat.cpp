#include "console/list/WriteFormat.h"

#include <array>
#include <memory>

#include "console/list/CsvWriter.h"
#include "console/list/InterruptibleVisitor.h"
#include "console/list/JsonLinesWriter.h"
#include "console/list/ReportWriter.h"
#include "console/list/Sha256SumWriter.h"
#include "winlib/Windows.h"
#include "writers/MakeWriter.h"
#include "writers/WalkTree.h"

namespace Console {

namespace {

void Walk(ListVisitor& visitor, const ListRequest& request, const FinishedScan& scan) {
    InterruptibleVisitor interruptible(visitor);
    WalkTree(interruptible, scan.root, request.preset.Get(Display::ShowFlatStyle));
}

// The separator that Excel of this computer expects.
std::wstring ListSeparator() {
    std::array<wchar_t, 8> separator = {};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SLIST, separator.data(), static_cast<int>(separator.size()));
    return separator[0] != 0 ? separator.data() : L",";
}

FILETIME Now() {
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return now;
}

// A kind of entries without columns in the preset has no rows either, as in its text list.
RowOptions MakeRowOptions(const ListRequest& request, const FinishedScan& scan) {
    return {.folders = scan.options.collectFolders,
            .files = scan.options.collectFiles,
            .absolutePaths = request.absolute,
            .hasher = scan.hasher};
}

bool WriteCsv(std::FILE* stream, const ListRequest& request, const FinishedScan& scan) {
    CsvOptions options = {.rows = MakeRowOptions(request, scan)};
    if (request.excel) {
        options.forExcel = true;
        options.separator = ListSeparator();
    }
    CsvWriter writer(options, stream);
    Walk(writer, request, scan);
    return writer.Finish();
}

bool WriteJsonLines(std::FILE* stream, const ListRequest& request, const FinishedScan& scan) {
    JsonLinesWriter writer({.rows = MakeRowOptions(request, scan),
                            .preset = request.preset.Get(Preset::Name),
                            .created = Now(),
                            .unreadable = scan.unreadable},
                           stream);
    Walk(writer, request, scan);
    return writer.Finish();
}

bool WriteReport(std::FILE* stream, const ListRequest& request, const FinishedScan& scan) {
    ReportWriter writer({.preset = request.preset.Get(Preset::Name), .created = Now()}, stream);
    Walk(writer, request, scan);
    return writer.Finish();
}

bool WriteSha256Sum(std::FILE* stream, const ListRequest& request, const FinishedScan& scan) {
    Sha256SumWriter writer(*scan.hasher, stream);
    Walk(writer, request, scan);
    return writer.Finish();
}

bool WriteText(std::FILE* stream, const ListRequest& request, const FinishedScan& scan) {
    const std::unique_ptr<Writer> writer = MakeWriter(request.preset, stream);
    Walk(*writer, request, scan);
    return writer->stream.Finish();
}

}  // namespace

bool IsText(ListFormat format) {
    return format == ListFormat::Text || format == ListFormat::Html;
}

bool WriteFormat(std::FILE* stream, const ListRequest& request, const FinishedScan& scan) {
    switch (request.format) {
        case ListFormat::Csv:
            return WriteCsv(stream, request, scan);
        case ListFormat::JsonLines:
            return WriteJsonLines(stream, request, scan);
        case ListFormat::Report:
            return WriteReport(stream, request, scan);
        case ListFormat::Sha256Sum:
            return WriteSha256Sum(stream, request, scan);
        case ListFormat::Text:
        case ListFormat::Html:
            break;
    }
    return WriteText(stream, request, scan);
}

}  // namespace Console
