#include "console/list/FileHasher.h"

#include <algorithm>
#include <cstdio>

#include "console/Errors.h"
#include "console/FullPath.h"
#include "console/Interrupt.h"
#include "console/Output.h"

#include <bcrypt.h>

namespace Console {

namespace {

// So small that an interrupt is noticed soon on a slow network too.
constexpr DWORD BlockSize = 0x40000;

constexpr DWORD ProgressInterval = 100;  // milliseconds

// Opening such a file may fetch it from a server, or opens another file.
constexpr uint32_t RecallOnOpen = 0x40000;
constexpr uint32_t RecallOnDataAccess = 0x400000;
constexpr uint32_t NeverOpened =
    FILE_ATTRIBUTE_OFFLINE | FILE_ATTRIBUTE_REPARSE_POINT | RecallOnOpen | RecallOnDataAccess;

// What is reported for an error of the file system.
struct Reason {
    DWORD error;
    const char* field;
    const char* message;
};
constexpr std::array<Reason, 5> Reasons = {{
    {ERROR_ACCESS_DENIED, "access-denied", "access denied"},
    {ERROR_SHARING_VIOLATION, "in-use", "it is in use by another program"},
    {ERROR_LOCK_VIOLATION, "in-use", "it is in use by another program"},
    {ERROR_FILE_NOT_FOUND, "unreadable", "it does not exist any more"},
    {ERROR_PATH_NOT_FOUND, "unreadable", "it does not exist any more"},
}};
constexpr char OtherField[] = "unreadable";

const Reason* ReasonOf(DWORD error) {
    const auto reason = std::ranges::find(Reasons, error, &Reason::error);
    return reason != Reasons.end() ? &*reason : nullptr;
}

void Check(NTSTATUS status) {
    if (BCRYPT_SUCCESS(status))
        return;
    std::array<char, 16> number;
    std::snprintf(number.data(), number.size(), "0x%08X", static_cast<unsigned>(status));
    throw Error(ExitCode::NotWritten,
                "the list was not written, since Windows could not compute SHA-256: error " +
                    std::string(number.data()));
}

struct CloseFile {
    void operator()(HANDLE file) const {
        if (file != INVALID_HANDLE_VALUE)
            CloseHandle(file);
    }
};

struct DestroyHash {
    void operator()(BCRYPT_HASH_HANDLE hash) const { BCryptDestroyHash(hash); }
};

}  // namespace

void FileHasher::CloseAlgorithm::operator()(void* algorithm) const {
    BCryptCloseAlgorithmProvider(algorithm, 0);
}

FileHasher::FileHasher(uint64_t bytes, Reports reports)
    : bytes_(bytes),
      warnings_(reports.warnings),
      line_(reports.progress),
      shownAt_(GetTickCount()),
      path_(true, L'\\'),
      block_(std::make_unique_for_overwrite<unsigned char[]>(BlockSize)) {
    BCRYPT_ALG_HANDLE algorithm;
    Check(BCryptOpenAlgorithmProvider(&algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0));
    algorithm_.reset(algorithm);
}

FileHash FileHasher::Hash(const Scanner::File& file) {
    if ((file.attributes & NeverOpened) != 0) {
        ++offline_;
        done_ += file.size;
        return {.hex = {}, .error = "offline"};
    }
    const std::wstring path(path_.Of(file));
    const DWORD error = Read(path, file.size);
    done_ += file.size;
    if (error == 0)
        return {.hex = {hex_.data(), hex_.size()}, .error = {}};
    ++unreadable_;
    const Reason* const reason = ReasonOf(error);
    if (warnings_) {
        line_.Clear();
        Warn(ToUtf8(L"the file '" + path + L"' could not be read: ") +
             (reason != nullptr ? reason->message : "error " + std::to_string(error)));
    }
    return {.hex = {}, .error = reason != nullptr ? reason->field : OtherField};
}

void FileHasher::EndReports() {
    line_.Clear();
    if (warnings_ && offline_ != 0)
        Warn("files without a hash, since they are links or not on this computer: " +
             std::to_string(offline_));
}

DWORD FileHasher::Read(const std::wstring& path, uint64_t size) {
    const std::unique_ptr<void, CloseFile> file(CreateFileW(
        LongPath(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
        OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (file.get() == INVALID_HANDLE_VALUE)
        return GetLastError();

    // Windows 7 has no hashes that can be used again.
    BCRYPT_HASH_HANDLE created;
    Check(BCryptCreateHash(algorithm_.get(), &created, nullptr, 0, nullptr, 0, 0));
    const std::unique_ptr<void, DestroyHash> hash(created);
    uint64_t total = 0;
    while (true) {
        ThrowIfInterrupted();
        ShowProgress(std::min(total, size), path);
        DWORD read = 0;
        if (!ReadFile(file.get(), block_.get(), BlockSize, &read, nullptr))
            return GetLastError();
        if (read == 0)
            break;
        Check(BCryptHashData(hash.get(), block_.get(), read, 0));
        total += read;
    }
    std::array<unsigned char, 32> digest;
    Check(BCryptFinishHash(hash.get(), digest.data(), digest.size(), 0));
    SetHex(digest);
    return 0;
}

void FileHasher::SetHex(const std::array<unsigned char, 32>& digest) {
    constexpr char Digits[] = "0123456789abcdef";
    char* out = hex_.data();
    for (const unsigned char byte : digest) {
        *out++ = Digits[byte >> 4];
        *out++ = Digits[byte & 0xF];
    }
}

void FileHasher::ShowProgress(uint64_t ofFile, std::wstring_view path) {
    const DWORD now = GetTickCount();
    if (now - shownAt_ < ProgressInterval)
        return;
    shownAt_ = now;
    line_.ShowBytes(done_ + ofFile, bytes_, path);
}

}  // namespace Console
