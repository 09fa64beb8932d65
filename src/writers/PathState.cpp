#include "writers/PathState.h"

#include "scanner/Path.h"

void PathState::Push(std::wstring_view piece) {
    savedLengths.push(path.size());
    path = Scanner::JoinPath(path, piece);
}

void PathState::Pop() {
    path.resize(static_cast<size_t>(savedLengths.top()));
    savedLengths.pop();
}
