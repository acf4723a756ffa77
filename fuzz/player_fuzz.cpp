// Any bytes as a program that is played: its course tells what comes, whether it is played in steps or at
// once. The same bytes move the machine by hand.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "executor/player/player.h"

namespace {

using namespace torvane::executor;

// A sum of as many parts as a program has statements.
constexpr double kShare = 1e-9;
constexpr int kMostSteps = 60;
constexpr int kLinesOfStep = 4000;

[[noreturn]] void Fail(const char* what, const Player& player) {
  std::fprintf(stderr, "%s: line %d, %g s of %g s\n", what, player.LineNow(), player.Elapsed(),
               player.course().seconds);
  std::abort();
}

bool Alike(double a, double b) { return std::fabs(a - b) <= kShare * std::max(std::fabs(a), std::fabs(b)); }

bool IsPlace(const Position& p) {
  return std::isfinite(p.carriage) && std::isfinite(p.head) && std::isfinite(p.rotation) &&
         std::isfinite(p.mandrel);
}

void CheckCourse(const Player& player) {
  const Course& course = player.course();
  if (!std::isfinite(course.seconds) || course.seconds < 0) Fail("a course without a length", player);
  double end = 0, sum = 0;
  for (const Stretch& stretch : course.stretches) {
    if (!(stretch.seconds > 0) || (stretch.begins < end && !Alike(stretch.begins, end)))
      Fail("stretches lie over each other", player);
    end = stretch.begins + stretch.seconds;
    sum += stretch.seconds;
  }
  if (!Alike(sum, course.seconds)) Fail("the stretches are not the whole", player);
  for (std::size_t i = 1; i < course.waits.size(); ++i)
    if (course.waits[i].line <= course.waits[i - 1].line) Fail("waits out of order", player);
  if (course.lowestZ > course.highestZ) Fail("the carriage has no range", player);
}

// What holds of any moment, and against the moment before it.
class Witness {
 public:
  void See(const Player& player) {
    if (!IsPlace(player.At()) || !std::isfinite(player.TargetZ()) || !std::isfinite(player.Rpm()))
      Fail("the machine is nowhere", player);
    if (player.Elapsed() < elapsed_ || player.LineNow() < line_ || player.LayerIndex() < layer_)
      Fail("time runs back", player);
    const Laid laid = player.LaidSoFar();
    if (player.LayerIndex() == layer_ && laid.strokes < laid_.strokes) Fail("a band is taken up", player);
    if (const Layer* layer = player.LayerShown(); layer != nullptr && laid.strokes > layer->strokes.size())
      Fail("more is laid than there is", player);
    const CoverCount& cover = player.Cover();
    if (!(cover.Twice() >= 0) || cover.Twice() > cover.Once() || cover.Once() > 1)
      Fail("a cover beyond all", player);
    if (player.Remaining() < 0) Fail("less than no time remains", player);
    const ButtonWait* wait = player.NextWait();
    if (player.State() == RunState::Waiting && (wait == nullptr || wait->line != player.LineNow()))
      Fail("it waits where the course knows no wait", player);
    elapsed_ = player.Elapsed();
    line_ = player.LineNow();
    layer_ = player.LayerIndex();
    laid_ = laid;
  }

 private:
  double elapsed_ = 0;
  int line_ = 0;
  std::size_t layer_ = 0;
  Laid laid_;
};

void PlayInSteps(Player& player, int steps, int lines) {
  Witness witness;
  player.SetSpeed(2);
  player.Run();
  const double step = std::max(player.course().seconds / steps / 2, 1e-3);
  std::size_t waits = 0;
  // Each call that plays less than its time has come to a wait, or has run as many lines as it may.
  const std::size_t most =
      static_cast<std::size_t>(steps + 2 + lines / kLinesOfStep) + player.course().waits.size();
  for (std::size_t calls = 0; player.State() == RunState::Running && !player.EndlessNow(); ++calls) {
    if (calls > most) Fail("it does not come to its end", player);
    player.Advance(step);
    witness.See(player);
    if (player.State() != RunState::Waiting) continue;
    ++waits;
    player.PressButton();
  }
  if (waits != player.course().waits.size()) Fail("waits are passed over", player);
  if (player.course().endless) {
    for (int swings = 0; swings < 20; ++swings) {
      player.Advance(step);
      witness.See(player);
    }
    return;
  }
  if (player.State() != RunState::Finished) Fail("it has not finished", player);
  if (!Alike(player.Elapsed(), player.course().seconds))
    Fail("it takes another time than its course", player);
}

void PlayAtOnce(Player& player, int lines) {
  Witness witness;
  player.SetSpeed(Player::kToTheEnd);
  player.Run();
  for (int calls = 0; player.State() == RunState::Running; ++calls) {
    if (calls > lines / kLinesOfStep + 1) Fail("it does not come to its end", player);
    player.Advance(1);
    witness.See(player);
  }
  if (player.State() != RunState::Finished) Fail("it has not finished", player);
  if (!Alike(player.Elapsed(), player.course().seconds))
    Fail("it takes another time than its course", player);
}

// To and fro over the whole program; and to its end, where a run comes to as well.
void SeekAndStep(Player& player, int lines, const Position& end) {
  constexpr int kPlaces = 7;
  for (int i = 0; i < kPlaces; ++i) {
    const int place = i * 3 % kPlaces;
    player.SeekTime(player.course().seconds * place / kPlaces);
    Witness().See(player);
    player.SeekLine(static_cast<int>(static_cast<long long>(lines) * place / kPlaces));
    Witness().See(player);
    for (const Stride stride : {Stride::Line, Stride::Pass, Stride::Layer})
      for (const bool on : {true, false}) {
        const int from = player.LineNow();
        player.Step(stride, on);
        Witness().See(player);
        if (on ? player.LineNow() < from : player.LineNow() > from)
          Fail("a step leads the other way", player);
      }
  }
  player.SeekEnd();
  Witness().See(player);
  const Position& at = player.At();
  if (player.State() != RunState::Finished || player.course().endless) return;
  if (at.carriage != end.carriage || at.mandrel != end.mandrel) Fail("sought, the end is elsewhere", player);
}

// Three bytes a doing: the axis, and how far.
void MoveByHand(Player& player, const std::string& bytes) {
  ManualSetup setup;
  setup.homeZ = 1.875;
  setup.homeY = 4.4375;
  setup.travel = 48;
  setup.fourAxes = bytes.size() % 2 == 0;
  player.BeginManual(setup);
  for (std::size_t i = 0; i + 2 < bytes.size() && i < 300; i += 3) {
    const int what = static_cast<unsigned char>(bytes[i]);
    const double by = static_cast<signed char>(bytes[i + 1]) + static_cast<signed char>(bytes[i + 2]) / 100.0;
    if (what % 8 < 4) player.Jog(static_cast<Axis>(what % 4), by);
    if (what % 8 == 4) player.Home();
    if (what % 8 == 5) player.Stop();
    if (what % 8 > 5) player.Advance(std::fabs(by));
    const Position& at = player.At();
    if (!IsPlace(at)) Fail("the machine is nowhere", player);
    if (at.carriage < setup.homeZ - 1e-9 || at.carriage > setup.homeZ + setup.travel + 1e-9)
      Fail("the carriage leaves its travel", player);
    if (!setup.fourAxes && (at.head != setup.homeY || at.rotation != 0))
      Fail("a head that is not there moves", player);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const auto program = std::make_shared<const Program>(bytes);
  Player player;
  player.Load(program);
  CheckCourse(player);
  const int steps = 1 + (size > 0 ? data[size / 2] % kMostSteps : 0);
  PlayInSteps(player, steps, program->Lines());
  const Position end = player.At();
  const CoverCount cover = player.Cover();
  const bool endless = player.course().endless;
  player.Load(program, player.course());
  PlayAtOnce(player, program->Lines());
  if (!endless) {
    const Position& at = player.At();
    if (at.carriage != end.carriage || at.head != end.head || at.rotation != end.rotation ||
        at.mandrel != end.mandrel)
      Fail("played at once it ends elsewhere", player);
    if (cover.Once() != player.Cover().Once() || cover.Twice() != player.Cover().Twice())
      Fail("played at once it covers otherwise", player);
  }
  player.Load(program);
  player.SetSpeed(1);
  SeekAndStep(player, program->Lines(), end);
  MoveByHand(player, bytes);
  return 0;
}
