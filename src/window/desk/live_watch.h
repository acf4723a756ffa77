// Lets the design be proven after every doing, and shows what came of it.
#pragma once

#include <QObject>
#include <QTimer>
#include <memory>

#include "live/live_proof.h"

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

 private:
  void Ask();
  void Take();

  Station& station_;
  Binder& binder_;
  QTimer slow_;
  bool proving_ = false;
  std::shared_ptr<const LiveResult> result_;
  LiveProof proof_;
};

}  // namespace torvane
