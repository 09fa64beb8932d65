#include <memory>

#include "app/AppMain.h"
#include "winlib/Application.h"
#include "winlib/DllSearch.h"
#include "winlib/Windows.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR commandLine, int showCommand) {
    WinLib::LimitDllSearch();
    WinLib::Application::Install(std::make_unique<WinLib::Application>(instance, commandLine, showCommand));
    return AppMain();
}
