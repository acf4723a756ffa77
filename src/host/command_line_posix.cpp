#include "host/command_line.h"

namespace torvane {

std::vector<std::string> ProgramArguments(int count, char** words) {
  return count > 0 ? std::vector<std::string>(words + 1, words + count) : std::vector<std::string>();
}

}  // namespace torvane
