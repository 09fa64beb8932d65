// What the whole process shares: how it was started, and what its message loop must know of the windows.
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

    // The one object of the process, or null before there is one.
    static Application* Current();

    // Makes this the object of the process, which owns it; an earlier one is destroyed.
    static void Install(std::unique_ptr<Application> application);

    HINSTANCE Instance;
    std::wstring CommandLine;  // without the program's name
    int ShowCommand;

    // Every modeless dialog in the order of creation. The loop offers each message to them in this order; the
    // handle of a destroyed window stays and costs only the call.
    std::vector<HWND> Dialogs;

    // Where accelerators go, and their table, which is not owned. Both null while accelerators are off.
    HWND AcceleratorWindow = nullptr;
    HACCEL Accelerators = nullptr;

    // Set by the window that was sent an accelerator: true if it did not take it. The loop then treats the
    // key as if there were no accelerator.
    bool AcceleratorRefused = false;
};

}  // namespace WinLib
