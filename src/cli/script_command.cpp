#include <fstream>
#include <iostream>

#include "cli/commands.h"
#include "cli/script.h"

namespace torvane {

int RunScript(Computer& computer, const std::string& file) {
  std::ifstream stream;
  if (!file.empty()) {
    stream.open(file, std::ios::binary);
    if (!stream) {
      Complain(file + ": cannot be opened");
      return kUsage;
    }
  }
  std::istream& in = file.empty() ? std::cin : stream;
  Script script(computer, computer.RealStore(), std::cout);
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
  return kDone;
}

}  // namespace torvane
