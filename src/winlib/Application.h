// The state of the process: how it was started, and the windows that its message loop serves.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "winlib/Windows.h"

namespace WinLib {

class Application {
public:
    Application(HINSTANCE instance, std::wstring commandLine, int showCommand)
        : Instance(instance), CommandLine(std::move(commandLine)), ShowCommand(showCommand) {}

    // Returns the object of the process, or null before there is one.
    static Application* Current();

    // Makes this the object of the process, which then owns it. Destroys an earlier one.
    static void Install(std::unique_ptr<Application> application);

    HINSTANCE Instance;
    std::wstring CommandLine;  // without the program's name
    int ShowCommand;

    // All modeless dialogs in the order of creation. The loop passes each message to IsDialogMessageW for
    // each of them in this order. Handles of destroyed windows are not removed; the call ignores them.
    std::vector<HWND> Dialogs;

    // The window that receives accelerators, and their table, which is not owned. Both null while
    // accelerators are off.
    HWND AcceleratorWindow = nullptr;
    HACCEL Accelerators = nullptr;

    // Set by the window that was sent an accelerator: true if it did not take it. The loop then treats the
    // key as if there were no accelerator.
    bool AcceleratorRefused = false;
};

}  // namespace WinLib
