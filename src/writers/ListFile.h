// The output stream of a list file. A line is buffered and written in one system call when the stream is
// flushed; the C runtime's text mode converts line feeds to CR LF. If the file cannot be opened or written,
// the stream is in failed state and drops its input.
#pragma once

#include <array>
#include <cstdio>
#include <memory>
#include <ostream>
#include <streambuf>

class ListFile : public std::ostream {
public:
    // Opens the file for writing and truncates it; other programs may read and write it. Numbers are
    // formatted in the neutral locale.
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

        // Large enough for any reasonable line, so that the runtime does not split it.
        std::array<char, 0x10000> line_;
        std::array<char, 0x10000> fileBuffer_;
        std::unique_ptr<std::FILE, Close> file_;
    };

    Buffer buffer_;
};
