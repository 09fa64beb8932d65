// The walk over a finished scan, which is the same for every format of list.
#pragma once

#include "scanner/Records.h"

class Writer;

// Calls the writer's operations for the header, every row below root, and the footer. A folder's row comes
// first, then its folders with all that lies below them, then its own files. The tree may be of any depth.
void WalkTree(Writer& writer, const Scanner::Node& root, bool flat);
