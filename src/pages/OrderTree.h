// What the pages of columns and sort keys share: a tree with one root for folders and one for files, whose
// children are put in order by two buttons and carry one of two states. The owner stores what Children tells.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "settings/Preset.h"
#include "winlib/Handles.h"
#include "winlib/controls/ThreeStateCtrl.h"
#include "winlib/layout/Stack.h"

class OrderTree {
public:
    // The item parameters of the two roots.
    enum class Root : LPARAM { Folders = 0, Files = 1 };

    struct Child {
        const wchar_t* label;
        uint32_t value;  // the item's parameter
        bool checked;    // the second state image instead of the first
    };

    // Takes over the tree and its two buttons. stateIcons are the pictures of the three states.
    void Attach(HWND tree, HWND upButton, HWND downButton, const std::array<WORD, 3>& stateIcons);

    // Lays out the tree below its caption with the buttons at its side, as a row that takes all room of the
    // page.
    void AddTo(WinLib::Layout::VStack& page, HWND caption);

    // Replaces what the tree shows, opens both roots and selects the first.
    void Fill(std::span<const Child> folders, std::span<const Child> files);

    // Exchanges the selected item with the one before or behind it. Does nothing if there is none.
    void MoveUp();
    void MoveDown();

    // Enables the buttons by what is selected: a child moves among its siblings, a root does not move.
    void UpdateButtons();

    // The children of a root from the top, without their labels.
    std::vector<Child> Children(Root root) const;

private:
    HTREEITEM AddRoot(const wchar_t* text, Root root, std::span<const Child> children);
    void Exchange(WPARAM neighbour);

    HWND tree_ = nullptr;
    HWND upButton_ = nullptr;
    HWND downButton_ = nullptr;
    WinLib::UniqueHandle<HICON> upIcon_;  // the buttons only borrow them
    WinLib::UniqueHandle<HICON> downIcon_;
    WinLib::Controls::TreeView::ThreeStateCtrl states_;
};

// A pair of arrays of the preset, values in order and a flag for each, as children of a tree. The labels are
// those of the values.
template <typename Section, typename Value, typename Flag, size_t N>
std::vector<OrderTree::Child> ReadChildren(const Preset& preset,
                                           MetaTypes::Field<Section, std::array<Value, N>> values,
                                           MetaTypes::Field<Section, std::array<Flag, N>> flags,
                                           const std::array<const wchar_t*, N>& labels) {
    std::vector<OrderTree::Child> children;
    for (size_t i = 0; i < N; ++i) {
        const auto value = static_cast<uint32_t>(preset.Get(values, i));
        children.push_back({labels[value], value, preset.Get(flags, i) == static_cast<Flag>(1)});
    }
    return children;
}

// The way back: as many elements as there are children.
template <typename Section, typename Value, typename Flag, size_t N>
void StoreChildren(std::span<const OrderTree::Child> children, Preset& preset,
                   MetaTypes::Field<Section, std::array<Value, N>> values,
                   MetaTypes::Field<Section, std::array<Flag, N>> flags) {
    for (size_t i = 0; i < children.size(); ++i) {
        preset.Get(values, i) = static_cast<Value>(children[i].value);
        preset.Get(flags, i) = static_cast<Flag>(children[i].checked);
    }
}
