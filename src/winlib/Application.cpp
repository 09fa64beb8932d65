#include "winlib/Application.h"

namespace WinLib {

namespace {

// Never freed at the end of the process: everything else may use it until then.
Application* current = nullptr;

}  // namespace

Application* Application::Current() {
    return current;
}

void Application::Install(std::unique_ptr<Application> application) {
    const std::unique_ptr<Application> earlier(current);
    current = application.release();
}

}  // namespace WinLib
