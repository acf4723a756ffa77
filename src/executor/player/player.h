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

// What the display statements have put on the machine's screen. Views into the program.
struct Screen {
  std::string_view stage, message;
  double layer = 0, layers = 0, pass = 0, passes = 0;  // 0: not shown
  std::string_view rpm, carriageSpeed, windingAngle, method, minutesLeft;
};

enum class Axis : std::uint8_t { Carriage, Mandrel, Head, Rotation };

// The machine that is moved by hand. Lengths are inches, as in its settings.
struct ManualSetup {
  double homeZ = 0, homeY = 0;
  double travel = 0;         // from home on; 0 unknown, nothing is held back then
  double carriageSpeed = 1;  // inches a second
  bool fourAxes = false;
};

class Player {
 public:
  // At or above this speed the rest is played in one go, past the waits.
  static constexpr double kToTheEnd = 1e9;

  void Load(std::shared_ptr<const Program> program);
  // With its course, which was followed before.
  void Load(std::shared_ptr<const Program> program, Course course);
  void BeginManual(const ManualSetup& setup);

  // Starts, goes on after a pause, or starts anew after the end.
  void Run();
  void Pause();
  // Ends the run. A machine that is moved by hand halts where it is.
  void Stop();
  void PressButton();
  void SetSpeed(double speed) { speed_ = speed; }
  double Speed() const { return speed_; }

  // Moves an axis by inches or degrees as soon as what was asked for before is done, no further than the
  // carriage's travel goes. Only of a machine that is moved by hand.
  void Jog(Axis axis, double by);
  // To the limit switches.
  void Home();

  // Lets that much time go by for the operator: `speed` times as much for the machine. At the end speed one
  // call plays a part of the rest, some thousand lines; call it again while the state is Running.
  void Advance(double seconds);

  RunState State() const { return state_; }
  const Program* program() const { return program_.get(); }
  const Course& course() const { return course_; }
  const Screen& screen() const { return screen_; }
  // The statement in play; 0 before the first.
  int LineNow() const { return lineNow_; }
  double Elapsed() const { return elapsed_; }
  double Remaining() const;
  // The wait that the run has not come to yet, or stands at; nothing where there is none.
  const ButtonWait* NextWait() const;

  const Position& At() const { return at_; }
  // Where the statement in play takes the carriage, and how it turns the mandrel.
  double TargetZ() const { return targetZ_; }
  double Rpm() const { return rpm_; }
  bool Moving() const { return segment_ < motion_.count; }
  bool EndlessNow() const { return endless_; }
  // Jogs that are still to be made, the one under way included.
  std::size_t JogsLeft() const { return jogs_.size() + (Moving() ? 1 : 0); }

  // The layer wound last, or being wound: which one, its bands, and up to where they are laid.
  std::size_t LayerIndex() const { return winding_.layers().size(); }  // from 1; 0: none yet
  const Layer* LayerShown() const { return winding_.layers().empty() ? nullptr : &winding_.layers().back(); }
  const LayerPlace* PlaceShown() const;
  Laid LaidSoFar() const { return laid_; }
  const CoverCount& Cover() const { return cover_; }
  // Changes with each program and each start, for whoever keeps something of the run.
  int RunNumber() const { return runNumber_; }

 private:
  void Rewind();
  bool NextLine();  // false at the end
  void NextJog();   // there must be one
  void Begin(const Statement& statement);
  void TakeDisplay(const Display& display);
  void Swing();
  void Play(double& left);
  void FollowBands();

  std::shared_ptr<const Program> program_;
  Course course_;
  ManualSetup manual_;
  Reader reader_{std::string_view()};
  Line line_;
  Machine machine_;
  Winding winding_;
  Screen screen_;
  RunState state_ = RunState::Empty;
  double speed_ = 1;
  Motion motion_;
  std::size_t segment_ = 0;
  double played_ = 0;  // of the segment, seconds
  Position at_;
  double targetZ_ = 0, rpm_ = 0, elapsed_ = 0;
  int lineNow_ = 0;
  bool endless_ = false;
  std::array<double, 2> ends_{};  // of an endless run; the first is the next
  std::deque<Statement> jogs_;
  Position jogged_;              // where all jogs that were asked for lead
  std::size_t firstInPlay_ = 0;  // the strokes from here on belong to the statement in play
  std::size_t countedLayer_ = 0;
  Laid laid_;
  CoverCount cover_;
  int runNumber_ = 0;
};

}  // namespace torvane::executor
