#include "winlib/Application.h"

namespace WinLib {

namespace {

// Reached through a plain pointer because the object outlives everything: it is never freed at the end.
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
