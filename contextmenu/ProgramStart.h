// One start of the program beside the module.
#pragma once

#include <memory>
#include <string>

#include "winlib/Windows.h"

struct ProcessCloser {
    void operator()(HANDLE process) const { CloseHandle(process); }
};

// The handle of a process, which is signaled when the process has ended.
using UniqueProcess = std::unique_ptr<void, ProcessCloser>;

class ProgramStart {
public:
    // Without arguments the program opens its window.
    ProgramStart();

    // Makes the program list this folder with the preset of this key.
    ProgramStart(const std::wstring& key, const std::wstring& folder);

    // Starts the program and does not wait for its end. Null if it cannot be started. May be called once.
    UniqueProcess Run() noexcept;

private:
    explicit ProgramStart(const std::wstring& arguments);

    const std::wstring program_;
    std::wstring commandLine_;
};
