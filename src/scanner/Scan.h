// The walk over the folders below one path.
#pragma once

#include <string>

#include "scanner/Options.h"
#include "scanner/Result.h"

namespace Scanner {

// Fills a new result from the folder at path and sorts it by the options. Reports to options.listener on the
// calling thread. Returns false if the scan was cancelled, failed or ran out of memory; the result must then
// only be destroyed. Never throws.
bool Scan(Result& result, const Options& options, const std::wstring& path);

}  // namespace Scanner
