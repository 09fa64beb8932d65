// Everything that a run can leave, to be compared as a whole: that nothing else has been written shows in
// no other way.
#pragma once

#include <map>
#include <string>

namespace TestSupport {

// Files by their path with their bytes, folders by their path and a backslash. Or values by their path with
// type and data, keys by their path and a backslash, as in FakeWin::Log.
using Snapshot = std::map<std::wstring, std::string>;

// The drive C:.
Snapshot FilesNow();

// The key Software\Tamblewick of the current user.
Snapshot RegistryNow();

// Takes what lies at and below this path from another snapshot, or out if it is not there either.
void TakeBack(Snapshot& snapshot, const std::wstring& path, const Snapshot& from);

// What is different, one to a line; empty if nothing is.
std::string Differences(const Snapshot& actual, const Snapshot& expected);

}  // namespace TestSupport
