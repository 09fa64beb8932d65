// Receives the reports of a scan. All operations are called on the thread of the scan.
#pragma once

#include <cstdint>
#include <string>

namespace Scanner {

enum class AccessDeniedAnswer : uint32_t {
    Continue = 0,         // go on, ask again at the next refused folder
    ContinueQuietly = 1,  // go on, ask no more in this scan
    Cancel = 2,           // end the scan without a message
};

class Listener {
public:
    // Reports the current step and its object, as two lines for the user.
    virtual void OnProgress(const std::wstring& status, const std::wstring& detail) = 0;

    // Reports an error that ends the scan; message is a text for the user.
    virtual void OnError(const std::wstring& message) = 0;

    // Reports that the file system refused to enumerate the folder at path. Returns how to go on.
    virtual AccessDeniedAnswer OnAccessDenied(const std::wstring& path) = 0;

    // Returns whether the scan is to end.
    virtual bool IsCancelled() = 0;

    virtual ~Listener() = default;
};

}  // namespace Scanner
