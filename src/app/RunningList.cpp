#include "app/RunningList.h"

#include "listmaker/ListMakerWithUI.h"

RunningList::RunningList() = default;

RunningList::~RunningList() = default;

bool RunningList::Start(HWND owner, const Preset& preset, const std::wstring& folder) {
    Lister = std::make_unique<ListMakerWithUI>(owner, preset, folder);
    starting_ = true;
    const bool ended = Lister->Start();
    starting_ = false;
    return ended;
}

bool RunningList::IsFinished() const {
    return Lister != nullptr && Lister->IsFinished();
}

bool RunningList::Collect() {
    if (starting_)
        return false;
    Lister.reset();
    return true;
}

bool RunningList::Close() {
    closeRequested_ = starting_;
    return Collect();
}
