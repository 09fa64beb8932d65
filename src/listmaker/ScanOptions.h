// Translates a preset into the options of the engine, which knows no presets.
#pragma once

#include "scanner/Options.h"

class Preset;

// Returns the options of a scan with this preset that reports to the listener. Keeps no reference to the
// preset.
Scanner::Options ScanOptions(const Preset& preset, Scanner::Listener* listener);
