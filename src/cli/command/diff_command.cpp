#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/command/commands.h"
#include "cli/computer/designs.h"
#include "compare/compare.h"
#include "gcode/session.h"
#include "host/files/file_system.h"
#include "host/files/paths.h"
#include "text/code_page.h"

namespace torvane {

namespace {

// A design with the program that Build would write, or a program.
class Side {
 public:
  // Complains and is not whole if there is nothing to compare.
  Side(Computer& computer, const std::string& path, const executor::Limits& limits) {
    const std::string ending = EndingOf(path);
    whole_ = IsTwoAxisEnding(ending) || ending == "t4d" ? Open(computer, path) : Read(path);
    if (!whole_) return;
    proof_ = executor::Prove(program_, limits);
    if (proof_.anyStatement) return;
    whole_ = false;
    Complain(path + ": no program: it holds no statement that can be read");
  }

  explicit operator bool() const { return whole_; }
  Compared compared() const { return {design_ ? &design_->station().s : nullptr, program_, proof_}; }

 private:
  bool Open(Computer& computer, const std::string& path) {
    design_ = std::make_unique<OpenedDesign>(computer, path);
    if (!*design_) return false;
    Station& station = design_->station();
    Program program(station.s.signs);
    if (!FormProgram(station.s, station.platform, program) || !program.refusal().empty()) {
      Complain(path + ": " + (program.refusal().empty() ? "no program" : ToUtf8(program.refusal())));
      return false;
    }
    for (const std::string_view block : program.Text()) program_ += block;
    return true;
  }

  bool Read(const std::string& path) {
    Result<std::string> program = ReadRegularFile(SystemPath(path));
    if (!program) {
      Complain(path + ": " + ToUtf8(program.reason()));
      return false;
    }
    program_ = program.Take();
    return true;
  }

  bool whole_ = false;
  std::unique_ptr<OpenedDesign> design_;
  std::string program_;
  executor::Proof proof_;
};

std::string Signed(double value) {
  char text[40];
  std::snprintf(text, sizeof text, "%+.6g", value);
  return text;
}

void Print(const std::vector<Difference>& differences) {
  int layer = -1;
  for (const Difference& difference : differences) {
    if (difference.layer != layer) {
      layer = difference.layer;
      std::printf("%s\n", layer == 0 ? "whole part" : ("layer " + std::to_string(layer)).c_str());
    }
    const auto shown = [](const std::string& text) {
      return text.empty() ? "nothing" : Printable(ToUtf8(text));
    };
    std::string line =
        "  " + ToUtf8(difference.what) + ": " + shown(difference.from) + " to " + shown(difference.to);
    if (!difference.unit.empty()) line += " " + ToUtf8(difference.unit);
    if (difference.by) line += " (" + Signed(*difference.by) + ")";
    std::printf("%s\n", line.c_str());
  }
  if (differences.empty()) std::printf("No difference in what is wound.\n");
}

nlohmann::ordered_json JsonOf(const std::vector<Difference>& differences) {
  auto list = nlohmann::ordered_json::array();
  for (const Difference& difference : differences) {
    nlohmann::ordered_json object = {{"layer", difference.layer},
                                     {"what", ToUtf8(difference.what)},
                                     {"from", ToUtf8(difference.from)},
                                     {"to", ToUtf8(difference.to)},
                                     {"unit", ToUtf8(difference.unit)}};
    if (difference.by) object["by"] = *difference.by;
    list.push_back(std::move(object));
  }
  return {{"equal", differences.empty()}, {"differences", std::move(list)}};
}

}  // namespace

int RunDiff(Computer& computer, const std::string& before, const std::string& after, bool json) {
  computer.MakeStationFolders();
  const OverlayStore settings = computer.RunSettings();
  const executor::Limits limits = executor::ReadLimits(settings, computer.stage.locale.Signs().decimal);
  const Side from(computer, before, limits), to(computer, after, limits);
  if (!from || !to) return kUsage;
  const std::vector<Difference> differences = Compare(from.compared(), to.compared());
  if (json)
    std::printf("%s\n", JsonOf(differences).dump(2).c_str());
  else
    Print(differences);
  return differences.empty() ? kDone : kFailed;
}

}  // namespace torvane
