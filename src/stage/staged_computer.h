// Clock, locale and launcher that do what they are told and start nothing.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/launcher.h"
#include "platform/locale.h"

namespace torvane {

class StagedClock : public Clock {
 public:
  Moment Now() const override { return now_; }
  void Set(Moment now) { now_ = now; }
  void Advance(std::chrono::milliseconds by) { now_ += by; }

 private:
  Moment now_ = std::chrono::local_days(std::chrono::year(2024) / 1 / 2) + std::chrono::hours(9);
};

class StagedLocale : public Locale {
 public:
  LocaleSigns Signs() const override { return signs; }

  LocaleSigns signs;
};

class StagedLauncher : public Launcher {
 public:
  struct Started {
    std::string commandLine, folder;
    bool failed = false;
  };

  Outcome Start(std::string_view program, std::string_view arguments, std::string_view folder) override;
  void OpenLink(std::string_view url) override;
  std::string EnvironmentVariable(std::string_view name) const override;

  // The next start, and that one alone, is refused.
  void FailNext(std::string reason) { failure_ = std::move(reason); }

  std::vector<Started> starts;
  std::vector<std::string> links;
  std::map<std::string, std::string, std::less<>> environment = {{"windir", "C:\\Windows"}};
  std::function<void(const Started&)> startObserver;
  std::function<void(const std::string&)> linkObserver;

 private:
  std::optional<std::string> failure_;
};

}  // namespace torvane
