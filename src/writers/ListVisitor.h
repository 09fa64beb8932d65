// What the walk over a finished scan calls: one operation for each step (WalkTree.h). Each format of a list
// is a visitor.
#pragma once

#include <cstdint>

#include "scanner/Records.h"

struct PathState;

class ListVisitor {
public:
    ListVisitor() = default;
    ListVisitor(const ListVisitor&) = delete;
    ListVisitor& operator=(const ListVisitor&) = delete;
    virtual ~ListVisitor() = default;

    // Called before and after the walk; root is the record of the scanned path.
    virtual void WriteHeader(const PathState& state, const Scanner::Folder& root) = 0;
    virtual void WriteFooter(const PathState& state, const Scanner::Folder& root) = 0;

    // count is the number of folders directly in the current folder.
    virtual void BeginFolders(uint64_t count) = 0;
    virtual void WriteFolder(const PathState& state, const Scanner::Folder& folder) = 0;
    virtual void EndFolders(uint64_t count) = 0;

    virtual void BeginFiles() = 0;
    virtual void WriteFile(const PathState& state, const Scanner::File& file) = 0;
    virtual void EndFiles() = 0;

    // Called after a folder's row was written, and when a folder (the root included) is left.
    virtual void Indent() = 0;
    virtual void Unindent() = 0;
};
