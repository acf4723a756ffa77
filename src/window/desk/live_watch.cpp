#include "window/desk/live_watch.h"

#include "window/desk/binder.h"

namespace torvane {

namespace {

constexpr int kNoticed = 300;  // milliseconds

}  // namespace

LiveWatch::LiveWatch(Station& station, Binder& binder)
    : station_(station),
      binder_(binder),
      proof_(station.s.signs,
             [this] {
               QMetaObject::invokeMethod(
                   this, [this] { Take(); }, Qt::QueuedConnection);
             }),
      trials_(station, [this] {
        QMetaObject::invokeMethod(
            this,
            [this] {
              trials_.Take();
              binder_.Do([] {});
            },
            Qt::QueuedConnection);
      }) {
  station.Add(RepairOperations());
  slow_.setSingleShot(true);
  slow_.setInterval(kNoticed);
  connect(&slow_, &QTimer::timeout, this, [this] {
    proving_ = proof_.Proving();
    binder_.Do([] {});
  });
  binder.BindAll(this, [this] { Ask(); });
}

void LiveWatch::Ask() {
  if (station_.ended) return;
  proof_.Ask(station_.s, Place(), Limits(), view_.mapped() ? MapFor::Picture : MapFor::Nobody);
  if (proof_.Proving() && !slow_.isActive() && !proving_) slow_.start();
}

ProgramPlace LiveWatch::Place() const {
  return {station_.platform.files.ProgramFolder(), station_.platform.clock.Now()};
}

executor::Limits LiveWatch::Limits() const {
  return executor::ReadLimits(station_.platform.store, station_.s.signs.decimal);
}

void LiveWatch::Take() {
  if (!proof_.Proving()) {
    slow_.stop();
    proving_ = false;
  }
  result_ = proof_.Result();
  if (!proof_.Proving() && !station_.ended) trials_.Begin(result_, Place(), Limits());
  binder_.Do([] {});
}

}  // namespace torvane
