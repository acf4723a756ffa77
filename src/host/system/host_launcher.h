// Starts the executor, viewers and the web browser as programs of their own.
#pragma once

#include <string>
#include <string_view>

#include "platform/launcher.h"

namespace torvane {

// Away from Windows: arguments that begin with a backslash reach the program as a path of the computer, and
// in the place of Explorer.exe, where there is none, the desktop's own opener shows the folder. It does not
// stand in for an editor of texts: designs and programs it would hand back to the station. On Windows the
// line reaches the program letter for letter.
class HostLauncher : public Launcher {
 public:
  // Standard input of the program is empty.
  Outcome Start(std::string_view program, std::string_view arguments, std::string_view folder) override;
  // Opens addresses of the web only. Whether it worked is not told.
  void OpenLink(std::string_view url) override;
  // Empty where the variable is not set or the station's text cannot say it.
  std::string EnvironmentVariable(std::string_view name) const override;
};

}  // namespace torvane
