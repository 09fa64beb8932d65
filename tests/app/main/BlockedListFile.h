// The far end of a list file, by which a test decides when a list is finished: a pipe in the place of the
// file takes what the worker writes only when the test reads it.
#pragma once

#include <string>

#include "winlib/Windows.h"

class BlockedListFile {
public:
    // fileName is that of the list, without a folder.
    explicit BlockedListFile(const std::wstring& fileName);
    BlockedListFile(const BlockedListFile&) = delete;
    BlockedListFile& operator=(const BlockedListFile&) = delete;
    ~BlockedListFile();

    // The folder for the preset to save in.
    static std::wstring Folder();

    // Whether the worker has come as far as to write the list.
    bool IsOpen() const;

    // Reads to the end of the list, which lets the worker go on; from any thread.
    std::string Read();

private:
    HANDLE pipe_;
};
