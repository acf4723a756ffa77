// Lets the design be proven after every doing, and shows what came of it.
#pragma once

#include <QObject>
#include <QTimer>
#include <memory>

#include "advice/repair_trials.h"
#include "window/desk/part_view.h"

namespace torvane {

class Binder;
class Station;

class LiveWatch : public QObject {
 public:
  LiveWatch(Station& station, Binder& binder);

  // What was proven last; null before the first. It stays while the next is on its way.
  const LiveResult* result() const { return result_.get(); }
  // The design has been on its way to its proof for longer than one would notice.
  bool proving() const { return proving_; }
  // What mends an advice, tried already; see RepairTrials::OfferOf.
  const Repair* OfferOf(const Advice& advice, RepairOutcome& outcome) const {
    return trials_.OfferOf(advice, outcome);
  }
  // How the windows show the part; the map that it needs comes with the proof after the next doing.
  const PartView& view() const { return view_; }
  void Show(const PartView& view) const { view_ = view; }

 private:
  void Ask();
  void Take();
  ProgramPlace Place() const;
  executor::Limits Limits() const;

  Station& station_;
  Binder& binder_;
  QTimer slow_;
  bool proving_ = false;
  mutable PartView view_;
  std::shared_ptr<const LiveResult> result_;
  LiveProof proof_;
  RepairTrials trials_;
};

}  // namespace torvane
