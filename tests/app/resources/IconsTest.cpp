// The icons of the built program: each with all its sizes, and each the one that its number says.

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "BuiltFile.h"

namespace {

using Bytes = std::vector<std::byte>;

struct Image {
    int size;  // in pixels, of each side
    Bytes bytes;

    bool operator==(const Image&) const = default;
};

void PrintTo(const Image& image, std::ostream* out) {
    *out << image.size << " pixels, " << image.bytes.size() << " bytes";
}

template <typename T>
T At(std::span<const std::byte> bytes, size_t offset) {
    T value;
    std::memcpy(&value, bytes.subspan(offset, sizeof(T)).data(), sizeof(T));
    return value;
}

// A directory of icons begins with three words, the last of which is the count. An entry of it begins with
// the width, 0 for 256, and ends with where the image is: in a file the offset, in a resource a number.
constexpr size_t HeaderSize = 6;
constexpr size_t FileEntrySize = 16;
constexpr size_t ResourceEntrySize = 14;

int SizeOf(std::span<const std::byte> entry) {
    const int width = At<BYTE>(entry, 0);
    return width == 0 ? 256 : width;
}

std::vector<Image> ImagesOfFile(const std::string& name) {
    std::ifstream file(std::filesystem::path(ICONS_FOLDER) / (name + ".ico"), std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const auto bytes = std::as_bytes(std::span(text));
    std::vector<Image> images;
    for (size_t i = 0; i < At<WORD>(bytes, 4); ++i) {
        const auto entry = bytes.subspan(HeaderSize + i * FileEntrySize, FileEntrySize);
        const auto image = bytes.subspan(At<DWORD>(entry, 12), At<DWORD>(entry, 8));
        images.push_back({SizeOf(entry), {image.begin(), image.end()}});
    }
    return images;
}

std::vector<Image> ImagesOfResource(const BuiltFile& program, int id) {
    const auto directory = program.Resource(ResourceType::IconGroup, id);
    std::vector<Image> images;
    for (size_t i = 0; i < At<WORD>(directory, 4); ++i) {
        const auto entry = directory.subspan(HeaderSize + i * ResourceEntrySize, ResourceEntrySize);
        const auto image = program.Resource(ResourceType::Icon, At<WORD>(entry, 12));
        images.push_back({SizeOf(entry), {image.begin(), image.end()}});
    }
    return images;
}

struct IconRow {
    int id;
    const char* file;
};

constexpr int Program = 116;
constexpr IconRow Icons[] = {
    {Program, "program"}, {117, "unchecked"}, {118, "checked"},    {119, "mixed"},       {120, "move-up"},
    {121, "move-down"},   {122, "ascending"}, {123, "descending"}, {124, "mixed-order"}, {125, "drag"},
};

TEST(Icons, AreTheFilesOfTheirNames) {
    const BuiltFile program(L"tamblewick.exe");
    for (const IconRow& row : Icons) {
        SCOPED_TRACE(row.file);
        ASSERT_FALSE(program.Resource(ResourceType::IconGroup, row.id).empty());
        EXPECT_EQ(ImagesOfResource(program, row.id), ImagesOfFile(row.file));
    }
}

// The small ones for 100, 125, 150 and 200 per cent; the program's also as Explorer shows it.
TEST(Icons, HaveASizeForEachScale) {
    const BuiltFile program(L"tamblewick.exe");
    for (const IconRow& row : Icons) {
        std::vector<int> sizes;
        for (const Image& image : ImagesOfResource(program, row.id))
            sizes.push_back(image.size);
        std::vector<int> expected = {16, 20, 24, 32};
        if (row.id == Program)
            expected.insert(expected.end(), {48, 256});
        EXPECT_EQ(sizes, expected) << row.file;
    }
}

}  // namespace
