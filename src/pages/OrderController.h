// The base of the Columns and Sorting pages: binds an OrderTree and a check box to a section of the preset. A
// move is stored at once, states are stored when the tree loses the focus, as it does when the user starts a
// list.
#pragma once

#include "pages/OrderTree.h"
#include "pages/PropertyController.h"

class OrderController : public PropertyController,
                        public WinLib::Handlers::Handler<static_cast<int>(TVN_SELCHANGEDW)>,
                        public WinLib::Handlers::Handler<static_cast<int>(NM_KILLFOCUS)> {
public:
    void Refresh() override;
    bool HandleNotify(NMHDR& header, LRESULT& result) override;
    bool HandleSelectionChanged(NMHDR& header, LRESULT& result) override;
    bool HandleKillFocus(NMHDR& header, LRESULT& result) override;

protected:
    struct Controls {
        int group;
        int caption;
        int tree;
        int upButton;
        int downButton;
        int checkBox;
        std::array<WORD, 3> stateIcons;
    };

    // controls must outlive the page; the other arguments are those of the base.
    OrderController(MetaTypes::Settings* target, std::span<const Binding> bindings, const Controls& controls);

    // Convert the arrays of the section to children of the tree, and back.
    virtual std::vector<OrderTree::Child> ReadFolders(const Preset& preset) const = 0;
    virtual std::vector<OrderTree::Child> ReadFiles(const Preset& preset) const = 0;
    virtual void Store(Preset& preset, std::span<const OrderTree::Child> folders,
                       std::span<const OrderTree::Child> files) const = 0;

    void PrepareControls() override;
    void BuildLayout(WinLib::Layout::VStack& page) override;
    bool OnClicked(WORD id) override;

private:
    void StoreTree();

    const Controls& controls_;
    OrderTree tree_;
};
