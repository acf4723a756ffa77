// Starts the executor, viewers and the web browser as programs of their own.
#pragma once

#include <string>
#include <string_view>

#include "platform/launcher.h"

namespace torvane {

// Away from Windows: words that begin with a backslash reach the program as paths of the computer; a program
// told with a path may have blanks in it; and in the place of Notepad2.exe or Explorer.exe, where there is
// none, the desktop's own opener shows the file or folder.
class HostLauncher : public Launcher {
 public:
  // The reason names the program. Standard input of the program is empty. Looks at the program's first
  // moments, a quarter of a second: one that ends in them with a failure counts as not started.
  Outcome Start(std::string_view commandLine, std::string_view folder) override;
  // Opens addresses of the web only. Whether it worked is not told.
  void OpenLink(std::string_view url) override;
  // Empty where the variable is not set or the station's text cannot say it.
  std::string EnvironmentVariable(std::string_view name) const override;
};

}  // namespace torvane
