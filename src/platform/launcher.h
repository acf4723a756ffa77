// Starting other programs and opening addresses. Nothing waits for the end of what was started.
#pragma once

#include <string>
#include <string_view>

#include "platform/result.h"

namespace torvane {

class Launcher {
 public:
  virtual ~Launcher() = default;
  // Runs a command line, split at blanks and with no shell in between, in a normal window with `folder`
  // current. A program without a path is looked for in `folder` first.
  virtual Outcome Start(std::string_view commandLine, std::string_view folder) = 0;
  virtual void OpenLink(std::string_view url) = 0;
  virtual std::string EnvironmentVariable(std::string_view name) const = 0;
};

}  // namespace torvane
