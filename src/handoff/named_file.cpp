#include "handoff/named_file.h"

#include <algorithm>

#include "text/text.h"
#include "workbench/document/design_commands.h"

namespace torvane {

namespace {

bool IsProgram(const std::string& path) {
  const std::string upper = UpperCase(path);
  return upper.ends_with(".T2G") || upper.ends_with(".T4G");
}

}  // namespace

void OpenNamedFile(Station& station, const std::string& path, const std::string& dryRun) {
  const Platform& platform = station.platform;
  const bool program = IsProgram(path);
  // A program may be larger than any design; the dry run says what it cannot read of one.
  const auto read = program && platform.files.Exists(path) ? Result<std::string>("")
                                                           : platform.files.ReadAtMost(path, kLargestText);
  if (!read) {
    platform.messageBox.Show("Torvane Designer", "This file cannot be opened:\r\n" + path, BoxIcon::Stop,
                             read.reason());
    return;
  }
  if (!program) return OpenNamedDesign(station, path);
  const Outcome started = platform.launcher.Start(dryRun, path, platform.files.ProgramFolder());
  if (!started)
    platform.messageBox.Show("Error", "The dry run of this program cannot be started:\r\n" + path,
                             BoxIcon::Stop, started.reason());
}

}  // namespace torvane
