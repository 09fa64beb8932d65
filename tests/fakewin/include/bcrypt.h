// The hashes of the system: SHA-256 alone.
#pragma once

#include <windef.h>

typedef LONG NTSTATUS;
typedef unsigned char* PUCHAR;
typedef PVOID BCRYPT_HANDLE;
typedef PVOID BCRYPT_ALG_HANDLE;
typedef PVOID BCRYPT_HASH_HANDLE;

#define BCRYPT_SUCCESS(status) ((status) >= 0)
#define BCRYPT_SHA256_ALGORITHM L"SHA256"

NTSTATUS WINAPI BCryptOpenAlgorithmProvider(BCRYPT_ALG_HANDLE* algorithm, LPCWSTR name, LPCWSTR provider,
                                            ULONG flags);
NTSTATUS WINAPI BCryptCloseAlgorithmProvider(BCRYPT_ALG_HANDLE algorithm, ULONG flags);

// The system allocates the object, and there is no secret.
NTSTATUS WINAPI BCryptCreateHash(BCRYPT_ALG_HANDLE algorithm, BCRYPT_HASH_HANDLE* hash, PUCHAR object,
                                 ULONG objectSize, PUCHAR secret, ULONG secretSize, ULONG flags);
NTSTATUS WINAPI BCryptHashData(BCRYPT_HASH_HANDLE hash, PUCHAR data, ULONG size, ULONG flags);
NTSTATUS WINAPI BCryptFinishHash(BCRYPT_HASH_HANDLE hash, PUCHAR digest, ULONG size, ULONG flags);
NTSTATUS WINAPI BCryptDestroyHash(BCRYPT_HASH_HANDLE hash);
