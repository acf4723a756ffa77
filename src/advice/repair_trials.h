// Tries repairs on a design in memory and proves what they come to, before they are offered.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "advice/advice.h"

namespace torvane {

// What a repair has come to.
struct RepairOutcome {
  bool helps = false;  // what it is for has gone, and there are no more faults than before
  std::string words;   // "Turned round: 4 faults become none."; empty where the figures stay
};

// One repair behind the other, each on a copy of the design with a store and files of its own; the station is
// not touched.
class RepairTrials {
 public:
  // `done` runs on another thread when a trial is through; Take is then to be called on the station's.
  RepairTrials(const Station& station, std::function<void()> done);
  ~RepairTrials();

  // Drops what stood, and tries what would mend the design as it stands. `result` is its proof.
  void Begin(std::shared_ptr<const LiveResult> result, const ProgramPlace& place,
             const executor::Limits& limits);
  // Notes the trial that is through and begins the next one.
  void Take();
  bool Trying() const { return next_ < tried_.size(); }

  // The repair to offer: the first that helps, or that leads to a question; null while there is none.
  // `outcome` is what it has come to, empty where that was not tried.
  const Repair* OfferOf(const Advice& advice, RepairOutcome& outcome) const;

 private:
  struct Bench;
  struct Trial {
    Advice advice;  // with the one repair
    bool through = false;
    RepairOutcome outcome;
  };

  void Start();
  void Note(Trial& trial, const LiveResult& after) const;

  const Station& station_;
  std::shared_ptr<const LiveResult> before_;
  ProgramPlace place_;
  executor::Limits limits_;
  std::vector<Trial> tried_;
  std::size_t next_ = 0;
  std::unique_ptr<Bench> bench_;
  LiveProof proof_;
};

}  // namespace torvane
