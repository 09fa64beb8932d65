#include "writers/WalkTree.h"

#include <cstdint>
#include <stack>

#include "writers/ListVisitor.h"
#include "writers/PathState.h"

namespace {

struct Level {
    const Scanner::Node* node;
    uint64_t next;  // index of the next folder in node
};

void WriteFiles(ListVisitor& visitor, PathState& state, const Scanner::Node& node) {
    if (node.files.empty())
        return;
    visitor.BeginFiles();
    for (size_t i = 0; i < node.files.size(); ++i) {
        state.fileNumber = i + 1;
        visitor.WriteFile(state, *node.files[i]);
    }
    visitor.EndFiles();
}

// A flat list ends its folders before the files, a grouped one after them.
void FinishFolder(ListVisitor& visitor, PathState& state, const Scanner::Node& node, bool flat) {
    const uint64_t count = node.folders.size();
    if (flat && count != 0)
        visitor.EndFolders(count);
    WriteFiles(visitor, state, node);
    if (!flat && (count != 0 || !node.files.empty()))
        visitor.EndFolders(count);
}

}  // namespace

void WalkTree(ListVisitor& visitor, const Scanner::Node& root, bool flat) {
    PathState state;
    state.Push(root.folder->fullName);
    visitor.WriteHeader(state, *root.folder);

    std::stack<Level> levels;
    levels.push({&root, 0});
    while (!levels.empty()) {
        const Scanner::Node& node = *levels.top().node;
        const uint64_t next = levels.top().next;
        const uint64_t count = node.folders.size();
        if (next < count) {
            const Scanner::Node& child = node.folders[static_cast<size_t>(next)];
            if (next == 0)
                visitor.BeginFolders(count);
            state.folderNumber = next + 1;
            visitor.WriteFolder(state, *child.folder);
            visitor.Indent();
            state.Push(child.folder->name);
            ++levels.top().next;
            levels.push({&child, 0});
        } else {
            FinishFolder(visitor, state, node, flat);
            levels.pop();
            visitor.Unindent();
            state.Pop();
        }
    }
    visitor.WriteFooter(state, *root.folder);
}
