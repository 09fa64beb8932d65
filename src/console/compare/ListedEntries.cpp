#include "console/compare/ListedEntries.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <nlohmann/json.hpp>
#include <optional>

#include "console/Errors.h"
#include "console/FullPath.h"
#include "console/Interrupt.h"
#include "console/list/UtcTime.h"
#include "winlib/Windows.h"

#include <share.h>

namespace Console {

namespace {

using nlohmann::json;

// The members of a line that matter here; all others are skipped.
struct Line {
    std::string type;
    std::string path;
    std::string root;
    std::string modified;
    std::string sha256;
    uint64_t size = 0;
    uint64_t format = 0;
};

// Takes the members of one line from the events of the parser. Keeps its memory from line to line.
class LineReader : public json::json_sax_t {
public:
    // Returns false if the text is no JSON object, or a member that matters has another type.
    bool Read(std::string_view text, Line& line) {
        for (std::string* member : {&line.type, &line.path, &line.root, &line.modified, &line.sha256})
            member->clear();
        line.size = line.format = 0;
        line_ = &line;
        depth_ = 0;
        text_ = nullptr;
        number_ = nullptr;
        return json::sax_parse(text.begin(), text.end(), this);
    }

    bool null() override { return Skip(); }
    bool boolean(bool) override { return Skip(); }
    bool number_integer(json::number_integer_t) override { return Skip(); }
    bool number_float(json::number_float_t, const std::string&) override { return Skip(); }
    bool binary(json::binary_t&) override { return Skip(); }
    bool number_unsigned(json::number_unsigned_t value) override {
        if (depth_ != 1 || number_ == nullptr)
            return Skip();
        *number_ = value;
        return true;
    }
    bool string(std::string& value) override {
        if (depth_ != 1 || text_ == nullptr)
            return Skip();
        text_->swap(value);
        return true;
    }
    bool start_object(size_t) override { return Open(); }
    bool end_object() override { return Close(); }
    bool start_array(size_t) override { return depth_ != 0 && Open(); }
    bool end_array() override { return Close(); }
    bool key(std::string& name) override {
        if (depth_ == 1) {
            text_ = TextOf(name);
            number_ = NumberOf(name);
        }
        return true;
    }
    bool parse_error(size_t, const std::string&, const nlohmann::detail::exception&) override {
        return false;
    }

private:
    std::string* TextOf(std::string_view name) const {
        if (name == "type")
            return &line_->type;
        if (name == "path")
            return &line_->path;
        if (name == "root")
            return &line_->root;
        if (name == "modified")
            return &line_->modified;
        return name == "sha256" ? &line_->sha256 : nullptr;
    }
    uint64_t* NumberOf(std::string_view name) const {
        if (name == "size")
            return &line_->size;
        return name == "format" ? &line_->format : nullptr;
    }

    // A value that does not matter, or has the wrong type.
    bool Skip() const { return depth_ > 1 || (depth_ == 1 && text_ == nullptr && number_ == nullptr); }
    bool Open() {
        const bool allowed = depth_ == 0 || Skip();
        ++depth_;
        return allowed;
    }
    bool Close() {
        --depth_;
        return true;
    }

    Line* line_ = nullptr;
    size_t depth_ = 0;
    std::string* text_ = nullptr;
    uint64_t* number_ = nullptr;
};

// Reads a file line by line, without its line feeds.
class LineFile {
public:
    // Throws Error if the file cannot be opened.
    explicit LineFile(const std::wstring& name)
        : file_(_wfsopen(LongPath(FullPath(name)).c_str(), L"rb", _SH_DENYNO)), name_(name) {
        if (file_ == nullptr)
            throw Error(ExitCode::Failed,
                        L"the list '" + name + L"' cannot be opened; check that it exists and may be read");
    }

    // Returns the next line that ends with a line feed, valid until the next call. Throws Error if the file
    // cannot be read.
    std::optional<std::string_view> Next() {
        while (true) {
            const size_t end = block_.find('\n', searched_);
            if (end != std::string::npos) {
                const std::string_view line(block_.data() + begin_, end - begin_);
                begin_ = searched_ = end + 1;
                return line;
            }
            searched_ = block_.size();
            if (!Fill())
                return std::nullopt;
        }
    }

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    bool Fill() {
        constexpr size_t Piece = 1 << 20;
        ThrowIfInterrupted();
        block_.erase(0, begin_);
        searched_ -= begin_;
        begin_ = 0;
        const size_t before = block_.size();
        block_.resize(before + Piece);
        const size_t read = std::fread(block_.data() + before, 1, Piece, file_.get());
        block_.resize(before + read);
        if (std::ferror(file_.get()) != 0)
            throw Error(ExitCode::Failed, L"the list '" + name_ + L"' could not be read");
        return read != 0;
    }

    const std::unique_ptr<std::FILE, Close> file_;
    const std::wstring name_;
    std::string block_;
    size_t begin_ = 0;
    size_t searched_ = 0;  // there is no line feed before
};

// The memory of many texts.
class TextPool {
public:
    explicit TextPool(std::vector<std::unique_ptr<char[]>>& blocks) : blocks_(blocks) {}

    std::string_view Keep(std::string_view text) {
        if (text.empty())
            return {};
        if (text.size() > free_) {
            free_ = std::max(BlockSize, text.size());
            blocks_.push_back(std::make_unique_for_overwrite<char[]>(free_));
            next_ = blocks_.back().get();
        }
        char* const kept = next_;
        std::memcpy(kept, text.data(), text.size());
        next_ += text.size();
        free_ -= text.size();
        return {kept, text.size()};
    }

private:
    static constexpr size_t BlockSize = 1 << 20;

    std::vector<std::unique_ptr<char[]>>& blocks_;
    char* next_ = nullptr;
    size_t free_ = 0;
};

[[noreturn]] void ThrowNoList(const std::wstring& name, size_t number) {
    throw Error(ExitCode::Failed, L"line " + std::to_wstring(number) + L" of '" + name +
                                      L"' is not of a list; make it with 'tamblewickc list -f jsonl'");
}

// Returns false if the line is no entry.
bool TakeEntry(const Line& line, TextPool& texts, std::vector<ListedEntry>& entries) {
    FILETIME modified;
    if (!ParseUtc(line.modified, modified))
        return false;
    if (line.type == "file" || line.type == "directory")
        entries.push_back({.path = texts.Keep(line.path),
                           .sha256 = texts.Keep(line.sha256),
                           .size = line.size,
                           .modified = uint64_t{modified.dwHighDateTime} << 32 | modified.dwLowDateTime,
                           .isFolder = line.type == "directory"});
    return true;
}

}  // namespace

ListedEntries ReadListedEntries(const std::wstring& name) {
    ListedEntries list;
    TextPool texts(list.texts);
    LineFile file(name);
    LineReader reader;
    Line line;
    size_t number = 0;
    while (const std::optional<std::string_view> text = file.Next()) {
        ++number;
        if (!reader.Read(*text, line) || (number == 1) != (line.type == "list") ||
            (number == 1 && line.format != 1) || !TakeEntry(line, texts, list.entries))
            ThrowNoList(name, number);
        if (number == 1)
            list.root = line.root;
    }
    if (number == 0 || line.type != "summary")
        throw Error(ExitCode::Incomplete,
                    L"the list '" + name + L"' is not complete, since it has no summary line; make it again");
    std::ranges::sort(list.entries, {}, &ListedEntry::path);
    return list;
}

}  // namespace Console
