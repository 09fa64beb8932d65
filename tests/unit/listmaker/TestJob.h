// The product's job with its dialog, made so that a test can lead the worker.
#pragma once

#include <functional>
#include <string>

#include "listmaker/ListMakerWithUI.h"
#include "winlib/SentMessages.h"

// Saves lists into the folder, over older ones.
inline Preset MakeJobPreset(const std::wstring& listFolder, OpenMethod openMethod) {
    Preset preset(L"test");
    preset.Get(Saving::SaveLocation) = SaveLocation::Custom;
    preset.Get(Saving::CustomFolderPath) = listFolder;
    preset.Get(Saving::OverwriteExisting) = true;
    preset.Get(Opening::OpenMethod) = openMethod;
    return preset;
}

class TestJob final : public ListMakerWithUI {
public:
    using ListMakerWithUI::ListMakerWithUI;
    // As the product's, for the worker calls the operations of this class too. No class derives from it.
    ~TestJob() override {
        if (worker.joinable())
            WinLib::WaitServingSentMessages([this] { return IsFinished(); });
        Join();
    }

    void OnProgress(const std::wstring& status, const std::wstring& detail) override {
        ListMakerWithUI::OnProgress(status, detail);
        if (status == L"Creating document...")
            AtTheDocument();
    }

    void OnError(const std::wstring& message) override {
        AtTheError();
        ListMakerWithUI::OnError(message);
    }

    // All run on the worker; AtTheError before the message is shown.
    std::function<void()> AtTheBeginning = [] {};
    std::function<void()> AtTheDocument = [] {};
    std::function<void()> AtTheError = [] {};

protected:
    void Prepare() override { AtTheBeginning(); }
};
