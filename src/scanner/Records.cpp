#include "scanner/Records.h"

#include <utility>

namespace Scanner {

// Always destroys the last node of the list at hand, and goes down into the children of that node first. The
// way back needs no memory: the list left behind becomes `above`, and the list above that hangs in the place
// of the children, from where the same two swaps, made backwards, fetch it again.
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
