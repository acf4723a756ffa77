// Plays a program on the machine as a film: forwards, at a speed of one's choice, waiting where the program
// waits. Without a program the machine can be moved by hand.
#pragma once

#include <array>
#include <deque>
#include <memory>

#include "executor/player/course.h"
#include "executor/program/reader.h"
#include "executor/proof/cover_count.h"

namespace torvane::executor {

enum class RunState : std::uint8_t {
  Empty,     // no program
  Ready,     // nothing has run yet
  Running,   // also without end, at the end of a heat gun program
  Paused,    // by the operator
  Waiting,   // for the button
  Stopped,   // by the operator, for good
  Finished,  // the program has come to its end
  Manual,    // no program: the operator moves the machine
};

enum class Axis : std::uint8_t { Carriage, Mandrel, Head, Rotation };

// What a step of the operator's goes by. A stage outside the layers counts as one.
enum class Stride : std::uint8_t { Line, Pass, Layer };

// The machine that is moved by hand. Lengths are inches, as in its settings, whatever unit it is shown in.
struct ManualSetup {
  double homeZ = 0, homeY = 0;
  double travel = 0;         // from home on; 0 unknown, nothing is held back then
  double carriageSpeed = 1;  // inches a second
  bool fourAxes = false;
  bool millimetres = false;  // what the operator reads and moves by
};

class Player {
 public:
  // At or above this speed the rest is played in one go, past the waits.
  static constexpr double kToTheEnd = 1e9;

  void Load(std::shared_ptr<const Program> program);
  // With its course, which was followed before, and without covers.
  void Load(std::shared_ptr<const Program> program, Course course);
  void Load(std::shared_ptr<const Program> program, std::shared_ptr<const Course> course);
  // The covers of the present course: with them a seek within a long layer takes no longer than elsewhere.
  void Use(std::shared_ptr<const std::vector<CoverPoint>> covers) { covers_ = std::move(covers); }
  void BeginManual(const ManualSetup& setup);

  // Starts, goes on after a pause, or starts anew after the end.
  void Run();
  void Pause();
  // Ends the run. A machine that is moved by hand halts where it is.
  void Stop();
  void PressButton();
  void SetSpeed(double speed) { speed_ = speed; }
  double Speed() const { return speed_; }

  // Moves an axis by the unit that is shown, or by degrees, as soon as what was asked for before is done, no
  // further than the carriage's travel goes. Only of a machine that is moved by hand.
  void Jog(Axis axis, double by);
  // To the limit switches.
  void Home();

  // Lets that much time go by for the operator: `speed` times as much for the machine. At the end speed one
  // call plays a part of the rest, some thousand lines; call it again while the state is Running.
  void Advance(double seconds);

  // Takes the run to a moment, forwards or back, in a time that does not grow with the program: everything is
  // as if it had been played up to there. A run stays paused or runs on as it was; one that is over stands
  // paused there. Behind a wait, as long as no time has gone by, it stands at the wait. What lies beyond an
  // end goes to the end. Nothing without a program.
  void SeekTime(double seconds);
  // To the beginning of that line's statement, or of the next one that is run; up to 0 to the very beginning.
  void SeekLine(int line);
  void SeekEnd();
  // One line, pass or layer on, or back: first to the beginning of the one in play, then to the one before.
  // Stepped line by line it goes past a wait.
  void Step(Stride stride, bool on);

  RunState State() const { return state_; }
  const Program* program() const { return program_.get(); }
  const Course& course() const { return *course_; }
  const Screen& screen() const { return now_.screen; }
  // The statement in play; 0 before the first.
  int LineNow() const { return now_.line; }
  double Elapsed() const { return now_.elapsed + played_; }
  double Remaining() const;
  // The wait that the run has not come to yet, or stands at; nothing where there is none.
  const ButtonWait* NextWait() const;

  const Position& At() const { return at_; }
  // Where the statement in play takes the carriage, and how it turns the mandrel.
  double TargetZ() const { return now_.targetZ; }
  double Rpm() const { return now_.rpm; }
  bool Moving() const { return segment_ < motion_.count; }
  bool EndlessNow() const { return endless_; }
  // Jogs that are still to be made, the one under way included.
  std::size_t JogsLeft() const { return jogs_.size() + (Moving() ? 1 : 0); }

  // The layer wound last, or being wound: which one, all its bands, and up to where they are laid.
  std::size_t LayerIndex() const { return layer_; }  // from 1; 0: none yet
  const Layer* LayerShown() const { return layer_ == 0 ? nullptr : &course_->wound[layer_ - 1]; }
  const LayerPlace* PlaceShown() const;
  Laid LaidSoFar() const { return laid_; }
  const CoverCount& Cover() const { return cover_; }
  // Changes with each program and each start, for whoever keeps something of the run.
  int RunNumber() const { return runNumber_; }

 private:
  void Rewind();
  bool NextLine();  // false at the end
  void NextJog();   // there must be one
  void Obey();
  void Begin(const Motion& motion);
  void Swing();
  void Play(double& left);
  void EndSegment();
  void CountStrokes();
  void FollowBands();

  bool CanSeek() const { return program_ != nullptr; }
  // The statement in play has run for no time.
  bool AtBeginning() const { return endless_ || motion_.count == 0 || (segment_ == 0 && played_ == 0); }
  // Nothing behind the statement in play is run.
  bool AtLast() const;
  void GoTo(int line);
  void TakeUp(const Moment& moment);
  bool RunUpTo(int line);
  void Settle(bool runs);
  void TakeUpCover();
  int StandsAt(int line) const;
  int NextPlace(Stride stride) const;
  int PlaceBefore(Stride stride) const;
  int StatementBefore(int line) const;

  std::shared_ptr<const Program> program_;
  std::shared_ptr<const Course> course_ = std::make_shared<Course>();
  std::shared_ptr<const std::vector<CoverPoint>> covers_;
  ManualSetup manual_;
  Moment now_;  // at the end of the statement in play, but for its time: that grows segment by segment
  Line line_;
  RunState state_ = RunState::Empty;
  double speed_ = 1;
  Motion motion_;
  std::size_t segment_ = 0;
  double played_ = 0;  // of the segment, seconds
  Position at_;
  bool endless_ = false;
  std::array<double, 2> ends_{};  // of an endless run; the first is the next
  // The wait at which the run stands was sought while it ran: sought elsewhere, it runs on.
  bool ranToWait_ = false;
  std::deque<Statement> jogs_;
  Position jogged_;                          // where all jogs that were asked for lead
  std::size_t layer_ = 0;                    // of the course's, so many have begun
  std::size_t firstInPlay_ = 0, begun_ = 0;  // the strokes between belong to the statement in play
  std::size_t countedLayer_ = 0;
  Laid laid_;
  CoverCount cover_;
  int runNumber_ = 0;
};

}  // namespace torvane::executor
