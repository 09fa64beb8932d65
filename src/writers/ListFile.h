// The output stream of a list. A list file of its own buffers a line and writes it in one system call when
// the stream is flushed; the C runtime's text mode converts line feeds to CR LF. A list on a stream that the
// caller has opened is written in large pieces instead. If the list cannot be opened or written, the stream
// is in failed state and drops its input.
#pragma once

#include <array>
#include <cstdio>
#include <memory>
#include <ostream>
#include <streambuf>
#include <variant>

// The path of a file to be written, or a stream that the caller has opened and will close.
using ListTarget = std::variant<const wchar_t*, std::FILE*>;

class ListFile : public std::ostream {
public:
    // Numbers are formatted in the neutral locale. A path is opened for writing and truncated; other programs
    // may read and write the file, and the destructor writes the rest and closes it. A stream must be open
    // for writing and outlive this object, which leaves it open; flushing this object writes nothing to it.
    explicit ListFile(ListTarget target);

    // Writes to the system what the buffers hold. Returns whether everything so far was written. Required at
    // the end of a list on a stream of the caller: the destructor drops what was not written.
    bool Finish();

private:
    class Buffer : public std::streambuf {
    public:
        explicit Buffer(ListTarget target);
        Buffer(const Buffer&) = delete;
        Buffer& operator=(const Buffer&) = delete;
        ~Buffer() override;

        bool IsOpen() const { return file_ != nullptr; }
        bool WriteOut();

    protected:
        int_type overflow(int_type c) override;
        int sync() override;

    private:
        struct Close {
            void operator()(std::FILE* file) const { std::fclose(file); }
        };

        bool Drain();

        // Large enough for any reasonable line, so that the runtime does not split it.
        std::array<char, 0x10000> line_;
        std::array<char, 0x10000> fileBuffer_;
        std::unique_ptr<std::FILE, Close> ownFile_;
        std::FILE* file_;
    };

    Buffer buffer_;
};
