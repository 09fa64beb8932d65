#include "writers/ListFile.h"

#include <share.h>

#include <cwchar>
#include <locale>

ListFile::ListFile(ListTarget target) : std::ostream(nullptr), buffer_(target) {
    rdbuf(&buffer_);
    imbue(std::locale::classic());
    if (!buffer_.IsOpen())
        setstate(failbit);
}

bool ListFile::Finish() {
    if (good() && !buffer_.WriteOut())
        setstate(badbit);
    return good();
}

ListFile::Buffer::Buffer(ListTarget target) {
    if (const auto* const path = std::get_if<const wchar_t*>(&target)) {
        ownFile_.reset(_wfsopen(*path, L"w", _SH_DENYNO));
        file_ = ownFile_.get();
        // Fully buffered and flushed explicitly: an unbuffered stream may write the last byte of a line
        // separately.
        if (file_ != nullptr)
            std::setvbuf(file_, fileBuffer_.data(), _IOFBF, fileBuffer_.size());
    } else {
        file_ = std::get<std::FILE*>(target);
    }
    if (file_ != nullptr)
        setp(line_.data(), line_.data() + line_.size());
}

ListFile::Buffer::~Buffer() {
    if (ownFile_ != nullptr)
        Drain();
}

bool ListFile::Buffer::WriteOut() {
    return Drain() && std::fflush(file_) == 0;
}

ListFile::Buffer::int_type ListFile::Buffer::overflow(int_type c) {
    if (!IsOpen() || !Drain())
        return traits_type::eof();
    if (!traits_type::eq_int_type(c, traits_type::eof()))
        sputc(traits_type::to_char_type(c));
    return traits_type::not_eof(c);
}

// Called at the end of each line.
int ListFile::Buffer::sync() {
    return ownFile_ == nullptr || WriteOut() ? 0 : -1;
}

bool ListFile::Buffer::Drain() {
    const auto length = static_cast<size_t>(pptr() - pbase());
    setp(line_.data(), line_.data() + line_.size());
    return std::fwrite(line_.data(), 1, length, file_) == length;
}
