// A listing job: a folder and a copy of a preset, processed by a worker thread that scans, writes the list
// and opens it. This base class reports nothing.
#pragma once

#include <atomic>
#include <string>
#include <thread>

#include "scanner/Listener.h"
#include "scanner/Options.h"
#include "settings/Preset.h"

class ListMaker : public Scanner::Listener {
public:
    // Copies the preset and chooses the name of the list file, but creates no file. listedPath may be any
    // text.
    ListMaker(const Preset& source, const std::wstring& listedPath);
    ListMaker(const ListMaker&) = delete;
    ListMaker& operator=(const ListMaker&) = delete;

    void OnProgress(const std::wstring& status, const std::wstring& detail) override;
    void OnError(const std::wstring& message) override;
    Scanner::AccessDeniedAnswer OnAccessDenied(const std::wstring& path) override;
    bool IsCancelled() override;

    // Waits for the worker.
    ~ListMaker() override;

    // Starts the worker. Returns whether the job has ended when the call returns. REQUIRES: the job was not
    // started before.
    virtual bool Start();

    // Returns whether the worker has ended. May be called from any thread.
    virtual bool IsFinished();

protected:
    virtual void Prepare() {}

    // The last step of the worker.
    virtual void Finish();

    // Waits for the worker, if it was started. To be called by the destructor of a derived class, whose
    // operations the worker calls.
    void Join();

    const std::wstring path;
    const std::wstring outputPath;
    std::thread worker;
    std::atomic<uint8_t> finished = 0;
    const Preset preset;
    const Scanner::Options options;

private:
    void Run(std::wstring path);
};
