// The environment of the running program.
#pragma once

#include <string>

namespace torvane {

// The text of a variable, in UTF-8; empty where it is not set.
std::string EnvironmentText(const char* name);

}  // namespace torvane
