#include "support/Platform.h"

#include "fakewin/FakeWin.h"

namespace TestSupport {

void PrepareWorld() {
    FakeWin::Reset();
}

std::string LeftOpen() {
    return FakeWin::LeftOpen();
}

int WineVersion() {
    return 0;
}

std::shared_ptr<void> BeginUnwatched() {
    return std::make_shared<FakeWin::Unwatched>();
}

}  // namespace TestSupport
