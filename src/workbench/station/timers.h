// The timers of the station's windows.
#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <optional>
#include <string_view>

#include "platform/clock.h"

namespace torvane {

// It ticks again and again until it is stopped.
struct Timer {
  std::string_view name;
  std::chrono::milliseconds interval;
  std::optional<Moment> due = std::nullopt;  // nothing while it stands
};

class Timers {
 public:
  explicit Timers(const Clock& clock) : clock_(clock) {}

  // It is due one interval from now, also if it runs already.
  void Start(Timer& timer) {
    timer.due = clock_.Now() + timer.interval;
    if (starts) starts();
  }
  static void Stop(Timer& timer) { timer.due.reset(); }

  // When the next running timer is due; nothing while all stand.
  std::optional<Moment> NextTick() const {
    std::optional<Moment> next;
    for (const Timer* timer :
         {&tmrBlink, &tmrSplash, &tmrStartDraw, &tmrDraw, &tmrOffer, &tmrRecovery, &tmrStore})
      if (timer->due && (!next || *timer->due < *next)) next = timer->due;
    return next;
  }
  std::array<Timer*, 7> All() {
    return {&tmrBlink, &tmrSplash, &tmrStartDraw, &tmrDraw, &tmrOffer, &tmrRecovery, &tmrStore};
  }

  Timer tmrBlink{"tmrBlink", std::chrono::milliseconds(500)};
  Timer tmrSplash{"tmrSplash", std::chrono::milliseconds(3500)};
  // One shots of the preview: its first drawing, and the pause before its next pass.
  Timer tmrStartDraw{"tmrStartDraw", std::chrono::milliseconds(300)};
  Timer tmrDraw{"tmrDraw", std::chrono::milliseconds(250)};
  // From the main window's first showing to the question whether a former design is to come back.
  Timer tmrOffer{"tmrOffer", std::chrono::milliseconds(200)};
  // From a change of the design to its recovery copy.
  Timer tmrRecovery{"tmrRecovery", std::chrono::seconds(10)};
  // From what may be stored later to the store.
  Timer tmrStore{"tmrStore", std::chrono::milliseconds(200)};

  // Told that a timer starts: a message may come up next, and a timer ticks behind it all the same.
  std::function<void()> starts;

 private:
  const Clock& clock_;
};

}  // namespace torvane
