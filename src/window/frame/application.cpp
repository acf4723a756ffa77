#include "window/frame/application.h"

#include <QCoreApplication>
#include <algorithm>

#include "workbench/document/design_commands.h"
#include "workbench/document/startup.h"

namespace torvane {

WindowComputer::WindowComputer(HostFiles files_, std::unique_ptr<SettingsStore> store_, const Theme& theme)
    : files(std::move(files_)),
      store(std::move(store_)),
      messageDialog(theme),
      messageBox(theme),
      fileDialog(messageBox) {
  files.tell = [this](const std::string& text) { messageBox.Show("Torvane Designer", text, BoxIcon::None); };
  MakeStationFolders(files, [this](const std::string& folder, const std::string& reason) {
    messageBox.Show("Torvane Designer", folder + ": " + reason, BoxIcon::Stop);
  });
}

Platform WindowComputer::AsPlatform() {
  return {*store, clock, locale, files, messageDialog, messageBox, fileDialog, launcher};
}

WindowProgram::WindowProgram(const Platform& platform, Theme& theme)
    : theme_(theme), station_(platform), programDialog_(theme), binder_(station_) {
  station_.programProgress = &programDialog_;
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, [this] { LetTick(); });
  station_.timerStarts = [this] { WindClock(); };
  splash_ = std::make_unique<Splash>(desk());
  Form_Load(station_);
  main_ = std::make_unique<MainWindow>(desk());
  dialogs_ = std::make_unique<DialogHost>(desk(), main_.get());
  binder_.BindAll(this, [this] {
    WindClock();
    if (station_.ended) QCoreApplication::quit();
  });
  binder_.Flush();
}

void WindowProgram::LetTick() {
  constexpr int kSoon = 50;  // milliseconds
  if (programDialog_.busy())
    timer_.start(kSoon);
  else
    binder_.Do([this] { station_.Tick(); });
}

void WindowProgram::WindClock() {
  const auto next = station_.NextTick();
  if (!next) return timer_.stop();
  const auto wait = (*next - station_.platform.clock.Now()).count();
  timer_.start(static_cast<int>(std::clamp<long long>(wait, 0, 60'000)));
}

}  // namespace torvane
