// All that is to be looked at in a design, in one list and one wording: what the proof has found, what is
// marked, what to know before a build, and what mends it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "advice/repairs.h"
#include "live/live_proof.h"

namespace torvane {

struct Advice {
  const Field* field = nullptr;  // where it hangs; null: nowhere
  // Of a finding of the proof; nothing of what the design itself shows.
  std::optional<executor::Level> level = {};
  Mark mark = Mark::Plain;  // of a marked field
  std::string title = {}, text = {};
  // What it is, for whoever asks whether it has gone.
  std::optional<executor::Kind> kind = {};
  Concern concern = Concern::Other;
  int layers = 0;  // see LayerBit; 0 of the program as a whole
  std::vector<Repair> repairs = {};
};

// Faults, marked fields, warnings that hang on no marked field, notes. Alike findings of several layers are
// one, and a warning that tells what the proof has found as well stands for both, in its own words. `result`
// is null before the first proof.
std::vector<Advice> AdviceOf(const Station& station, const LiveResult* result);
// The same for who is not shown the marks: the warnings that hang on marked fields instead of these.
std::vector<Advice> AdviceInWords(const Station& station, const LiveResult* result);

// Below the build's button: what stands in the way or is to be looked at first, else what it does.
struct BuildAdvice {
  bool ready = false;  // the design has layers and a name
  bool clear = false;  // and nothing in it is to be looked at first
  std::string sentence;
};
BuildAdvice BuildAdviceOf(const Station& station, const LiveResult* result);

}  // namespace torvane
