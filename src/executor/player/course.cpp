#include "executor/player/course.h"

#include <algorithm>

#include "executor/program/reader.h"

namespace torvane::executor {

namespace {

// Lines between two words on the progress.
constexpr int kLinesBetween = 4096;

class Follower {
 public:
  Course Run(const Program& program, const std::stop_token& stop, Progress* progress);

 private:
  bool Take(const Line& line);  // false: nothing behind it is run
  void Begin(int layer, std::string_view name, int line);
  void BeginStretch(const Line& line);
  void WatchAxes(const Line& line);
  void PlaceLayers();

  Moment now_;
  Winding winding_;
  Course course_;
  std::size_t standing_ = 0;  // the first wait behind which no time has gone by yet
  bool carriageMoved_ = false;
};

Course Follower::Run(const Program& program, const std::stop_token& stop, Progress* progress) {
  Begin(0, "Start", 0);
  now_.reader = Reader(program.text());
  Line line;
  course_.points.Offer(now_);
  while (!stop.stop_requested() && now_.reader.Next(line)) {
    if (line.kind == Line::Kind::Blank) {
      winding_.TakeComment(line.comment);
      course_.domes |= line.comment.find("WITH HEMI ENDS") != std::string_view::npos;
    } else if (line.kind == Line::Kind::Statement && !Take(line)) {
      break;
    }
    course_.points.Offer(now_);
    if (progress != nullptr && line.number % kLinesBetween == 0)
      progress->Tell(program.text().size() - now_.reader.Left(), program.text().size());
  }
  auto& stretches = course_.stretches;
  stretches.erase(
      std::remove_if(stretches.begin(), stretches.end(), [](const Stretch& s) { return s.seconds <= 0; }),
      stretches.end());
  course_.millimetres = now_.machine.Millimetres();
  course_.homeZ = now_.machine.HomeZ();
  PlaceLayers();
  return std::move(course_);
}

bool Follower::Take(const Line& line) {
  const Command command = line.statement.command;
  if (command == Command::End) return false;
  if (command == Command::Wait)
    course_.waits.push_back({line.number, std::string(InBrackets(line.comment)), course_.seconds});
  const Position before = now_.machine.At();
  const Motion motion = now_.Take(line);
  winding_.Take(line, motion, now_.machine, before);
  BeginStretch(line);
  for (std::size_t i = 0; i < motion.count; ++i) {
    course_.seconds += motion.segments[i].seconds;
    course_.stretches.back().seconds += motion.segments[i].seconds;
  }
  if (course_.seconds > now_.elapsed)
    for (; standing_ < course_.waits.size(); ++standing_) course_.waits[standing_].until = line.number;
  now_.elapsed = course_.seconds;
  WatchAxes(line);
  course_.endless = command == Command::Endless;
  return !course_.endless;
}

void Follower::Begin(int layer, std::string_view name, int line) {
  course_.stretches.push_back({layer, std::string(name), course_.seconds, 0, line});
}

void Follower::BeginStretch(const Line& line) {
  if (line.statement.command != Command::Display) return;
  const int now = course_.stretches.back().layer;
  if (const Layer* layer = winding_.OpenLayer()) {
    if (layer->number != now) Begin(layer->number, "", line.number);
    return;
  }
  const Display display = ReadDisplay(line.statement.body);
  if (!display.stage.empty() && display.stage != "Winding Schedule") {
    Begin(0, display.stage, line.number);
  } else if (now != 0) {
    Begin(0, "End", line.number);
  }
}

void Follower::WatchAxes(const Line& line) {
  const Words& words = line.statement.words;
  const Command command = line.statement.command;
  if (command == Command::Identity) course_.head |= words.Has('Y');
  course_.rotation |= words.Has('B');
  const auto reach = [&](double z) {
    course_.lowestZ = carriageMoved_ ? std::min(course_.lowestZ, z) : z;
    course_.highestZ = carriageMoved_ ? std::max(course_.highestZ, z) : z;
    carriageMoved_ = true;
  };
  if (command == Command::Endless) {
    reach(words.At('Z'));
    reach(line.statement.secondZ);
  } else if (words.Has('Z') && command != Command::Dwell && command != Command::Identity) {
    reach(words.At('Z'));
    course_.head |= words.Has('Y');
  }
}

void Follower::PlaceLayers() {
  for (const Layer& layer : winding_.layers())
    course_.layers.push_back({MandrelOf(layer, winding_.comments()), layer.band});
  course_.wound = winding_.TakeLayers();
}

}  // namespace

Mandrel Course::Part() const {
  Mandrel part;
  for (const LayerPlace& layer : layers) {
    const Mandrel& m = layer.mandrel;
    if (m.zLeft <= m.zRight) continue;
    if (part.zLeft <= part.zRight) {
      part = m;
      continue;
    }
    part.zRight = std::min(part.zRight, m.zRight);
    part.zLeft = std::max(part.zLeft, m.zLeft);
  }
  return part;
}

Course FollowCourse(const Program& program, const std::stop_token& stop, Progress* progress) {
  return Follower().Run(program, stop, progress);
}

// A layer of fewer strokes is counted in a moment whenever it is asked for.
std::vector<CoverPoint> CountCovers(const Course& course, const std::stop_token& stop) {
  constexpr std::size_t kCounted = 1000;
  std::vector<CoverPoint> covers;
  std::size_t strokes = 0;
  for (const Layer& layer : course.wound) strokes += layer.strokes.size();
  const std::size_t distance = std::max(kCounted, strokes / kMostCovers + 1);
  for (std::size_t i = 0; i < course.wound.size(); ++i) {
    const Layer& layer = course.wound[i];
    const std::size_t last = layer.strokes.size() / distance * distance;
    CoverPoint point{i, 0, {}};
    point.cover.Begin(course.layers[i].mandrel, course.layers[i].band);
    while (point.cover.Known() && point.strokes < last && !stop.stop_requested()) {
      const Stroke& stroke = layer.strokes[point.strokes++];
      point.cover.Lay(stroke, stroke.z0, stroke.z1);
      if (point.strokes % distance == 0) covers.push_back(point);
    }
  }
  return covers;
}

double SecondsAt(const Course& course, int line) {
  Moment now = course.points.BeforeLine(std::max(line, 1));
  for (Line next; now.reader.Next(next) && next.number < line;) {
    if (next.kind != Line::Kind::Statement) continue;
    const Command command = next.statement.command;
    if (command == Command::End || command == Command::Endless) return course.seconds;
    const Motion motion = now.Take(next);
    for (std::size_t i = 0; i < motion.count; ++i) now.elapsed += motion.segments[i].seconds;
  }
  return now.elapsed;
}

std::string_view InBrackets(std::string_view comment) {
  if (!comment.empty() && comment.front() == '[') comment.remove_prefix(1);
  while (!comment.empty() && (comment.back() == ']' || comment.back() == ' ')) comment.remove_suffix(1);
  return comment;
}

}  // namespace torvane::executor
