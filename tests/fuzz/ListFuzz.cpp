// A whole list: a random preset on a random tree, with failing folders and files and any answers of the user.
#include <utf8.h>

#include <algorithm>
#include <set>

#include "FakeWin.h"
#include "fuzz/Check.h"
#include "fuzz/Reference.h"
#include "fuzz/list/ExpectedRows.h"
#include "fuzz/list/RandomPreset.h"
#include "listmaker/ListMaker.h"
#include "support/Text.h"

using namespace Fuzz;
using TestSupport::Utf8;

namespace {

// What goes wrong beside the folders.
struct Trouble {
    size_t cancelAtQuestion = 0;  // 0 for never
    Scanner::AccessDeniedAnswer answer = {};
    bool listFails = false;  // the list file cannot be opened or not be written in full
};

class Job : public ListMaker {
public:
    Job(const Preset& jobPreset, const std::wstring& listedPath, const Trouble& trouble)
        : ListMaker(jobPreset, listedPath), trouble_(trouble) {}
    ~Job() override { Join(); }

    void RunToEnd() {
        Start();
        Join();
    }

    void OnProgress(const std::wstring& status, const std::wstring&) override {
        reachedDocument = reachedDocument || status == L"Creating document...";
    }
    void OnError(const std::wstring&) override { ++errors; }
    Scanner::AccessDeniedAnswer OnAccessDenied(const std::wstring&) override { return trouble_.answer; }
    bool IsCancelled() override {
        cancelled = cancelled || ++questions_ == trouble_.cancelAtQuestion;
        cancelledScan = cancelledScan || (cancelled && !reachedDocument);
        return cancelled;
    }

    const std::wstring& OutputPath() const { return outputPath; }

    int errors = 0;
    bool reachedDocument = false;
    bool cancelled = false;
    bool cancelledScan = false;

private:
    const Trouble trouble_;
    size_t questions_ = 0;
};

Trouble MakeTrouble(Input& input) {
    using FakeWin::Call;
    Trouble trouble;
    trouble.answer = static_cast<Scanner::AccessDeniedAnswer>(input.Below(3));
    switch (input.Below(16)) {
        case 10:
            trouble.cancelAtQuestion = input.Below(6) + 1;
            break;
        case 11:
            trouble.listFails = true;
            FakeWin::Fail(Call::OpenFile, ERROR_ACCESS_DENIED);
            break;
        case 12:
            trouble.listFails = true;
            FakeWin::FailNth(Call::WriteFile, static_cast<int>(input.Below(30) + 1), ERROR_DISK_FULL);
            break;
        case 13:
            FakeWin::FailNth(Call::CompareStringW, static_cast<int>(input.Below(30) + 1),
                             ERROR_INVALID_PARAMETER);
            break;
        case 14:
            FakeWin::SetTickStep(60);
            break;
        case 15:
            FakeWin::Fail(Call::GetFileAttributesExW, ERROR_ACCESS_DENIED);
            break;
        default:
            break;
    }
    return trouble;
}

// The path as a user may write it.
std::wstring WrittenPath(Input& input, std::wstring path) {
    switch (input.Below(4)) {
        case 0:
            return path + L"\\";
        case 1:
            if (path.find(L'\\') != std::wstring::npos)
                path.insert(path.rfind(L'\\'), L"\\\\");
            return path + L"\\\\";
        default:
            return path;
    }
}

bool IsHtml(const Preset& preset) {
    return preset.Get(Format::ListStyle) == ListStyle::Html;
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    size_t begin = 0;
    for (size_t end; (end = text.find('\n', begin)) != std::string::npos; begin = end + 1) {
        Check(end > begin && text[end - 1] == '\r', "each line ends with CR LF", text);
        lines.push_back(text.substr(begin, end - 1 - begin));
    }
    Check(begin == text.size(), "the last line ends", text);
    return lines;
}

void CheckStatistics(const std::vector<std::string>& lines, const ExpectedScan& scan, const Preset& preset) {
    const std::string folders = std::to_string(scan.totalFolders);
    const std::string files = std::to_string(scan.totalFiles);
    const std::set<std::string> found(lines.begin(), lines.end());
    const bool complete =
        IsHtml(preset)
            ? found.contains("\t<tr><td>Total number of folders:</td><td>" + folders + "</td></tr>") &&
                  found.contains("\t<tr><td>Total number of files:</td><td>" + files + "</td></tr>")
            : found.contains("Total number of folders: " + folders) &&
                  found.contains("Total number of files: " + files);
    Check(complete, "the totals are those of the tree", folders + " folders, " + files + " files");
}

bool AreUtf16(const ExpectedScan& scan) {
    return std::ranges::all_of(
        scan.records,
        [&](const ExpectedRecord& record) {
            return IsUtf16(record.entry->name) && IsUtf16(record.parentPath);
        });
}

void CheckList(std::string text, const ExpectedScan& scan, const Preset& preset) {
    constexpr std::string_view Mark = "\xEF\xBB\xBF";
    const bool marked = preset.Get(Format::EnableUtf8);
    Check(text.starts_with(Mark) == marked, "the mark is there if it is wanted", text);
    text.erase(0, marked ? Mark.size() : 0);

    const bool html = IsHtml(preset);
    std::vector<std::string> lines = LinesOf(text);
    const bool statistics = preset.Get(Display::ShowStatistics);
    if (statistics)
        CheckStatistics(lines, scan, preset);
    // Above the rows of a text list: the header, and the statistics with two empty lines.
    if (!html) {
        const ptrdiff_t above = statistics ? 10 : 5;
        Check(std::ssize(lines) >= above, "the header is complete", text);
        lines.erase(lines.begin(), lines.begin() + above);
    }

    const std::vector<std::string> rows = RowsOf(lines, html);
    if (!AreUtf16(scan)) {
        Check(!html || rows.size() == ExpectedRowCount(scan, preset), "each record has one row", text);
        return;
    }
    Check(utf8::is_valid(text.begin(), text.end()), "the list is UTF-8", text);
    Check(rows == ExpectedRows(scan, preset), "each record has one row, with its values", text);
}

// Whether the list can be written where it is to go.
bool CanBeWritten(const std::wstring& outputPath, bool existed, const Trouble& trouble) {
    return !existed && !trouble.listFails && outputPath.find(L"\\Missing\\") == std::wstring::npos;
}

void CheckJob(const Job& job, const FakeTree& tree, const Preset& preset, const Trouble& trouble,
              bool existed) {
    const ExpectedScan scan = Expect(tree, preset, trouble.answer);
    const std::string path = Utf8(job.OutputPath());
    if (!job.cancelled)
        Check(job.reachedDocument == scan.succeeds, "the scan ends as its folders make it end", path);
    Check(job.reachedDocument ? !job.cancelledScan : true, "a cancelled scan makes no list", path);
    Check(job.errors <= 1 && !(job.errors == 1 && job.reachedDocument), "one error ends the scan", path);

    const auto method = preset.Get(Opening::OpenMethod);
    const bool opened = job.reachedDocument && !job.cancelled && method != OpenMethod::Nothing;
    Check(FakeWin::ShellExecutions().size() == (opened ? 1 : 0), "a list is opened as the preset says", path);

    const std::vector<std::wstring> written = FakeWin::WrittenFiles();
    Check(written.size() <= (job.reachedDocument ? 1u : 0u), "only a scan that succeeded is written", path);
    if (!job.reachedDocument)
        return;
    if (CanBeWritten(job.OutputPath(), existed, trouble))
        Check(written.size() == 1, "a list is written", path);
    if (!written.empty() && !trouble.listFails)
        CheckList(FakeWin::Contents(written[0]).value(), scan, preset);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FakeWin::Reset();
    FakeWin::SetLogging(false);
    FakeWin::AddFolder(L"C:\\Lists");
    Input input(data, size);
    Preset preset(L"fuzz");
    FillPreset(input, preset);
    const Trouble trouble = MakeTrouble(input);
    const uint8_t form = input.Byte();
    const FakeTree tree = MakeTree(input);
    Input formInput(&form, 1);

    Job job(preset, WrittenPath(formInput, tree.path), trouble);
    const bool existed = FakeWin::EntryExists(job.OutputPath());
    Check(!existed || preset.Get(Saving::OverwriteExisting), "no file is overwritten unasked",
          Utf8(job.OutputPath()));
    job.RunToEnd();
    CheckJob(job, tree, preset, trouble, existed);
    Check(FakeWin::LeftOpen().empty(), "nothing stays open", FakeWin::LeftOpen());
    return 0;
}
