// What differs between the two sides of the tests: on Linux the world is the stand-in of tests/fakewin, under
// Wine it is the real one. Implemented in native/ and windows/.
#pragma once

#include <memory>
#include <string>

namespace TestSupport {

// Before each test: the empty world of the stand-in; the real one stays as it is.
void PrepareWorld();

// The handles that a test has left open, one to a line; empty if there are none, or if they are not counted.
std::string LeftOpen();

// The first number of Wine's version; 0 on the stand-in and on Windows.
int WineVersion();

// While the result lives, calls of this thread are the test's own and neither counted nor failed on request.
std::shared_ptr<void> BeginUnwatched();

}  // namespace TestSupport
