#include "listmaker/ListMakerWithUI.h"

#include <memory>

#include "progress/ProgressController.h"
#include "resources/resource.h"
#include "winlib/Application.h"
#include "winlib/SentMessages.h"
#include "winlib/WindowText.h"

namespace {

constexpr wchar_t Caption[] = L"Tamblewick";

// Holds the dialog for the length of a scope, if it is available.
class Taken {
public:
    explicit Taken(std::atomic<ProgressController*>& place)
        : place_(place), dialog_(place.exchange(nullptr)) {}
    Taken(const Taken&) = delete;
    Taken& operator=(const Taken&) = delete;
    ~Taken() {
        if (dialog_ != nullptr)
            place_.store(dialog_);
    }

    explicit operator bool() const { return dialog_ != nullptr; }
    ProgressController* operator->() const { return dialog_; }

private:
    std::atomic<ProgressController*>& place_;
    ProgressController* const dialog_;
};

// Deletes the dialog's object with the end of a scope, as soon as the worker has given it back.
class DeletedAtEnd {
public:
    DeletedAtEnd(std::atomic<ProgressController*>& place, ProgressController& dialog)
        : place_(place), dialog_(dialog) {}
    DeletedAtEnd(const DeletedAtEnd&) = delete;
    DeletedAtEnd& operator=(const DeletedAtEnd&) = delete;
    ~DeletedAtEnd() {
        // The worker may hold the dialog and wait for a window that could not be created.
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

// Enables the owner again with the end of a scope, if it was enabled at its beginning. EndDialog does so, but
// the worker's may find the dialog gone before it has come to the owner.
class EnabledAtEnd {
public:
    explicit EnabledAtEnd(HWND owner)
        : owner_(owner), wasEnabled_(owner != nullptr && IsWindowEnabled(owner)) {}
    EnabledAtEnd(const EnabledAtEnd&) = delete;
    EnabledAtEnd& operator=(const EnabledAtEnd&) = delete;
    ~EnabledAtEnd() {
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
    // Read before the worker exists, which may hold the dialog at any moment from then on.
    ProgressController& dialog = *progress.load();
    ListMaker::Start();
    const EnabledAtEnd use{owner};
    const DeletedAtEnd life{progress, dialog};

    const WinLib::Application* application = WinLib::Application::Current();
    HINSTANCE instance = application != nullptr ? application->Instance : nullptr;
    return WinLib::RunModal(dialog, IDD_PROGRESS, owner, instance) != 0;
}

void ListMakerWithUI::OnProgress(const std::wstring& status, const std::wstring& detail) {
    if (const Taken dialog{progress})
        dialog->Report(status, detail);
}

void ListMakerWithUI::OnError(const std::wstring& message) {
    if (!ShowOnDialog(message))
        MessageBoxW(owner, message.c_str(), Caption, MB_ICONERROR);
    PostEnd();
}

bool ListMakerWithUI::ShowOnDialog(const std::wstring& message) {
    const Taken dialog{progress};
    const HWND window = dialog ? dialog->WaitForWindow() : nullptr;
    if (window == nullptr)
        return false;
    const std::wstring title = WinLib::GetWindowText(window);
    // Fails if "Background" has taken the window away meanwhile, with 0 or, at a later moment, with -1.
    return MessageBoxW(window, message.c_str(), title.c_str(), MB_ICONERROR) > 0;
}

bool ListMakerWithUI::IsCancelled() {
    const Taken dialog{progress};
    return dialog && dialog->IsCancelled();
}

void ListMakerWithUI::Finish() {
    // Marked first, so that nobody who sees the dialog close or the message come finds the job unfinished.
    ListMaker::Finish();
    if (const Taken dialog{progress})
        dialog->End();
    PostEnd();
}

void ListMakerWithUI::PostEnd() {
    if (owner != nullptr)
        PostMessageW(owner, WM_APP, 0, 0);
}
