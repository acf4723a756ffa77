// The dry run as a program with a window.
#pragma once

#include <string>

#include "executor/player/request.h"
#include "executor/window/dry_run_window.h"

namespace torvane::dryrun {

struct Start {
  executor::Request request;
  std::string store;          // an INI file; empty for the user's own store
  std::string stationFolder;  // a path of the computer
};

// Whether there is a screen to show a window on.
bool HasScreen();

// Brings the window to what the command line asks for.
void Begin(const Start& start, const SettingsStore& store, Session& session, DryRunWindow& window);

// Shows the window until it is closed. The program's exit status.
int ShowWindow(int& argc, char** argv, const Start& start);

}  // namespace torvane::dryrun
