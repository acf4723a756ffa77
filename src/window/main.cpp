// Torvane Designer, the design station's window. It takes no arguments. For tests TORVANE_HOME names another
// station folder than the program's, and TORVANE_STORE a settings file in the place of the user's store.
#include <QApplication>
#include <cstdio>

#include "host/default_store.h"
#include "host/ini_store.h"
#include "host/paths.h"
#include "look/style.h"
#include "window/application.h"

int main(int argc, char** argv) {
  using namespace torvane;
  if (argc > 1) {
    std::fprintf(stderr, "Torvane_Designer takes no arguments.\n");
    return 2;
  }
  QApplication application(argc, argv);
  QApplication::setApplicationDisplayName(QStringLiteral("Torvane Designer"));
  QApplication::setQuitOnLastWindowClosed(false);
  Theme theme(QApplication::palette().color(QPalette::Window).lightness() < 128);
  QApplication::setStyle(new Style(theme));
  QApplication::setPalette(theme.Palette());
  QApplication::setFont(theme.Font(13));

  const std::string home = qEnvironmentVariable("TORVANE_HOME").toStdString();
  Result<std::string> folder = home.empty() ? RunningProgramFolder() : Result<std::string>(home);
  Result<HostFiles> files = folder ? HostFiles::At(folder.value()) : Refusal{folder.reason()};
  if (!files) {
    QtMessageBox(theme).Show("Torvane Designer", "The station's folder cannot be used: " + files.reason(),
                             BoxIcon::Stop);
    return 1;
  }
  const std::string store = qEnvironmentVariable("TORVANE_STORE").toStdString();
  WindowComputer computer(files.value(), store.empty() ? DefaultStore() : std::make_unique<IniStore>(store),
                          theme);
  WindowProgram program(computer.AsPlatform(), theme);
  return QApplication::exec();
}
