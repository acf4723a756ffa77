#include <cstdio>

#include "cli/command/commands.h"
#include "gcode/session.h"
#include "host/files/file_system.h"
#include "host/files/paths.h"
#include "restart/restart.h"
#include "text/code_page.h"
#include "text/text.h"

namespace torvane {

int RunRestart(Computer& computer, const RestartOptions& options) {
  const Result<std::string> program = ReadRegularFile(SystemPath(options.program));
  if (!program) throw UsageError{Because(options.program, program.reason())};
  const Result<std::string> original = AbsoluteStationPath(options.program);
  if (!original) throw UsageError{Because(options.program, original.reason())};
  const std::string name = BehindLastBackslash(original.value());
  const Result<std::string> restart = RestartProgram(program.value(), name, {options.layer, options.pass});
  if (!restart) throw UsageError{options.program + ": " + restart.reason()};

  computer.MakeStationFolders();
  OverlayStore settings = computer.RunSettings();
  Files& files = computer.AsPlatform(settings).files;
  const Result<std::string> out =
      options.out.empty() ? files.ProgramFolder() + std::string(kProgramFolder) + RestartName(name)
                          : AbsoluteStationPath(options.out);
  if (!out) throw UsageError{Because(options.out, out.reason())};
  if (const Outcome written = files.WriteWhole(out.value(), {restart.value()}); !written) {
    Complain(ToUtf8(written.reason()));
    return kFailed;
  }
  const Result<std::string> shown = HostPath(out.value());
  std::printf("%s\n", shown ? shown.value().c_str() : ToUtf8(out.value()).c_str());
  return kDone;
}

}  // namespace torvane
