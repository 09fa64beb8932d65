// A random scan tree as a walk leaves it, before its totals are known and its lists are in order.
#pragma once

#include <vector>

#include "scanner/Result.h"
#include "support/Random.h"

class RandomTree {
public:
    // No two folders that lie in the same one have names that compare equal. Few different values, so that
    // much ties.
    RandomTree(Random& random, int records);

    Scanner::Node& Root() { return result_.root; }

    // All records below the root, in the order of their making.
    const std::vector<Scanner::Record*>& Folders() const { return folders_; }
    const std::vector<Scanner::Record*>& Files() const { return files_; }

private:
    Scanner::Record* NewRecord(Scanner::Record* parent, const std::wstring& name);
    void SetValues(Scanner::Record& record);
    void AddFolders(Scanner::Node& node, int levels);
    void AddFiles(Scanner::Node& node);

    Random& random_;
    int left_;
    Scanner::Result result_;
    std::vector<Scanner::Record*> folders_;
    std::vector<Scanner::Record*> files_;
};
