// State of the whole module: its path, its use count, and the path of the program in the same folder.
#pragma once

#include <string>

#include "winlib/Windows.h"

namespace Module {

// Called by DllMain before anything else.
void SetInstance(HINSTANCE module);
HINSTANCE Instance();

// The full path of this module.
std::wstring Path();

// The program that the module belongs to: the same folder and stem.
std::wstring ProgramPath();

// Counts the objects and locks that keep the module loaded, from any thread.
void AddUse();
void ReleaseUse();
bool IsInUse();

// Keeps the module loaded as long as it lives: a member of every COM object.
class Use {
public:
    Use() { AddUse(); }
    ~Use() { ReleaseUse(); }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
};

}  // namespace Module
