#include <ctime>

#include "host/system/host_clock.h"

namespace torvane {

Moment HostClock::Now() const {
  using namespace std::chrono;
  const auto now = floor<milliseconds>(system_clock::now());
  const auto second = floor<seconds>(now);
  const std::time_t time = system_clock::to_time_t(second);
  std::tm local{};
  if (localtime_r(&time, &local) == nullptr) return Moment(now.time_since_epoch());
  const auto day = local_days(year(local.tm_year + 1900) / (local.tm_mon + 1) / local.tm_mday);
  return day + hours(local.tm_hour) + minutes(local.tm_min) + seconds(local.tm_sec) + (now - second);
}

}  // namespace torvane
