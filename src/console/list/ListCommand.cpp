#include "console/list/ListCommand.h"

#include <memory>
#include <optional>

#include "console/Errors.h"
#include "console/Output.h"
#include "console/list/FileHasher.h"
#include "console/list/ListListener.h"
#include "console/list/ListRequest.h"
#include "console/list/PartFile.h"
#include "console/list/WriteFormat.h"
#include "listmaker/OpenList.h"
#include "listmaker/ScanOptions.h"
#include "scanner/Scan.h"

namespace Console {

namespace {

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};

using Stream = std::unique_ptr<std::FILE, CloseStream>;

void WriteToStandardOutput(const ListRequest& request, const FinishedScan& scan) {
    Stream stream(OpenStandardOutput(IsText(request.format)));
    const bool written = stream != nullptr && WriteFormat(stream.get(), request, scan);
    if (!written || std::fclose(stream.release()) != 0)
        throw Error(ExitCode::NotWritten, L"the standard output could not be written");
}

void WriteToFile(const ListRequest& request, const FinishedScan& scan) {
    PartFile file(*request.output, IsText(request.format));
    if (!WriteFormat(file.Stream(), request, scan))
        throw Error(ExitCode::NotWritten,
                    L"the list '" + *request.output + L"' could not be written; check the free space");
    file.Commit();
}

// Files are hashed while the list is written. On a console its lines and the progress would mix.
bool ShowsHashing(const ListRequest& request) {
    return request.progress && (request.output || !OutputIsConsole());
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

    std::optional<FileHasher> hasher;
    if (request.hash)
        hasher.emplace(result.root.folder->size,
                       FileHasher::Reports{.progress = ShowsHashing(request), .warnings = !request.quiet});
    const FinishedScan scan = {.root = result.root,
                               .options = options,
                               .unreadable = listener.Refused(),
                               .hasher = hasher ? &*hasher : nullptr};
    if (request.output)
        WriteToFile(request, scan);
    else
        WriteToStandardOutput(request, scan);
    if (hasher)
        hasher->EndReports();
    if (request.output && !request.quiet)
        Print(ToUtf8(*request.output) + "\n");
    if (request.open)
        OpenList(request.preset, *request.output);
    const bool complete = listener.Refused() == 0 && (!hasher || hasher->Unreadable() == 0);
    return complete ? ExitCode::Complete : ExitCode::Incomplete;
}

}  // namespace Console
