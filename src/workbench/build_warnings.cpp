#include "workbench/build_warnings.h"

#include "calc/patterns.h"
#include "design/catalogue.h"
#include "design/text.h"
#include "gcode/session.h"
#include "gcode/two_axis_program.h"
#include "workbench/layer_count.h"
#include "workbench/number_hint.h"

namespace torvane {

namespace {

class Warnings {
 public:
  explicit Warnings(const Station& station) : station_(station), s_(station.s) {}

  std::vector<BuildWarning> Found() {
    LookAtFile();
    const int layers = LayerRows(s_);
    if (layers == 0) Warn(s_.txtNumberOfLayers(s_.Panel()), "There are no layers", "Nothing would be wound.");
    if (s_.gShow4Axis)
      LookAtFourAxes(layers);
    else
      LookAtTwoAxes(layers);
    LookAtNumbers(layers);
    if (!station_.recovery.refusal.empty())
      Warn(s_.gFilePath, "Save soon: there is no recovery copy", station_.recovery.refusal);
    return std::move(found_);
  }

 private:
  void Warn(const Field& field, std::string what, std::string why) {
    found_.push_back({&field, std::move(what), std::move(why)});
  }
  static std::string LayerName(int layer) { return "Layer " + std::to_string(layer); }

  void LookAtFile();
  void LookAtStop(const Field& stop, const std::string& name);
  void LookAtTwoAxes(int layers);
  void LookAtTwoAxisLayer(int layer);
  void LookAtCarriageShift(int layer, Number passes);
  void NameHiddenEnds();
  void LookAtFourAxes(int layers);
  void LookAtAngleLayer(int layer);
  void LookAtPatternLayer(int layer);
  bool HasPattern(int layer);
  void LookAtNumbers(int layers);

  const Station& station_;
  const DesignState& s_;
  std::vector<BuildWarning> found_;
  std::vector<int> withoutEnds_;  // two-axis layers whose ends are known to no field
  bool patternBefore_ = false;    // a layer before the one in hand has a pattern
};

void Warnings::LookAtFile() {
  const Files& files = station_.platform.files;
  if (s_.gFileName.empty()) {
    Warn(s_.gFileName, "The design has no file", "Save it first: the program takes its name.");
    return;
  }
  const std::string program = files.ProgramFolder() + std::string(kProgramFolder) + ProgramName(s_);
  if (program.find(' ') != std::string::npos)
    Warn(s_.gFileName, "A blank in the program's path", "The executor is given several words: " + program);
  const auto designTime = files.LastWritten(s_.gFilePath.text());
  const auto programTime = files.LastWritten(program);
  if (designTime && programTime && *programTime < *designTime)
    Warn(s_.gFileName, "The program is older than the design",
         "Until a build the executor has the former one.");
}

void Warnings::LookAtStop(const Field& stop, const std::string& name) {
  if (stop.empty())
    Warn(stop, name + " is empty", "The program takes 0 for it.");
  else if (!number(stop).good())
    Warn(stop, name + " is no number", "Its moves would be left out of the program.");
}

void Warnings::LookAtTwoAxes(int layers) {
  LookAtStop(s_.txtZ2(0), "The left stop");
  LookAtStop(s_.txtZ2(1), "The right stop");
  if (!s_.chkWindingSchedule.checked()) return;
  for (int layer = 1; layer <= layers; ++layer) LookAtTwoAxisLayer(layer);
  NameHiddenEnds();
}

void Warnings::LookAtTwoAxisLayer(int layer) {
  const Field& angle = s_.txtWA(layer);
  const Number passes = number(s_.lblPassesToCover(layer));
  const bool wound = holds(passes >= 1);
  if (!number(angle).good()) {
    Warn(
        angle, LayerName(layer) + " has no winding angle",
        wound ? "Its former passes would be wound at another layer's angle." : "No passes would be written.");
    return;
  }
  if (!wound) {
    Warn(angle, LayerName(layer) + " would write no passes",
         "Its angle, the diameters or the band stand against it.");
    return;
  }
  for (const Field* shown :
       {&s_.txtMRPM(layer), &s_.txtCarriageSpeed(layer), &s_.txtDiameterLeft, &s_.txtBandWidth(0)})
    if (!number(*shown).good()) {
      Warn(*shown, LayerName(layer) + " shows nothing on the machine", "A figure of that line is missing.");
      return;
    }
  if (EqualNoCase(s_.cmbMethod(layer).text(), "cs") && holds(passes >= 2))
    LookAtCarriageShift(layer, passes);
  else if (!number(s_.txtLeft(layer)).good())
    withoutEnds_.push_back(layer);
}

// By carriage shift later passes leave the stops: each turns round a band further along, counted from the
// row's ends, which are empty in a design typed from scratch and the stops in one that was opened.
void Warnings::LookAtCarriageShift(int layer, Number passes) {
  const Field& method = s_.cmbMethod(layer);
  const Number right = number(s_.txtRight(layer)), left = number(s_.txtLeft(layer));
  if (!left.good() || !right.good()) {
    Warn(method, LayerName(layer) + " would not move behind its first pass",
         "Choose ms: carriage shift needs ends that the row does not have.");
    return;
  }
  const Number shift = CarriageShift(s_, number(s_.txtWA(layer)), passes);
  const Number home = left + shift, far = number(s_.Length_Total) - right + shift;
  const Number reach = !far.good() || holds(home > far) ? home : far;
  if (holds(reach > number(FarOf(s_, s_.txtZ2(0), s_.txtZ2(1)))))
    Warn(method,
         LayerName(layer) + " would run to Z=" + FormatNumberText(s_.signs, reach.value(), "0.00"_mask),
         "Choose ms: carriage shift goes a band further with each pass, past the far stop.");
}

// A design typed from scratch has no ends in its rows; its file gives them the design's stops.
void Warnings::NameHiddenEnds() {
  if (withoutEnds_.empty()) return;
  const int first = withoutEnds_.front();
  const int last = withoutEnds_.back();
  std::string layers = (first == last ? "Layer " : "Layers ") + std::to_string(first);
  if (first != last && static_cast<int>(withoutEnds_.size()) == last - first + 1)
    layers += " to " + std::to_string(last);
  else
    for (std::size_t i = 1; i < withoutEnds_.size(); ++i) layers += ", " + std::to_string(withoutEnds_[i]);
  layers += first == last ? " shows" : " show";
  Warn(s_.txtLeft(first), layers + " nothing on the machine",
       "Save the design and open it again: its rows have no ends yet.");
}

void Warnings::LookAtFourAxes(int layers) {
  const Field& left = s_.txtZ4(0);
  const Field& right = s_.txtZ4(3);
  LookAtStop(left, "The left end");
  LookAtStop(right, "The right end");
  if (holds(number(left) == number(right)))
    Warn(right, "The part has no length", "Both ends stand at the same Z.");
  const Field& innerRight = s_.txtZ4(2);
  if (s_.gPartType.text() == "FLAT" && !holds(number(right) == 0) && !holds(number(innerRight) != 0))
    Warn(innerRight, "The hidden inner Z at the right is 0",
         "A flat part starts winding from it: type it as a hemi part, then turn back to flat.");
  if (!s_.chkWindingSchedule.checked()) return;
  for (int layer = 1; layer <= layers; ++layer) {
    const bool hoop = s_.cmbPattern(layer).text() == "HOOP";
    if (!hoop && s_.IsNoWrap())
      LookAtAngleLayer(layer);
    else if (!hoop)
      LookAtPatternLayer(layer);
    for (const Field* shown : {&s_.txtDia(0), &s_.txtBandWidth(1)})
      if (!number(*shown).good())
        Warn(*shown, LayerName(layer) + " shows nothing on the machine", "A figure of that line is missing.");
  }
}

void Warnings::LookAtAngleLayer(int layer) {
  const Field& angle = s_.cmbPattern(layer);
  if (!number(angle).good())
    Warn(angle, LayerName(layer) + " has no winding angle",
         "Its moves would be left out or stay as they were.");
  else if (!holds(number(s_.lblNPasses(layer)) >= 1))
    Warn(angle, LayerName(layer) + " would write no passes",
         "Its angle, the diameters or the band stand against it.");
}

bool Warnings::HasPattern(int layer) {
  SplitFields fields;
  fields.Split(s_.cmbPattern(layer).text(), kPatternSeparators);
  return s_.Read(fields(1)).good() && holds(Int(s_.Read(fields(2))) >= 1) &&
         holds(Int(s_.Read(fields(3))) >= 1) && s_.Read(fields(4)).good();
}

void Warnings::LookAtPatternLayer(int layer) {
  if (HasPattern(layer)) {
    patternBefore_ = true;
    return;
  }
  const Field& pattern = s_.cmbPattern(layer);
  const char* why = "No passes would be written.";
  if (layer == 1 && pattern.empty()) why = "The program would neither home nor go to its start.";
  if (patternBefore_) why = "It would be wound like the layer before.";
  Warn(pattern, LayerName(layer) + " has no pattern", why);
}

// Numbers of the family in use that hold the group sign.
void Warnings::LookAtNumbers(int layers) {
  ForEachField(s_, [&](const Field& field) {
    const FieldRow& row = field.row();
    if (row.kind != Kind::Text || !IsUsed(row, field.index(), s_.gShow4Axis) ||
        (IsScheduleRow(row) && field.index() > layers))
      return;
    const std::string hint = NumberHint(field, s_.signs);
    if (!hint.empty()) Warn(field, "Look at the number", hint);
  });
}

}  // namespace

std::vector<BuildWarning> BuildWarnings(const Station& station) { return Warnings(station).Found(); }

}  // namespace torvane
