// The progress dialog with a user of the test's: runs modally, and once it is up a script runs within its
// loop, on its own thread.
#pragma once

#include <functional>

#include "progress/ProgressController.h"

class DrivenProgress : public ProgressController {
public:
    // What Run returns if nothing has ended the dialog when the script is over.
    static constexpr INT_PTR StaysOpen = 99;

    using ProgressController::ProgressController;

    // Returns the dialog's result.
    INT_PTR Run(std::function<void()> script = nullptr);

    // As a click on an enabled button of the dialog.
    void Press(int id);

    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    std::function<void()> script_;
};
