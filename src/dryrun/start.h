// The dry run as a program with a window.
#pragma once

#include <string>

#include "executor/request.h"

namespace torvane::dryrun {

struct Start {
  executor::Request request;
  std::string store;          // an INI file; empty for the user's own store
  std::string stationFolder;  // a path of the computer
};

// False, with nothing started, where there is no screen to show a window on.
bool HasScreen();

// Shows the window until it is closed. The program's exit status.
int ShowWindow(int& argc, char** argv, const Start& start);

}  // namespace torvane::dryrun
