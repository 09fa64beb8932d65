// The walk over the folders below one path.
#pragma once

#include <string>

#include "scanner/Options.h"
#include "scanner/Result.h"

namespace Scanner {

// Fills a fresh result from the folder at path and sorts it as the options say. Reports to options.listener
// on the calling thread. Returns false when the scan was cancelled, failed or ran out of memory: the result
// is then good for nothing but its destruction. Never throws.
bool Scan(Result& result, const Options& options, const std::wstring& path);

}  // namespace Scanner
