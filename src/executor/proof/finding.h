// What the proof has to say: plain sentences, each with its line.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace torvane::executor {

enum class Level { Ok, Note, Fault };

// docs/dialect.md has a sentence for each.
enum class Kind {
  Unreadable,
  Travel,
  CarriageSpeed,
  MandrelSpeed,
  HeadSpeed,
  HeadTravel,
  HeadStrikes,
  Standstill,
  Passes,
  BreaksOff,
  BandAside,
  Open,
  BareStrips,
  RoundedStrips,
  ShiftEnds,
  RunningAngle,
  Units,
  NumberForm,
  Identity,
  MotorsOff,
  NotHomed,
  NoWait,
  NegativeSpeed,
  Acceleration,
  LongTurn,
  StopsShort,
  NoPattern,
  NoBand,
  ControlBytes,
  BehindEnd,
  NothingMoves,
  WrongAngle,
  OtherSpeed,
  StaleRegister,
  OtherBand,
  Time,
  Tow,
  AngleOff,
  FewPasses,
  HoopDwell,
  Rounding,
  FirstTraverse,
  Unknown,
  PreWrapStarts,
};

// As in docs/dialect.md: "band-aside".
std::string_view NameOf(Kind kind);
// How a kind stands, whatever the program: no kind is Ok.
Level LevelOf(Kind kind);
// "ok", "note", "fault".
std::string_view NameOf(Level level);

struct Finding {
  Kind kind;
  int line = 0;   // 0 where no line is to blame
  int layer = 0;  // 0 for the program as a whole
  std::string text;
  int alike = 0;  // further ones of the kind in the same layer, not listed
};

class Findings {
 public:
  // Of a kind one is kept for each layer, of unreadable statements the first twenty; the others are counted.
  void Add(Kind kind, int line, int layer, std::string text);

  // In the order in which they were found.
  const std::vector<Finding>& all() const { return all_; }
  // Those that are listed.
  int Count(Level level) const;
  // Ok where nothing was found.
  Level WorstOf(int layer) const;

 private:
  struct Kept {
    int count = 0;
    std::size_t last = 0;
  };

  std::vector<Finding> all_;
  std::map<std::pair<Kind, int>, Kept> kept_;
  std::map<int, Level> worst_;
};

}  // namespace torvane::executor
