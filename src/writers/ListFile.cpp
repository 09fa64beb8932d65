#include "writers/ListFile.h"

#include <share.h>

#include <cwchar>
#include <locale>

ListFile::ListFile(const wchar_t* path) : std::ostream(nullptr), buffer_(path) {
    rdbuf(&buffer_);
    imbue(std::locale::classic());
    if (!buffer_.IsOpen())
        setstate(failbit);
}

ListFile::Buffer::Buffer(const wchar_t* path) : file_(_wfsopen(path, L"w", _SH_DENYNO)) {
    if (file_ == nullptr)
        return;
    // Fully buffered and flushed explicitly: an unbuffered stream may write the last byte of a line
    // separately.
    std::setvbuf(file_.get(), fileBuffer_.data(), _IOFBF, fileBuffer_.size());
    setp(line_.data(), line_.data() + line_.size());
}

ListFile::Buffer::~Buffer() {
    if (IsOpen())
        Drain();
}

ListFile::Buffer::int_type ListFile::Buffer::overflow(int_type c) {
    if (!IsOpen() || !Drain())
        return traits_type::eof();
    if (!traits_type::eq_int_type(c, traits_type::eof()))
        sputc(traits_type::to_char_type(c));
    return traits_type::not_eof(c);
}

int ListFile::Buffer::sync() {
    return Drain() && std::fflush(file_.get()) == 0 ? 0 : -1;
}

bool ListFile::Buffer::Drain() {
    const auto length = static_cast<size_t>(pptr() - pbase());
    setp(line_.data(), line_.data() + line_.size());
    return std::fwrite(line_.data(), 1, length, file_.get()) == length;
}
