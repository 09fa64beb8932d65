// The message loop of the main thread. Modal dialogs run the system's own loop instead, so that accelerators
// are dead while one is open.
#pragma once

namespace WinLib {
class Application;
}

// Offers each message first to the application's accelerators and then to its dialogs in their order, before
// it is dispatched. The key of an accelerator that its window refuses goes on to the dialogs. Returns the
// exit code that came with WM_QUIT. Throws WinLib::Win32Error.
int RunMessageLoop(WinLib::Application& application);
