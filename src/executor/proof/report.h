// The proof in words.
#pragma once

#include <string>

#include "executor/proof/proof.h"

namespace torvane::executor {

// Lines ended by LF, in the program's own 8-bit text.
std::string Report(const Proof& proof);

// A layer in a sentence.
std::string LayerSentence(const LayerFigures& layer, bool millimetres);

// "1 h 12 min", "3.4 min".
std::string TimeText(double seconds);

// Feet or metres.
std::string FilamentText(double length, bool millimetres);

}  // namespace torvane::executor
