// Programs of the station, each damaged in one way after the other: the proof notices, and notices nothing in
// the sound ones. The table that it prints stands in docs/performance.md.
#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <optional>
#include <set>

#include "designs.h"
#include "executor/measure/run.h"
#include "executor/proof/report.h"
#include "programs.h"

namespace torvane::executor {
namespace {

using Lines = std::vector<std::string>;

Lines Split(const std::string& text) {
  Lines lines;
  for (std::size_t at = 0; at < text.size();) {
    const auto end = std::min(text.find('\n', at), text.size());
    lines.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return lines;
}

std::string Joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

bool Begins(const std::string& line, const char* text) { return line.rfind(text, 0) == 0; }

// Of the statement, not of its comment.
std::size_t WordAt(const std::string& line, const std::string& word) {
  const auto at = line.find(" " + word);
  return at < line.find('[') ? at : std::string::npos;
}
double ValueOf(const std::string& line, const std::string& word) {
  const auto at = WordAt(line, word);
  return at == std::string::npos ? 0 : std::atof(line.c_str() + at + 1 + word.size());
}
void SetValue(std::string& line, const std::string& word, const std::string& value) {
  const auto at = WordAt(line, word) + 1 + word.size();
  line.replace(at, line.find_first_of(" \r", at) - at, value);
}

// A layer of a program: its lines, and what its first display tells.
struct Part {
  std::size_t from = 0, to = 0;
  bool hoop = false, shiftsCarriage = false;
  double angle = 0, band = 0, diameter = 0, right = 0;

  // At the end where the dwell is.
  double HalfBandDegrees(bool farEnd) const {
    return band / std::cos(angle * kTestPi / 180) / ((farEnd ? diameter : right) * kTestPi) * 360 / 2;
  }
};

struct Sound {
  std::string name, text;
  Lines lines;
  std::vector<Part> layers;
  std::set<std::pair<std::string, int>> kinds;
};

std::set<std::pair<std::string, int>> KindSet(const std::string& text) {
  const Kinds kinds = KindsOf(Prove(text, Limits()));
  return {kinds.begin(), kinds.end()};
}

std::vector<Part> LayersOf(const Lines& lines) {
  std::vector<Part> layers;
  std::string last;
  double unit = 1, right = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (Begins(lines[i], "G21")) unit = 25.4;
    if (const auto at = lines[i].find("RightDia="); at != std::string::npos)
      right = std::atof(lines[i].c_str() + at + 9);
    if (Begins(lines[i], "D0 GM") || Begins(lines[i], "D0 ST")) last.clear();
    if (Begins(lines[i], "D0 LA=")) {
      const std::string number = lines[i].substr(0, lines[i].find('_'));
      if (number != last)
        layers.push_back({i, i, lines[i].find("HOOP") != std::string::npos || ValueOf(lines[i], "WA=") == 90,
                          lines[i].find("WM=cs") != std::string::npos, ValueOf(lines[i], "WA="),
                          ValueOf(lines[i], "FW=") * unit, ValueOf(lines[i], "LD="), right});
      last = number;
    }
    if (!last.empty()) layers.back().to = i + 1;
  }
  return layers;
}

// Nothing where the program offers no place for it.
using Damaged = std::optional<Lines>;

std::vector<std::size_t> Where(const Lines& lines, const Part& part,
                               const std::function<bool(const std::string&)>& fits) {
  std::vector<std::size_t> found;
  for (std::size_t i = part.from; i < part.to; ++i)
    if (fits(lines[i])) found.push_back(i);
  return found;
}

const Part& AnyLayer(const Sound& sound, Dice& dice) {
  return sound.layers[static_cast<std::size_t>(dice.To(static_cast<int>(sound.layers.size())))];
}

// Changes one of the layer's lines that fit.
Damaged Change(const Sound& sound, const Part& part, Dice& dice,
               const std::function<bool(const std::string&)>& fits,
               const std::function<void(std::string&)>& change) {
  const auto places = Where(sound.lines, part, fits);
  if (places.empty()) return std::nullopt;
  Lines lines = sound.lines;
  change(lines[places[static_cast<std::size_t>(dice.To(static_cast<int>(places.size())))]]);
  return lines;
}

bool IsTraverse(const std::string& line) {
  return Begins(line, "G1 ") && WordAt(line, "Z") != std::string::npos;
}

std::function<Damaged(const Sound&, Dice&)> Faster(double factor) {
  return [factor](const Sound& sound, Dice& dice) {
    Lines lines = sound.lines;
    const Part& part = AnyLayer(sound, dice);
    for (const std::size_t i : Where(lines, part, [](const std::string& line) {
           return (Begins(line, "M4 ") || IsTraverse(line)) && WordAt(line, "S") != std::string::npos;
         }))
      SetValue(lines[i], "S", Fixed(ValueOf(lines[i], "S") * factor, 2));
    return Damaged(lines);
  };
}

Damaged StopMoved(const Sound& sound, Dice& dice) {
  const Part& part = AnyLayer(sound, dice);
  return Change(sound, part, dice, IsTraverse, [&](std::string& line) {
    SetValue(line, "Z", Fixed(ValueOf(line, "Z") + (dice.To(2) == 0 ? part.band : -part.band), 2));
  });
}

// A dwell, or the withdrawal that shifts a wrapped layer.
Damaged DwellShifted(const Sound& sound, Dice& dice) {
  const Part& part = AnyLayer(sound, dice);
  if (part.hoop) return std::nullopt;
  const auto fits = [](const std::string& line) {
    return (Begins(line, "G4 L") || Begins(line, "G6 ")) && ValueOf(line, "C") > 0;
  };
  return Change(sound, part, dice, fits, [&](std::string& line) {
    SetValue(line, "C",
             Fixed(ValueOf(line, "C") + part.HalfBandDegrees(line.find("L601") != std::string::npos), 2));
  });
}

Damaged PassLost(const Sound& sound, Dice& dice) {
  const Part& part = AnyLayer(sound, dice);
  auto displays = Where(sound.lines, part, [](const std::string& line) { return Begins(line, "D0 LA="); });
  const auto from = static_cast<std::size_t>(dice.To(static_cast<int>(displays.size())));
  displays.push_back(part.to);
  Lines lines = sound.lines;
  lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(displays[from]),
              lines.begin() + static_cast<std::ptrdiff_t>(displays[from + 1]));
  return lines;
}

Damaged BandNarrowed(const Sound& sound, Dice& dice) {
  Lines lines = sound.lines;
  const Part& part = AnyLayer(sound, dice);
  for (std::size_t i = part.from; i < part.to; ++i)
    if (Begins(lines[i], "D0 LA=")) SetValue(lines[i], "FW=", Fixed(ValueOf(lines[i], "FW=") * 0.8, 3));
  return lines;
}

Damaged RegisterLost(const Sound& sound, Dice& dice) {
  const auto saves = [](const std::string& line) { return Begins(line, "M601") || Begins(line, "M602"); };
  return Change(sound, AnyLayer(sound, dice), dice, saves, [](std::string& line) { line.clear(); });
}

Damaged WrongWay(const Sound& sound, Dice& dice) {
  const auto turns = [](const std::string& line) {
    return Begins(line, "M4 ") || (IsTraverse(line) && ValueOf(line, "C") > 0);
  };
  return Change(sound, AnyLayer(sound, dice), dice, turns, [](std::string& line) {
    const std::string word = Begins(line, "M4 ") ? "S" : "C";
    SetValue(line, word, Fixed(-ValueOf(line, word), 2));
  });
}

Damaged UnitLost(const Sound& sound, Dice&) {
  Lines lines = sound.lines;
  for (std::string& line : lines)
    if (Begins(line, "G20") || Begins(line, "G21")) line.clear();
  return lines;
}

Damaged SpeedLost(const Sound& sound, Dice& dice) {
  const std::string word = dice.To(2) == 0 ? "F" : "S";
  const auto has = [&](const std::string& line) {
    return (Begins(line, "M4 ") || IsTraverse(line)) && WordAt(line, word) != std::string::npos;
  };
  return Change(sound, AnyLayer(sound, dice), dice, has, [&](std::string& line) {
    const auto at = WordAt(line, word);
    line.erase(at, std::min(line.find(' ', at + 1), line.size()) - at);
  });
}

// Whether both wind the same: what a line says again is no loss.
bool WindsAlike(const std::string& a, const std::string& b) {
  const Rerun one = RunBy(a, {}, {}), other = RunBy(b, {}, {});
  const auto& these = one.winding.layers();
  const auto& those = other.winding.layers();
  return one.seconds == other.seconds &&
         std::equal(these.begin(), these.end(), those.begin(), those.end(),
                    [](const Layer& x, const Layer& y) {
                      return std::equal(x.strokes.begin(), x.strokes.end(), y.strokes.begin(),
                                        y.strokes.end(), [](const Stroke& s, const Stroke& t) {
                                          return s.z1 == t.z1 && s.m0 == t.m0 && s.m1 == t.m1;
                                        });
                    });
}

struct Damage {
  const char* name;
  std::function<Damaged(const Sound&, Dice&)> work;
  bool mayBeNone = false;  // the damage may change nothing that is wound
};

class Mutants : public Sweep {
 protected:
  void Keep(const std::string& name, std::string text) {
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    Sound sound{name, text, Split(text), {}, KindSet(text)};
    sound.layers = LayersOf(sound.lines);
    sounds_.push_back(std::move(sound));
  }
  void KeepSamples();
  void KeepRandom(int count);

  std::vector<Sound> sounds_;
};

void Mutants::KeepSamples() {
  for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_FOLDER) / "samples")) {
    const fs::path& design = entry.path();
    if (design.extension() != ".t2d" && design.extension() != ".t4d") continue;
    fs::path store = design;
    store.replace_extension(".ini");
    Keep(design.stem().string(),
         Written(design, fs::exists(store) ? "--store " + Quoted(store.string()) : Store()));
  }
}

void Mutants::KeepRandom(int count) {
  Dice dice(20261126);
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) {
    const double left = dice.Between(1.5, 8);
    const double right = dice.To(2) == 0 ? left : left * dice.Between(0.5, 0.9);
    std::vector<Row> rows(static_cast<std::size_t>(1 + dice.To(4)));
    for (Row& row : rows)
      row = {dice.Of({"90", "30", "45", "54.7", "60", "26.4", "71"}), dice.Of({"slow", "med", "fast"}), "ms",
             dice.Of({"0", "0", "45", "0.4"})};
    names.push_back("m" + std::to_string(i));
    Put(names.back() + ".t2d", TwoAxisDesign(dice.To(3) == 0, left, right, dice.Between(10, 40),
                                             dice.Of({0.125, 0.25, 0.375, 0.5}), dice.Between(2, 6), rows));
  }
  Write("");
  for (const std::string& name : names) Keep(name, ProgramText(name + ".T2G"));
}

TEST_F(Mutants, AreFound) {
  const std::vector<Damage> damages = {
      {"mandrel 10 % faster", Faster(1.1)},
      {"mandrel 30 % faster", Faster(1.3)},
      {"mandrel 10 % slower", Faster(0.9)},
      {"mandrel 30 % slower", Faster(0.7)},
      {"one stop moved by a band", StopMoved},
      {"a dwell shifted by half a band", DwellShifted},
      {"one pass lost", PassLost},
      {"band narrowed by a fifth", BandNarrowed},
      {"a register line lost", RegisterLost, true},
      {"mandrel turned the wrong way", WrongWay},
      {"unit line lost", UnitLost},
      {"a speed word lost", SpeedLost, true},
  };
  KeepSamples();
  KeepRandom(20);
  ASSERT_EQ(sounds_.size(), 30U);
  for (const Sound& sound : sounds_)
    for (const auto& [kind, layer] : sound.kinds)
      for (const char* of : {"wrong-angle", "angle-off", "other-speed", "other-band", "stale-register",
                             "stops-short", "band-aside", "passes", "standstill", "units"})
        EXPECT_NE(kind, of) << "layer " << layer << " of " << sound.name;
  Dice dice(9);
  int found = 0, missed = 0;
  std::printf("| Damage | Programs | Found | Missed |\n|---|---|---|---|\n");
  for (const Damage& damage : damages) {
    int here = 0, hit = 0;
    for (const Sound& sound : sounds_) {
      const Damaged damaged = damage.work(sound, dice);
      if (!damaged) continue;
      const std::string text = Joined(*damaged);
      if (damage.mayBeNone && WindsAlike(sound.text, text)) continue;
      ++here;
      bool noticed = false;
      for (const auto& kind : KindSet(text)) noticed = noticed || sound.kinds.count(kind) == 0;
      if (noticed)
        ++hit;
      else
        std::fprintf(stderr, "missed: %s in %s\n", damage.name, sound.name.c_str());
    }
    std::printf("| %s | %d | %d | %d |\n", damage.name, here, hit, here - hit);
    EXPECT_GT(here, 5) << damage.name;
    found += hit;
    missed += here - hit;
  }
  std::printf("| all | %d | %d | %d |\n", found + missed, found, missed);
  EXPECT_GE(found, 0.95 * (found + missed));
}

}  // namespace
}  // namespace torvane::executor
