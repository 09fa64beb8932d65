// The base of the pages that edit a preset, one page for each section. A page shows the preset's values;
// every action of the user goes into the record at once, and the whole preset is saved at once. A page reads
// its preset only in Refresh. The preset outlives the page; the page's window is destroyed before its
// controller.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "pages/Binding.h"
#include "settings/Preset.h"
#include "winlib/Controller.h"
#include "winlib/layout/Overlapped.h"
#include "winlib/layout/Stack.h"

class PropertyController : public WinLib::Dialog::Controller,
                           public WinLib::Handlers::Handler<WM_SIZE>,
                           public WinLib::Handlers::Handler<WM_SYSCOLORCHANGE> {
public:
    // Routes what the page's controls tell to the operations below; IDOK and IDCANCEL destroy the window.
    bool OnControlCommand(WORD id, HWND control, WORD code) override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    // Shows the preset's values. Called once, when the window has been created.
    virtual void Refresh() = 0;

    bool HandleInitDialog(HWND focus, LPARAM parameter, bool& focusSet) override;
    bool HandleSize(WORD type, WORD width, WORD height) override;
    bool HandleSysColorChange() override;

    // The preset that the page edits. Not owned.
    MetaTypes::Settings* const Target;

protected:
    // bindings must live as long as the page.
    PropertyController(MetaTypes::Settings* target, std::span<const Binding> bindings);

    // Makes the controls ready that need more than the resource gives them.
    virtual void PrepareControls() {}

    // Lays the controls out on RootSizer.
    virtual void BuildLayout() = 0;

    // Enables what depends on a bound control that the user has changed, when the change has been saved.
    virtual void UpdateControls() {}

    // What the controls without a binding do. They return false for a control they do not know.
    virtual bool OnClicked(WORD) { return false; }
    virtual bool OnSelectionChanged(WORD) { return false; }
    virtual bool OnTextChanged(WORD) { return false; }

    HWND Control(int id) const { return GetDlgItem(Handle, id); }

    // Shows the fields of all bound controls.
    void ShowBindings();

    // Target as what it is. Throws std::bad_cast if it is something else.
    Preset& TargetPreset() const;

    std::vector<HWND> ThemedControls;  // those that draw in system colours and must hear of new ones
    WinLib::Layout::Overlapped RootSizer;

private:
    bool StoreBinding(WORD id, WORD code);

    const std::span<const Binding> bindings_;
};
