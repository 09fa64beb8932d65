// Memory for a great many small objects that all die together: taken in large blocks, handed out in order,
// never given back one by one. What was handed out keeps its address.
#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>
#include <vector>

namespace Scanner {

template <typename T, std::size_t Capacity>
class Arena {
    static_assert(std::is_trivially_default_constructible_v<T> && std::is_trivially_destructible_v<T>);

public:
    // The first block is taken at once.
    Arena() {
        blocks_.reserve(ReservedBlocks);
        AddBlock();
    }
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    // count uninitialised objects side by side. What they leave over at the end of a block stays unused.
    // Throws std::bad_alloc, also when no block could ever hold so many.
    T* Allocate(std::size_t count) {
        if (count > Capacity - used_) {
            if (count > Capacity)
                throw std::bad_alloc();
            AddBlock();
        }
        T* const first = blocks_.back().get() + used_;
        used_ += count;
        return first;
    }

private:
    static constexpr std::size_t ReservedBlocks = 128;

    void AddBlock() {
        blocks_.push_back(std::make_unique_for_overwrite<T[]>(Capacity));
        used_ = 0;
    }

    std::size_t used_ = 0;  // of the newest block
    std::vector<std::unique_ptr<T[]>> blocks_;
};

}  // namespace Scanner
