// The page that sets priority and direction of the sort keys, for folders and for files. Directions are
// stored when the tree loses the focus, moves at once.
#pragma once

#include "pages/OrderTree.h"
#include "pages/PropertyController.h"

class SortingController : public PropertyController,
                          public WinLib::Handlers::Handler<static_cast<int>(NM_KILLFOCUS)>,
                          public WinLib::Handlers::Handler<static_cast<int>(TVN_SELCHANGEDW)> {
public:
    explicit SortingController(MetaTypes::Settings* target);

    void Refresh() override;
    bool HandleNotify(NMHDR& header, LRESULT& result) override;
    bool HandleKillFocus(NMHDR& header, LRESULT& result) override;
    bool HandleSelectionChanged(NMHDR& header, LRESULT& result) override;

protected:
    void PrepareControls() override;
    void BuildLayout() override;
    bool OnClicked(WORD id) override;

private:
    void StoreTree();

    OrderTree tree_;
};
