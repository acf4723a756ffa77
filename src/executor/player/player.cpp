#include "executor/player/player.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace torvane::executor {

namespace {

// Lines that one call may play: some milliseconds' worth.
constexpr int kLinesAtOnce = 4000;
constexpr std::size_t kMostJogs = 20;
constexpr double kNoWay = 1e-6;
// By hand: the carriage at most 1 in/s, head 0.5 in/s, mandrel 10 and head rotation 4 revolutions a minute.
constexpr double kJogCarriage = 1, kJogHead = 0.5, kJogMandrel = 10, kJogRotation = 4;
constexpr double kMillimetres = 25.4;

Position Between(const Segment& segment, double share) {
  const auto mix = [share](double from, double to) { return from + (to - from) * share; };
  const Position &a = segment.from, &b = segment.to;
  return {mix(a.carriage, b.carriage), mix(a.head, b.head), mix(a.rotation, b.rotation),
          mix(a.mandrel, b.mandrel)};
}

double& Of(Position& position, Axis axis) {
  switch (axis) {
    case Axis::Carriage:
      return position.carriage;
    case Axis::Mandrel:
      return position.mandrel;
    case Axis::Head:
      return position.head;
    default:
      return position.rotation;
  }
}

Laid Reached(const Layer& layer, std::size_t from, std::size_t end, double z) {
  Laid laid{from, false, z};
  for (; laid.strokes < end; ++laid.strokes) {
    const Stroke& stroke = layer.strokes[laid.strokes];
    const double share = (z - stroke.z0) / (stroke.z1 - stroke.z0);
    if (share >= 1) continue;
    laid.partly = share > 0;
    break;
  }
  return laid;
}

}  // namespace

void Player::Load(std::shared_ptr<const Program> program) {
  Course course = program == nullptr ? Course() : FollowCourse(*program);
  Load(std::move(program), std::move(course));
  if (program_ != nullptr) covers_ = std::make_shared<const std::vector<CoverPoint>>(CountCovers(*course_));
}

void Player::Load(std::shared_ptr<const Program> program, Course course) {
  Load(std::move(program), std::make_shared<const Course>(std::move(course)));
}

void Player::Load(std::shared_ptr<const Program> program, std::shared_ptr<const Course> course) {
  program_ = std::move(program);
  course_ = std::move(course);
  covers_.reset();
  Rewind();
  state_ = program_ == nullptr ? RunState::Empty : RunState::Ready;
}

void Player::BeginManual(const ManualSetup& inInches) {
  ManualSetup setup = inInches;
  if (setup.millimetres)
    for (double* length : {&setup.homeZ, &setup.homeY, &setup.travel, &setup.carriageSpeed})
      *length *= kMillimetres;
  Course course;
  course.head = course.rotation = setup.fourAxes;
  course.millimetres = setup.millimetres;
  course.homeZ = course.lowestZ = setup.homeZ;
  course.highestZ = setup.homeZ + setup.travel;
  Load(nullptr, std::move(course));
  manual_ = setup;
  Statement identity{Command::Identity, {}, 0, {}};
  identity.words.Put('Z', setup.homeZ, false);
  identity.words.Put('Y', setup.homeY, false);
  now_.machine.Run(identity);
  at_ = jogged_ = now_.machine.At();
  now_.targetZ = at_.carriage;
  state_ = RunState::Manual;
}

void Player::Rewind() {
  Moment beginning;
  if (program_ != nullptr) beginning.reader = Reader(program_->text());
  TakeUp(beginning);
  jogs_.clear();
  ranToWait_ = false;
  ++runNumber_;
}

void Player::Run() {
  if (state_ == RunState::Stopped || state_ == RunState::Finished) {
    Rewind();
  } else if (state_ != RunState::Ready && state_ != RunState::Paused) {
    return;
  }
  state_ = RunState::Running;
}

void Player::Pause() {
  if (state_ == RunState::Running) state_ = RunState::Paused;
}

void Player::Stop() {
  if (state_ == RunState::Manual) {
    now_.machine.HaltAt(at_);
    motion_ = Motion();
    segment_ = 0;
    jogs_.clear();
    jogged_ = at_;
    now_.targetZ = at_.carriage;
    now_.rpm = 0;
  } else if (state_ != RunState::Empty && state_ != RunState::Finished) {
    state_ = RunState::Stopped;
  }
}

void Player::PressButton() {
  if (state_ == RunState::Waiting) state_ = RunState::Running;
}

void Player::Jog(Axis axis, double by) {
  if (state_ != RunState::Manual || jogs_.size() == kMostJogs) return;
  const double unit = manual_.millimetres ? kMillimetres : 1;
  Position to = jogged_;
  Of(to, axis) += by;
  if (axis == Axis::Carriage && manual_.travel > 0)
    to.carriage = std::clamp(to.carriage, manual_.homeZ, manual_.homeZ + manual_.travel);
  Statement move{Command::Move, {}, 0, {}};
  switch (axis) {
    case Axis::Carriage:
      move.words.Put('F', std::min(kJogCarriage * unit, manual_.carriageSpeed), false);
      move.words.Put('Z', to.carriage, false);
      break;
    case Axis::Mandrel:
      move.words.Put('S', kJogMandrel, false);
      move.words.Put('C', by, false);
      break;
    case Axis::Head:
      if (!manual_.fourAxes) return;
      move.words.Put('E', kJogHead * unit, false);
      move.words.Put('Y', to.head, false);
      break;
    case Axis::Rotation:
      if (!manual_.fourAxes) return;
      move.words.Put('R', kJogRotation, false);
      move.words.Put('B', to.rotation, false);
      break;
  }
  jogged_ = to;
  jogs_.push_back(move);
}

void Player::Home() {
  if (state_ != RunState::Manual || jogs_.size() == kMostJogs) return;
  const double unit = manual_.millimetres ? kMillimetres : 1;
  Statement home{Command::Home, {}, 0, {}};
  home.words.Put('F', std::min(kJogCarriage * unit, manual_.carriageSpeed), false);
  jogged_.carriage = manual_.homeZ;
  jogged_.head = manual_.homeY;
  jogged_.rotation = 0;
  jogs_.push_back(home);
}

void Player::Advance(double seconds) {
  const bool rush = speed_ >= kToTheEnd && state_ != RunState::Manual;
  double left = seconds;
  if (state_ != RunState::Manual) left = rush ? std::numeric_limits<double>::infinity() : seconds * speed_;
  const auto plays = [&] {
    return left > 0 && (state_ == RunState::Running || (state_ == RunState::Manual && JogsLeft() > 0));
  };
  for (int lines = 0; plays();) {
    if (Moving()) {
      Play(left);
      if (!Moving()) FollowBands();
      continue;
    }
    if (lines++ == kLinesAtOnce) break;
    if (state_ == RunState::Manual) {
      NextJog();
    } else if (endless_ && !rush) {
      Swing();
    } else if (endless_ || !NextLine()) {
      state_ = RunState::Finished;
    } else {
      Obey();
      ranToWait_ = false;
    }
  }
  FollowBands();
}

// Along one segment, as far as the time reaches.
void Player::Play(double& left) {
  const Segment& segment = motion_.segments[segment_];
  const double step = std::min(left, segment.seconds - played_);
  played_ += step;
  left -= step;
  if (played_ < segment.seconds)
    at_ = Between(segment, played_ / segment.seconds);
  else
    EndSegment();
}

void Player::EndSegment() {
  const Segment& segment = motion_.segments[segment_];
  now_.elapsed += segment.seconds;
  played_ = 0;
  at_ = ++segment_ == motion_.count ? now_.machine.At() : segment.to;
}

bool Player::NextLine() {
  if (!now_.reader.Next(line_)) return false;
  if (line_.kind != Line::Kind::Statement) return true;
  Begin(now_.Take(line_));
  if (line_.statement.command == Command::Endless) {
    endless_ = true;
    ends_ = {line_.statement.words.At('Z'), line_.statement.secondZ};
  }
  firstInPlay_ = begun_;
  CountStrokes();
  return true;
}

// What the line that has just been read says of the run itself.
void Player::Obey() {
  if (line_.kind != Line::Kind::Statement) return;
  if (line_.statement.command == Command::End) state_ = RunState::Finished;
  if (line_.statement.command == Command::Wait && speed_ < kToTheEnd) state_ = RunState::Waiting;
}

void Player::NextJog() {
  const Statement jog = jogs_.front();
  jogs_.pop_front();
  Begin(now_.Begin(jog));
}

void Player::Begin(const Motion& motion) {
  motion_ = motion;
  segment_ = 0;
  played_ = 0;
  if (motion_.count == 0) at_ = now_.machine.At();
}

// The course knows all layers and strokes by their lines.
void Player::CountStrokes() {
  for (; layer_ < course_->wound.size() && course_->wound[layer_].line <= now_.line; ++layer_)
    firstInPlay_ = begun_ = 0;
  if (layer_ == 0) return;
  const auto& strokes = course_->wound[layer_ - 1].strokes;
  while (begun_ < strokes.size() && strokes[begun_].line <= now_.line) ++begun_;
}

// To the other end of an endless run. Ends that lie on each other, or a carriage without speed, end it.
void Player::Swing() {
  if (std::abs(at_.carriage - ends_[0]) < kNoWay) std::swap(ends_[0], ends_[1]);
  Statement move{Command::Move, {}, 0, {}};
  move.words.Put('Z', ends_[0], false);
  Begin(now_.Begin(move));
  double seconds = 0;
  for (std::size_t i = 0; i < motion_.count; ++i) seconds += motion_.segments[i].seconds;
  if (seconds < kNoWay) state_ = RunState::Finished;
}

void Player::FollowBands() {
  const Layer* layer = LayerShown();
  if (layer == nullptr) return;
  if (countedLayer_ != LayerIndex()) {
    countedLayer_ = LayerIndex();
    laid_ = Laid();
    cover_ = CoverCount();
    if (const LayerPlace* place = PlaceShown()) cover_.Begin(place->mandrel, place->band);
  }
  const Laid now = Moving() ? Reached(*layer, firstInPlay_, begun_, at_.carriage) : Laid{begun_, false, 0};
  ForEachPiece(*layer, laid_, now,
               [this](const Stroke& stroke, double z0, double z1) { cover_.Lay(stroke, z0, z1); });
  laid_ = now;
}

double Player::Remaining() const { return std::max(0.0, course_->seconds - Elapsed()); }

const ButtonWait* Player::NextWait() const {
  const auto& waits = course_->waits;
  const int from = state_ == RunState::Waiting ? now_.line : now_.line + 1;
  const auto next = std::lower_bound(waits.begin(), waits.end(), from,
                                     [](const ButtonWait& wait, int line) { return wait.line < line; });
  return next == waits.end() ? nullptr : &*next;
}

const LayerPlace* Player::PlaceShown() const {
  const std::size_t index = LayerIndex();
  return index == 0 || index > course_->layers.size() ? nullptr : &course_->layers[index - 1];
}

}  // namespace torvane::executor
