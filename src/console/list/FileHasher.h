// Reads files to the end and computes their SHA-256, with the system's implementation. Files that are not on
// this computer, and links, are never opened.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "console/list/ProgressLine.h"
#include "console/list/RowPath.h"
#include "scanner/Records.h"
#include "winlib/Windows.h"

namespace Console {

// What a row shows of the contents of a file; the texts are valid until the next hash. Both are empty if no
// hash was asked for.
struct FileHash {
    std::string_view hex;    // 64 lower-case digits; empty if the file was not read
    std::string_view error;  // why it was not, in the words of the field "error"; empty if it was
};

class FileHasher {
public:
    struct Reports {
        bool progress;
        bool warnings;
    };

    // bytes is the size of all files that are to be hashed. Throws Error.
    FileHasher(uint64_t bytes, Reports reports);

    // Opens and reads the file, and names it on the standard error if it cannot be read. Throws Error if the
    // system cannot compute the hash, and Cancelled within a block after the program was interrupted.
    FileHash Hash(const Scanner::File& file);

    // Removes the progress from the console and reports how many files were not opened.
    void EndReports();

    // Returns how many files could not be read. Those that are never opened are not among them.
    uint64_t Unreadable() const { return unreadable_; }

private:
    struct CloseAlgorithm {
        void operator()(void* algorithm) const;
    };

    // Computes the hash into hex_. Returns 0 or the error of the file system.
    DWORD Read(const std::wstring& path, uint64_t size);
    void SetHex(const std::array<unsigned char, 32>& digest);
    void ShowProgress(uint64_t ofFile, std::wstring_view path);

    const uint64_t bytes_;
    const bool warnings_;
    ProgressLine line_;
    DWORD shownAt_;      // tick count
    uint64_t done_ = 0;  // bytes of the files before the current one
    uint64_t unreadable_ = 0;
    uint64_t offline_ = 0;
    RowPath path_;
    std::unique_ptr<void, CloseAlgorithm> algorithm_;
    std::unique_ptr<unsigned char[]> block_;
    std::array<char, 64> hex_;
};

}  // namespace Console
