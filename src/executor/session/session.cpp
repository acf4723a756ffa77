#include "executor/session/session.h"

#include <QMetaObject>
#include <algorithm>

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
// A longer program keeps the window waiting while it is followed.
constexpr int kLinesAtOnce = 200'000;

}  // namespace

Session::Session(const executor::Limits& limits) : limits_(limits) {
  timer_.setInterval(kFrame);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, &Session::Tick);
}

Outcome Session::Open(const std::string& hostPath, const QString& name) {
  auto text = ReadRegularFile(SystemPath(hostPath));
  if (!text) return Refusal{text.reason()};
  program_ = std::make_shared<const executor::Program>(text.value());
  name_ = name;
  opening_ = program_->Lines() > kLinesAtOnce;
  runsThen_ = false;
  player_.Load(opening_ ? nullptr : program_);
  Prove();
  emit Opened();
  Changed();
  return Done{};
}

void Session::BeginManual(const executor::ManualSetup& setup) {
  name_.clear();
  opening_ = false;
  program_.reset();
  proof_.reset();
  remarks_.clear();
  player_.BeginManual(setup);
  emit Opened();
  Changed();
}

// Whoever comes back with course or proof of another program than the present one is not heard.
void Session::Prove() {
  proof_.reset();
  remarks_.clear();
  prover_ = std::jthread(
      [this, program = program_, limits = limits_, follow = opening_](const std::stop_token& stop) {
        if (follow) {
          const auto course = std::make_shared<executor::Course>(executor::FollowCourse(*program, stop));
          if (stop.stop_requested()) return;
          QMetaObject::invokeMethod(
              this,
              [this, program, course] {
                if (program == program_) TakeCourse(std::move(*course));
              },
              Qt::QueuedConnection);
        }
        auto proof = std::make_shared<const executor::Proof>(executor::Prove(program->text(), limits, stop));
        if (stop.stop_requested()) return;
        QMetaObject::invokeMethod(
            this,
            [this, program, proof] {
              if (program != program_) return;
              proof_ = proof;
              remarks_ = executor::RemarksOf(*proof_);
              emit Proven();
            },
            Qt::QueuedConnection);
      });
}

void Session::TakeCourse(executor::Course course) {
  opening_ = false;
  player_.Load(program_, std::move(course));
  if (runsThen_) player_.Run();
  emit Opened();
  Changed();
}

void Session::Run() {
  runsThen_ = opening_;
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
