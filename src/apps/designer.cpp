// Torvane Designer, the design station's window. TORVANE_HOME names another station folder than the usual
// one, and TORVANE_STORE a settings file in the place of the user's store.
#include <CLI/CLI.hpp>
#include <QApplication>
#include <cstdio>

#include "host/files/environment.h"
#include "host/files/paths.h"
#include "host/files/station_folder.h"
#include "host/store/default_store.h"
#include "host/system/command_line.h"
#include "look/style.h"
#include "text/code_page.h"
#include "window/door/handover.h"
#include "window/frame/appearance.h"
#include "window/frame/application.h"

namespace torvane {

namespace {

enum ExitStatus { kDone = 0, kFailed = 1, kUsage = 2 };

// The folders of the running program and of the station, as paths of the computer.
struct Folders {
  std::string program, station;
};

Result<Folders> FoldersNow() {
  const Result<std::string> program = RunningProgramFolder();
  if (!program) return Refusal{program.reason()};
  const Result<std::string> station = StationFolder(EnvironmentText("TORVANE_HOME"), program.value());
  if (!station) return Refusal{station.reason()};
  return Folders{program.value(), station.value()};
}

Result<HostFiles> ReadyStationFolder(const Folders& folders) {
  const Outcome ready = PrepareStationFolder(folders.station, folders.program);
  if (!ready) return Refusal{ready.reason()};
  return HostFiles::At(folders.station, SampleFolder(folders.program));
}

// The station that runs in the place's folder takes the file; for that no screen is needed. Where none does
// the place is `taken` for this start, so that files which are opened together come to one station.
bool IsHandedOver(int& argc, char** argv, const CallingPlace& place, const std::string& file,
                  std::unique_ptr<FileLock>& taken) {
  const QCoreApplication caller(argc, argv);
  if (file.empty()) taken = TakePlace(place);
  return !file.empty() && HandOver(place, file, taken);
}

// `file` is empty for a start without one.
int Run(int& argc, char** argv, const std::string& file) {
  const Result<Folders> folders = FoldersNow();
  const CallingPlace place = folders ? CallingPlaceOf(folders.value().station) : CallingPlace{};
  std::unique_ptr<FileLock> taken;
  if (IsHandedOver(argc, argv, place, file, taken)) {
    std::printf("Handed to the station that runs in %s: %s\n", folders.value().station.c_str(), file.c_str());
    return kDone;
  }

  QApplication application(argc, argv);
  QApplication::setDesktopFileName(QStringLiteral("torvane-designer"));
  QApplication::setQuitOnLastWindowClosed(false);
  const std::string storePath = EnvironmentText("TORVANE_STORE");
  std::unique_ptr<SettingsStore> store = StoreAt(storePath);
  if (const std::string note = MissingStoreNote(storePath); !note.empty())
    std::fprintf(stderr, "Torvane_Designer: %s\n", note.c_str());
  Theme theme(IsDark(StoredAppearance(*store)));
  Dress(theme);

  const Result<HostFiles> files =
      folders ? ReadyStationFolder(folders.value()) : Result<HostFiles>(Refusal{folders.reason()});
  if (!files) {
    QtMessageBox(theme).Show("Torvane Designer", "The station's folder cannot be used: " + files.reason(),
                             BoxIcon::Stop);
    return kFailed;
  }
  WindowComputer computer(files.value(), std::move(store), theme);
  WindowProgram program(computer.AsPlatform(), theme);
  if (const auto dryRun = StationPath(folders.value().program + "/Torvane_Executor.exe"))
    program.dryRun = dryRun.value();
  if (folders) program.guideFolder = QString::fromStdString(GuideFolder(folders.value().program));
  const Doorkeeper doorkeeper(place, std::move(taken),
                              [&program](const std::string& path) { return program.Open(path); });
  if (!file.empty()) program.Open(file);
  return QApplication::exec();
}

int Main(int argc, char** argv) {
  CLI::App app("The design station of a filament-winding machine", "Torvane_Designer");
  app.allow_windows_style_options(false);  // a path may begin with a slash there too
  app.set_version_flag("--version", "Torvane_Designer " TORVANE_VERSION, "Print the version and leave");
  std::string file;
  const CLI::Validator named([](std::string& name) { return std::string(name.empty() ? "is empty" : ""); },
                             "");
  app.add_option("FILE", file,
                 "A design (.t2d, .t4d) to open, or a program (.T2G, .T4G) to show in the dry run. A station "
                 "that runs in the same folder already opens it")
      ->check(named);
  std::vector<std::string> words = ProgramArguments(argc, argv);
  try {
    std::reverse(words.begin(), words.end());  // as this parser takes them
    app.parse(words);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kUsage;
  }
  if (file.empty()) return Run(argc, argv, file);
  const Result<std::string> full = AbsolutePath(file);
  if (full) return Run(argc, argv, full.value());
  std::fprintf(stderr, "Torvane_Designer: %s: %s\n", file.c_str(), ToUtf8(full.reason()).c_str());
  return kFailed;
}

}  // namespace

}  // namespace torvane

int main(int argc, char** argv) {
  try {
    return torvane::Main(argc, argv);
  } catch (...) {
    return torvane::kFailed;
  }
}
