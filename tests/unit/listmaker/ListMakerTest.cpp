#include "listmaker/ListMaker.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>

#include "support/TempFolder.h"

using TestSupport::TempFolder;

namespace {

// Saves over an older list into the folder and opens nothing.
Preset MakePreset(const std::wstring& listFolder) {
    Preset preset(L"test");
    preset.Get(Saving::SaveLocation) = SaveLocation::Custom;
    preset.Get(Saving::CustomFolderPath) = listFolder;
    preset.Get(Saving::OverwriteExisting) = true;
    preset.Get(Opening::OpenMethod) = OpenMethod::Nothing;
    return preset;
}

// Notes what the run does, and can be held at its first step.
class NotingJob : public ListMaker {
public:
    using ListMaker::ListMaker;
    ~NotingJob() override { Join(); }

    void Wait() { Join(); }
    const std::wstring& OutputPath() const { return outputPath; }

    // Without the reports and questions of the scan itself, of which there may be any number.
    std::vector<std::wstring> Steps;
    std::shared_future<void> Hold;
    bool CancelLate = false;

    void OnProgress(const std::wstring& status, const std::wstring& detail) override {
        if (status == L"Creating document...")
            Steps.push_back(status + L" " + detail);
    }
    void OnError(const std::wstring& message) override { Steps.push_back(L"error " + message); }
    bool IsCancelled() override {
        if (Steps.empty())
            return false;
        Steps.push_back(L"cancelled?");
        return CancelLate;
    }

protected:
    void Prepare() override {
        if (Hold.valid())
            Hold.wait();
    }
    void Finish() override {
        ListMaker::Finish();
        Steps.push_back(L"finish");
    }
};

struct ListMakerTest : testing::Test {
    ListMakerTest() {
        folder.AddFile(L"Photos\\inside.txt", 1);
        folder.AddFolder(L"Lists");
    }

    const TempFolder folder;
};

TEST_F(ListMakerTest, AnswersTheScanQuietly) {
    ListMaker job(MakePreset(folder.Path(L"Lists")), folder.Path(L"Photos"));
    job.OnProgress(L"status", L"detail");
    job.OnError(L"message");
    EXPECT_EQ(job.OnAccessDenied(L"C:\\Data"), Scanner::AccessDeniedAnswer::ContinueQuietly);
    EXPECT_FALSE(job.IsCancelled());
    EXPECT_FALSE(job.IsFinished());
}

TEST_F(ListMakerTest, WritesTheListAndIsFinished) {
    NotingJob job(MakePreset(folder.Path(L"Lists")), folder.Path(L"Photos"));
    EXPECT_FALSE(job.Start());
    job.Wait();
    EXPECT_TRUE(job.IsFinished());
    const std::wstring list = folder.Path(L"Lists\\List of Photos.txt");
    EXPECT_EQ(job.Steps,
              (std::vector<std::wstring>{L"Creating document... " + list, L"cancelled?", L"finish"}));
    const std::optional<std::string> contents = TestSupport::ReadBytes(list);
    ASSERT_TRUE(contents.has_value());
    EXPECT_NE(contents->find("inside.txt"), std::string::npos);
}

TEST_F(ListMakerTest, IsFinishedOnlyBehindItsLastStep) {
    std::promise<void> go;
    NotingJob job(MakePreset(folder.Path(L"Lists")), folder.Path(L"Photos"));
    job.Hold = go.get_future();
    EXPECT_FALSE(job.IsFinished());
    job.Start();
    EXPECT_FALSE(job.IsFinished());
    go.set_value();
    job.Wait();
    EXPECT_TRUE(job.IsFinished());
    EXPECT_TRUE(job.IsFinished());
}

TEST_F(ListMakerTest, IsWaitedForByItsDestructor) {
    {
        ListMaker job(MakePreset(folder.Path(L"Lists")), folder.Path(L"Photos"));
        job.Start();
    }
    EXPECT_TRUE(folder.Exists(L"Lists\\List of Photos.txt"));
}

TEST_F(ListMakerTest, NeedsNoStart) {
    { ListMaker job(MakePreset(folder.Path(L"Lists")), folder.Path(L"Photos")); }
    EXPECT_FALSE(folder.Exists(L"Lists\\List of Photos.txt"));
}

TEST_F(ListMakerTest, FinishesWithoutAListAfterAnError) {
    NotingJob job(MakePreset(folder.Path(L"Lists")), folder.Path(L"missing"));
    job.Start();
    job.Wait();
    EXPECT_TRUE(job.IsFinished());
    EXPECT_EQ(job.Steps,
              (std::vector<std::wstring>{L"error The folder '" + folder.Path(L"missing") +
                                             L"' does not exist or cannot be accessed by the application.\n"
                                             L"The listing proccess will be cancelled.",
                                         L"finish"}));
    EXPECT_FALSE(folder.Exists(L"Lists\\List of missing.txt"));
}

TEST_F(ListMakerTest, KeepsItsListAfterALateCancel) {
    NotingJob job(MakePreset(folder.Path(L"Lists")), folder.Path(L"Photos"));
    job.CancelLate = true;
    job.Start();
    job.Wait();
    EXPECT_TRUE(job.IsFinished());
    EXPECT_TRUE(folder.Exists(L"Lists\\List of Photos.txt"));
}

TEST_F(ListMakerTest, NeverSeesLaterEditsOfThePreset) {
    auto preset = std::make_unique<Preset>(MakePreset(folder.Path(L"Lists")));
    NotingJob job(*preset, folder.Path(L"Photos"));
    preset->Get(Format::ListStyle) = ListStyle::Html;
    preset->Get(Filter::PresetSearchPattern) = 1;
    preset.reset();
    job.Start();
    job.Wait();
    const std::optional<std::string> contents = folder.Read(L"Lists\\List of Photos.txt");
    ASSERT_TRUE(contents.has_value());
    EXPECT_EQ(contents->find("<html"), std::string::npos);
    EXPECT_NE(contents->find("inside.txt"), std::string::npos);
}

TEST_F(ListMakerTest, SettlesTheNameWhenItIsMade) {
    const Preset preset = MakePreset(folder.Path(L"Lists"));
    Preset counting(preset);
    counting.Get(Saving::OverwriteExisting) = false;
    NotingJob job(counting, folder.Path(L"Photos"));
    folder.AddFile(L"Lists\\List of Photos.txt", "older");
    EXPECT_EQ(job.OutputPath(), folder.Path(L"Lists\\List of Photos.txt"));
    job.Start();
    job.Wait();
    EXPECT_NE(folder.Read(L"Lists\\List of Photos.txt")->find("inside.txt"), std::string::npos);
    EXPECT_FALSE(folder.Exists(L"Lists\\List of Photos (2).txt"));
}

TEST_F(ListMakerTest, PassesOverAListThatCannotBeMade) {
    NotingJob job(MakePreset(folder.Path(L"missing")), folder.Path(L"Photos"));
    job.Start();
    job.Wait();
    EXPECT_TRUE(job.IsFinished());
    EXPECT_EQ(job.Steps.back(), L"finish");
    EXPECT_FALSE(folder.Exists(L"missing"));
}

TEST_F(ListMakerTest, ListsEveryFileForAnEmptyCustomPattern) {
    folder.AddFile(L"Photos\\a.jpg", 1);
    folder.AddFile(L"Photos\\plain", 1);
    Preset preset = MakePreset(folder.Path(L"Lists"));
    preset.Get(Filter::PresetSearchPattern) = 8;
    NotingJob job(preset, folder.Path(L"Photos"));
    job.Start();
    job.Wait();
    const std::string contents = folder.Read(L"Lists\\List of Photos.txt").value_or("");
    for (const char* name : {"inside.txt", "a.jpg", "plain"})
        EXPECT_NE(contents.find(name), std::string::npos) << name;
}

}  // namespace
