// Owns the handle of one enumeration of a folder.
#pragma once

#include <utility>

#include "winlib/Windows.h"

namespace Scanner {

class FindHandle {
public:
    explicit FindHandle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
    FindHandle(FindHandle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
    FindHandle& operator=(FindHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~FindHandle() {
        if (*this)
            FindClose(handle_);
    }

    // Whether an enumeration is open.
    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }

    HANDLE Get() const { return handle_; }

private:
    HANDLE handle_;
};

}  // namespace Scanner
