#include "window/desk/live_watch.h"

#include "window/desk/binder.h"

namespace torvane {

namespace {

constexpr int kNoticed = 300;  // milliseconds

}  // namespace

LiveWatch::LiveWatch(Station& station, Binder& binder)
    : station_(station), binder_(binder), proof_(station.s.signs, [this] {
        QMetaObject::invokeMethod(
            this, [this] { Take(); }, Qt::QueuedConnection);
      }) {
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
  const Platform& platform = station_.platform;
  proof_.Ask(station_.s, {platform.files.ProgramFolder(), platform.clock.Now()},
             executor::ReadLimits(platform.store, station_.s.signs.decimal));
  if (proof_.Proving() && !slow_.isActive() && !proving_) slow_.start();
}

void LiveWatch::Take() {
  if (!proof_.Proving()) {
    slow_.stop();
    proving_ = false;
  }
  result_ = proof_.Result();
  binder_.Do([] {});
}

}  // namespace torvane
