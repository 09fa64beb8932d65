// The base of the pages that edit a preset, one page for each section. Each action of the user changes the
// preset and saves it at once. A page reads its preset only in Refresh. The preset must outlive the page; the
// page's window must be destroyed before its controller.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "pages/Binding.h"
#include "pages/GroupBox.h"
#include "settings/Preset.h"
#include "winlib/Controller.h"

class PropertyController : public WinLib::Dialog::Controller,
                           public WinLib::Handlers::Handler<WM_SIZE>,
                           public WinLib::Handlers::Handler<WM_SYSCOLORCHANGE> {
public:
    // Passes notifications of the controls to the operations below. IDOK and IDCANCEL destroy the window.
    bool OnControlCommand(WORD id, HWND control, WORD code) override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    // Shows the values of the preset. Called once, after the window was created.
    virtual void Refresh() = 0;

    bool HandleInitDialog(HWND focus, LPARAM parameter, bool& focusSet) override;
    bool HandleSize(WORD type, WORD width, WORD height) override;
    bool HandleSysColorChange() override;

    // The preset of the page. Not owned.
    MetaTypes::Settings* const Target;

protected:
    // bindings must outlive the page. groupBox is the id of the group box that fills the page; margins are
    // those of the controls in it.
    PropertyController(MetaTypes::Settings* target, std::span<const Binding> bindings, int groupBox,
                       const WinLib::Layout::Margins& margins = PageMargins);

    // Sets up the controls beyond what the resource can do.
    virtual void PrepareControls() {}

    // Adds the controls to the column in the group box.
    virtual void BuildLayout(WinLib::Layout::VStack& page) = 0;

    // Enables controls that depend on a bound control. Called after a change of it was saved.
    virtual void UpdateControls() {}

    // Handle the controls without a binding. Return false for a control that they do not know.
    virtual bool OnClicked(WORD) { return false; }
    virtual bool OnSelectionChanged(WORD) { return false; }
    virtual bool OnTextChanged(WORD) { return false; }

    HWND Control(int id) const { return GetDlgItem(Handle, id); }

    // Shows the fields of all bound controls.
    void ShowBindings();

    // Returns Target as a preset. Throws std::bad_cast if it is not one.
    Preset& TargetPreset() const;

    std::vector<HWND> ThemedControls;  // those that must be notified of new system colours
    WinLib::Layout::Overlapped RootSizer;

private:
    bool StoreBinding(WORD id, WORD code);

    const std::span<const Binding> bindings_;
    const int groupBox_;
    const WinLib::Layout::Margins margins_;
};
