// The player taken to a moment: from the check point before it, without the time in between.
#include <algorithm>
#include <iterator>
#include <limits>

#include "executor/player/player.h"

namespace torvane::executor {

namespace {

constexpr double kSameMoment = 1e-6;  // seconds
constexpr int kBehindAll = std::numeric_limits<int>::max();

}  // namespace

void Player::SeekTime(double seconds) {
  if (!CanSeek()) return;
  if (!(seconds > 0)) return GoTo(0);
  const auto& waits = course_->waits;
  const auto wait = std::partition_point(
      waits.begin(), waits.end(), [seconds](const ButtonWait& w) { return w.at < seconds - kSameMoment; });
  if (wait != waits.end() && wait->at <= seconds + kSameMoment) return GoTo(wait->line);
  if (seconds >= course_->seconds) return SeekEnd();
  const bool runs = state_ == RunState::Running || (state_ == RunState::Waiting && ranToWait_);
  TakeUp(course_->points.BeforeTime(seconds));
  double left = seconds - now_.elapsed;
  while (left > 0 && (Moving() || NextLine()))
    if (Moving()) Play(left);
  state_ = RunState::Paused;
  Settle(runs);
}

void Player::SeekLine(int line) {
  if (CanSeek()) GoTo(StandsAt(line));
}

void Player::SeekEnd() { SeekLine(kBehindAll); }

void Player::Step(Stride stride, bool on) {
  if (!CanSeek()) return;
  if (on) {
    if (!AtLast()) GoTo(stride == Stride::Line ? now_.line + 1 : NextPlace(stride));
  } else if (stride != Stride::Line) {
    GoTo(PlaceBefore(stride));
  } else {
    GoTo(AtBeginning() ? StatementBefore(now_.line) : now_.line);
  }
}

bool Player::AtLast() const {
  return endless_ || state_ == RunState::Finished ||
         (line_.number == now_.line && line_.number > 0 && line_.statement.command == Command::End);
}

// Exactly to the beginning of that line's statement.
void Player::GoTo(int line) {
  const bool runs = state_ == RunState::Running || (state_ == RunState::Waiting && ranToWait_);
  TakeUp(course_->points.BeforeLine(std::max(line, 1)));
  state_ = line <= 0 ? RunState::Ready : RunState::Paused;
  if (RunUpTo(line))
    Obey();
  else if (!endless_)
    state_ = RunState::Finished;
  Settle(runs);
}

void Player::TakeUp(const Moment& moment) {
  now_ = moment;
  line_ = Line();
  Begin(Motion());
  endless_ = false;
  const auto& wound = course_->wound;
  const auto behind = std::partition_point(wound.begin(), wound.end(),
                                           [this](const Layer& layer) { return layer.line <= now_.line; });
  layer_ = static_cast<std::size_t>(behind - wound.begin());
  begun_ = 0;
  if (layer_ > 0) {
    const auto& strokes = wound[layer_ - 1].strokes;
    const auto next = std::partition_point(strokes.begin(), strokes.end(),
                                           [this](const Stroke& stroke) { return stroke.line <= now_.line; });
    begun_ = static_cast<std::size_t>(next - strokes.begin());
  }
  firstInPlay_ = begun_;
  countedLayer_ = 0;
  laid_ = Laid();
  cover_ = CoverCount();
}

// Until that line's statement or a later one has begun. False where the run ends before.
bool Player::RunUpTo(int line) {
  while (now_.line < line) {
    while (Moving()) EndSegment();
    if (AtLast() || !NextLine()) return false;
  }
  return true;
}

// The run stands at its new moment.
void Player::Settle(bool runs) {
  ranToWait_ = runs && state_ == RunState::Waiting;
  if (runs && (state_ == RunState::Paused || state_ == RunState::Ready)) state_ = RunState::Running;
  TakeUpCover();
  FollowBands();
}

// What is laid counts from the last cover that is kept of it.
void Player::TakeUpCover() {
  if (covers_ == nullptr) return;
  const auto behind = std::partition_point(covers_->begin(), covers_->end(), [&](const CoverPoint& point) {
    return point.layer + 1 < layer_ || (point.layer + 1 == layer_ && point.strokes <= firstInPlay_);
  });
  if (behind == covers_->begin() || std::prev(behind)->layer + 1 != layer_) return;
  countedLayer_ = layer_;
  laid_ = Laid{std::prev(behind)->strokes, false, 0};
  cover_ = std::prev(behind)->cover;
}

// The wait at which the machine stands before it comes to that line, or the line.
int Player::StandsAt(int line) const {
  const auto& waits = course_->waits;
  const auto behind =
      std::partition_point(waits.begin(), waits.end(), [line](const ButtonWait& w) { return w.line < line; });
  if (behind == waits.begin() || line > std::prev(behind)->until) return line;
  return std::prev(behind)->line;
}

// The first layer, stage or pass that begins behind the statement in play, or behind all.
int Player::NextPlace(Stride stride) const {
  const auto later = [this](int line) { return StandsAt(line) > now_.line; };
  int next = StandsAt(kBehindAll) > now_.line ? StandsAt(kBehindAll) : kBehindAll;
  for (const Stretch& stretch : course_->stretches)
    if (later(stretch.line)) {
      next = std::min(next, StandsAt(stretch.line));
      break;
    }
  if (stride != Stride::Pass) return next;
  for (std::size_t i = std::max<std::size_t>(layer_, 1) - 1; i < course_->wound.size(); ++i) {
    const auto& passes = course_->wound[i].passes;
    const auto pass =
        std::partition_point(passes.begin(), passes.end(), [&](const Pass& p) { return !later(p.line); });
    if (pass != passes.end()) return std::min(next, StandsAt(pass->line));
  }
  return next;
}

// The last layer, stage or pass that has begun, unless the run stands there: then the one before it.
int Player::PlaceBefore(Stride stride) const {
  const auto sooner = [this](int line) {
    const int stands = StandsAt(line);
    return stands < now_.line || (stands == now_.line && !AtBeginning());
  };
  int before = 0;
  for (const Stretch& stretch : course_->stretches)
    if (sooner(stretch.line)) before = StandsAt(stretch.line);
  if (stride != Stride::Pass) return before;
  // Behind a wait the run stands before the layer that it is told to have begun.
  for (std::size_t i = std::min(layer_ + 1, course_->wound.size()); i-- > 0;) {
    const auto& passes = course_->wound[i].passes;
    const auto pass =
        std::partition_point(passes.begin(), passes.end(), [&](const Pass& p) { return sooner(p.line); });
    if (pass != passes.begin()) return std::max(before, StandsAt(std::prev(pass)->line));
  }
  return before;
}

// 0 where there is none.
int Player::StatementBefore(int line) const {
  if (line <= 0) return 0;
  const Moment& from = course_->points.BeforeLine(line);
  int before = from.line;
  Reader reader = from.reader;
  for (Line next; reader.Next(next) && next.number < line;)
    if (next.kind == Line::Kind::Statement) before = next.number;
  return before;
}

}  // namespace torvane::executor
