// Ends the writing of a list when the program is interrupted: passes all calls to another visitor.
#pragma once

#include "console/Interrupt.h"
#include "writers/ListVisitor.h"

namespace Console {

class InterruptibleVisitor : public ListVisitor {
public:
    // The other visitor must outlive this one. WriteFolder and WriteFile throw Cancelled after an interrupt.
    explicit InterruptibleVisitor(ListVisitor& visitor) : visitor_(visitor) {}

    void WriteHeader(const PathState& state, const Scanner::Folder& root) override {
        visitor_.WriteHeader(state, root);
    }
    void WriteFooter(const PathState& state, const Scanner::Folder& root) override {
        visitor_.WriteFooter(state, root);
    }
    void BeginFolders(uint64_t count) override { visitor_.BeginFolders(count); }
    void WriteFolder(const PathState& state, const Scanner::Folder& folder) override {
        ThrowIfInterrupted();
        visitor_.WriteFolder(state, folder);
    }
    void EndFolders(uint64_t count) override { visitor_.EndFolders(count); }
    void BeginFiles() override { visitor_.BeginFiles(); }
    void WriteFile(const PathState& state, const Scanner::File& file) override {
        ThrowIfInterrupted();
        visitor_.WriteFile(state, file);
    }
    void EndFiles() override { visitor_.EndFiles(); }
    void Indent() override { visitor_.Indent(); }
    void Unindent() override { visitor_.Unindent(); }

private:
    ListVisitor& visitor_;
};

}  // namespace Console
