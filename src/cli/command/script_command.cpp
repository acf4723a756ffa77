#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "cli/command/commands.h"
#include "cli/script/script.h"
#include "host/files/paths.h"

namespace torvane {

int RunScript(Computer& computer, const std::string& file, bool traces) {
  std::ifstream stream;
  if (!file.empty()) {
    std::error_code error;
    const bool folder = std::filesystem::is_directory(SystemPath(file), error);
    if (!folder) stream.open(SystemPath(file), std::ios::binary);
    if (folder || !stream) {
      Complain(file + (folder ? ": this is a folder, not a script" : ": cannot be opened"));
      return kUsage;
    }
  }
  std::istream& in = file.empty() ? std::cin : stream;
  Script script(computer.stage, computer.AsPlatform(computer.RealStore()), std::cout);
  if (traces) script.Trace();
  script.prepare = [&computer] { computer.MakeStationFolders(); };
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    try {
      script.Follow(line);
    } catch (const ScriptError& error) {
      std::cout.flush();
      Complain("line " + std::to_string(number) + ": " + error.reason);
      return kUsage;
    } catch (const UsageError& error) {
      std::cout.flush();
      Complain("line " + std::to_string(number) + ": " + error.reason);
      return kUsage;
    }
  }
  if (file.empty() ? std::ferror(stdin) == 0 : !in.bad()) return kDone;
  Complain((file.empty() ? "standard input" : file) + ": could not be read to its end");
  return kUsage;
}

}  // namespace torvane
