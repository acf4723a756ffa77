#include "host/system/command_line.h"

namespace torvane {

std::vector<std::string> ProgramArguments(int count, char** words) {
  return count > 0 ? std::vector<std::string>(words + 1, words + count) : std::vector<std::string>();
}

std::optional<std::string> PathArgument(int count, char** words) {
  if (count < 2 || (words[1][0] != '/' && words[1][0] != '\\')) return std::nullopt;
  std::string path = words[1];
  for (int i = 2; i < count; ++i) path.append(1, ' ').append(words[i]);
  return path;
}

}  // namespace torvane
