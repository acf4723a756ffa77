// The program: the real computer, the station on it, and the windows over the station.
#pragma once

#include <QObject>
#include <QTimer>
#include <memory>

#include "handoff/launch.h"
#include "host/files/host_files.h"
#include "host/system/host_clock.h"
#include "host/system/host_launcher.h"
#include "host/system/host_locale.h"
#include "window/desk/binder.h"
#include "window/dialog/dialogs.h"
#include "window/dialog/program_dialog.h"
#include "window/dialog/station_dialog.h"
#include "window/frame/main_window.h"
#include "window/frame/splash.h"

namespace torvane {

// The real computer with the window's dialogs. `files` is the station's folder.
struct WindowComputer {
  WindowComputer(HostFiles files, std::unique_ptr<SettingsStore> store, const Theme& theme);
  Platform AsPlatform();

  HostFiles files;
  std::unique_ptr<SettingsStore> store;
  HostClock clock;
  HostLocale locale;
  HostLauncher launcher;
  QtMessageDialog messageDialog;
  QtMessageBox messageBox;
  QtFileDialog fileDialog;
};

class WindowProgram : public QObject {
 public:
  // Starts the station; its windows show as it says.
  WindowProgram(const Platform& platform, Theme& theme);

  Station& station() { return station_; }
  Binder& binder() { return binder_; }
  Desk desk() { return {station_, binder_, theme_}; }
  MainWindow& mainWindow() { return *main_; }
  const DialogHost& dialogs() const { return *dialogs_; }

 private:
  void WindClock();
  void LetTick();

  Theme& theme_;
  WholeStation station_;
  ProgramDialog programDialog_;
  Binder binder_;
  QTimer timer_;
  std::unique_ptr<Splash> splash_;
  std::unique_ptr<MainWindow> main_;
  std::unique_ptr<DialogHost> dialogs_;
};

}  // namespace torvane
