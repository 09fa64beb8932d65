// Takes the reports of a scan: shows its progress, names the folders that could not be read, and keeps the
// error that ended it.
#pragma once

#include <cstdint>
#include <string>

#include "console/list/ProgressLine.h"
#include "scanner/Listener.h"
#include "scanner/Result.h"

namespace Console {

class ListListener : public Scanner::Listener {
public:
    struct Reports {
        bool progress;
        bool warnings;
    };

    // The result that the scan fills must outlive the listener; folder is the scanned path in canonical form.
    ListListener(const Scanner::Result& result, const std::wstring& folder, Reports reports)
        : result_(result), folder_(folder), warnings_(reports.warnings), line_(reports.progress) {}

    void OnProgress(const std::wstring& status, const std::wstring& detail) override;
    void OnError(const std::wstring& message) override;

    // The scan goes on, unless the scanned folder itself is refused.
    Scanner::AccessDeniedAnswer OnAccessDenied(const std::wstring& path) override;

    bool IsCancelled() override;

    // Removes the progress from the console.
    void EndProgress() { line_.Clear(); }

    // Returns how many folders were refused.
    uint64_t Refused() const { return refused_; }

    // Throws the reason for which the scan has failed.
    [[noreturn]] void ThrowFailure();

private:
    const Scanner::Result& result_;
    const std::wstring folder_;
    const bool warnings_;
    ProgressLine line_;
    uint64_t refused_ = 0;
    std::wstring error_;
};

}  // namespace Console
