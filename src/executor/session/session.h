// A program in the player, its proof in the background, and the clock that drives them.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <memory>
#include <string>
#include <thread>

#include "executor/player/player.h"
#include "executor/proof/remarks.h"
#include "look/theme.h"
#include "platform/result.h"

namespace torvane::dryrun {

class Session : public QObject {
  Q_OBJECT

 public:
  explicit Session(const executor::Limits& limits);

  // Reads the program and stands at its beginning; of a very long one as soon as it has been followed in the
  // background. `name` is what the window calls it. A refusal leaves what was open.
  Outcome Open(const std::string& hostPath, const QString& name);
  void BeginManual(const executor::ManualSetup& setup);

  const executor::Limits& limits() const { return limits_; }
  const executor::Player& player() const { return player_; }
  const QString& name() const { return name_; }
  // Nothing while the proof is under way.
  const executor::Proof* proof() const { return proof_.get(); }
  const std::vector<executor::Remark>& remarks() const { return remarks_; }

  // What the operator does.
  void Run();
  void Pause();
  void Stop();
  void PressButton();
  void SetSpeed(double speed);
  void Jog(executor::Axis axis, double by);
  void Home();

  // Lets time go by for the operator; the timer calls it.
  void Advance(double seconds);

 signals:
  void Opened();  // another program, or none
  void Played();  // time has gone by, or the state has changed
  void Proven();

 private:
  void Prove();
  void TakeCourse(executor::Course course);
  void Tick();
  void Changed();

  executor::Limits limits_;
  executor::Player player_;
  QString name_;
  std::shared_ptr<const executor::Program> program_;
  // The course of the program is being followed in the background; whether it is to run then.
  bool opening_ = false, runsThen_ = false;
  std::shared_ptr<const executor::Proof> proof_;
  std::vector<executor::Remark> remarks_;
  QTimer timer_;
  QElapsedTimer clock_;
  // The last member: it ends before what it uses does.
  std::jthread prover_;
};

// What every part of the window is given.
struct Stand {
  const Theme& theme;
  Session& session;

  const executor::Player& player() const { return session.player(); }
};

}  // namespace torvane::dryrun
