// Shows the progress dialog with both lines of text until the process is ended.

#include <thread>

#include "progress/ProgressController.h"
#include "resources/resource.h"

#include <commctrl.h>

int main() {
    const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&classes);
    ProgressController progress(L"Tamblewick");
    const std::jthread worker([&progress] {
        progress.WaitForWindow();
        // Longer than the line and with an ampersand.
        progress.Report(
            L"Scanning folders...",
            L"C:\\Users\\Public\\Pictures\\Holidays by the sea & in the mountains\\Last summer\\Beach");
    });
    HINSTANCE instance = GetModuleHandleW(nullptr);
    WinLib::RunModal(progress, IDD_PROGRESS, nullptr, instance);
    progress.EndCreation();
}
