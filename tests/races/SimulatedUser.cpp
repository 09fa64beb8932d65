#include "SimulatedUser.h"

#include <algorithm>

#include "support/jobs/RacingJob.h"

InterferencePlan::InterferencePlan(Random& random, int usual)
    : byMessages(random.Bool()),
      message(random.Between(0, usual + usual / 10)),
      step(random.Between(1, RaceRecord::UsualSteps)),
      gap(random.Below(3) == 0 ? random.Between(1, 40) : 0),
      posted(random.Bool()),
      turns(random.Bool() ? random.Below(20) : 0) {}

SimulatedUser::SimulatedUser(const InterferencePlan& plan, std::vector<Act> acts, bool needsDialog)
    : plan_(plan), acts_(std::move(acts)), needsDialog_(needsDialog) {
    std::reverse(acts_.begin(), acts_.end());
}

void SimulatedUser::OnMessage(const MessageWatch& watch) {
    if (++messages_ >= plan_.message && plan_.byMessages)
        due_ = true;
    // Another message may come from within an act.
    if (!due_ || acting_ || acts_.empty() || --wait_ > 0)
        return;
    const HWND dialog = watch.Dialog();
    if (needsDialog_ && dialog == nullptr)
        return;
    acting_ = true;
    for (uint32_t i = 0; i < plan_.turns; ++i)
        SwitchToThread();
    acts_.back()(dialog);
    acts_.pop_back();
    wait_ = plan_.gap;
    acting_ = false;
    if (!acts_.empty() && wait_ == 0)
        OnMessage(watch);
}

void SimulatedUser::OnStep(const MessageWatch& watch, int step) {
    if (plan_.byMessages || step < plan_.step)
        return;
    due_ = true;
    // Any message will do.
    if (const HWND dialog = watch.Dialog())
        PostMessageW(dialog, WM_NULL, 0, 0);
}

bool InterferencePlan::Press(HWND dialog, int id) const {
    const HWND button = GetDlgItem(dialog, id);
    if (posted) {
        PostMessageW(button, BM_CLICK, 0, 0);
        return false;
    }
    if (!IsWindowEnabled(button))
        return false;
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
    return true;
}
