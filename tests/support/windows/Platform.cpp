#include "support/Platform.h"

namespace TestSupport {

void PrepareWorld() {}

std::string LeftOpen() {
    return {};
}

std::shared_ptr<void> BeginUnwatched() {
    return nullptr;
}

}  // namespace TestSupport
