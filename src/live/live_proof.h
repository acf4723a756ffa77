// Proves the program that Build would write, in the background while the operator types.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

#include "design/state.h"
#include "executor/machine/limits.h"
#include "executor/measure/cover_map.h"
#include "executor/proof/remarks.h"
#include "gcode/session.h"

namespace torvane {

// What the proof of one state of a design came to.
struct LiveResult {
  std::uint64_t asking = 0;  // the LiveProof::Ask that it answers
  // No program: the design has no layers, or too many passes (`refusal` says so).
  bool formed = false;
  std::string refusal;
  bool angleUndefined = false;  // see Formed
  executor::Proof proof;
  std::vector<executor::Remark> remarks;          // findings alone, faults first
  std::shared_ptr<const executor::CoverMap> map;  // null where none was wanted

  // What the row of a layer came to; null if the program winds no such layer.
  const executor::LayerFigures* LayerOf(int row) const;
};

// For whom the bands are counted on each place of the part as well.
enum class MapFor : std::uint8_t { Nobody, Picture, File };

// The program of a design as Build would write it, and its proof. `s` is filled like a station's state when a
// program is formed; an asked stop ends it early, and the result says nothing then.
LiveResult ProveDesign(DesignState& s, const ProgramPlace& place, const executor::Limits& limits,
                       const std::stop_token& stop = {}, MapFor map = MapFor::Nobody);

// One proof at a time, on a thread of its own, always of the state asked for last. It touches nothing of the
// station: it works on a copy of its own.
class LiveProof {
 public:
  // `done` runs on the proving thread when a result stands; it must not wait for that thread.
  LiveProof(NumberSigns signs, std::function<void()> done);
  LiveProof(const LiveProof&) = delete;
  LiveProof& operator=(const LiveProof&) = delete;
  // Cancels what is under way and waits for its end.
  ~LiveProof();

  // Takes the design as it stands and cancels the proof of any former state. Nothing happens if it is as it
  // was at the last asking and no map is wanted that was not wanted then.
  void Ask(const DesignState& s, const ProgramPlace& place, const executor::Limits& limits,
           MapFor map = MapFor::Nobody);

  // The last state asked for is not proven yet.
  bool Proving() const;
  // What was proven last; null before the first.
  std::shared_ptr<const LiveResult> Result() const;

 private:
  struct Job;

  void Work(const std::stop_token& end);

  mutable std::mutex guard_;
  std::condition_variable_any wake_;
  std::function<void()> done_;
  std::unique_ptr<Job> next_, spare_;  // the state asked for last, and one to be filled again
  std::uint64_t asked_ = 0, answered_ = 0;
  bool waits_ = false;  // `next_` is not taken yet
  std::stop_source under_;
  std::shared_ptr<const LiveResult> result_;
  std::jthread worker_;
};

}  // namespace torvane
