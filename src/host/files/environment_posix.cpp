#include <cstdlib>

#include "host/files/environment.h"

namespace torvane {

std::string EnvironmentText(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

}  // namespace torvane
