#include "executor/session/session.h"

#include <QMetaObject>
#include <algorithm>
#include <filesystem>
#include <system_error>

#include "executor/program/number.h"
#include "executor/session/words.h"
#include "host/files/file_system.h"
#include "host/files/paths.h"

namespace torvane::dryrun {

using executor::Player;
using executor::RunState;

namespace {

constexpr int kFrame = 16;  // milliseconds
// A window that was held up for longer does not catch up.
constexpr double kLongestFrame = 0.1;
// On the way to the end this share of a frame is spent playing.
constexpr int kRushMilliseconds = 10;
// A longer program is read in the background.
constexpr std::uint64_t kBytesAtOnce = 400'000;
constexpr int kProgress = 100;  // milliseconds

bool IsLong(const std::filesystem::path& path) {
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  return !error && size > kBytesAtOnce;
}

}  // namespace

QString Stand::Figure(double value, int decimals) const {
  QString text = QString::fromStdString(executor::Fixed(value, decimals));
  return text.replace(QLatin1Char('.'), QLatin1Char(session.decimal()));
}

Session::Session(const executor::Limits& limits, char decimal) : limits_(limits), decimal_(decimal) {
  timer_.setInterval(kFrame);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, &Session::Tick);
  progressTimer_.setInterval(kProgress);
  connect(&progressTimer_, &QTimer::timeout, this, &Session::Worked);
}

Outcome Session::Open(const std::string& hostPath, const QString& name) {
  const std::filesystem::path path = SystemPath(hostPath);
  if (IsLong(path)) {
    if (const Outcome readable = ReadBlocks(path, [](std::string_view) { return false; }); !readable)
      return Refusal{readable.reason()};
    name_ = name;
    Start(Work::Opening, {hostPath, nullptr, nullptr}, Forget());
    emit Opened();
    Changed();
    return Done{};
  }
  auto text = ReadRegularFile(path);
  if (!text) return Refusal{text.reason()};
  name_ = name;
  Waste waste = Forget();
  const auto program = std::make_shared<const executor::Program>(text.value());
  Take({{}, program, std::make_shared<const executor::Course>(executor::FollowCourse(*program))});
  Start(Work::Proving, open_, std::move(waste));
  return Done{};
}

void Session::BeginManual(const executor::ManualSetup& setup) {
  name_.clear();
  Retire();
  Forget();
  player_.BeginManual(setup);
  emit Opened();
  Changed();
}

Session::Waste Session::Forget() {
  Waste waste = {open_.program, open_.course, proof_.proof};
  runsThen_ = false;
  player_.Load(nullptr, executor::Course());
  proof_ = Outcomes();
  open_ = Matter();
  return waste;
}

void Session::Take(const Matter& matter) {
  open_ = matter;
  player_.Load(open_.program, open_.course);
  if (runsThen_) player_.Run();
  emit Opened();
  Changed();
}

void Session::Cancel() {
  if (work_ == Work::None) return;
  const bool opening = work_ == Work::Opening;
  Retire();
  if (opening) {
    name_.clear();
    Forget();
    emit Opened();
    Changed();
  }
  emit Worked();
}

void Session::ProveAgain() {
  if (work_ == Work::None && open_.program != nullptr && proof() == nullptr) Start(Work::Proving, open_);
}

// A worker that is asked to stop takes a moment yet; nobody waits for it.
void Session::Retire() {
  ++job_;
  work_ = Work::None;
  progress_.reset();
  progressTimer_.stop();
  for (Worker& worker : workers_) worker.thread.request_stop();
  workers_.remove_if([](const Worker& worker) { return worker.done->load(); });
}

void Session::Start(Work work, const Matter& matter, Waste waste) {
  Retire();
  work_ = work;
  progress_ = std::make_shared<executor::Progress>();
  progressTimer_.start();
  const auto done = std::make_shared<std::atomic<bool>>(false);
  workers_.push_back({std::jthread([this, job = job_, matter, progress = progress_, done,
                                    waste = std::move(waste)](const std::stop_token& stop) mutable {
                        waste.clear();
                        Labour(stop, job, matter, progress);
                        done->store(true);
                      }),
                      done});
  emit Worked();
}

// Whoever comes back from another work than the present one is not heard.
void Session::Post(int job, std::function<void()> take) {
  QMetaObject::invokeMethod(
      this,
      [this, job, take = std::move(take)] {
        if (job == job_) take();
      },
      Qt::QueuedConnection);
}

void Session::Labour(const std::stop_token& stop, int job, Matter matter,
                     std::shared_ptr<executor::Progress> progress) {
  if (matter.program == nullptr) {
    auto text = ReadRegularFile(SystemPath(matter.file));
    if (!text) {
      Post(job, [this, reason = Words(text.reason())] {
        Cancel();
        emit Refused(reason);
      });
      return;
    }
    matter.program = std::make_shared<const executor::Program>(text.value());
    matter.course = std::make_shared<const executor::Course>(
        executor::FollowCourse(*matter.program, stop, progress.get()));
    if (stop.stop_requested()) return;
    progress = std::make_shared<executor::Progress>();
    Post(job, [this, matter, progress] {
      work_ = Work::Proving;
      progress_ = progress;
      Take(matter);
    });
  }
  const auto covers =
      std::make_shared<const std::vector<executor::CoverPoint>>(executor::CountCovers(*matter.course, stop));
  if (stop.stop_requested()) return;
  Post(job, [this, covers] { player_.Use(covers); });
  Outcomes outcomes;
  outcomes.proof = std::make_shared<const executor::Proof>(
      executor::Prove(matter.program->text(), limits_, stop, progress.get()));
  if (stop.stop_requested()) return;
  outcomes.remarks = executor::RemarksOf(*outcomes.proof);
  for (const executor::Remark& remark : outcomes.remarks) {
    if (stop.stop_requested()) return;
    outcomes.times.push_back(remark.line > 0 ? executor::SecondsAt(*matter.course, remark.line) : -1);
  }
  Post(job, [this, outcomes] {
    work_ = Work::None;
    progressTimer_.stop();
    proof_ = outcomes;
    emit Proven();
    emit Worked();
  });
}

void Session::Run() {
  runsThen_ = work_ == Work::Opening;
  player_.Run();
  Changed();
}

void Session::Pause() {
  runsThen_ = false;
  player_.Pause();
  Changed();
}

void Session::Stop() {
  runsThen_ = false;
  player_.Stop();
  Changed();
}

void Session::PressButton() {
  player_.PressButton();
  Changed();
}

void Session::SetSpeed(double speed) {
  player_.SetSpeed(speed);
  // On the way to the end nothing waits.
  if (speed >= Player::kToTheEnd) player_.PressButton();
  Changed();
}

void Session::SeekTime(double seconds) {
  player_.SeekTime(seconds);
  SoughtNow();
}

void Session::SeekLine(int line) {
  player_.SeekLine(line);
  SoughtNow();
}

void Session::SeekEnd() {
  player_.SeekEnd();
  SoughtNow();
}

void Session::Step(executor::Stride stride, bool on) {
  player_.Step(stride, on);
  SoughtNow();
}

void Session::SoughtNow() {
  Changed();
  emit Sought();
}

void Session::Jog(executor::Axis axis, double by) {
  player_.Jog(axis, by);
  Changed();
}

void Session::Home() {
  player_.Home();
  Changed();
}

void Session::Changed() {
  const bool runs =
      player_.State() == RunState::Running || (player_.State() == RunState::Manual && player_.JogsLeft() > 0);
  if (runs && !timer_.isActive()) {
    clock_.start();
    timer_.start();
  } else if (!runs) {
    timer_.stop();
  }
  emit Played();
}

void Session::Tick() {
  const double seconds = static_cast<double>(clock_.nsecsElapsed()) * 1e-9;
  clock_.start();
  Advance(std::min(seconds, kLongestFrame));
}

void Session::Advance(double seconds) {
  if (player_.Speed() < Player::kToTheEnd) {
    player_.Advance(seconds);
  } else {
    QElapsedTimer spent;
    spent.start();
    do player_.Advance(seconds);
    while (player_.State() == RunState::Running && spent.elapsed() < kRushMilliseconds);
  }
  Changed();
}

}  // namespace torvane::dryrun
