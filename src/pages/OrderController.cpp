#include "pages/OrderController.h"

using WinLib::Layout::Alignment;
using WinLib::Layout::VStack;

namespace {

constexpr WinLib::Layout::Margins OrderMargins = {.left = 16, .top = 28, .right = 12, .bottom = 16};

}  // namespace

OrderController::OrderController(MetaTypes::Settings* target, std::span<const Binding> bindings,
                                 const Controls& controls)
    : PropertyController(target, bindings, controls.group, OrderMargins), controls_(controls) {}

void OrderController::PrepareControls() {
    const HWND tree = Control(controls_.tree);
    tree_.Attach(tree, Control(controls_.upButton), Control(controls_.downButton), controls_.stateIcons);
    ThemedControls.push_back(tree);
}

void OrderController::BuildLayout(VStack& page) {
    tree_.AddTo(page, Control(controls_.caption));
    page.AddWindow(0, Control(controls_.checkBox), Alignment::Near, Alignment::Center);
}

void OrderController::Refresh() {
    const Preset& preset = TargetPreset();
    tree_.Fill(ReadFolders(preset), ReadFiles(preset));
    ShowBindings();
}

bool OrderController::OnClicked(WORD id) {
    if (id == controls_.upButton)
        tree_.MoveUp();
    else if (id == controls_.downButton)
        tree_.MoveDown();
    else
        return false;
    StoreTree();
    return true;
}

void OrderController::StoreTree() {
    Preset& preset = TargetPreset();
    Store(preset, tree_.Children(OrderTree::Root::Folders), tree_.Children(OrderTree::Root::Files));
    preset.Save();
}

bool OrderController::HandleNotify(NMHDR& header, LRESULT& result) {
    switch (header.code) {
        case TVN_SELCHANGEDW:
            return HandleSelectionChanged(header, result);
        case NM_KILLFOCUS:
            return HandleKillFocus(header, result);
        default:
            return false;
    }
}

bool OrderController::HandleSelectionChanged(NMHDR&, LRESULT&) {
    tree_.UpdateButtons();
    return true;
}

bool OrderController::HandleKillFocus(NMHDR&, LRESULT&) {
    StoreTree();
    return true;
}
