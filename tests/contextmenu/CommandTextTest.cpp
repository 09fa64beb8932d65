// The verbs and help texts of the menu's entries in the caller's buffer: whole if they fit, else cut between
// two characters, in the encodings that Windows may have for narrow texts.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "contextmenu/ImportHook.h"
#include "contextmenu/LoadedModule.h"
#include "support/TempFolder.h"
#include "support/TestRegistry.h"

namespace {

const HRESULT NoRoom = HRESULT_FROM_WIN32(ERROR_INSUFFICIENT_BUFFER);

// What the module takes for the system's code page.
UINT codePage = CP_ACP;

int WINAPI ToCodePage(UINT asked, DWORD flags, LPCWCH wide, int units, LPSTR text, int size,
                      LPCCH defaultChar, LPBOOL usedDefault) {
    return WideCharToMultiByte(asked == CP_ACP ? codePage : asked, flags, wide, units, text, size,
                               defaultChar, usedDefault);
}

std::string Narrow(UINT page, const std::wstring& wide) {
    std::string narrow(wide.size() * 4, '\0');
    const int length = WideCharToMultiByte(page, 0, wide.data(), static_cast<int>(wide.size()), narrow.data(),
                                           static_cast<int>(narrow.size()), nullptr, nullptr);
    narrow.resize(static_cast<size_t>(length));
    return narrow;
}

template <typename Char>
struct Answer {
    HRESULT result;
    std::basic_string<Char> text;  // up to its terminator

    bool operator==(const Answer&) const = default;
};

template <typename Char>
void PrintTo(const Answer<Char>& answer, std::ostream* out) {
    *out << std::hex << answer.result << " " << testing::PrintToString(answer.text);
}

class CommandTextTest : public testing::Test {
protected:
    CommandTextTest() : hook_(module_.Handle(), "WideCharToMultiByte", ToCodePage) { codePage = CP_ACP; }

    // Asks for the help text of a preset of this name, in a buffer of size characters.
    template <typename Char>
    Answer<Char> Help(const std::wstring& name, size_t size) const {
        registry_.SetString(L"Software\\Tamblewick\\aaa", L"Name", name);
        const Com<IContextMenu> handler = module_.NewHandler({folder_.Path()});
        EXPECT_EQ(QueryMenu(*handler), MAKE_HRESULT(SEVERITY_SUCCESS, 0, 2));
        return Ask<Char>(*handler, sizeof(Char) == 1 ? GCS_HELPTEXTA : GCS_HELPTEXTW, size);
    }

    // The memory after the buffer must not change.
    template <typename Char>
    static Answer<Char> Ask(IContextMenu& handler, UINT type, size_t size) {
        std::vector<Char> buffer(size + 8, Char('#'));
        const HRESULT result = handler.GetCommandString(
            0, type, nullptr, reinterpret_cast<char*>(buffer.data()), static_cast<UINT>(size));
        EXPECT_EQ(std::basic_string<Char>(buffer.data() + size, 8), std::basic_string<Char>(8, Char('#')));
        const std::basic_string<Char> text(buffer.data(), size);
        EXPECT_NE(text.find(Char(0)), text.npos) << "not terminated";
        return {result, text.substr(0, text.find(Char(0)))};
    }

    const std::wstring before_ = L"Lists the folder with the preset ";
    const std::wstring longName_ = std::wstring(200, wchar_t(0x6F22));  // three bytes each in UTF-8
    const TestSupport::TestRegistry registry_;
    const TestSupport::TempFolder folder_;
    const LoadedModule module_;
    const ImportHook hook_;
};

TEST_F(CommandTextTest, LongNamesAreWholeInEachCodePage) {
    for (const UINT page : {65001u, 932u, 936u, 949u, 950u, 1252u}) {
        codePage = page;
        EXPECT_EQ(Help<char>(longName_, 1024), (Answer<char>{S_OK, Narrow(page, before_ + longName_ + L".")}))
            << page;
    }
}

TEST_F(CommandTextTest, NarrowTextIsCutBetweenCharacters) {
    for (const UINT page : {65001u, 932u}) {
        codePage = page;
        const size_t width = Narrow(page, longName_).size() / longName_.size();
        for (size_t size = before_.size() + 2; size < before_.size() + 12; ++size) {
            const size_t characters = (size - 1 - before_.size()) / width;
            EXPECT_EQ(Help<char>(longName_, size),
                      (Answer<char>{S_OK, Narrow(page, before_ + longName_.substr(0, characters))}))
                << page << ", " << size;
        }
    }
}

TEST_F(CommandTextTest, TextsThatFitExactlyAreWhole) {
    const std::wstring whole = before_ + L"A.";
    EXPECT_EQ(Help<char>(L"A", whole.size() + 1), (Answer<char>{S_OK, Narrow(1252, whole)}));
    EXPECT_EQ(Help<char>(L"A", whole.size()), (Answer<char>{S_OK, Narrow(1252, before_ + L"A")}));
    EXPECT_EQ(Help<wchar_t>(L"A", whole.size() + 1), (Answer<wchar_t>{S_OK, whole}));
    EXPECT_EQ(Help<wchar_t>(L"A", whole.size()), (Answer<wchar_t>{S_OK, before_ + L"A"}));
}

TEST_F(CommandTextTest, PairOfSurrogatesIsOneCharacter) {
    const std::wstring pair = {wchar_t(0xD83D), wchar_t(0xDCC1)};
    codePage = 65001;
    const size_t length = before_.size();
    EXPECT_EQ(Help<char>(pair, length + 4), (Answer<char>{S_OK, Narrow(65001, before_)}));
    EXPECT_EQ(Help<char>(pair, length + 5), (Answer<char>{S_OK, Narrow(65001, before_ + pair)}));
    EXPECT_EQ(Help<wchar_t>(pair, length + 2), (Answer<wchar_t>{S_OK, before_}));
    EXPECT_EQ(Help<wchar_t>(pair, length + 3), (Answer<wchar_t>{S_OK, before_ + pair}));
}

// Windows keeps a half of a pair in names.
TEST_F(CommandTextTest, LoneSurrogateIsACharacterOfItsOwn) {
    const std::wstring text = {wchar_t(0xDCC1), wchar_t(0xD83D)};
    EXPECT_EQ(Help<wchar_t>(text, before_.size() + 2), (Answer<wchar_t>{S_OK, before_ + text.substr(0, 1)}));
    EXPECT_EQ(Help<wchar_t>(text, 1024), (Answer<wchar_t>{S_OK, before_ + text + L"."}));
}

TEST_F(CommandTextTest, BufferWithoutRoomForACharacterIsRefusedAndHoldsAnEmptyText) {
    EXPECT_EQ(Help<char>(L"A", 1), (Answer<char>{NoRoom, ""}));
    EXPECT_EQ(Help<wchar_t>(L"A", 1), (Answer<wchar_t>{NoRoom, L""}));
}

TEST_F(CommandTextTest, VerbsAreNarrowAndWide) {
    registry_.SetString(L"Software\\Tamblewick\\" + longName_.substr(0, 100), L"Name", L"A");
    const Com<IContextMenu> handler = module_.NewHandler({folder_.Path()});
    QueryMenu(*handler);
    codePage = 65001;
    const std::wstring verb = L"tamblewick." + longName_.substr(0, 100);
    EXPECT_EQ(Ask<char>(*handler, GCS_VERBA, 1024), (Answer<char>{S_OK, Narrow(65001, verb)}));
    EXPECT_EQ(Ask<wchar_t>(*handler, GCS_VERBW, 1024), (Answer<wchar_t>{S_OK, verb}));
}

TEST_F(CommandTextTest, MissingBufferAndUnknownTypeAreRefused) {
    registry_.CreateKey(L"Software\\Tamblewick\\aaa");
    const Com<IContextMenu> handler = module_.NewHandler({folder_.Path()});
    QueryMenu(*handler);
    std::string buffer(64, '#');
    EXPECT_EQ(handler->GetCommandString(0, GCS_HELPTEXTA, nullptr, nullptr, 64), E_INVALIDARG);
    EXPECT_EQ(handler->GetCommandString(0, GCS_HELPTEXTA, nullptr, buffer.data(), 0), E_INVALIDARG);
    EXPECT_EQ(handler->GetCommandString(0, GCS_VERBICONW, nullptr, buffer.data(), 32), E_NOTIMPL);
    EXPECT_EQ(buffer, std::string(64, '#'));
}

}  // namespace
