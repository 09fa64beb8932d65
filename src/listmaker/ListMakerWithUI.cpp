#include "listmaker/ListMakerWithUI.h"

#include <memory>

#include "progress/ProgressController.h"
#include "resources/resource.h"
#include "winlib/Application.h"
#include "winlib/SentMessages.h"
#include "winlib/WindowText.h"

namespace {

constexpr wchar_t Caption[] = L"Tamblewick";

// Owns the dialog for a scope. Empty if another thread owns it or it is deleted.
class DialogLock {
public:
    explicit DialogLock(std::atomic<ProgressController*>& place)
        : place_(place), dialog_(place.exchange(nullptr)) {}
    DialogLock(const DialogLock&) = delete;
    DialogLock& operator=(const DialogLock&) = delete;
    ~DialogLock() {
        if (dialog_ != nullptr)
            place_.store(dialog_);
    }

    explicit operator bool() const { return dialog_ != nullptr; }
    ProgressController* operator->() const { return dialog_; }

private:
    std::atomic<ProgressController*>& place_;
    ProgressController* const dialog_;
};

// Deletes the dialog's object at the end of a scope, after the worker has released it.
class DialogDeleter {
public:
    DialogDeleter(std::atomic<ProgressController*>& place, ProgressController& dialog)
        : place_(place), dialog_(dialog) {}
    DialogDeleter(const DialogDeleter&) = delete;
    DialogDeleter& operator=(const DialogDeleter&) = delete;
    ~DialogDeleter() {
        // The worker may own the dialog and wait for a window that could not be created.
        dialog_.EndCreation();
        std::unique_ptr<ProgressController> dialog;
        WinLib::WaitServingSentMessages([&] {
            dialog.reset(place_.exchange(nullptr));
            return dialog != nullptr;
        });
        // The window still exists only after an exception from a window procedure.
        if (IsWindow(dialog->Handle))
            DestroyWindow(dialog->Handle);
    }

private:
    std::atomic<ProgressController*>& place_;
    ProgressController& dialog_;
};

// Enables the owner at the end of a scope if it was enabled at the beginning. EndDialog does so too, but when
// the worker calls it, the dialog may be destroyed before it gets to that.
class OwnerEnabler {
public:
    explicit OwnerEnabler(HWND owner)
        : owner_(owner), wasEnabled_(owner != nullptr && IsWindowEnabled(owner)) {}
    OwnerEnabler(const OwnerEnabler&) = delete;
    OwnerEnabler& operator=(const OwnerEnabler&) = delete;
    ~OwnerEnabler() {
        if (wasEnabled_)
            EnableWindow(owner_, TRUE);
    }

private:
    const HWND owner_;
    const bool wasEnabled_;
};

}  // namespace

ListMakerWithUI::ListMakerWithUI(HWND ownerWindow, const Preset& source, const std::wstring& listedPath)
    : ListMaker(source, listedPath),
      owner(ownerWindow),
      progress(std::make_unique<ProgressController>(Caption).release()) {}

ListMakerWithUI::~ListMakerWithUI() {
    // The worker may have a box on the screen, which needs this thread until it is answered.
    if (worker.joinable())
        WinLib::WaitServingSentMessages([this] { return IsFinished(); });
    Join();
    // Still there if the job was never started.
    const std::unique_ptr<ProgressController> unused(progress.exchange(nullptr));
}

bool ListMakerWithUI::Start() {
    // Read before the worker exists, which may own the dialog at any moment from then on.
    ProgressController& dialog = *progress.load();
    ListMaker::Start();
    const OwnerEnabler use{owner};
    const DialogDeleter life{progress, dialog};

    const WinLib::Application* application = WinLib::Application::Current();
    HINSTANCE instance = application != nullptr ? application->Instance : nullptr;
    return WinLib::RunModal(dialog, IDD_PROGRESS, owner, instance) != 0;
}

void ListMakerWithUI::OnProgress(const std::wstring& status, const std::wstring& detail) {
    if (const DialogLock dialog{progress})
        dialog->Report(status, detail);
}

void ListMakerWithUI::OnError(const std::wstring& message) {
    if (!ShowOnDialog(message))
        MessageBoxW(owner, message.c_str(), Caption, MB_ICONERROR);
    PostEnd();
}

bool ListMakerWithUI::ShowOnDialog(const std::wstring& message) {
    const DialogLock dialog{progress};
    const HWND window = dialog ? dialog->WaitForWindow() : nullptr;
    if (window == nullptr)
        return false;
    const std::wstring title = WinLib::GetWindowText(window);
    // Returns 0 or -1 if "Background" has destroyed the window meanwhile.
    return MessageBoxW(window, message.c_str(), title.c_str(), MB_ICONERROR) > 0;
}

bool ListMakerWithUI::IsCancelled() {
    const DialogLock dialog{progress};
    return dialog && dialog->IsCancelled();
}

void ListMakerWithUI::Finish() {
    // Marked first: when the dialog closes or the message arrives, the job must be finished.
    ListMaker::Finish();
    if (const DialogLock dialog{progress})
        dialog->End();
    PostEnd();
}

void ListMakerWithUI::PostEnd() {
    if (owner != nullptr)
        PostMessageW(owner, WM_APP, 0, 0);
}
