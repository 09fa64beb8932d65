// Makes the writer for the format of a preset.
#pragma once

#include <memory>

#include "writers/ListFile.h"
#include "writers/Writer.h"

class Preset;

// Returns the writer of text or HTML lists, by the preset's list style: HTML for its value and text for any
// other. The preset must outlive it. Throws std::bad_alloc, and std::exception, before it opens a file, if
// the preset holds a column or style of sizes outside its enumeration.
std::unique_ptr<Writer> MakeWriter(const Preset& preset, ListTarget target);
