// A program in the player, its proof in the background, and the clock that drives them.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "executor/player/player.h"
#include "executor/proof/remarks.h"
#include "look/theme.h"
#include "platform/result.h"

namespace torvane::dryrun {

class Session : public QObject {
  Q_OBJECT

 public:
  // What is done in the background for the program, one behind the other.
  enum class Work : std::uint8_t { None, Opening, Proving };

  // `decimal` is the sign of the figures that the window shows; what the program says stays as it stands.
  explicit Session(const executor::Limits& limits, char decimal = '.');

  // Reads the program and stands at its beginning; of a long one as soon as it has been read and followed in
  // the background. `name` is what the window calls it. A refusal leaves what was open.
  Outcome Open(const std::string& hostPath, const QString& name);
  void BeginManual(const executor::ManualSetup& setup);

  Work work() const { return work_; }
  // Of the work, 0 to 1.
  double WorkShare() const { return progress_ == nullptr ? 0 : progress_->share.load(); }
  // Gives the work up: nothing is open then, or the program stays unproven.
  void Cancel();
  // Proves the program once more where that was given up.
  void ProveAgain();

  const executor::Limits& limits() const { return limits_; }
  char decimal() const { return decimal_; }
  const executor::Player& player() const { return player_; }
  const QString& name() const { return name_; }
  // Nothing before the proof is through.
  const executor::Proof* proof() const { return proof_.proof.get(); }
  const std::vector<executor::Remark>& remarks() const { return proof_.remarks; }
  // When the line of each remark begins, in seconds; below 0 for one that has no line.
  const std::vector<double>& remarkTimes() const { return proof_.times; }

  // What the operator does.
  void Run();
  void Pause();
  void Stop();
  void PressButton();
  void SetSpeed(double speed);
  void SeekTime(double seconds);
  void SeekLine(int line);
  void SeekEnd();
  void Step(executor::Stride stride, bool on);
  void Jog(executor::Axis axis, double by);
  void Home();

  // Lets time go by for the operator; the timer calls it.
  void Advance(double seconds);

 signals:
  void Opened();  // another program, or none
  void Played();  // time has gone by, or the state has changed
  void Sought();  // behind Played: the run has been taken to another moment
  void Proven();
  void Worked();                        // the work in the background has come on, or to its end
  void Refused(const QString& reason);  // a long program could not be read after all

 private:
  struct Outcomes {
    std::shared_ptr<const executor::Proof> proof;
    std::vector<executor::Remark> remarks;
    std::vector<double> times;
  };
  struct Worker {
    std::jthread thread;
    std::shared_ptr<std::atomic<bool>> done;
  };
  // What the work is done on: a file that is still to be read, or what came of it.
  struct Matter {
    std::string file;
    std::shared_ptr<const executor::Program> program;
    std::shared_ptr<const executor::Course> course;
  };

  using Waste = std::vector<std::shared_ptr<const void>>;

  // The waste is let go of in the background: it may be large.
  void Start(Work work, const Matter& matter, Waste waste = {});
  void Retire();
  void Labour(const std::stop_token& stop, int job, Matter matter,
              std::shared_ptr<executor::Progress> progress);
  void Post(int job, std::function<void()> take);
  void Take(const Matter& matter);
  Waste Forget();
  void Tick();
  void SoughtNow();
  void Changed();

  executor::Limits limits_;
  char decimal_;
  executor::Player player_;
  QString name_;
  Matter open_;
  Work work_ = Work::None;
  bool runsThen_ = false;  // as soon as it is open
  Outcomes proof_;
  QTimer timer_, progressTimer_;
  QElapsedTimer clock_;
  std::shared_ptr<executor::Progress> progress_;
  int job_ = 0;
  // The last member: they end before what they use does.
  std::list<Worker> workers_;
};

// What every part of the window is given.
struct Stand {
  const Theme& theme;
  Session& session;

  const executor::Player& player() const { return session.player(); }
  // With that many decimals and the operator's sign.
  QString Figure(double value, int decimals) const;
};

}  // namespace torvane::dryrun
