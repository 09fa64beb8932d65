// A large buffer in front of an open binary stream.
#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string_view>

namespace Console {

class ByteOutput {
public:
    // The stream is not closed and must outlive this object.
    explicit ByteOutput(std::FILE* stream);
    ByteOutput(const ByteOutput&) = delete;
    ByteOutput& operator=(const ByteOutput&) = delete;

    // Returns memory for size bytes, valid until the next call. Bytes that are written to its beginning are
    // appended by Commit, which takes their end. Throws std::bad_alloc.
    char* Reserve(size_t size) {
        if (size > static_cast<size_t>(limit_ - end_))
            MakeRoom(size);
        return end_;
    }
    void Commit(char* end) { end_ = end; }

    void Append(std::string_view bytes);

    // Writes the rest to the system. Returns whether everything was written. After a write has failed, what
    // follows is dropped. The destructor drops what was not written.
    bool Finish();

private:
    void MakeRoom(size_t size);
    void WriteOut();

    std::FILE* const stream_;
    bool failed_ = false;
    std::unique_ptr<char[]> memory_;
    char* end_;    // of the bytes in memory_
    char* limit_;  // of memory_
};

}  // namespace Console
