// Starting other programs and opening addresses. Nothing waits for the end of what was started.
#pragma once

#include <string>
#include <string_view>

#include "platform/result.h"

namespace torvane {

class Launcher {
 public:
  virtual ~Launcher() = default;
  // Runs a program in a normal window with `folder` current and no shell in between. A name without a path is
  // looked for in `folder` first. `arguments` go behind the name as they stand; they are split at each blank.
  // The reason of a refusal names the program. Whatever a program that runs comes to is its own affair.
  virtual Outcome Start(std::string_view program, std::string_view arguments, std::string_view folder) = 0;
  virtual void OpenLink(std::string_view url) = 0;
  virtual std::string EnvironmentVariable(std::string_view name) const = 0;
};

// Program and arguments in one line; a program without any stands alone.
inline std::string CommandLine(std::string_view program, std::string_view arguments) {
  std::string line(program);
  if (!arguments.empty()) line.append(1, ' ').append(arguments);
  return line;
}

}  // namespace torvane
