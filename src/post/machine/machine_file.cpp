#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "post/machine/machine.h"

namespace torvane::post {

namespace {

using nlohmann::json;

// What a controller's own sources allow of a machine file.
struct Allowed {
  std::string_view letters;
  std::size_t longestLine;
  bool inverseTime, inches, numbers, crlf;
  std::initializer_list<Comments> comments;
  std::initializer_list<Messages> messages;
  std::initializer_list<Dwell> dwells;
  std::initializer_list<MandrelReset> resets;
  std::initializer_list<FeedLength> lengths;
};

const Allowed& AllowedBy(Controller controller) {
  using C = Comments;
  using M = Messages;
  using D = Dwell;
  using R = MandrelReset;
  using L = FeedLength;
  static const std::array<Allowed, 4> kAllowed = {{
      {"XYZABCUVW",
       252,
       true,
       true,
       true,
       true,
       {C::None, C::Brackets, C::Semicolon},
       {M::None, M::Msg},
       {D::PSeconds},
       {R::None, R::G92},
       {L::LinearFirst}},
      // Its three letters are lengths to it, a mandrel's as well: inches would scale the degrees.
      {"XYZ", 79, true, false, false, false, {C::None}, {M::None}, {D::PSeconds}, {R::None}, {L::AllAxes}},
      {"XYZABCUV",
       256,
       true,
       true,
       false,
       true,
       {C::None},
       {M::None, M::Msg},
       {D::PSeconds},
       {R::None},
       {L::AllAxes, L::LinearFirst}},
      {"XYZABCUVW",
       95,
       false,
       false,
       false,
       true,
       {C::None, C::Semicolon},
       {M::None, M::M117},
       {D::PMilliseconds, D::SSeconds},
       {R::None, R::G92, R::G92Native},
       {L::AllAxes, L::LinearFirst}},
  }};
  return kAllowed[static_cast<std::size_t>(controller)];
}

template <class Value>
bool Holds(std::initializer_list<Value> list, Value value) {
  return std::find(list.begin(), list.end(), value) != list.end();
}

[[noreturn]] void Throw(const std::string& reason) { throw Refusal{reason}; }

// An object of the file: every key that it holds must be asked for.
class Object {
 public:
  Object(const json& value, std::string name) : value_(value), name_(std::move(name)) {
    if (!value.is_object()) Throw(name_ + " is no object");
  }
  // Throws for a key that nobody asked for: a misspelt limit is a danger.
  void Done() const {
    for (const auto& [key, ignored] : value_.items())
      if (std::find(asked_.begin(), asked_.end(), key) == asked_.end()) Throw("there is no key " + Path(key));
  }

  std::string Path(const std::string& key) const { return name_.empty() ? key : name_ + "." + key; }
  const json* Find(const std::string& key) {
    asked_.push_back(key);
    const auto found = value_.find(key);
    return found == value_.end() ? nullptr : &*found;
  }
  const json& Need(const std::string& key) {
    const json* found = Find(key);
    if (found == nullptr) Throw(Path(key) + " is missing");
    return *found;
  }
  std::optional<double> Number(const std::string& key, double least, double most) {
    const json* found = Find(key);
    if (found == nullptr) return std::nullopt;
    if (!found->is_number()) Throw(Path(key) + " is no number");
    const auto value = found->get<double>();
    if (!(value >= least && value <= most)) Throw(Path(key) + " makes no sense: " + found->dump());
    return value;
  }
  double Needed(const std::string& key, double least, double most) {
    Need(key);
    return *Number(key, least, most);
  }
  int Whole(const std::string& key, int usual, int least, int most) {
    const std::optional<double> value = Number(key, least, most);
    if (value && *value != std::floor(*value)) Throw(Path(key) + " is no whole number");
    return value ? static_cast<int>(*value) : usual;
  }
  bool Flag(const std::string& key) {
    const json* found = Find(key);
    if (found != nullptr && !found->is_boolean()) Throw(Path(key) + " is neither true nor false");
    return found != nullptr && found->get<bool>();
  }
  std::string Text(const std::string& key, const std::string& usual) {
    const json* found = Find(key);
    if (found == nullptr) return usual;
    return LineOf(*found, Path(key));
  }
  // The place of the text among those that may stand there.
  std::size_t OneOf(const std::string& key, std::initializer_list<std::string_view> texts,
                    std::size_t usual) {
    const json* found = Find(key);
    if (found == nullptr) return usual;
    const std::string text = LineOf(*found, Path(key));
    const auto at = std::find(texts.begin(), texts.end(), text);
    if (at != texts.end()) return static_cast<std::size_t>(at - texts.begin());
    std::string all;
    for (const std::string_view one : texts) all += (all.empty() ? "" : ", ") + std::string(one);
    Throw(Path(key) + " is none of " + all + ": " + text);
  }
  static std::string LineOf(const json& value, const std::string& path) {
    if (!value.is_string()) Throw(path + " is no text");
    const auto text = value.get<std::string>();
    if (std::any_of(text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; }))
      Throw(path + " holds something else than plain characters");
    return text;
  }

 private:
  const json& value_;
  std::string name_;
  std::vector<std::string> asked_;
};

constexpr double kFar = 1e9;

MachineAxis ReadAxis(const json& value, const std::string& path, Axis axis, const Allowed& allowed) {
  Object object(value, path);
  MachineAxis read;
  object.Need("letter");
  const std::string letter = object.Text("letter", "");
  if (letter.size() != 1 || allowed.letters.find(letter[0]) == std::string_view::npos)
    Throw(path + ".letter: the controller has the axes " + std::string(allowed.letters) + ", not " + letter);
  read.letter = letter[0];
  object.Need("rotary");
  read.rotary = object.Flag("rotary");
  const bool turns = axis == Axis::Mandrel || axis == Axis::HeadRotation;
  if (read.rotary != turns) Throw(path + ".rotary: this axis " + (turns ? "turns" : "does not turn"));
  read.reversed = object.Flag("reversed");
  read.min = object.Number("min", -kFar, kFar);
  read.max = object.Number("max", -kFar, kFar);
  if (axis == Axis::Mandrel && (read.min || read.max))
    Throw(path + " has a limit: the mandrel turns without end");
  if (read.min && read.max && !(*read.min < *read.max)) Throw(path + ".min is not below max");
  read.home = object.Number("home", -kFar, kFar).value_or(0);
  if (axis == Axis::Mandrel && read.home != 0) Throw(path + ".home: the mandrel has no limit switch");
  if ((read.min && read.home < *read.min) || (read.max && read.home > *read.max))
    Throw(path + ".home lies outside of min and max");
  read.stepsPerUnit = object.Number("stepsPerUnit", 1e-3, 1e6).value_or(0);
  read.rate = object.Needed("maxRatePerMin", 1e-3, kFar) / 60;
  read.acceleration = object.Needed("accelPerS2", 1e-3, kFar);
  read.decimals = object.Whole("decimals", 3, 0, 6);
  if (std::pow(10, -read.decimals) * read.stepsPerUnit > 1)
    Throw(path + ".decimals are too few: a step is finer than the last digit");
  object.Done();
  return read;
}

void ReadAxes(const json& value, const Allowed& allowed, Machine& machine) {
  Object object(value, "axes");
  std::string letters;
  for (const Axis axis : kAllAxes) {
    const std::string name(NameOf(axis));
    const bool needed = axis == Axis::Carriage || axis == Axis::Mandrel;
    const json* found = needed ? &object.Need(name) : object.Find(name);
    if (found == nullptr) continue;
    const MachineAxis read = ReadAxis(*found, "axes." + name, axis, allowed);
    if (letters.find(read.letter) != std::string::npos)
      Throw("axes." + name + ".letter stands there twice: " + read.letter);
    letters += read.letter;
    if (machine.inches && read.rotary && std::string_view("XYZ").find(read.letter) != std::string_view::npos)
      Throw("axes." + name + ".letter: with inches the controller would scale the degrees of " + read.letter);
    // What the smallest boards send out.
    constexpr double kMostSteps = 30000;
    if (machine.controller == Controller::Grbl && read.rate * read.stepsPerUnit > kMostSteps)
      Throw("axes." + name + ".maxRatePerMin takes more than 30000 steps a second");
    machine.axes[static_cast<std::size_t>(axis)] = read;
  }
  object.Done();
}

void ReadFeed(const json& value, const Allowed& allowed, Machine& machine) {
  Object object(value, "feed");
  object.Need("mode");
  machine.feedMode = static_cast<FeedMode>(object.OneOf("mode", {"inverse-time", "per-minute"}, 0));
  if (machine.feedMode == FeedMode::InverseTime && !allowed.inverseTime)
    Throw("feed.mode: this controller has no inverse-time");
  object.Need("length");
  machine.feedLength = static_cast<FeedLength>(object.OneOf("length", {"all-axes", "linear-first"}, 0));
  if (!Holds(allowed.lengths, machine.feedLength)) Throw("feed.length is not what this controller counts");
  machine.feedDigits = object.Whole("digits", 5, 4, 7);
  machine.blocksPerSecond = object.Number("blocksPerSecond", 1, 10000).value_or(50);
  machine.lookAhead = object.Whole("lookAhead", 15, 1, 10000);
  object.Done();
}

void ReadLine(const json* value, const Allowed& allowed, Machine& machine) {
  machine.lineLength = allowed.longestLine;
  if (value == nullptr) return;
  Object object(*value, "line");
  machine.lineLength = static_cast<std::size_t>(object.Whole("length", static_cast<int>(allowed.longestLine),
                                                             40, static_cast<int>(allowed.longestLine)));
  machine.comments = static_cast<Comments>(object.OneOf("comments", {"none", "paren", "semicolon"}, 0));
  if (!Holds(allowed.comments, machine.comments)) Throw("line.comments: this controller would act on them");
  machine.numbers = object.Flag("numbers");
  if (machine.numbers && !allowed.numbers) Throw("line.numbers: this controller means something else by N");
  machine.crlf = object.OneOf("eol", {"lf", "crlf"}, 0) == 1;
  if (machine.crlf && !allowed.crlf) Throw("line.eol: this controller answers a crlf twice");
  machine.messages = static_cast<Messages>(object.OneOf("message", {"none", "MSG", "M117"}, 0));
  if (!Holds(allowed.messages, machine.messages)) Throw("line.message: this controller does not know it");
  object.Done();
}

// Of the link to the controller nothing stands in a program; whoever sends one needs it.
void CheckLink(const json* value) {
  if (value == nullptr) return;
  Object object(*value, "link");
  object.Whole("baud", 0, 300, 4'000'000);
  object.Whole("buffer", 0, 16, 1'000'000);
  object.OneOf("flow", {"count", "line", "file"}, 0);
  object.Flag("checksum");
  object.Flag("emergencyParser");
  object.Done();
}

// A line of the machine's own, as a controller acts on it.
void CheckOwnLine(const std::string& line, const std::string& path, const Machine& machine) {
  if (line.empty() || line.size() > machine.lineLength) Throw(path + " is empty or too long: " + line);
  if (line.find_first_of("!?~()[;%*$") != std::string::npos)
    Throw(path + " holds a character on which controllers act: " + line);
  for (std::size_t at = line.find('G'); at != std::string::npos; at = line.find('G', at + 1)) {
    const std::size_t end = std::min(line.find_first_not_of("0123456789.", at + 1), line.size());
    const std::string word = line.substr(at, end - at);
    if (word == "G91") Throw(path + ": relative positions (G91) add up what is rounded");
    if (word == (machine.inches ? "G21" : "G20")) Throw(path + ": " + word + " is not the unit of the file");
    if (word == "G28" || word == "G30" || word == "G53" || word == "G10")
      Throw(path + ": " + word + " would turn a wound mandrel back, or writes the controller's memory");
  }
}

void ReadOwnLines(Object& object, Machine& machine) {
  machine.pause = object.Text("pause", "M0");
  CheckOwnLine(machine.pause, "pause", machine);
  const json& start = object.Need("start");
  if (!start.is_array()) Throw("start is no list of lines");
  std::string all;
  for (const json& line : start) {
    machine.start.push_back(Object::LineOf(line, "start"));
    CheckOwnLine(machine.start.back(), "start", machine);
    all += ' ' + machine.start.back() + ' ';
  }
  for (const std::string word : {machine.inches ? "G20" : "G21", "G90"})
    if (all.find(' ' + word + ' ') == std::string::npos) Throw("start does not say " + word);
  const bool marlin = machine.controller == Controller::Marlin;
  machine.end = object.Text("end", marlin ? "M400" : "M2");
  CheckOwnLine(machine.end, "end", machine);
  if (!marlin && machine.end != "M2" && machine.end != "M30") Throw("end: a program ends with M2 or M30");
}

Machine ReadWhole(const json& value) {
  Object object(value, "");
  if (object.Needed("version", 1, kFar) != 1) Throw("version: only 1 is known");
  Machine machine;
  object.Need("name");
  machine.name = object.Text("name", "");
  if (machine.name.empty()) Throw("name is empty");
  object.Need("controller");
  machine.controller =
      static_cast<Controller>(object.OneOf("controller", {"linuxcnc", "grbl", "grblhal", "marlin"}, 0));
  const Allowed& allowed = AllowedBy(machine.controller);
  machine.inches = object.OneOf("units", {"mm", "inch"}, 0) == 1;
  if (machine.inches && !allowed.inches) Throw("units: this controller's programs are written in mm");
  ReadAxes(object.Need("axes"), allowed, machine);
  ReadFeed(object.Need("feed"), allowed, machine);
  ReadLine(object.Find("line"), allowed, machine);
  CheckLink(object.Find("link"));
  machine.dwell = static_cast<Dwell>(object.OneOf("dwell", {"P-seconds", "P-milliseconds", "S-seconds"},
                                                  static_cast<std::size_t>(*allowed.dwells.begin())));
  if (!Holds(allowed.dwells, machine.dwell)) Throw("dwell: this controller counts otherwise");
  machine.mandrelReset = static_cast<MandrelReset>(object.OneOf("mandrelReset", {"none", "G92", "G92.9"}, 0));
  if (!Holds(allowed.resets, machine.mandrelReset))
    Throw("mandrelReset: on this controller it wins nothing or turns the mandrel");
  machine.maxTurns = object.Number("maxTurns", 1, 1e6).value_or(0);
  ReadOwnLines(object, machine);
  object.Done();
  return machine;
}

}  // namespace

Result<Machine> ReadMachine(std::string_view text) {
  const json value = json::parse(text, nullptr, false);
  if (value.is_discarded()) return Refusal{"this is no JSON"};
  try {
    return ReadWhole(value);
  } catch (const Refusal& refusal) {
    return refusal;
  } catch (const json::exception& error) {
    return Refusal{error.what()};
  }
}

}  // namespace torvane::post
