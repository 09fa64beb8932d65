// The hashes of the system.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "winlib/Windows.h"

#include <bcrypt.h>

namespace {

using Digest = std::array<unsigned char, 32>;

// The test vector of the standard for "abc".
constexpr Digest DigestOfAbc = {0xBA, 0x78, 0x16, 0xBF, 0x8F, 0x01, 0xCF, 0xEA, 0x41, 0x41, 0x40,
                                0xDE, 0x5D, 0xAE, 0x22, 0x23, 0xB0, 0x03, 0x61, 0xA3, 0x96, 0x17,
                                0x7A, 0x9C, 0xB4, 0x10, 0xFF, 0x61, 0xF2, 0x00, 0x15, 0xAD};

struct HashContract : testing::Test {
    HashContract() {
        EXPECT_EQ(BCryptOpenAlgorithmProvider(&algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0), 0);
    }
    ~HashContract() override { EXPECT_EQ(BCryptCloseAlgorithmProvider(algorithm, 0), 0); }

    BCRYPT_HASH_HANDLE Create() const {
        BCRYPT_HASH_HANDLE hash = nullptr;
        EXPECT_EQ(BCryptCreateHash(algorithm, &hash, nullptr, 0, nullptr, 0, 0), 0);
        return hash;
    }

    static void Add(BCRYPT_HASH_HANDLE hash, std::string data) {
        EXPECT_EQ(
            BCryptHashData(hash, reinterpret_cast<PUCHAR>(data.data()), static_cast<ULONG>(data.size()), 0),
            0);
    }

    static Digest Finish(BCRYPT_HASH_HANDLE hash) {
        Digest digest = {};
        EXPECT_EQ(BCryptFinishHash(hash, digest.data(), static_cast<ULONG>(digest.size()), 0), 0);
        EXPECT_EQ(BCryptDestroyHash(hash), 0);
        return digest;
    }

    BCRYPT_ALG_HANDLE algorithm = nullptr;
};

}  // namespace

TEST_F(HashContract, HashesDataInPieces) {
    const BCRYPT_HASH_HANDLE hash = Create();
    Add(hash, "a");
    Add(hash, "");
    Add(hash, "bc");
    EXPECT_EQ(Finish(hash), DigestOfAbc);
}

TEST_F(HashContract, HashesAreIndependent) {
    const BCRYPT_HASH_HANDLE first = Create();
    const BCRYPT_HASH_HANDLE second = Create();
    Add(first, "ab");
    Add(second, "x");
    Add(first, "c");
    EXPECT_EQ(Finish(first), DigestOfAbc);
    EXPECT_NE(Finish(second), DigestOfAbc);
}

TEST_F(HashContract, ADigestOfAnotherSizeIsRefused) {
    const BCRYPT_HASH_HANDLE hash = Create();
    Digest digest;
    EXPECT_FALSE(BCRYPT_SUCCESS(BCryptFinishHash(hash, digest.data(), 31, 0)));
    EXPECT_EQ(BCryptDestroyHash(hash), 0);
}

TEST_F(HashContract, AnUnknownAlgorithmIsRefused) {
    BCRYPT_ALG_HANDLE other = nullptr;
    EXPECT_FALSE(BCRYPT_SUCCESS(BCryptOpenAlgorithmProvider(&other, L"SHA257", nullptr, 0)));
}
