#include "scanner/Records.h"

#include <utility>

namespace Scanner {

// Destroys the last node of the current list, its children first. Pointer reversal replaces a stack: going
// down, the parent's list is kept in the child's own (unused) list; going up, the same two swaps restore it.
void Node::DestroyBelow() noexcept {
    std::vector<Node> above;
    for (;;) {
        if (folders.empty()) {
            if (above.empty())
                return;
            folders.swap(above);
            above.swap(folders.back().folders);
        } else if (folders.back().folders.empty()) {
            folders.pop_back();
        } else {
            above.swap(folders.back().folders);
            folders.swap(above);
        }
    }
}

}  // namespace Scanner
