#include "console/compare/CompareCommand.h"

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "console/Errors.h"
#include "console/Interrupt.h"
#include "console/OneLine.h"
#include "console/Output.h"
#include "console/compare/ListedEntries.h"
#include "console/list/UtcTime.h"
#include "winlib/Windows.h"

namespace Console {

namespace {

using nlohmann::ordered_json;

constexpr uint64_t FatResolution = 2 * 10'000'000;  // in 100 ns

bool AreTimesSame(uint64_t a, uint64_t b, bool fat) {
    return a == b || (fat && (a > b ? a - b : b - a) <= FatResolution);
}

bool AreSame(const ListedEntry& a, const ListedEntry& b, bool fat) {
    if (a.isFolder != b.isFolder)
        return false;
    if (!a.sha256.empty() && !b.sha256.empty())
        return a.sha256 == b.sha256;
    return a.size == b.size && AreTimesSame(a.modified, b.modified, fat);
}

const char* TypeOf(const ListedEntry& entry) {
    return entry.isFolder ? "directory" : "file";
}

std::string TimeOf(const ListedEntry& entry) {
    UtcText memory;
    return std::string(
        FormatUtc({static_cast<DWORD>(entry.modified), static_cast<DWORD>(entry.modified >> 32)}, memory));
}

// The two values of a field, if they differ.
std::string Change(const char* field, const std::string& before, const std::string& after) {
    return before == after ? std::string() : std::string("  ") + field + " " + before + " -> " + after;
}

// The output of the differences, which is written in large pieces.
class Differences {
public:
    explicit Differences(bool json) : json_(json) {}

    // One of the two is null for an entry that only one list has.
    void Add(const ListedEntry* before, const ListedEntry* after) {
        any_ = true;
        pending_ += json_ ? AsJson(before, after) : AsText(before, after);
        if (pending_.size() > Piece)
            Flush();
    }

    void Flush() {
        ThrowIfInterrupted();
        Print(pending_);
        pending_.clear();
    }

    bool Any() const { return any_; }

private:
    static constexpr size_t Piece = 1 << 16;

    static std::string AsText(const ListedEntry* before, const ListedEntry* after) {
        if (before == nullptr)
            return "+ " + OneLine(std::string(after->path)) + "\n";
        if (after == nullptr)
            return "- " + OneLine(std::string(before->path)) + "\n";
        return "~ " + OneLine(std::string(before->path)) + Change("type", TypeOf(*before), TypeOf(*after)) +
               Change("size", std::to_string(before->size), std::to_string(after->size)) +
               Change("modified", TimeOf(*before), TimeOf(*after)) +
               Change("sha256", std::string(before->sha256), std::string(after->sha256)) + "\n";
    }

    static ordered_json Values(const ListedEntry& entry) {
        ordered_json values = {{"type", TypeOf(entry)}, {"size", entry.size}, {"modified", TimeOf(entry)}};
        if (!entry.sha256.empty())
            values["sha256"] = entry.sha256;
        return values;
    }

    static std::string AsJson(const ListedEntry* before, const ListedEntry* after) {
        const ListedEntry& entry = after != nullptr ? *after : *before;
        ordered_json line;
        line["change"] = before == nullptr ? "added" : after == nullptr ? "removed" : "changed";
        line["path"] = entry.path;
        line["type"] = TypeOf(entry);
        if (before != nullptr)
            line["old"] = Values(*before);
        if (after != nullptr)
            line["new"] = Values(*after);
        return line.dump() + "\n";
    }

    const bool json_;
    bool any_ = false;
    std::string pending_;
};

// Both are in the order of their paths.
void Compare(const ListedEntries& before, const ListedEntries& after, bool fat, Differences& differences) {
    auto old = before.entries.begin();
    auto now = after.entries.begin();
    while (old != before.entries.end() || now != after.entries.end()) {
        if (now == after.entries.end() || (old != before.entries.end() && old->path < now->path)) {
            differences.Add(&*old++, nullptr);
        } else if (old == before.entries.end() || now->path < old->path) {
            differences.Add(nullptr, &*now++);
        } else {
            if (!AreSame(*old, *now, fat))
                differences.Add(&*old, &*now);
            ++old;
            ++now;
        }
    }
}

}  // namespace

ExitCode CompareLists(const Options& arguments) {
    const ListedEntries before = ReadListedEntries(arguments.operands[0]);
    const ListedEntries after = ReadListedEntries(arguments.operands[1]);
    if (before.root != after.root)
        Warn("the lists are of different folders, '" + before.root + "' and '" + after.root + "'");
    Differences differences(arguments.Has("json"));
    Compare(before, after, arguments.Has("fat"), differences);
    differences.Flush();
    return differences.Any() && arguments.Has("exit-code") ? ExitCode::Different : ExitCode::Complete;
}

}  // namespace Console
