// What a command line asks the dry run for.
#pragma once

#include <string>
#include <vector>

#include "executor/machine/limits.h"
#include "executor/player/player.h"
#include "platform/result.h"

namespace torvane::executor {

struct Request {
  enum class Kind : std::uint8_t { Nothing, Program, Trace, Manual };

  Kind kind = Kind::Nothing;
  std::string asTyped;  // of a program: the words put together again
};

// A program's path put together again. The station hands it over bare: with blanks in it, it arrives as more
// than one word.
std::string ProgramAsTyped(const std::vector<std::string>& words);

// No words ask for nothing, the one word TRACE or MANUAL for that, any others for a program.
Request ReadRequest(const std::vector<std::string>& words);

// The computer's path of a program; one that begins with a backslash is a path of the station.
Result<std::string> PathOf(const std::string& asTyped);

// The machine as the settings describe it, for moving it by hand. What they lack is as in a new station.
ManualSetup ReadManualSetup(const SettingsStore& store, const Limits& limits);

}  // namespace torvane::executor
