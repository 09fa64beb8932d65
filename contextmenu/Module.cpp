#include "contextmenu/Module.h"

#include <atomic>

namespace Module {

namespace {

HINSTANCE instance = nullptr;
std::atomic<long> uses = 0;

}  // namespace

void SetInstance(HINSTANCE module) {
    instance = module;
}

HINSTANCE Instance() {
    return instance;
}

std::wstring Path() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(instance, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

std::wstring ProgramPath() {
    const std::wstring path = Path();
    return path.substr(0, path.rfind(L'.')) + L".exe";
}

void AddUse() {
    ++uses;
}

void ReleaseUse() {
    --uses;
}

bool IsInUse() {
    return uses != 0;
}

}  // namespace Module
