#include "window/frame/application.h"

#include <QApplication>
#include <algorithm>

#include "handoff/named_file.h"
#include "host/files/paths.h"
#include "workbench/document/design_commands.h"
#include "workbench/document/startup.h"

namespace torvane {

namespace {

constexpr int kSoon = 50;  // milliseconds
constexpr std::size_t kMostWaiting = 20;

}  // namespace

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
    : theme_(theme),
      viewer_(platform.launcher, platform.files, theme),
      station_({platform.store, platform.clock, platform.locale, platform.files, platform.messageDialog,
                platform.messageBox, platform.fileDialog, viewer_}),
      programDialog_(theme),
      binder_(station_),
      drops_([this](const std::string& path) { Open(path); }) {
  station_.programProgress = &programDialog_;
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, [this] { LetTick(); });
  opening_.setSingleShot(true);
  connect(&opening_, &QTimer::timeout, this, [this] { OpenWaiting(); });
  station_.timers.starts = [this] { WindClock(); };
  splash_ = std::make_unique<Splash>(desk());
  Form_Load(station_);
  live_ = std::make_unique<LiveWatch>(station_, binder_);
  main_ = std::make_unique<MainWindow>(desk());
  help_ = std::make_unique<HelpKeys>(desk(), *main_, guideFolder);
  dialogs_ = std::make_unique<DialogHost>(desk(), main_.get());
  binder_.BindAll(this, [this] {
    WindClock();
    if (station_.ended) QCoreApplication::quit();
  });
  binder_.Flush();
}

void WindowProgram::LetTick() {
  if (programDialog_.busy())
    timer_.start(kSoon);
  else
    binder_.Do([this] { station_.Tick(); });
}

void WindowProgram::WindClock() {
  const auto next = station_.timers.NextTick();
  if (!next) return timer_.stop();
  const auto wait = (*next - station_.platform.clock.Now()).count();
  timer_.start(static_cast<int>(std::clamp<long long>(wait, 0, 60'000)));
}

bool WindowProgram::Open(const std::string& path) {
  if (station_.ended || waiting_.size() == kMostWaiting) return false;
  if (std::find(waiting_.begin(), waiting_.end(), path) == waiting_.end()) waiting_.push_back(path);
  ComeForward();
  // A dropped file's questions come once the program that it was dragged from is free again.
  opening_.start(0);
  return true;
}

void WindowProgram::ComeForward() {
  QWidget* front = QApplication::activeModalWidget();
  if (front == nullptr) front = main_.get();
  if (!main_->isVisible()) return;
  main_->setWindowState(main_->windowState() & ~Qt::WindowMinimized);
  front->raise();
  front->activateWindow();
  QApplication::alert(front);
}

// While the start guard stands, a design would be opened without its figures.
bool WindowProgram::MayOpen() const {
  return station_.recovery.offered && station_.StartGuardPassed() && !binder_.busy() &&
         QApplication::activeModalWidget() == nullptr && QApplication::activePopupWidget() == nullptr;
}

void WindowProgram::OpenWaiting() {
  if (station_.ended || waiting_.empty()) return;
  if (!MayOpen()) return opening_.start(kSoon);
  const std::string named = waiting_.front();
  waiting_.pop_front();
  opening_.start(0);
  if (const auto path = StationPath(named))
    binder_.Do([&] { OpenNamedFile(station_, path.value(), dryRun); });
  else
    TellRefusedName(station_.platform.messageBox, path.reason());
}

}  // namespace torvane
