// Memory for many small objects that are freed together. It is allocated in large blocks; objects are handed
// out in order and never freed one by one. An object keeps its address.
#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>
#include <vector>

namespace Scanner {

template <typename T, size_t Capacity>
class Arena {
    static_assert(std::is_trivially_default_constructible_v<T> && std::is_trivially_destructible_v<T>);

public:
    // Allocates the first block. Throws std::bad_alloc.
    Arena() {
        blocks_.reserve(ReservedBlocks);
        AddBlock();
    }
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    // Returns count uninitialised, adjacent objects. If they do not fit into the rest of the block, that rest
    // stays unused. Throws std::bad_alloc, also if count exceeds the size of a block.
    T* Allocate(size_t count) {
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
    static constexpr size_t ReservedBlocks = 128;

    void AddBlock() {
        blocks_.push_back(std::make_unique_for_overwrite<T[]>(Capacity));
        used_ = 0;
    }

    size_t used_ = 0;  // of the newest block
    std::vector<std::unique_ptr<T[]>> blocks_;
};

}  // namespace Scanner
