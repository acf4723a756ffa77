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

// "712.2 feet, 420 g with 168 g of resin", without the grams where they are not known.
std::string TowText(double length, const TowMass& mass, bool millimetres);

// "4.1 min", or "4.1 to 4.3 min" where it is not known better.
std::string TimeText(const Range& seconds);

// What the machine's accelerations make of a layer, in a sentence; empty where they are not known.
std::string ReversalText(const LayerFigures& layer, bool millimetres);

// The dwells and swings of a layer that a controller may read either way, in a sentence; empty where there
// are none.
std::string TwofoldText(const LayerFigures& layer, bool millimetres);

// How far the axes are used, and which are not checked; empty where nothing moves.
std::string AxesText(const Proof& proof);

// How many spools the tow takes, and where each splice falls; empty where a spool has no end.
std::string SpoolText(const Proof& proof);

}  // namespace torvane::executor
