// Torvane Designer, the design station's window. It takes no arguments. TORVANE_HOME names another station
// folder than the usual one, and TORVANE_STORE a settings file in the place of the user's store.
#include <QApplication>
#include <cstdio>

#include "host/files/paths.h"
#include "host/files/station_folder.h"
#include "host/store/default_store.h"
#include "look/style.h"
#include "window/frame/appearance.h"
#include "window/frame/application.h"

namespace torvane {

namespace {

Result<HostFiles> ReadyStationFolder() {
  const Result<std::string> program = RunningProgramFolder();
  if (!program) return Refusal{program.reason()};
  const Result<std::string> folder =
      StationFolder(qEnvironmentVariable("TORVANE_HOME").toStdString(), program.value());
  if (!folder) return Refusal{folder.reason()};
  const Outcome ready = PrepareStationFolder(folder.value(), program.value());
  if (!ready) return Refusal{ready.reason()};
  return HostFiles::At(folder.value());
}

}  // namespace

}  // namespace torvane

int main(int argc, char** argv) {
  using namespace torvane;
  if (argc > 1) {
    std::fprintf(stderr, "Torvane_Designer takes no arguments.\n");
    return 2;
  }
  QApplication application(argc, argv);
  QApplication::setDesktopFileName(QStringLiteral("torvane-designer"));
  QApplication::setQuitOnLastWindowClosed(false);
  const std::string storePath = qEnvironmentVariable("TORVANE_STORE").toStdString();
  std::unique_ptr<SettingsStore> store = StoreAt(storePath);
  if (const std::string note = MissingStoreNote(storePath); !note.empty())
    std::fprintf(stderr, "Torvane_Designer: %s\n", note.c_str());
  Theme theme(IsDark(StoredAppearance(*store)));
  Dress(theme);

  const Result<HostFiles> files = ReadyStationFolder();
  if (!files) {
    QtMessageBox(theme).Show("Torvane Designer", "The station's folder cannot be used: " + files.reason(),
                             BoxIcon::Stop);
    return 1;
  }
  WindowComputer computer(files.value(), std::move(store), theme);
  WindowProgram program(computer.AsPlatform(), theme);
  return QApplication::exec();
}
