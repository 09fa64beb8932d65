// The bytes of one fuzzing run, taken from front to back as numbers, choices and text. After the end every
// byte is 0, so that an input of any length makes sense and a small change of it is a small change of what it
// means.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>

namespace Fuzz {

class Input {
public:
    // The bytes are not copied.
    Input(const uint8_t* data, size_t size) : next_(data), end_(data + size) {}

    bool IsAtEnd() const { return next_ == end_; }

    uint8_t Byte() { return IsAtEnd() ? uint8_t{0} : *next_++; }
    bool Bool() { return (Byte() & 1) != 0; }
    uint32_t Number();

    // A number below count, which is 1 to 256.
    size_t Below(size_t count) { return Byte() % count; }

    template <typename Range>
    const auto& Choose(const Range& range) {
        return *std::next(std::begin(range), static_cast<ptrdiff_t>(Below(std::size(range))));
    }

    // One UTF-16 unit, never 0: those below 128 as they are, and others of a kind that text goes wrong with.
    wchar_t Unit();

    // At most so many units, or all that is left.
    std::wstring Text(size_t longest);
    std::wstring Rest();

private:
    const uint8_t* next_;
    const uint8_t* end_;
};

}  // namespace Fuzz
