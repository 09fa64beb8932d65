// The stream onto a list file. A line is gathered in memory and leaves in one write to the system when the
// stream is flushed; the C runtime's text mode then turns its line feeds into CR LF. A file that cannot be
// opened or written leaves a stream in failed state, which drops what is inserted.
#pragma once

#include <array>
#include <cstdio>
#include <memory>
#include <ostream>
#include <streambuf>

class ListFile : public std::ostream {
public:
    // Opens the file for writing and empties it; others may read and write it meanwhile. Numbers come out in
    // the neutral locale.
    explicit ListFile(const wchar_t* path);

private:
    class Buffer : public std::streambuf {
    public:
        explicit Buffer(const wchar_t* path);
        Buffer(const Buffer&) = delete;
        Buffer& operator=(const Buffer&) = delete;
        ~Buffer() override;

        bool IsOpen() const { return file_ != nullptr; }

    protected:
        int_type overflow(int_type c) override;
        int sync() override;

    private:
        struct Close {
            void operator()(std::FILE* file) const { std::fclose(file); }
        };

        bool Drain();

        // Both hold any line but an absurd one, so that the runtime does not cut it in two.
        std::array<char, 0x10000> line_;
        std::array<char, 0x10000> fileBuffer_;
        std::unique_ptr<std::FILE, Close> file_;
    };

    Buffer buffer_;
};
