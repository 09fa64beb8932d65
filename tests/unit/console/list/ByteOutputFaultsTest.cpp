#include <gtest/gtest.h>
#include <share.h>

#include <memory>
#include <string>

#include "FakeWin.h"
#include "console/list/ByteOutput.h"

namespace {

constexpr wchar_t Path[] = L"C:\\Temp\\bytes";

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File Open() {
    return {_wfsopen(Path, L"wb", _SH_DENYNO), std::fclose};
}

TEST(ByteOutputFaults, WritesInLargePieces) {
    FakeWin::Reset();
    const File stream = Open();
    std::setvbuf(stream.get(), nullptr, _IONBF, 0);
    Console::ByteOutput output(stream.get());
    for (int i = 0; i < 6553; ++i)
        output.Append("ten bytes.");
    EXPECT_EQ(FakeWin::WritesTo(Path), 0);
    output.Append("ten bytes.");
    EXPECT_EQ(FakeWin::WritesTo(Path), 1);
    EXPECT_TRUE(output.Finish());
    EXPECT_EQ(FakeWin::WritesTo(Path), 2);
}

TEST(ByteOutputFaults, FinishReportsEachWriteThatFailed) {
    const std::string piece(1000, 'x');
    for (int use = 1; use <= 12; ++use) {
        FakeWin::Reset();
        const File stream = Open();
        Console::ByteOutput output(stream.get());
        FakeWin::FailNth(FakeWin::Call::WriteFile, use, ERROR_DISK_FULL);
        for (int i = 0; i < 300; ++i)
            output.Append(piece);
        const bool written = output.Finish();
        EXPECT_EQ(written, FakeWin::FaultsStruck() == 0) << use;
        EXPECT_EQ(output.Finish(), written) << use;
    }
}

TEST(ByteOutputFaults, NothingFollowsAWriteThatFailed) {
    FakeWin::Reset();
    const File stream = Open();
    std::setvbuf(stream.get(), nullptr, _IONBF, 0);
    Console::ByteOutput output(stream.get());
    FakeWin::FailNth(FakeWin::Call::WriteFile, 2, ERROR_DISK_FULL);
    for (int i = 0; i < 10; ++i)
        output.Append(std::string(0x10000, static_cast<char>('0' + i)));
    EXPECT_FALSE(output.Finish());
    EXPECT_EQ(FakeWin::Contents(Path), std::string(0x10000, '0'));
}

TEST(ByteOutputFaults, AFullDiskIsReportedWhetherTheWriteOrTheFlushMeetsIt) {
    for (const bool buffered : {true, false}) {
        for (const uint64_t room : {uint64_t{0}, uint64_t{1}, uint64_t{9}, uint64_t{10}}) {
            FakeWin::Reset();
            const File stream = Open();
            if (!buffered)
                std::setvbuf(stream.get(), nullptr, _IONBF, 0);
            FakeWin::FailWritesAfter(Path, room);
            Console::ByteOutput output(stream.get());
            output.Append("ten bytes.");
            EXPECT_EQ(output.Finish(), room == 10) << room;
        }
    }
}

}  // namespace
