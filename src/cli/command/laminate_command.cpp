#include <cstdio>
#include <functional>

#include "cli/command/commands.h"
#include "cli/computer/designs.h"
#include "host/files/paths.h"
#include "laminate/cases/case.h"
#include "laminate/report/report.h"
#include "live/live_proof.h"
#include "text/code_page.h"

namespace torvane {

namespace {

// Spreadsheets write UTF-16 too.
std::string InUtf8(std::string bytes) {
  if (!IsUtf16(bytes)) return bytes;
  Result<std::string> text = Utf8OfUtf16(bytes);
  return text ? text.Take() : bytes;
}

void ComplainOfEach(const std::string& file, const std::vector<std::string>& faults) {
  for (const std::string& fault : faults) Complain(Because(file, fault));
}

// The table in the station's folder, made where there is none.
laminate::Materials MaterialsOf(Files& files) {
  const std::string path = files.ProgramFolder() + "\\" + std::string(laminate::kMaterialsFile);
  const std::string name(laminate::kMaterialsFile);
  std::string text = laminate::FirstMaterials();
  if (!files.Exists(path)) {
    const Outcome made = files.WriteWhole(path, {text});
    Complain(made ? ToUtf8(path) + " is made: the materials, each with its source"
                  : Because(ToUtf8(path), made.reason()));
  } else if (Result<std::string> read = files.ReadAtMost(path, kLargestText); read) {
    text = InUtf8(read.Take());
  } else {
    Complain(Because(ToUtf8(path), read.reason()) + "; the first materials are taken");
  }
  laminate::Materials materials = laminate::ReadMaterials(text);
  ComplainOfEach(name, materials.faults);
  return materials;
}

// The file beside the design, and what the command line says instead.
laminate::Choice ChoiceOf(const Files& files, const std::string& design, const LaminateOptions& options) {
  laminate::Choice choice;
  const Result<std::string> path = AbsoluteStationPath(design + std::string(laminate::kChoiceEnding));
  if (path && files.Exists(path.value())) {
    Result<std::string> text = files.ReadAtMost(path.value(), kLargestText);
    if (text)
      choice = laminate::ReadChoice(InUtf8(text.Take()));
    else
      Complain(Because(ToUtf8(path.value()), text.reason()));
    ComplainOfEach(design + std::string(laminate::kChoiceEnding), choice.faults);
  }
  if (!options.tow.empty()) choice.tow = options.tow;
  if (!options.resin.empty()) choice.resin = options.resin;
  if (!options.tow.empty() || !options.resin.empty()) choice.ply.clear();
  if (!options.ply.empty()) choice.ply = options.ply;
  return choice;
}

laminate::TubeLoad LoadOf(const LaminateOptions& options, const laminate::ShownUnits& units) {
  const auto figure = [](const char* option, const std::string& text, const laminate::ShownUnit& usual) {
    const Result<double> read = laminate::LoadOf(option, text, usual);
    if (!read) throw UsageError{read.reason()};
    return read.value();
  };
  return {.pressure = figure("--pressure", options.pressure, units.pressure),
          .force = figure("--force", options.force, units.force),
          .torque = figure("--torque", options.torque, units.torque),
          .moment = figure("--moment", options.moment, units.torque),
          .closed = !options.open};
}

// Throws BadCase for what cannot be worked out.
std::string AnswerOfFile(Computer& computer, const std::string& file) {
  const Result<std::string> path = AbsoluteStationPath(file);
  if (!path) throw laminate::BadCase{ToUtf8(path.reason())};
  OverlayStore settings = computer.RunSettings();
  const Result<std::string> text = computer.AsPlatform(settings).files.ReadAtMost(path.value(), kLargestText);
  if (!text) throw laminate::BadCase{ToUtf8(text.reason())};
  return laminate::AnswerOfText(text.value()).dump(2) + '\n';
}

}  // namespace

int RunLaminateCase(Computer& computer, const std::string& file) {
  std::string answer;
  try {
    answer = AnswerOfFile(computer, file);
  } catch (const laminate::BadCase& bad) {
    throw UsageError{file + ": " + bad.reason};
  }
  std::fwrite(answer.data(), 1, answer.size(), stdout);
  return kDone;
}

int RunLaminate(Computer& computer, const std::string& design, const LaminateOptions& options) {
  computer.MakeStationFolders();
  const OverlayStore settings = computer.RunSettings();
  OpenedDesign opened(computer, design);
  if (!opened) return kFailed;
  Station& station = opened.station();
  const laminate::TubeLoad load = LoadOf(options, laminate::UnitsOf(!station.s.InInches()));
  Files& files = station.platform.files;
  const laminate::Materials materials = MaterialsOf(files);
  const laminate::Choice choice = ChoiceOf(files, design, options);
  const executor::Limits limits = executor::ReadLimits(settings, station.s.gDecimalComma ? ',' : '.');
  const LiveResult result =
      ProveDesign(station.s, {files.ProgramFolder(), station.platform.clock.Now()}, limits);
  if (!result.refusal.empty()) Complain(ToUtf8(result.refusal));
  if (!result.formed) {
    Complain(design + ": there is no program to take the laid angles from; give the design its layers");
    return kFailed;
  }
  std::vector<std::string> missing;
  const laminate::Stock stock = StockOf(materials, choice, missing);
  laminate::Estimate estimate = EstimateOf(result.proof, stock, choice, limits, load);
  estimate.missing.insert(estimate.missing.begin(), missing.begin(), missing.end());
  const laminate::Named named{choice.tow, choice.resin, choice.ply};
  // A table in the code page of an old spreadsheet is no UTF-8.
  const std::string text =
      options.json
          ? JsonOf(estimate, named).dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + '\n'
          : Printable(design) + "\n" + laminate::Report(estimate, named, result.proof.millimetres);
  std::fwrite(text.data(), 1, text.size(), stdout);
  return kDone;
}

}  // namespace torvane
