#include "post/proof/player.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace torvane::post {

namespace {

// A controller's rules, as its sources have them.
struct Rules {
  std::size_t longest;                      // bytes of a line
  bool countsAll;                           // blanks and comments count
  std::size_t digits;                       // that it reads of a number; 0 all
  std::string_view letters;                 // other than axes
  std::initializer_list<int> codes, stops;  // G and M words, tenths: 921 is G92.1
};

const Rules& RulesOf(Controller controller) {
  static const std::array<Rules, 4> kRules = {{
      {252,
       true,
       0,
       "GMNFP",
       {0, 10, 40, 170, 200, 210, 400, 490, 540, 610, 640, 800, 900, 920, 921, 930, 940},
       {0, 20, 300}},
      {79,
       false,
       8,
       "GMNFP",
       {0, 10, 40, 170, 210, 400, 490, 540, 610, 800, 900, 920, 921, 930, 940},
       {0, 20, 300}},
      {256,
       true,
       9,
       "GMNFP",
       {0, 10, 40, 170, 200, 210, 400, 490, 540, 610, 800, 900, 920, 921, 930, 940},
       {0, 20, 300}},
      {95, true, 0, "GMFPS", {0, 10, 40, 210, 900, 920, 929}, {0, 4000, 1170, 1180, 2040, 2050, 2110}},
  }};
  return kRules[static_cast<std::size_t>(controller)];
}

// Words of which a line holds one at most.
int GroupOf(int code) {
  switch (code) {
    case 0:
    case 10:
    case 800:
      return 1;
    case 170:
      return 2;
    case 900:
      return 3;
    case 930:
    case 940:
      return 5;
    case 200:
    case 210:
      return 6;
    case 400:
      return 7;
    case 490:
      return 8;
    case 540:
      return 12;
    case 610:
    case 640:
      return 13;
    default:
      return 0;
  }
}

bool Holds(std::initializer_list<int> list, int value) {
  return std::find(list.begin(), list.end(), value) != list.end();
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

Player::Player(const Machine& machine) : machine_(machine) {
  for (const Axis axis : kAllAxes)
    if (machine_[axis]) at_[static_cast<std::size_t>(axis)] = Kept(machine_[axis]->home);
}

Result<Step> Player::Take(std::string_view line) {
  if (ended_) return Refusal{"nothing is read behind the end"};
  if (const Outcome bytes = CheckBytes(line); !bytes) return Refusal{bytes.reason()};
  std::string code;
  if (const Outcome stripped = Strip(line, code); !stripped) return Refusal{stripped.reason()};
  if (code.size() > RulesOf(machine_.controller).longest) return Refusal{"the line is too long"};
  if (code.empty()) return Step{};
  // These take the rest of the line as it stands.
  const bool marlin = machine_.controller == Controller::Marlin;
  if (marlin && (line.starts_with("M117 ") || line.starts_with("M118 "))) return Step{};
  if (marlin && line.starts_with("M0 ")) return Step{Step::Kind::Wait, 0};
  std::vector<Word> words;
  if (const Outcome read = ReadWords(code, words); !read) return Refusal{read.reason()};
  return Act(words);
}

Outcome Player::CheckBytes(std::string_view line) const {
  const bool instant = machine_.controller == Controller::Grbl || machine_.controller == Controller::GrblHal;
  for (const char c : line) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte > 0x7E) return Refusal{"a byte that is no plain character"};
    if (instant && (c == '!' || c == '?' || c == '~')) return Refusal{std::string("it acts at once on ") + c};
    if (machine_.controller == Controller::Marlin && c == '*') return Refusal{"* begins a checksum"};
  }
  const Rules& rules = RulesOf(machine_.controller);
  if (rules.countsAll && line.size() > rules.longest) return Refusal{"the line is too long"};
  return Done{};
}

Outcome Player::Strip(std::string_view& line, std::string& code) const {
  const bool brackets =
      machine_.controller == Controller::LinuxCnc || machine_.controller == Controller::GrblHal;
  const bool semicolon =
      machine_.controller == Controller::LinuxCnc || machine_.controller == Controller::Marlin;
  bool inside = false;
  for (const char c : line) {
    if (c == ';' && !inside) {
      if (!semicolon) return Refusal{"a comment"};
      break;
    }
    if (c == '(' && (inside || !brackets)) return Refusal{"a bracket"};
    if (c == ')' && !inside) return Refusal{"a bracket"};
    if (c == '(' || c == ')')
      inside = c == '(';
    else if (!inside && c != ' ')
      code += c;
  }
  if (inside) return Refusal{"a bracket stays open"};
  return Done{};
}

std::optional<double> Player::ReadValue(std::string_view digits) const {
  const std::size_t most = RulesOf(machine_.controller).digits;
  std::string read;
  std::size_t count = 0;
  bool point = false, any = false;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    const char c = digits[i];
    if (i == 0 && (c == '-' || c == '+')) {
      if (c == '-') read += c;
    } else if (c == '.' && !point) {
      point = true;
      read += c;
    } else if (IsDigit(c)) {
      any = true;
      // GrblHAL does not count zeros in front.
      const bool counts = machine_.controller != Controller::GrblHal || count > 0 || c != '0';
      if (counts) ++count;
      if (most == 0 || count <= most)
        read += c;
      else if (!point)
        read += '0';
    } else {
      return std::nullopt;
    }
  }
  if (!any) return std::nullopt;
  double value = 0;
  const auto [end, error] = std::from_chars(read.data(), read.data() + read.size(), value);
  if (error != std::errc() || end != read.data() + read.size()) return std::nullopt;
  return Kept(value);
}

Outcome Player::ReadWords(const std::string& code, std::vector<Word>& words) const {
  const Rules& rules = RulesOf(machine_.controller);
  for (std::size_t i = 0; i < code.size();) {
    Word word{code[i], 0};
    const std::string shown(1, word.letter);
    if (rules.letters.find(word.letter) == std::string_view::npos && !AxisOf(word.letter))
      return Refusal{"there is no word " + shown};
    std::size_t end = i + 1;
    while (end < code.size() &&
           (IsDigit(code[end]) || code[end] == '.' || code[end] == '-' || code[end] == '+'))
      ++end;
    const auto value = ReadValue(std::string_view(code).substr(i + 1, end - i - 1));
    if (!value) return Refusal{"no number stands behind " + shown};
    word.value = *value;
    const bool repeated = std::any_of(words.begin(), words.end(),
                                      [&](const Word& other) { return other.letter == word.letter; });
    if (repeated && (word.letter != 'G' || machine_.controller == Controller::Marlin))
      return Refusal{"the word " + shown + " stands there twice"};
    if (word.letter == 'N' && i > 0) return Refusal{"N is not the first word"};
    words.push_back(word);
    i = end;
  }
  return Done{};
}

Result<Step> Player::Act(const std::vector<Word>& words) {
  const Rules& rules = RulesOf(machine_.controller);
  std::array<bool, 16> groups{};
  int special = -1;  // what the axis words belong to, if not to the motion
  Step step;
  const auto find = [&](char letter) {
    return std::find_if(words.begin(), words.end(), [&](const Word& word) { return word.letter == letter; });
  };
  for (const Word& word : words) {
    const int tenths = static_cast<int>(std::lround(word.value * 10));
    if (word.letter == 'M') {
      if (!Holds(rules.stops, tenths)) return Refusal{"there is no such M word"};
      if (tenths == 0) step.kind = Step::Kind::Wait;
      if (tenths == 20 || tenths == 300) step.kind = Step::Kind::End;
    }
    if (word.letter != 'G') continue;
    if (!Holds(rules.codes, tenths)) return Refusal{"there is no such G word"};
    const auto group = static_cast<std::size_t>(GroupOf(tenths));
    if (groups[group]) return Refusal{"two G words of one group"};
    groups[group] = true;
    if (tenths == 0 || tenths == 10) motion_ = tenths / 10;
    if (tenths == 800) motion_ = -1;
    if (tenths == 900) absolute_ = true;
    if (tenths == 930 || tenths == 940) inverse_ = tenths == 930;
    if (tenths == 940 || tenths == 930) feed_.reset();
    if (tenths == 200 || tenths == 210) {
      if ((tenths == 200) != machine_.inches) return Refusal{"the unit of lengths is another one"};
      unit_ = true;
    }
    if (group == 0) special = tenths;
  }
  if (step.kind == Step::Kind::End) ended_ = true;
  const auto feed = find('F');
  if (special == 40) {
    const auto p = find('P'), s = find('S');
    if (p == words.end() && s == words.end()) return Refusal{"G4 has no time"};
    const bool milliseconds = machine_.controller == Controller::Marlin && s == words.end();
    const double value = (s == words.end() ? p : s)->value;
    if (value < 0) return Refusal{"G4 has a time below 0"};
    return Step{Step::Kind::Pause, milliseconds ? value / 1000 : value};
  }
  if (special == 920 || special == 929) {
    if (const Outcome set = SetMandrel(words); !set) return Refusal{set.reason()};
    if (special == 929 ||
        (machine_.controller == Controller::Marlin && machine_.mandrelReset == MandrelReset::G92)) {
      behind_ += offset_;
      offset_ = 0;
    }
    return step;
  }
  if (feed != words.end()) feed_ = feed->value;
  const bool travels = std::any_of(words.begin(), words.end(),
                                   [&](const Word& word) { return AxisOf(word.letter).has_value(); });
  if (!travels) return step;
  if (step.kind != Step::Kind::Nothing) return Refusal{"axes behind a stop"};
  if (!absolute_) return Refusal{"positions are not absolute yet"};
  if (!unit_) return Refusal{"no unit has been told"};
  if (motion_ < 0) return Refusal{"axes without a motion"};
  return Travel(words, motion_ == 0);
}

// The axis stays where it is; only its coordinate is another one from now on.
Outcome Player::SetMandrel(const std::vector<Word>& words) {
  for (const Word& word : words) {
    const auto axis = AxisOf(word.letter);
    if (!axis) continue;
    if (*axis != Axis::Mandrel) return Refusal{"another coordinate than the mandrel's is set"};
    double& at = at_[static_cast<std::size_t>(*axis)];
    offset_ += at - word.value;
    at = word.value;
  }
  return Done{};
}

Result<Step> Player::Travel(const std::vector<Word>& words, bool rapid) {
  std::array<double, kAxes> way{};
  std::optional<double> feed;
  for (const Word& word : words) {
    if (word.letter == 'F') feed = word.value;
    const auto axis = AxisOf(word.letter);
    if (!axis) continue;
    const auto i = static_cast<std::size_t>(*axis);
    double to = word.value;
    if (*axis == Axis::Mandrel) {
      if (rapid) return Refusal{"the mandrel runs to an angle at full speed"};
      // What it keeps is the axis' own position.
      to = Kept(word.value + offset_) - offset_;
    }
    way[i] = to - at_[i];
    at_[i] = to;
  }
  if (rapid) return Step{Step::Kind::Rapid, 0};
  const Result<double> seconds = SecondsFor(way, feed);
  if (!seconds) return Refusal{seconds.reason()};
  return Step{Step::Kind::Move, seconds.value()};
}

Result<double> Player::SecondsFor(const std::array<double, kAxes>& way, std::optional<double> feed) {
  double all = 0, linear = 0, turning = 0;
  for (const Axis axis : kAllAxes) {
    if (!machine_[axis]) continue;
    const double square = std::pow(way[static_cast<std::size_t>(axis)], 2);
    all += square;
    (machine_[axis]->rotary ? turning : linear) += square;
  }
  const bool grbl = machine_.controller == Controller::Grbl || machine_.controller == Controller::GrblHal;
  if (inverse_) {
    if (!feed || !(*feed > 0)) return Refusal{"G93 takes an F in each line"};
    // Its slowest path.
    const double rate = std::sqrt(all) * *feed;
    return grbl && rate < 1 ? std::sqrt(all) * 60 : 60 / *feed;
  }
  if (!feed_ || !(*feed_ > 0)) return Refusal{"no speed has been told"};
  const double least = machine_.controller == Controller::Marlin ? 1e-3 : 1e-7;
  double length = std::sqrt(all);
  if (machine_.feedLength == FeedLength::LinearFirst)
    length = std::sqrt(linear) >= least ? std::sqrt(linear) : std::sqrt(turning);
  return length / (grbl ? std::max(*feed_, 1.0) : *feed_) * 60;
}

Place Player::At() const {
  Place place;
  for (const Axis axis : kAllAxes) {
    if (!machine_[axis]) continue;
    double at = at_[static_cast<std::size_t>(axis)];
    if (axis == Axis::Mandrel) at += behind_ + offset_;
    place[axis] = machine_.PlaceOf(axis, at);
  }
  return place;
}

double Player::StepOf(Axis axis) const {
  if (!machine_[axis] || !machine_.Floats()) return 0;
  double at = at_[static_cast<std::size_t>(axis)];
  if (axis == Axis::Mandrel) at += offset_;
  const auto held = std::abs(static_cast<float>(at));
  return static_cast<double>(std::nextafter(held, INFINITY)) - static_cast<double>(held);
}

double Player::Kept(double value) const {
  return machine_.Floats() ? static_cast<double>(static_cast<float>(value)) : value;
}

std::optional<Axis> Player::AxisOf(char letter) const {
  for (const Axis axis : kAllAxes)
    if (machine_[axis] && machine_[axis]->letter == letter) return axis;
  return std::nullopt;
}

}  // namespace torvane::post
