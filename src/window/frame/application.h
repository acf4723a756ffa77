// The program: the real computer, the station on it, and the windows over the station.
#pragma once

#include <QObject>
#include <QTimer>
#include <deque>
#include <memory>

#include "handoff/launch.h"
#include "host/files/host_files.h"
#include "host/system/host_clock.h"
#include "host/system/host_launcher.h"
#include "host/system/host_locale.h"
#include "window/desk/binder.h"
#include "window/desk/live_watch.h"
#include "window/dialog/dialogs.h"
#include "window/dialog/program_dialog.h"
#include "window/dialog/station_dialog.h"
#include "window/door/file_drops.h"
#include "window/frame/main_window.h"
#include "window/frame/splash.h"
#include "window/reader/help_keys.h"
#include "window/reader/program_window.h"

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

  // Opens a file of the computer that was named on the command line, dropped on a window or handed over, as
  // soon as the start is over and no question, menu or other doing is on its way; until then it waits. The
  // window comes to the front. False if it is not taken: the station has ended, or too many wait.
  bool Open(const std::string& path);
  // What shows a program that is to be opened, as a station path. Without one it is looked for where Build
  // finds the executor.
  std::string dryRun = "Torvane_Executor.exe";
  // Where the operator's guide lies, as a path of the computer.
  QString guideFolder;

  Station& station() { return station_; }
  Binder& binder() { return binder_; }
  Desk desk() { return {station_, binder_, theme_, nullptr, live_.get()}; }
  MainWindow& mainWindow() { return *main_; }
  const DialogHost& dialogs() const { return *dialogs_; }
  const HelpKeys& help() const { return *help_; }
  const ViewingLauncher& viewer() const { return viewer_; }

 private:
  void WindClock();
  void LetTick();
  void ComeForward();
  bool MayOpen() const;
  void OpenWaiting();

  Theme& theme_;
  ViewingLauncher viewer_;
  WholeStation station_;
  ProgramDialog programDialog_;
  Binder binder_;
  QTimer timer_, opening_;
  std::deque<std::string> waiting_;
  FileDrops drops_;
  std::unique_ptr<LiveWatch> live_;
  std::unique_ptr<Splash> splash_;
  std::unique_ptr<MainWindow> main_;
  std::unique_ptr<HelpKeys> help_;
  std::unique_ptr<DialogHost> dialogs_;
};

}  // namespace torvane
