#include "console/list/ByteOutput.h"

#include <gtest/gtest.h>
#include <share.h>

#include <algorithm>
#include <memory>
#include <string>

#include "support/TempFolder.h"

namespace {

using TestSupport::TempFolder;

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File Open(const std::wstring& path) {
    return {_wfsopen(path.c_str(), L"wb", _SH_DENYNO), std::fclose};
}

TEST(ByteOutput, WritesWhatWasAppendedInItsOrder) {
    const TempFolder folder;
    const File stream = Open(folder.Path(L"bytes"));
    Console::ByteOutput output(stream.get());
    std::string expected;
    for (int i = 0; i < 50000; ++i) {
        const std::string text = std::to_string(i) + "\n";
        if (i % 2 == 0)
            output.Append(text);
        else
            output.Commit(std::copy(text.begin(), text.end(), output.Reserve(text.size() + 5)));
        expected += text;
    }
    EXPECT_TRUE(output.Finish());
    EXPECT_EQ(folder.Read(L"bytes"), expected);
}

TEST(ByteOutput, TakesTextsThatAreLargerThanItsBuffer) {
    const TempFolder folder;
    const File stream = Open(folder.Path(L"bytes"));
    Console::ByteOutput output(stream.get());
    std::string expected;
    for (const size_t size :
         {size_t{65535}, size_t{1}, size_t{65536}, size_t{65537}, size_t{7}, size_t{300000}}) {
        expected.append(size, static_cast<char>('a' + size % 26));
        output.Append(std::string(size, static_cast<char>('a' + size % 26)));
    }
    EXPECT_TRUE(output.Finish());
    EXPECT_EQ(folder.Read(L"bytes"), expected);
}

TEST(ByteOutput, DropsWhatWasNotFinished) {
    const TempFolder folder;
    {
        const File stream = Open(folder.Path(L"bytes"));
        Console::ByteOutput(stream.get()).Append("half a list");
    }
    EXPECT_EQ(folder.Read(L"bytes"), "");
}

}  // namespace
