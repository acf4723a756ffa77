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

Laid Reached(const Layer& layer, std::size_t from, double z) {
  Laid laid{from, false, z};
  for (; laid.strokes < layer.strokes.size(); ++laid.strokes) {
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
}

void Player::Load(std::shared_ptr<const Program> program, Course course) {
  program_ = std::move(program);
  course_ = std::move(course);
  Rewind();
  state_ = program_ == nullptr ? RunState::Empty : RunState::Ready;
}

void Player::BeginManual(const ManualSetup& setup) {
  Load(nullptr);
  manual_ = setup;
  course_.head = course_.rotation = setup.fourAxes;
  course_.homeZ = course_.lowestZ = setup.homeZ;
  course_.highestZ = setup.homeZ + setup.travel;
  Statement identity{Command::Identity, {}, 0, {}};
  identity.words.Put('Z', setup.homeZ, false);
  identity.words.Put('Y', setup.homeY, false);
  machine_.Run(identity);
  at_ = jogged_ = machine_.At();
  targetZ_ = at_.carriage;
  state_ = RunState::Manual;
}

void Player::Rewind() {
  reader_ = Reader(program_ == nullptr ? std::string_view() : program_->text());
  machine_ = Machine();
  winding_ = Winding();
  screen_ = Screen();
  motion_ = Motion();
  segment_ = 0;
  at_ = Position();
  targetZ_ = rpm_ = elapsed_ = 0;
  lineNow_ = 0;
  endless_ = false;
  jogs_.clear();
  laid_ = Laid();
  countedLayer_ = 0;
  cover_ = CoverCount();
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
    machine_.HaltAt(at_);
    motion_ = Motion();
    segment_ = 0;
    jogs_.clear();
    jogged_ = at_;
    targetZ_ = at_.carriage;
    rpm_ = 0;
  } else if (state_ != RunState::Empty && state_ != RunState::Finished) {
    state_ = RunState::Stopped;
  }
}

void Player::PressButton() {
  if (state_ == RunState::Waiting) state_ = RunState::Running;
}

void Player::Jog(Axis axis, double by) {
  if (state_ != RunState::Manual || jogs_.size() == kMostJogs) return;
  Position to = jogged_;
  Of(to, axis) += by;
  if (axis == Axis::Carriage && manual_.travel > 0)
    to.carriage = std::clamp(to.carriage, manual_.homeZ, manual_.homeZ + manual_.travel);
  Statement move{Command::Move, {}, 0, {}};
  switch (axis) {
    case Axis::Carriage:
      move.words.Put('F', std::min(kJogCarriage, manual_.carriageSpeed), false);
      move.words.Put('Z', to.carriage, false);
      break;
    case Axis::Mandrel:
      move.words.Put('S', kJogMandrel, false);
      move.words.Put('C', by, false);
      break;
    case Axis::Head:
      if (!manual_.fourAxes) return;
      move.words.Put('E', kJogHead, false);
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
  Statement home{Command::Home, {}, 0, {}};
  home.words.Put('F', std::min(kJogCarriage, manual_.carriageSpeed), false);
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
  elapsed_ += step;
  if (played_ < segment.seconds) {
    at_ = Between(segment, played_ / segment.seconds);
    return;
  }
  played_ = 0;
  at_ = ++segment_ == motion_.count ? machine_.At() : segment.to;
}

bool Player::NextLine() {
  if (!reader_.Next(line_)) return false;
  if (line_.kind == Line::Kind::Blank) winding_.TakeComment(line_.comment);
  if (line_.kind != Line::Kind::Statement) return true;
  lineNow_ = line_.number;
  Begin(line_.statement);
  switch (line_.statement.command) {
    case Command::Wait:
      if (speed_ < kToTheEnd) state_ = RunState::Waiting;
      break;
    case Command::End:
      state_ = RunState::Finished;
      break;
    case Command::Endless:
      endless_ = true;
      ends_ = {line_.statement.words.At('Z'), line_.statement.secondZ};
      break;
    case Command::Display:
      TakeDisplay(ReadDisplay(line_.statement.body));
      break;
    default:
      break;
  }
  return true;
}

void Player::NextJog() {
  const Statement jog = jogs_.front();
  jogs_.pop_front();
  Begin(jog);
}

void Player::Begin(const Statement& statement) {
  const Position before = machine_.At();
  motion_ = machine_.Run(statement);
  segment_ = 0;
  played_ = 0;
  firstInPlay_ = LayerShown() == nullptr ? 0 : LayerShown()->strokes.size();
  if (state_ != RunState::Manual && !endless_) winding_.Take(line_, motion_, machine_, before);
  if (motion_.count > 0) {
    targetZ_ = machine_.At().carriage;
    rpm_ = motion_.mandrelTurns ? motion_.rpm : 0;
  } else {
    at_ = machine_.At();
    if (statement.command == Command::Turn) rpm_ = std::abs(statement.words.At('S'));
    if (statement.command == Command::Stop) rpm_ = 0;
  }
}

// To the other end of an endless run. Ends that lie on each other, or a carriage without speed, end it.
void Player::Swing() {
  if (std::abs(at_.carriage - ends_[0]) < kNoWay) std::swap(ends_[0], ends_[1]);
  Statement move{Command::Move, {}, 0, {}};
  move.words.Put('Z', ends_[0], false);
  Begin(move);
  double seconds = 0;
  for (std::size_t i = 0; i < motion_.count; ++i) seconds += motion_.segments[i].seconds;
  if (seconds < kNoWay) state_ = RunState::Finished;
}

void Player::TakeDisplay(const Display& display) {
  if (!display.message.empty()) {
    screen_.message = display.message;
    return;
  }
  if (!display.stage.empty()) {
    screen_ = Screen();
    screen_.stage = display.stage;
  }
  if (!display.hasLayer) return;
  screen_.message = {};
  screen_.layer = display.layer;
  screen_.layers = display.layers;
  screen_.pass = display.pass;
  screen_.passes = display.passes;
  screen_.rpm = display.rpm;
  screen_.carriageSpeed = display.carriageSpeed;
  screen_.windingAngle = display.windingAngle;
  screen_.method = display.method;
  // It stands in the first pass of a layer alone.
  if (!display.minutesLeft.empty()) screen_.minutesLeft = display.minutesLeft;
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
  const Laid now =
      Moving() ? Reached(*layer, firstInPlay_, at_.carriage) : Laid{layer->strokes.size(), false, 0};
  ForEachPiece(*layer, laid_, now,
               [this](const Stroke& stroke, double z0, double z1) { cover_.Lay(stroke, z0, z1); });
  laid_ = now;
}

double Player::Remaining() const { return std::max(0.0, course_.seconds - elapsed_); }

const ButtonWait* Player::NextWait() const {
  const auto& waits = course_.waits;
  const int from = state_ == RunState::Waiting ? lineNow_ : lineNow_ + 1;
  const auto next = std::lower_bound(waits.begin(), waits.end(), from,
                                     [](const ButtonWait& wait, int line) { return wait.line < line; });
  return next == waits.end() ? nullptr : &*next;
}

const LayerPlace* Player::PlaceShown() const {
  const std::size_t index = LayerIndex();
  return index == 0 || index > course_.layers.size() ? nullptr : &course_.layers[index - 1];
}

}  // namespace torvane::executor
