#include "executor/machine/winding.h"

#include <cmath>

#include "executor/program/number.h"

namespace torvane::executor {

namespace {

constexpr double kNoWay = 1e-6;

bool EndsWinding(Command command) { return command == Command::Turn || command == Command::Wait; }

bool EndsLayer(Command command) {
  return command == Command::Stop || command == Command::End || command == Command::Endless;
}

int WholeNumber(double value) { return value > 0 && value < 1e9 ? static_cast<int>(value) : 0; }

// What the operator reads: "45", "45.0", "HOOP".
void TakeAsked(const Display& display, Layer& layer) {
  const auto value = [](std::string_view text) { return ReadNumber(text, ',').value_or(0); };
  const double angle = value(display.windingAngle);
  if (display.windingAngle == "HOOP" || angle == 90) layer.hoop = true;
  if (layer.askedAngle == 0 && angle > 0 && angle < 90) layer.askedAngle = angle;
  if (layer.toldRpm == 0) layer.toldRpm = value(display.rpm);
  if (layer.toldFeed == 0) layer.toldFeed = value(display.carriageSpeed);
}

double CommentValue(std::string_view comment, std::string_view key) {
  const auto at = comment.find(key);
  if (at == std::string_view::npos) return 0;
  std::string_view text = comment.substr(at + key.size());
  text = text.substr(0, text.find_first_of(" ]"));
  return ReadNumber(text, ',').value_or(0);
}

}  // namespace

void Winding::TakeComment(std::string_view comment) {
  if (comment.starts_with("[RESTART OF ")) {
    comments_.restartLayer = WholeNumber(CommentValue(comment, " AT LAYER "));
    comments_.restartPass = CommentValue(comment, " PASS ");
  }
  if (comment.find("PART DESCRIPTION") == std::string_view::npos) return;
  const auto take = [&](std::string_view key, double& value) {
    if (value == 0) value = CommentValue(comment, key);
  };
  take("LeftDia=", comments_.leftDiameter);
  take("RightDia=", comments_.rightDiameter);
  take("FilaWidth=", comments_.bandInches);
  take("FilaThickness=", comments_.thicknessInches);
}

void Winding::Take(const Line& line, const Motion& motion, const Machine& machine, const Position& before) {
  const Command command = line.statement.command;
  if (command == Command::Display) {
    const Display display = ReadDisplay(line.statement.body);
    if (!display.stage.empty() || !display.message.empty()) {
      open_ = false;
      schedule_ = display.stage == "Winding Schedule";
      if (schedule_) scheduleLine_ = line.number;
      if (!display.stage.empty()) stage_ = display.stage;
    } else if (display.hasLayer) {
      BeginPass(display, line, machine);
    }
    return;
  }
  if (command == Command::SaveFar) farSaved_ = true;
  if (command == Command::SaveHome) homeSaved_ = true;
  if (EndsLayer(command) || (open_ && EndsWinding(command) && !layers_.back().strokes.empty())) open_ = false;
  TakeMotion(line, motion, machine, before);
}

void Winding::BeginPass(const Display& display, const Line& line, const Machine& machine) {
  const int number = WholeNumber(display.layer);
  if (layers_.empty() || layers_.back().number != number) {
    const bool behindShift = !layers_.empty() && layers_.back().carriageShift;
    layers_.emplace_back();
    layers_.back().number = number;
    layers_.back().line = line.number;
    layers_.back().toldStop = display.stop;
    layers_.back().behindShift = behindShift;
    announcedLayers_ = std::max(announcedLayers_, display.layers);
  }
  open_ = true;
  Layer& layer = layers_.back();
  if (layer.passes.empty()) farSaved_ = homeSaved_ = false;
  layer.fourAxes = machine.HasHead();
  TakeAsked(display, layer);
  if (display.bandInches > 0) {
    const double band = display.bandInches * machine.UnitsPerInch();
    if (layer.band > 0 && std::abs(layer.band - band) > kNoWay && layer.otherBandLine == 0) {
      layer.otherBandLine = line.number;
      layer.otherBand = layer.band;
    }
    layer.band = band;
  }
  if (display.hasBand && !(display.bandInches > 0) && layer.noBandLine == 0) layer.noBandLine = line.number;
  if (display.leftDiameter > 0) layer.leftDiameter = display.leftDiameter;
  layer.carriageShift = display.method == "cs";
  Pass pass;
  pass.number = display.pass;
  pass.announced = display.passes > 0 ? display.passes : 1;
  pass.line = line.number;
  pass.startZ = pass.farZ = pass.endZ = machine.At().carriage;
  layer.passes.push_back(pass);
}

void Winding::TakeMotion(const Line& line, const Motion& motion, const Machine& machine,
                         const Position& before) {
  Layer* layer = Open();
  const Command command = line.statement.command;
  if (motion.count == 0) return;
  const Position& after = motion.segments[motion.count - 1].to;
  const bool traverse = command == Command::Move && motion.carriageMoves && motion.mandrelTurns;
  if (layer == nullptr) {
    TakeBehind(motion, before);
    const bool moves = std::abs(after.carriage - before.carriage) > kNoWay;
    if (traverse && schedule_ && moves && strayMoves_++ == 0) strayLine_ = line.number;
    CheckRunningAngle(line, motion);
    return;
  }
  for (std::size_t i = 0; i < motion.count; ++i) layer->seconds += motion.segments[i].seconds;
  layer->lost[static_cast<std::size_t>(motion.slowest)] += motion.lost;
  if (motion.ownTurn) ++layer->ownTurns;
  if (command == Command::Ellipse || command == Command::Withdraw) layer->wraps = true;
  if (command == Command::Dwell && line.statement.words.Has('L') && line.statement.words.Has('C') &&
      layer->oddDwellLine == 0) {
    if (line.statement.words.IsBare('C') || line.statement.words.At('C') < 0) {
      layer->oddDwellLine = line.number;
      layer->oddDwellAngle = line.statement.words.At('C');
    }
  }
  WatchRegister(line);
  if (traverse) {
    WatchTold(line, motion);
    TakeTraverse(line, motion, before);
    if (machine.HasHead()) TakeHead(line, std::min(before.head, after.head));
  } else {
    // Round an end the head goes beyond the part; the band stays on it.
    const bool wraps = command == Command::Ellipse || command == Command::Withdraw;
    TakeTurn(after.carriage, after.mandrel - before.mandrel, wraps ? 0 : after.carriage - before.carriage);
  }
  layer->endZ = after.carriage;
  layer->endMandrel = after.mandrel;
  layer->passes.back().endZ = after.carriage;
  if (layer->strokes.empty()) layer->passes.back().startZ = after.carriage;
  CheckRunningAngle(line, motion);
}

void Winding::TakeHead(const Line& line, double y) {
  Layer& layer = layers_.back();
  if (layer.headLine != 0 && y >= layer.nearestHead) return;
  layer.headLine = line.number;
  layer.nearestHead = y;
}

void Winding::TakeTraverse(const Line& line, const Motion& motion, const Position& before) {
  Layer& layer = layers_.back();
  Pass& pass = layer.passes.back();
  const int passIndex = static_cast<int>(layer.passes.size()) - 1;
  const Position& after = motion.segments[motion.count - 1].to;
  if (pass.moves == 0) {
    pass.startZ = before.carriage;
    pass.farZ = after.carriage;
    pass.farLine = line.number;
  } else {
    pass.backZ = after.carriage;
    pass.backLine = line.number;
  }
  ++pass.moves;
  // Where the carriage arrives, and where the mandrel has done its turn.
  Position arrival = after, turned = after;
  for (std::size_t i = motion.count; i-- > 0;) {
    const Segment& s = motion.segments[i];
    if (s.from.carriage == after.carriage) arrival = s.from;
    if (s.from.mandrel == after.mandrel) turned = s.from;
  }
  const double way = arrival.carriage - before.carriage;
  if (std::abs(way) < kNoWay) {
    TakeTurn(after.carriage, after.mandrel - before.mandrel, 0);
    return;
  }
  Stroke stroke{
      line.number, passIndex,  before.carriage, arrival.carriage,    before.mandrel, arrival.mandrel,
      motion.feed, motion.rpm, motion.ownTurn,  pass.moves % 2 == 1, false};
  const double tail = std::abs(after.carriage - turned.carriage);
  // A short tail comes from rounded speeds: the band bends less than it is wide.
  if (tail > layer.band / 2 && tail > kNoWay && std::abs(turned.carriage - before.carriage) > kNoWay) {
    stroke.z1 = turned.carriage;
    stroke.m1 = turned.mandrel;
    layer.strokes.push_back(stroke);
    stroke = {line.number,   passIndex,   turned.carriage, after.carriage, turned.mandrel,
              after.mandrel, motion.feed, motion.rpm,      motion.ownTurn, stroke.out,
              true};
  }
  layer.strokes.push_back(stroke);
  if (stroke.m1 != after.mandrel) TakeTurn(after.carriage, after.mandrel - stroke.m1, 0);
}

void Winding::TakeTurn(double z, double degrees, double along) {
  Layer& layer = layers_.back();
  if (degrees == 0 && along == 0) return;
  layer.endTurns.push_back(
      {z, std::abs(degrees), along, static_cast<int>(layer.passes.size()) - 1, layer.strokes.size()});
}

// Until the next layer begins the tow still runs onto the part.
void Winding::TakeBehind(const Motion& motion, const Position& before) {
  if (!schedule_ || layers_.empty()) return;
  for (std::size_t i = 0; i < motion.count; ++i) layers_.back().secondsBehind += motion.segments[i].seconds;
  layers_.back().lost[static_cast<std::size_t>(motion.slowest)] += motion.lost;
  const Position& after = motion.segments[motion.count - 1].to;
  TakeTurn(after.carriage, after.mandrel - before.mandrel, after.carriage - before.carriage);
}

// The display tells the operator at which speeds the layer runs.
void Winding::WatchTold(const Line& line, const Motion& motion) {
  constexpr double kRpmRounding = 0.051, kFeedRounding = 0.0051;
  Layer& layer = layers_.back();
  if (layer.otherSpeedLine != 0) return;
  const bool otherRpm = layer.toldRpm > 0 && std::abs(motion.rpm - layer.toldRpm) > kRpmRounding;
  const bool otherFeed = layer.toldFeed > 0 && std::abs(motion.feed - layer.toldFeed) > kFeedRounding;
  if (!otherRpm && !otherFeed) return;
  layer.otherSpeedLine = line.number;
  layer.otherRpm = otherRpm;
  layer.otherSpeed = otherRpm ? motion.rpm : motion.feed;
}

// Each layer saves the angles at its ends before it waits for them.
void Winding::WatchRegister(const Line& line) {
  Layer& layer = layers_.back();
  const Words& words = line.statement.words;
  if (line.statement.command != Command::Dwell || !words.Has('L') || layer.staleLine != 0) return;
  const bool far = words.At('L') == 601;
  if (far ? farSaved_ : homeSaved_) return;
  layer.staleLine = line.number;
  layer.staleRegister = far ? 601 : 602;
}

// The A word repeats the sum of the turns that are told with one. It starts anywhere; from then on both must
// go on together, but for an ellipse, whose A may already hold the shift that its withdrawal makes.
void Winding::CheckRunningAngle(const Line& line, const Motion& motion) {
  const Words& words = line.statement.words;
  if (!words.Has('A')) return;
  toldTurns_ += motion.turn;
  ++turnsSince_;
  if (line.statement.command == Command::Ellipse) return;
  const double ahead = words.At('A') - toldTurns_;
  const double jump = ahead - runningAhead_;
  const double rounding = 0.005 * turnsSince_ + 0.011;
  if (runningKnown_ && std::abs(jump) > rounding && open_) {
    Layer& layer = layers_.back();
    if (layer.passes.size() == 1 && layer.passes[0].moves == 1) {
      layer.startJump = jump;
    } else if (layer.angleFaultLine == 0) {
      layer.angleFaultLine = line.number;
      layer.angleFault = jump;
    }
  }
  runningKnown_ = true;
  runningAhead_ = ahead;
  turnsSince_ = 0;
}

}  // namespace torvane::executor
