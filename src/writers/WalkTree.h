// The walk over a finished scan, the same for every format.
#pragma once

#include "scanner/Records.h"

class ListVisitor;

// Calls the visitor for the header, every row below root, and the footer: for a folder first its row, then
// its folders with their contents, then its files. The tree may have any depth.
void WalkTree(ListVisitor& visitor, const Scanner::Node& root, bool flat);
