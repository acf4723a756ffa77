// Any design to its program to its proof, as a station opens and builds it. Settings may stand in front of
// the design, whose first tag ends them; a comma before everything makes the computer one with decimal
// commas.
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

#include "design/reset.h"
#include "executor/program/reader.h"
#include "executor/proof/report.h"
#include "handoff/launch.h"
#include "host/store/ini_text.h"
#include "stage/stage.h"
#include "workbench/build/build_warnings.h"
#include "workbench/document/design_commands.h"
#include "workbench/document/startup.h"

namespace {

using namespace torvane;

// Enough for every section of a program, few enough for some hundred proofs a second.
constexpr ProgramLimits kLimits{.lines = 500, .bytes = 50'000};
// What the writers may add behind the last look at the limits: a layer's frame, and the finishing passes.
constexpr double kBehindLimit = 200;
// Seconds of processor time under the sanitizers, far above what is taken.
constexpr double kPatience = 10, kPatienceForLine = 0.001;

[[noreturn]] void Fail(const char* what, std::string_view line = {}) {
  std::fprintf(stderr, "%s\n%.*s\n", what, static_cast<int>(line.size()), line.data());
  std::abort();
}

class Watch {
 public:
  void Check(const char* what, double patience) {
    const std::clock_t now = std::clock();
    if (static_cast<double>(now - begun_) / CLOCKS_PER_SEC > patience) Fail(what);
    begun_ = now;
  }

 private:
  std::clock_t begun_ = std::clock();
};

// The program in one text; nothing where none was formed.
std::string FormedText(Station& station) {
  Program program(station.s.signs, nullptr, kLimits);
  if (!FormProgram(station.s, station.platform, program)) Fail("no program was formed");
  if (!program.refusal().empty()) return {};
  if (program.lines() > kLimits.lines + kBehindLimit) Fail("the program passes its limits");
  std::string text;
  for (const std::string_view block : program.Text()) text += block;
  return text;
}

// Each line ends as a line does, holds nothing else that could end it, and has a command that the executor
// knows. A word without its number is what the operator was warned of.
void Read(const std::string& program, bool warned) {
  if (!program.ends_with("\r\n")) Fail("the last line does not end");
  executor::Reader reader(program);
  for (executor::Line line; reader.Next(line);) {
    for (const char c : line.text)
      if (static_cast<unsigned char>(c) < ' ' || c == 0x7F) Fail("a control character in", line.text);
    if (line.kind != executor::Line::Kind::Unreadable) continue;
    if (!warned || line.trouble == "there is no such command") Fail(line.trouble.c_str(), line.text);
  }
}

void Prove(const std::string& program) {
  const executor::Proof proof = executor::Prove(program, executor::Limits());
  if (executor::Report(proof).empty()) Fail("the proof says nothing");
  for (const executor::LayerFigures& layer : proof.layers)
    if (layer.judged && !(layer.coveredShare >= 0 && layer.coveredShare <= 1)) Fail("a cover beyond all");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  Stage stage;
  stage.files.MakeFolder("C:\\Torvane\\TV_Design_Files");
  stage.files.MakeFolder("C:\\Torvane\\TV_G-Code_Files");
  if (bytes.starts_with(',')) {
    stage.locale.signs.decimal = ',';
    bytes.remove_prefix(1);
  }
  const auto design = std::min(bytes.find('<'), bytes.size());
  for (const auto& entry : IniText(std::string(bytes.substr(0, design))).Entries())
    stage.store.Write(entry.section, entry.key, entry.value);
  stage.store.Write("Settings", "gLastFileInUse", "");
  const bool fourAxes = bytes.find("<Type>") != std::string_view::npos;
  const std::string path = std::string("C:\\Torvane\\TV_Design_Files\\a.") + (fourAxes ? "t4d" : "t2d");
  stage.files.Put(path, std::string(bytes.substr(design)));

  Watch watch;
  WholeStation station(stage.AsPlatform());
  Form_Load(station);
  stage.clock.Advance(std::chrono::seconds(6));
  ShowAxisDisplay(station.s, fourAxes);
  if (OpenDesign(station, path) == Opened::No) Fail("the design cannot be opened");
  if (station.cutEchoes > 0) Fail("an echo had to be cut");
  const std::vector<BuildWarning> warnings = BuildWarnings(station);
  for (const BuildWarning& warning : warnings)
    if (warning.what.empty() || warning.why.empty()) Fail("a warning without words");
  watch.Check("opening takes too long", kPatience);

  const std::string program = FormedText(station);
  watch.Check("forming the program takes too long", kPatience);
  if (program.empty()) return 0;
  // The first time fills in the minutes of rows that were just opened.
  const std::string again = FormedText(station);
  if (again != program && FormedText(station) != again) Fail("each time it is another program");
  Read(program, !warnings.empty());
  watch.Check("reading takes too long", kPatience);
  Prove(program);
  watch.Check("the proof takes too long", kPatience + kPatienceForLine * kLimits.lines);
  return 0;
}
