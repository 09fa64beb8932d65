#include "console/list/ByteOutput.h"

#include <algorithm>

namespace Console {

namespace {

constexpr size_t Capacity = 0x10000;

}  // namespace

ByteOutput::ByteOutput(std::FILE* stream)
    : stream_(stream),
      memory_(std::make_unique_for_overwrite<char[]>(Capacity)),
      end_(memory_.get()),
      limit_(end_ + Capacity) {}

void ByteOutput::Append(std::string_view bytes) {
    Commit(std::copy(bytes.begin(), bytes.end(), Reserve(bytes.size())));
}

bool ByteOutput::Finish() {
    WriteOut();
    if (std::fflush(stream_) != 0)
        failed_ = true;
    return !failed_;
}

// A text may be larger than the buffer, which then grows.
void ByteOutput::MakeRoom(size_t size) {
    WriteOut();
    if (size <= static_cast<size_t>(limit_ - end_))
        return;
    memory_ = std::make_unique_for_overwrite<char[]>(size);
    end_ = memory_.get();
    limit_ = end_ + size;
}

void ByteOutput::WriteOut() {
    const auto length = static_cast<size_t>(end_ - memory_.get());
    end_ = memory_.get();
    if (!failed_ && std::fwrite(memory_.get(), 1, length, stream_) != length)
        failed_ = true;
}

}  // namespace Console
