// From a preset to what the engine is told, which knows nothing of presets.
#pragma once

#include "scanner/Options.h"

class Preset;

// The options of a scan by this preset that reports to the listener. Copies all it needs.
Scanner::Options ScanOptions(const Preset& preset, Scanner::Listener* listener);
