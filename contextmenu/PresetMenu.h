// The entries of the submenu: the presets as the program's tree shows them, and last the program itself.
#pragma once

#include <optional>
#include <string>
#include <vector>

class PresetMenu {
public:
    struct Entry {
        std::wstring key;  // of the preset; empty for the entry that opens the window
        std::wstring text;

        bool OpensWindow() const { return key.empty(); }

        // The language-independent name by which a caller can choose the entry.
        std::wstring Verb() const;

        // A sentence for a status line.
        std::wstring Help() const;
    };

    // Reads the presets. No entries at all if the program is missing or has stored nothing yet.
    static PresetMenu Load();

    const std::vector<Entry>& Entries() const { return entries_; }

    // Leaves at most count entries, the last of which opens the window.
    void Limit(size_t count);

    // The index of the entry with this verb, which is compared without regard to case.
    std::optional<size_t> Find(const std::wstring& verb) const;

private:
    std::vector<Entry> entries_;
};
