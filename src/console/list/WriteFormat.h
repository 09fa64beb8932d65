// Writes a finished scan in the format that was asked for.
#pragma once

#include <cstdint>
#include <cstdio>

#include "console/list/FileHasher.h"
#include "console/list/ListRequest.h"
#include "scanner/Options.h"
#include "scanner/Records.h"

namespace Console {

struct FinishedScan {
    const Scanner::Node& root;
    const Scanner::Options& options;
    uint64_t unreadable;  // folders
    FileHasher* hasher;   // null unless the request asks for hashes
};

// Returns whether text or HTML is written, to a stream in text mode; the other formats need a binary one.
bool IsText(ListFormat format);

// Writes the list to an open stream, and the stream's buffer to the system. Returns whether all of it was
// written. Throws Cancelled if the program is interrupted, and Error if hashes cannot be computed.
bool WriteFormat(std::FILE* stream, const ListRequest& request, const FinishedScan& scan);

}  // namespace Console
