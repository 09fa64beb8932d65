// The page that selects the files to list and the folders to leave out. Excluded folders are chosen in a
// folder dialog or edited in place, for example to enter wildcards.
#pragma once

#include <string>

#include "pages/PropertyController.h"

class FilterController : public PropertyController,
                         public WinLib::Handlers::Handler<static_cast<int>(LVN_ITEMCHANGED)>,
                         public WinLib::Handlers::Handler<static_cast<int>(LVN_BEGINLABELEDITW)>,
                         public WinLib::Handlers::Handler<static_cast<int>(LVN_ENDLABELEDITW)> {
public:
    explicit FilterController(MetaTypes::Settings* target);

    void Refresh() override;
    bool OnControlCommand(WORD id, HWND control, WORD code) override;
    bool HandleSize(WORD type, WORD width, WORD height) override;
    bool HandleNotify(NMHDR& header, LRESULT& result) override;
    bool HandleItemChanged(NMHDR& header, LRESULT& result) override;
    bool HandleBeginLabelEdit(NMHDR& header, LRESULT& result) override;
    bool HandleEndLabelEdit(NMHDR& header, LRESULT& result) override;

protected:
    void PrepareControls() override;
    void BuildLayout(WinLib::Layout::VStack& page) override;
    bool OnClicked(WORD id) override;
    bool OnSelectionChanged(WORD id) override;
    bool OnTextChanged(WORD id) override;

private:
    void ApplySelectedFilter();
    void AddFolder();
    void RemoveFolder();
    void EnableRemove(bool enable);
    void StoreFolders();
    void AppendFolder(const std::wstring& folder);
    int SelectedFilter() const;
    int SelectedFolder() const;
    std::wstring FolderText(int index) const;
    void FitColumn();

    HWND LabelEdit = nullptr;   // the edit control of the list while an entry is edited in place
    bool StorePending = false;  // the list differs from the preset
};
