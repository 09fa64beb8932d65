#include "listmaker/ListMaker.h"

#include "listmaker/OpenList.h"
#include "listmaker/OutputName.h"
#include "listmaker/ScanOptions.h"
#include "scanner/Scan.h"
#include "winlib/Windows.h"
#include "writers/WriteList.h"

ListMaker::ListMaker(const Preset& source, const std::wstring& listedPath)
    : path(listedPath),
      outputPath(OutputName(source, listedPath)),
      preset(source),
      options(ScanOptions(preset, this)) {}

ListMaker::~ListMaker() {
    Join();
}

void ListMaker::OnProgress(const std::wstring&, const std::wstring&) {}

void ListMaker::OnError(const std::wstring&) {}

Scanner::AccessDeniedAnswer ListMaker::OnAccessDenied(const std::wstring&) {
    return Scanner::AccessDeniedAnswer::ContinueQuietly;
}

bool ListMaker::IsCancelled() {
    return false;
}

bool ListMaker::Start() {
    worker = std::thread(&ListMaker::Run, this, path);
    return false;
}

bool ListMaker::IsFinished() {
    return finished.load() != 0;
}

void ListMaker::Finish() {
    finished.exchange(1);
}

void ListMaker::Join() {
    if (worker.joinable())
        worker.join();
}

void ListMaker::Run(std::wstring listedPath) {
    // Time for the dialog to appear.
    Sleep(25);
    Prepare();

    Scanner::Result result;
    if (Scanner::Scan(result, options, listedPath)) {
        OnProgress(L"Creating document...", outputPath);
        WriteList(preset, result.root, outputPath.c_str());
        if (!IsCancelled())
            OpenList(preset, outputPath);
    }
    Finish();
}
