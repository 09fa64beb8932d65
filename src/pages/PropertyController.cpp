#include "pages/PropertyController.h"

#include "winlib/layout/ClientArea.h"

PropertyController::PropertyController(MetaTypes::Settings* target, std::span<const Binding> bindings,
                                       int groupBox, const WinLib::Layout::Margins& margins)
    : Target(target), bindings_(bindings), groupBox_(groupBox), margins_(margins) {}

Preset& PropertyController::TargetPreset() const {
    return dynamic_cast<Preset&>(*Target);
}

bool PropertyController::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_SIZE:
            return Handler<WM_SIZE>::Dispatch(wParam, lParam, result);
        case WM_SYSCOLORCHANGE:
            return Handler<WM_SYSCOLORCHANGE>::Dispatch(wParam, lParam, result);
        default:
            return Controller::OnMessage(message, wParam, lParam, result);
    }
}

bool PropertyController::HandleInitDialog(HWND, LPARAM, bool&) {
    PrepareControls();
    BuildLayout(AddGroupBox(RootSizer, Control(groupBox_), margins_));
    MeasureAndArrange(RootSizer, Handle);
    return true;
}

bool PropertyController::HandleSize(WORD type, WORD, WORD) {
    return ArrangeOnSize(RootSizer, Handle, type);
}

bool PropertyController::HandleSysColorChange() {
    for (const HWND control : ThemedControls)
        SendMessageW(control, WM_SYSCOLORCHANGE, 0, 0);
    return false;
}

bool PropertyController::OnControlCommand(WORD id, HWND control, WORD code) {
    if (StoreBinding(id, code))
        return true;
    if (code == BN_CLICKED && OnClicked(id))
        return true;
    if (code == CBN_SELCHANGE && OnSelectionChanged(id))
        return true;
    if (code == EN_CHANGE && OnTextChanged(id))
        return true;
    return Controller::OnControlCommand(id, control, code);
}

void PropertyController::ShowBindings() {
    const Preset& preset = TargetPreset();
    for (const Binding& binding : bindings_)
        binding.show(Control(binding.id), preset);
}

bool PropertyController::StoreBinding(WORD id, WORD code) {
    for (const Binding& binding : bindings_) {
        if (binding.id != id || binding.code != code)
            continue;
        Preset& preset = TargetPreset();
        binding.store(Control(binding.id), preset);
        preset.Save();
        UpdateControls();
        return true;
    }
    return false;
}
