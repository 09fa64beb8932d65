#include "writers/WalkTree.h"

#include <cstdint>
#include <stack>

#include "writers/PathState.h"
#include "writers/Writer.h"

namespace {

struct Level {
    const Scanner::Node* node;
    uint64_t next;  // index of the next folder in node
};

void WriteFiles(Writer& writer, PathState& state, const Scanner::Node& node) {
    if (node.files.empty())
        return;
    writer.BeginFiles();
    for (size_t i = 0; i < node.files.size(); ++i) {
        state.fileNumber = i + 1;
        writer.WriteFile(state, *node.files[i]);
    }
    writer.EndFiles();
}

// A flat list ends its folders before the files, a grouped one after them.
void FinishFolder(Writer& writer, PathState& state, const Scanner::Node& node, bool flat) {
    const uint64_t count = node.folders.size();
    if (flat && count != 0)
        writer.EndFolders(count);
    WriteFiles(writer, state, node);
    if (!flat && (count != 0 || !node.files.empty()))
        writer.EndFolders(count);
}

}  // namespace

void WalkTree(Writer& writer, const Scanner::Node& root, bool flat) {
    PathState state;
    state.Push(root.folder->fullName);
    writer.WriteHeader(state, *root.folder);

    std::stack<Level> levels;
    levels.push({&root, 0});
    while (!levels.empty()) {
        const Scanner::Node& node = *levels.top().node;
        const uint64_t next = levels.top().next;
        const uint64_t count = node.folders.size();
        if (next < count) {
            const Scanner::Node& child = node.folders[static_cast<size_t>(next)];
            if (next == 0)
                writer.BeginFolders(count);
            state.folderNumber = next + 1;
            writer.WriteFolder(state, *child.folder);
            writer.Indent();
            state.Push(child.folder->name);
            ++levels.top().next;
            levels.push({&child, 0});
        } else {
            FinishFolder(writer, state, node, flat);
            levels.pop();
            writer.Unindent();
            state.Pop();
        }
    }
    writer.WriteFooter(state, *root.folder);
}
