#include "console/list/ListCommand.h"

#include <memory>
#include <optional>

#include "console/Errors.h"
#include "console/Output.h"
#include "console/list/InterruptibleVisitor.h"
#include "console/list/ListListener.h"
#include "console/list/ListRequest.h"
#include "console/list/PartFile.h"
#include "listmaker/OpenList.h"
#include "listmaker/ScanOptions.h"
#include "scanner/Scan.h"
#include "writers/MakeWriter.h"
#include "writers/WalkTree.h"

namespace Console {

namespace {

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};

using Stream = std::unique_ptr<std::FILE, CloseStream>;

bool IsText(ListFormat format) {
    return format == ListFormat::Text || format == ListFormat::Html;
}

// Writes the list to an open stream. Returns whether all of it was written.
bool WriteListTo(std::FILE* stream, const ListRequest& request, const Scanner::Node& root) {
    const std::unique_ptr<Writer> writer = MakeWriter(request.preset, stream);
    InterruptibleVisitor visitor(*writer);
    WalkTree(visitor, root, request.preset.Get(Display::ShowFlatStyle));
    return writer->stream.Finish();
}

void WriteToStandardOutput(const ListRequest& request, const Scanner::Node& root) {
    Stream stream(OpenStandardOutput(IsText(request.format)));
    const bool written = stream != nullptr && WriteListTo(stream.get(), request, root);
    if (!written || std::fclose(stream.release()) != 0)
        throw Error(ExitCode::NotWritten, L"the standard output could not be written");
}

void WriteToFile(const ListRequest& request, const Scanner::Node& root) {
    PartFile file(*request.output, IsText(request.format));
    if (!WriteListTo(file.Stream(), request, root))
        throw Error(ExitCode::NotWritten,
                    L"the list '" + *request.output + L"' could not be written; check the free space");
    file.Commit();
}

}  // namespace

ExitCode RunList(const Options& arguments) {
    const ListRequest request = MakeListRequest(arguments);
    Scanner::Result result;
    ListListener listener(result, request.folder, {.progress = request.progress, .warnings = !request.quiet});
    Scanner::Options options = ScanOptions(request.preset, &listener);
    options.networkPaths = true;
    if (!Scanner::Scan(result, options, request.folder))
        listener.ThrowFailure();
    listener.EndProgress();

    if (request.output)
        WriteToFile(request, result.root);
    else
        WriteToStandardOutput(request, result.root);
    if (request.output && !request.quiet)
        Print(ToUtf8(*request.output) + "\n");
    if (request.open)
        OpenList(request.preset, *request.output);
    return listener.Refused() == 0 ? ExitCode::Complete : ExitCode::FoldersUnread;
}

}  // namespace Console
