#include "BlockedListFile.h"

#include <gtest/gtest.h>

std::wstring BlockedListFile::Folder() {
    return L"\\\\.\\pipe\\tamblewick test " + std::to_wstring(GetCurrentProcessId());
}

// The smallest buffer, so that the worker waits at its first line.
BlockedListFile::BlockedListFile(const std::wstring& fileName)
    : pipe_(CreateNamedPipeW((Folder() + L"\\" + fileName).c_str(), PIPE_ACCESS_INBOUND,
                             PIPE_TYPE_BYTE | PIPE_WAIT, 1, 0, 0, 0, nullptr)) {
    EXPECT_NE(pipe_, INVALID_HANDLE_VALUE) << GetLastError();
}

BlockedListFile::~BlockedListFile() {
    CloseHandle(pipe_);
}

bool BlockedListFile::IsOpen() const {
    return PeekNamedPipe(pipe_, nullptr, 0, nullptr, nullptr, nullptr) != FALSE;
}

std::string BlockedListFile::Read() {
    ConnectNamedPipe(pipe_, nullptr);
    std::string text;
    char chunk[512];
    DWORD size = 0;
    while (ReadFile(pipe_, chunk, sizeof(chunk), &size, nullptr))
        text.append(chunk, size);
    return text;
}
