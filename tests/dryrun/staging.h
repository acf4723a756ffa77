// A dry run's window over a program, brought to a moment of the run.
#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <string>

#include "executor/window/dry_run_window.h"
#include "look/style.h"

namespace torvane::dryrun {

struct Staged {
  explicit Staged(bool dark = false)
      : theme(dark), session(executor::Limits()), window(theme, session, [this](QWidget*) { return asked; }) {
    QApplication::setStyle(new Style(theme));
    QApplication::setPalette(theme.Palette());
    QApplication::setFont(theme.Font(13));
  }

  const executor::Player& player() const { return session.player(); }

  // Opens without running on by the clock.
  void Open(const std::string& path) {
    window.Open(path);
    session.Pause();
  }
  void AwaitProof() {
    QElapsedTimer waited;
    waited.start();
    while (session.proof() == nullptr && waited.elapsed() < 20'000) QApplication::processEvents();
  }
  // Up to that second of the machine's time; what waits on the way is pressed.
  void RunTo(double seconds) {
    session.SetSpeed(1);
    session.Run();
    while (player().Elapsed() < seconds) {
      if (player().State() == executor::RunState::Waiting) session.PressButton();
      if (player().State() != executor::RunState::Running) break;
      session.Advance(std::min(10.0, seconds - player().Elapsed()));
    }
  }
  void RunToWait() {
    session.SetSpeed(1);
    while (player().State() == executor::RunState::Running) session.Advance(10);
  }

  std::string asked;
  Theme theme;
  Session session;
  DryRunWindow window;
};

}  // namespace torvane::dryrun
