// A job that runs while its user and its owner do something at any moment. What the user does and what the
// worker sees goes into a record, which notes each contradiction between the two: so the outcome is judged
// whichever side was the faster one.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <string>

#include "listmaker/ListMakerWithUI.h"

// How many starts a test makes: usual, or TAMBLEWICK_STARTS of the environment.
int StartsToMake(int usual);

// Outlives its job. All of it from any thread.
class RaceRecord {
public:
    // A press of "Cancel" or "Background"; press() returns whether the dialog took it.
    void Press(int button, const std::function<bool()>& press);

    // What was found after a start, when the job is destroyed.
    struct Outcome {
        bool started;         // what Start returned
        bool listExists;      // the file
        bool listIsComplete;  // if it exists
        int boxes;            // error boxes that were answered
        int endMessages;
        bool hasOwner;
    };

    // Notes what is wrong with an outcome. fails is whether the folder is missing.
    void Judge(const Outcome& outcome, bool fails);

    // All contradictions so far, one to a line.
    std::string Complaints() const;
    void Complain(const std::string& what);

    // One more step of the worker: each begin and end of its reports and questions, the last one after the
    // end of Finish. AtStep gets the number of steps, on the worker.
    void Step();
    std::function<void(int)> AtStep = [](int) {};
    std::atomic<int> Steps = 0;
    static constexpr int UsualSteps = 15;

    struct Button {
        std::atomic<bool> tried = false;  // before the press
        std::atomic<bool> taken = false;  // after it
    };
    Button Cancel;
    Button Background;
    std::atomic<bool> StartReturned = false;
    std::atomic<bool> CancelledBeforeScan = false;
    std::atomic<bool> SawCancel = false;  // an answer to the worker's last question
    std::atomic<bool> Document = false;   // came as far as the list file
    std::atomic<int> Errors = 0;
    std::atomic<bool> Finishing = false;
    std::atomic<bool> FinishingAtReturn = false;
    std::atomic<bool> Ended = false;  // after Finish

private:
    mutable std::mutex mutex_;
    std::string complaints_;
};

class RacingJob final : public ListMakerWithUI {
public:
    RacingJob(HWND ownerWindow, const Preset& source, const std::wstring& listedPath, RaceRecord& record);
    // As the product's, for the worker calls the operations of this class too. No class derives from it.
    ~RacingJob() override;

    bool Start() override;
    void OnProgress(const std::wstring& status, const std::wstring& detail) override;
    void OnError(const std::wstring& message) override;
    bool IsCancelled() override;

    // Around the error box, on the worker.
    std::function<void(const std::function<void()>& show)> AroundError = [](const auto& show) { show(); };

protected:
    void Prepare() override;
    void Finish() override;

private:
    RaceRecord& record_;
};
