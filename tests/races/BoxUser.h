// Answers the error boxes that the workers of main windows show, from a thread of its own.
#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "winlib/Windows.h"

class BoxUser {
public:
    BoxUser() : thread_([this] { Answer(); }) {}
    BoxUser(const BoxUser&) = delete;
    BoxUser& operator=(const BoxUser&) = delete;
    ~BoxUser();

    // How many boxes with this in their text were answered since the last call.
    int TakeCount(const std::wstring& part);

private:
    void Answer();
    void Consider(HWND window);

    std::mutex mutex_;
    std::vector<std::wstring> texts_;
    std::vector<HWND> answered_;
    std::atomic<bool> stopped_ = false;
    std::thread thread_;
};
