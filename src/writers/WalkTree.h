// The walk over a finished scan, the same for every format.
#pragma once

#include "scanner/Records.h"

class Writer;

// Calls the writer for the header, every row below root, and the footer: for a folder first its row, then its
// folders with their contents, then its files. The tree may have any depth.
void WalkTree(Writer& writer, const Scanner::Node& root, bool flat);
