// The system loads the module under a lock of the whole process, so nothing of ours may run then: all data of
// static storage is constant. What would run is a function that the compiler puts into an object file.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

std::vector<std::filesystem::path> Lines(const std::filesystem::path& path) {
    std::vector<std::filesystem::path> lines;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);)
        lines.push_back("Z:" + line);
    return lines;
}

bool InitialisesAtLoading(const std::filesystem::path& objects) {
    std::ifstream file(objects, std::ios::binary);
    EXPECT_TRUE(file) << objects;
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    return bytes.find("_GLOBAL__sub_I") != std::string::npos;
}

TEST(StaticDataTest, NothingIsInitialisedWhileTheModuleIsLoaded) {
    const std::vector<std::filesystem::path> files = Lines(MODULE_OBJECTS);
    EXPECT_GT(files.size(), 10u);
    for (const std::filesystem::path& file : files)
        EXPECT_FALSE(InitialisesAtLoading(file)) << file;
}

// GoogleTest enters each test at the start of the program.
TEST(StaticDataTest, InitialisationWouldBeSeen) {
    EXPECT_TRUE(InitialisesAtLoading(TEST_OBJECT));
}

}  // namespace
