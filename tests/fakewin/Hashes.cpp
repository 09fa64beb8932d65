// The hashes of the system, computed by a library of Linux.
#include <bcrypt.h>
#include <nettle/sha2.h>

#include <map>
#include <mutex>
#include <string_view>

#include "Internal.h"

namespace FakeWin {
namespace {

using namespace Internal;

constexpr NTSTATUS InvalidHandle = static_cast<NTSTATUS>(0xC0000008);
constexpr NTSTATUS InvalidParameter = static_cast<NTSTATUS>(0xC000000D);
constexpr NTSTATUS NotFound = static_cast<NTSTATUS>(0xC0000225);

struct State {
    int algorithms = 0;
    std::map<BCRYPT_HASH_HANDLE, sha256_ctx> hashes;
    uintptr_t last = 0x60000;
};

std::mutex mutex;
State state;
char algorithmObject;  // its address is the handle

// One use of a call on a hash.
template <typename Use>
NTSTATUS WithHash(Call call, BCRYPT_HASH_HANDLE handle, Use use) {
    if (const DWORD fault = Enter(call))
        return static_cast<NTSTATUS>(fault);
    const std::lock_guard lock(mutex);
    const auto found = state.hashes.find(handle);
    return found != state.hashes.end() ? use(found->second) : InvalidHandle;
}

}  // namespace

namespace Internal {

std::string OpenHashesText() {
    const std::lock_guard lock(mutex);
    std::string text;
    for (int i = 0; i < state.algorithms; ++i)
        text += "algorithm\n";
    for (size_t i = 0; i < state.hashes.size(); ++i)
        text += "hash\n";
    return text;
}

void ResetHashes() {
    const std::lock_guard lock(mutex);
    state = State();
}

}  // namespace Internal
}  // namespace FakeWin

using namespace FakeWin;
using namespace FakeWin::Internal;

NTSTATUS BCryptOpenAlgorithmProvider(BCRYPT_ALG_HANDLE* algorithm, LPCWSTR name, LPCWSTR provider,
                                     ULONG flags) {
    if (const DWORD fault = Enter(Call::BCryptOpenAlgorithmProvider))
        return static_cast<NTSTATUS>(fault);
    if (std::wstring_view(name) != BCRYPT_SHA256_ALGORITHM)
        return NotFound;
    if (provider != nullptr || flags != 0)
        return InvalidParameter;
    const std::lock_guard lock(mutex);
    ++state.algorithms;
    *algorithm = &algorithmObject;
    return 0;
}

NTSTATUS BCryptCloseAlgorithmProvider(BCRYPT_ALG_HANDLE algorithm, ULONG) {
    const std::lock_guard lock(mutex);
    if (algorithm != &algorithmObject || state.algorithms == 0)
        return InvalidHandle;
    --state.algorithms;
    return 0;
}

NTSTATUS BCryptCreateHash(BCRYPT_ALG_HANDLE algorithm, BCRYPT_HASH_HANDLE* hash, PUCHAR object, ULONG,
                          PUCHAR secret, ULONG, ULONG flags) {
    const SystemMemory system;
    if (const DWORD fault = Enter(Call::BCryptCreateHash))
        return static_cast<NTSTATUS>(fault);
    if (object != nullptr || secret != nullptr || flags != 0)
        return InvalidParameter;
    const std::lock_guard lock(mutex);
    if (algorithm != &algorithmObject || state.algorithms == 0)
        return InvalidHandle;
    *hash = reinterpret_cast<BCRYPT_HASH_HANDLE>(++state.last);
    sha256_init(&state.hashes[*hash]);
    return 0;
}

NTSTATUS BCryptHashData(BCRYPT_HASH_HANDLE hash, PUCHAR data, ULONG size, ULONG) {
    return WithHash(
        Call::BCryptHashData, hash,
        [&](sha256_ctx& context) {
            sha256_update(&context, size, data);
            return NTSTATUS{0};
        });
}

NTSTATUS BCryptFinishHash(BCRYPT_HASH_HANDLE hash, PUCHAR digest, ULONG size, ULONG) {
    return WithHash(
        Call::BCryptFinishHash, hash,
        [&](sha256_ctx& context) {
            if (size != SHA256_DIGEST_SIZE)
                return InvalidParameter;
            sha256_digest(&context, size, digest);
            return NTSTATUS{0};
        });
}

NTSTATUS BCryptDestroyHash(BCRYPT_HASH_HANDLE hash) {
    const std::lock_guard lock(mutex);
    return state.hashes.erase(hash) != 0 ? 0 : InvalidHandle;
}
