// A tree with two roots, for folders and for files. The user orders their children with two buttons and gives
// each one of two states. Knows no preset: the owner stores the result of Children.
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

    // Attaches to the tree and its two buttons. stateIcons are the icons of the three states.
    void Attach(HWND tree, HWND upButton, HWND downButton, const std::array<WORD, 3>& stateIcons);

    // Adds the tree, below its caption and with the buttons at its side, as a row that takes the extra space
    // of the page.
    void AddTo(WinLib::Layout::VStack& page, HWND caption);

    // Replaces the contents of the tree, expands both roots and selects the first.
    void Fill(std::span<const Child> folders, std::span<const Child> files);

    // Exchange the selected item with the previous or next one. Do nothing if there is none.
    void MoveUp();
    void MoveDown();

    // Enables the buttons for the selected item: a child moves among its siblings, a root does not move.
    void UpdateButtons();

    // Returns the children of a root from the top, without their labels.
    std::vector<Child> Children(Root root) const;

private:
    HTREEITEM AddRoot(const wchar_t* text, Root root, std::span<const Child> children);
    void Exchange(UINT neighbour);

    WinLib::Controls::Tree tree_;
    HWND upButton_ = nullptr;
    HWND downButton_ = nullptr;
    WinLib::UniqueHandle<HICON> upIcon_;  // the buttons do not own them
    WinLib::UniqueHandle<HICON> downIcon_;
    WinLib::Controls::TreeView::ThreeStateCtrl states_;
};

// Converts a pair of arrays of the preset, values in order and a flag for each, to children of a tree. labels
// are indexed by value.
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

// Stores the children in a pair of arrays, as many elements as there are children.
template <typename Section, typename Value, typename Flag, size_t N>
void StoreChildren(std::span<const OrderTree::Child> children, Preset& preset,
                   MetaTypes::Field<Section, std::array<Value, N>> values,
                   MetaTypes::Field<Section, std::array<Flag, N>> flags) {
    for (size_t i = 0; i < children.size(); ++i) {
        preset.Get(values, i) = static_cast<Value>(children[i].value);
        preset.Get(flags, i) = static_cast<Flag>(children[i].checked);
    }
}
