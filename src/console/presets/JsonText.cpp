#include "console/presets/JsonText.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

namespace Console {

namespace {

using nlohmann::json;

constexpr size_t DeepestNesting = 8;
constexpr size_t LongestName = 60;  // in a message, in bytes

bool Continues(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// Returns the text for one line of a message.
std::string Shown(std::string_view text) {
    size_t length = text.size();
    if (length > LongestName) {
        length = LongestName;
        while (length > 0 && Continues(text[length]))
            --length;
    }
    std::string shown(text.substr(0, length));
    std::ranges::replace_if(
        shown, [](char byte) { return byte >= 0 && byte < ' '; }, '?');
    return length < text.size() ? shown + "..." : shown;
}

std::string LineAndColumn(std::string_view text, size_t position) {
    const std::string_view before = text.substr(0, position > 0 ? position - 1 : 0);
    const auto line = std::ranges::count(before, '\n') + 1;
    const size_t lineBegin = before.rfind('\n') + 1;  // npos + 1 is 0
    return "line " + std::to_string(line) + ", column " + std::to_string(before.size() - lineBegin + 1);
}

// The text is no JSON from the position-th byte on, counted from 1.
JsonError NotJson(std::string_view text, size_t position) {
    return {LineAndColumn(text, position), "this is not valid JSON"};
}

// Builds the value from the events of the parser, which uses no stack of its own.
class Builder : public json::json_sax_t {
public:
    explicit Builder(std::string_view text) : text_(text) {}

    bool null() override { return Add(nullptr); }
    bool boolean(bool value) override { return Add(value); }
    bool number_integer(json::number_integer_t value) override { return Add(value); }
    bool number_unsigned(json::number_unsigned_t value) override { return Add(value); }
    bool number_float(json::number_float_t value, const std::string&) override { return Add(value); }
    bool string(std::string& value) override { return Add(std::move(value)); }
    bool binary(json::binary_t& value) override { return Add(std::move(value)); }
    bool start_object(size_t) override { return Open(json::object()); }
    bool end_object() override { return Close(); }
    bool start_array(size_t) override { return Open(json::array()); }
    bool end_array() override { return Close(); }

    bool key(std::string& name) override {
        Level& level = levels_.back();
        level.name = name;
        const auto [field, added] = level.value->get_ref<json::object_t&>().emplace(name, nullptr);
        if (!added)
            throw JsonError(Path(), "the field occurs twice");
        level.field = &field->second;
        return true;
    }

    bool parse_error(size_t position, const std::string&, const nlohmann::detail::exception&) override {
        throw NotJson(text_, position);
    }

    json result;

private:
    // An array or object that is not complete.
    struct Level {
        json* value;
        std::string name = {};  // of an object the field that comes next
        json* field = nullptr;  // and its place
    };

    // The place of the value that comes next.
    json& Place() {
        if (levels_.empty())
            return result;
        const Level& level = levels_.back();
        return level.value->is_array() ? level.value->emplace_back() : *level.field;
    }

    template <typename Value>
    bool Add(Value&& value) {
        Place() = std::forward<Value>(value);
        return true;
    }

    bool Open(json value) {
        json& place = Place();
        if (levels_.size() == DeepestNesting)
            throw JsonError(Path(), "arrays and objects are nested too deeply");
        place = std::move(value);
        levels_.push_back({&place});
        return true;
    }

    bool Close() {
        levels_.pop_back();
        return true;
    }

    std::string Path() const {
        std::string path;
        for (const Level& level : levels_)
            path = level.value->is_array() ? PathOf(path, level.value->size() - 1) : PathOf(path, level.name);
        return path;
    }

    const std::string_view text_;
    std::vector<Level> levels_;
};

}  // namespace

std::string PathOf(const std::string& path, std::string_view name) {
    return path.empty() ? Shown(name) : path + "." + Shown(name);
}

std::string PathOf(const std::string& path, size_t index) {
    return path + "[" + std::to_string(index) + "]";
}

json ParseJson(std::string_view text) {
    // The parser would take it for the end of the text.
    const size_t nul = text.find('\0');
    if (nul != std::string_view::npos)
        throw NotJson(text, nul + 1);
    Builder builder(text);
    json::sax_parse(text, &builder);
    return std::move(builder.result);
}

}  // namespace Console
