#include "fuzz/list/FakeTree.h"

#include "FakeWin.h"

namespace Fuzz {

namespace {

constexpr const wchar_t* Names[] = {
    L"a",
    L"A2",
    L"a10",
    L"a-1",
    L"b.txt",
    L"c.TXT",
    L".git",
    L"x..y",
    L"end.",
    L"12.",
    L"blank ",
    L"Sub Folder",
    L"photo.jpg",
    L"d.mp3",
    L"List of Data.txt",
    L"List of Data (2).txt",
    L"List of Data.html",
    L"\u00E9t\u00E9.txt",
    L"\u0416.7z",
    L"\xD83D\xDE00.html",
    L"\xD83D",
};
constexpr uint64_t Sizes[] = {
    0,
    1,
    1023,
    1024,
    1536,
    1048575,
    1 << 20,
    uint64_t{1} << 40,
    (uint64_t{1} << 50) - 1,
    uint64_t{1} << 50,
    uint64_t{1} << 63,
};
constexpr DWORD Attributes[] = {
    0,
    FILE_ATTRIBUTE_ARCHIVE,
    FILE_ATTRIBUTE_READONLY,
    FILE_ATTRIBUTE_HIDDEN,
    FILE_ATTRIBUTE_SYSTEM,
    FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM,
    FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_COMPRESSED,
    FILE_ATTRIBUTE_REPARSE_POINT,
};
// Those that a scan survives come more often.
constexpr DWORD Errors[] = {
    ERROR_ACCESS_DENIED, ERROR_NOT_SUPPORTED,  ERROR_ACCESS_DENIED,     ERROR_NOT_SUPPORTED,
    ERROR_ACCESS_DENIED, ERROR_NOT_SUPPORTED,  ERROR_NO_MORE_FILES,     ERROR_PATH_NOT_FOUND,
    ERROR_INVALID_NAME,  ERROR_FILE_NOT_FOUND, ERROR_SHARING_VIOLATION,
};

constexpr size_t MostEntries = 200;
constexpr size_t Deepest = 40;

std::wstring MakeName(Input& input) {
    const size_t choice = input.Below(std::size(Names) + 4);
    if (choice < std::size(Names))
        return Names[choice];
    std::wstring name = input.Text(10);
    for (wchar_t& unit : name)
        if (unit < 32 || std::wstring_view(L"<>:\"/\\|?*").find(unit) != std::wstring_view::npos)
            unit = L'_';
    return name;
}

// How the stand-in names a folder in its faults.
std::wstring Subject(const std::wstring& path) {
    return path.ends_with(L':') ? path + L"\\" : path;
}

class Builder {
public:
    explicit Builder(Input& input) : input_(input) {}

    void Fill(Entry& folder, const std::wstring& path, size_t depth) {
        while (!input_.IsAtEnd() && count_ < MostEntries) {
            switch (input_.Below(8)) {
                case 0:
                    if (depth > 0)
                        return;
                    break;
                case 1:
                    AddFault(folder, path);
                    break;
                case 2:
                case 3:
                    AddFolder(folder, path, depth);
                    break;
                default:
                    AddFile(folder, path);
            }
        }
    }

private:
    void AddFault(Entry& folder, const std::wstring& path) {
        const DWORD error = input_.Choose(Errors);
        if (input_.Bool()) {
            const int count = static_cast<int>(input_.Below(8));
            folder.breakOff = {count, error};
            FakeWin::FailFindNext(path, count, error);
        } else {
            folder.openErrors.push_back(error);
            FakeWin::FailOn(FakeWin::Call::FindFirstFileExW, Subject(path), error, 1);
        }
    }

    // A new entry, or null if the name cannot be had.
    Entry* Add(Entry& folder, const std::wstring& path) {
        const std::wstring name = MakeName(input_);
        const DWORD attributes = input_.Choose(Attributes);
        if (name.empty() || name == L"." || name == L".." || FakeWin::EntryExists(path + L"\\" + name))
            return nullptr;
        ++count_;
        folder.entries.push_back({});
        folder.entries.back().name = name;
        folder.entries.back().attributes = attributes;
        return &folder.entries.back();
    }

    void AddFile(Entry& folder, const std::wstring& path) {
        Entry* const file = Add(folder, path);
        if (file == nullptr)
            return;
        file->size = input_.Choose(Sizes);
        FakeWin::AddFile(path + L"\\" + file->name, file->size, file->attributes);
    }

    void AddFolder(Entry& parent, const std::wstring& path, size_t depth) {
        Entry* const folder = Add(parent, path);
        if (folder == nullptr)
            return;
        folder->isFolder = true;
        FakeWin::AddFolder(path + L"\\" + folder->name, folder->attributes);
        if (depth < Deepest)
            Fill(*folder, path + L"\\" + folder->name, depth + 1);
    }

    Input& input_;
    size_t count_ = 0;
};

}  // namespace

FakeTree MakeTree(Input& input) {
    constexpr const wchar_t* Paths[] = {L"C:\\Data", L"D:", L"C:\\Some Folder\\\u00C4"};
    constexpr const wchar_t* Unreachable[] = {L"C:\\Missing", L"\\\\server\\share", L"", L"C:\\Temp\\file",
                                              L"C:\\Wh*t"};
    FakeTree tree = {};
    if (input.Below(16) == 15) {
        FakeWin::AddFile(L"C:\\Temp\\file");
        tree.path = input.Choose(Unreachable);
        return tree;
    }
    tree.path = input.Choose(Paths);
    tree.exists = true;
    FakeWin::AddFolder(tree.path);
    Builder(input).Fill(tree.root, tree.path, 0);
    return tree;
}

}  // namespace Fuzz
