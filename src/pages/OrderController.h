// What the pages of columns and of sort keys share: a tree whose items the user puts in order and gives one
// of two states, for folders and for files, and a check box below. A move is stored at once, states are
// stored when the tree loses the focus, which it also does when the user starts a list.
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

    // controls must live as long as the page; the other arguments are those of the base.
    OrderController(MetaTypes::Settings* target, std::span<const Binding> bindings, const Controls& controls);

    // The page's arrays as children of the tree, and the way back.
    virtual std::vector<OrderTree::Child> ReadFolders(const Preset& preset) const = 0;
    virtual std::vector<OrderTree::Child> ReadFiles(const Preset& preset) const = 0;
    virtual void Store(Preset& preset, std::span<const OrderTree::Child> folders,
                       std::span<const OrderTree::Child> files) const = 0;

    void PrepareControls() override;
    void BuildLayout() override;
    bool OnClicked(WORD id) override;

private:
    void StoreTree();

    const Controls& controls_;
    OrderTree tree_;
};
