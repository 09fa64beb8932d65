// How a scan reports to whoever started it. All four operations are called on the thread of the scan.
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
    // What the scan is doing, in two lines for the user.
    virtual void OnProgress(const std::wstring& status, const std::wstring& detail) = 0;

    // A message for the user that ends the listing.
    virtual void OnError(const std::wstring& message) = 0;

    // The file system refused to enumerate the folder at path.
    virtual AccessDeniedAnswer OnAccessDenied(const std::wstring& path) = 0;

    // Whether the scan should end.
    virtual bool IsCancelled() = 0;

    virtual ~Listener() = default;
};

}  // namespace Scanner
