#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include "host/system/host_clock.h"

namespace torvane {

Moment HostClock::Now() const {
  using namespace std::chrono;
  SYSTEMTIME now{};
  GetLocalTime(&now);
  const auto day = local_days(year(now.wYear) / month(now.wMonth) / std::chrono::day(now.wDay));
  return day + hours(now.wHour) + minutes(now.wMinute) + seconds(now.wSecond) +
         milliseconds(now.wMilliseconds);
}

}  // namespace torvane
