#include "console/list/ListListener.h"

#include "console/Errors.h"
#include "console/Interrupt.h"
#include "console/Output.h"

namespace Console {

void ListListener::OnProgress(const std::wstring&, const std::wstring& detail) {
    line_.Show(result_.foundFolders + result_.foundFiles, result_.foundFolders, detail);
}

// The second line of a message is for a dialog.
void ListListener::OnError(const std::wstring& message) {
    error_ = message.substr(0, message.find(L'\n'));
}

Scanner::AccessDeniedAnswer ListListener::OnAccessDenied(const std::wstring& path) {
    if (path == folder_) {
        error_ = L"access to the folder '" + folder_ + L"' was denied; check its permissions";
        return Scanner::AccessDeniedAnswer::Cancel;
    }
    ++refused_;
    if (warnings_) {
        line_.Clear();
        Warn(ToUtf8(L"the folder '" + path + L"' could not be read: access denied"));
    }
    return Scanner::AccessDeniedAnswer::Continue;
}

bool ListListener::IsCancelled() {
    return Interrupted();
}

void ListListener::ThrowFailure() {
    ThrowIfInterrupted();
    if (error_.empty())
        error_ = L"there is not enough memory to list the folder '" + folder_ + L"'";
    throw Error(ExitCode::Failed, error_);
}

}  // namespace Console
