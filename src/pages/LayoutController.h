// The page "Display": what is searched, how entries are grouped and indented, how sizes are written.
#pragma once

#include "pages/PropertyController.h"

class LayoutController : public PropertyController, public WinLib::Handlers::Handler<WM_HSCROLL> {
public:
    explicit LayoutController(MetaTypes::Settings* target);

    void Refresh() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool HandleHScroll(WORD code, WORD position, HWND control) override;

protected:
    void PrepareControls() override;
    void BuildLayout(WinLib::Layout::VStack& page) override;
    bool OnClicked(WORD id) override;
    bool OnSelectionChanged(WORD id) override;

private:
    void ApplyGrouping();
    void ApplyIndent();
};
