#include "workbench/build/build_warnings.h"

#include <algorithm>

#include "calc/patterns.h"
#include "design/catalogue.h"
#include "design/masks.h"
#include "design/units.h"
#include "gcode/program.h"
#include "gcode/session.h"
#include "gcode/two_axis_program.h"
#include "persist/settings.h"
#include "text/text.h"
#include "workbench/station/layer_count.h"
#include "workbench/station/number_hint.h"

namespace torvane {

namespace {

constexpr Mask kReach = "0.00"_mask;

// No machine means such a number, and no dry run reads it.
constexpr double kBeyondMachines = 1e13;

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
    if (s_.chkWindingSchedule.checked()) LookAtBuildTime();
    LookAtSettings();
    LookAtNumbers(layers);
    if (!station_.recovery.refusal.empty())
      Warn(s_.gFilePath, "Save soon: there is no recovery copy", station_.recovery.refusal, Concern::Unsaved);
    return std::move(found_);
  }

 private:
  void Warn(const Field& field, std::string what, std::string why, Concern concern = Concern::Other,
            int layer = 0) {
    found_.push_back({&field, std::move(what), std::move(why), concern, layer});
  }
  static std::string LayerName(int layer) { return "Layer " + std::to_string(layer); }

  void LookAtFile();
  void LookAtStop(const Field& stop, const std::string& name);
  void LookAtBand();
  void LookAtCopy(const Field& copy, const Field& shown);
  void LookAtTwoAxes(int layers);
  void LookAtTwoAxisLayer(int layer);
  bool LookAtPasses(const Field& angle, const Field& passes, Number diameter, int layer);
  void LookAtAngle(const Field& angle, int layer);
  void LookAtTypedSpeed(int layer);
  void LookAtSpeeds(const Field& mandrel, const Field& carriage, int layer,
                    const char* whyItStands = "Its speed is 0.");
  bool LosesDecimals() const;
  void LookAtCarriageShift(int layer, Number passes);
  void NameHiddenEnds();
  void LookAtFourAxes(int layers);
  void LookAtHead();
  void LookAtBuildTime();
  // Each false if the layer has nothing to wind by.
  bool LookAtAngleLayer(int layer);
  bool LookAtPatternLayer(int layer);
  bool HasPattern(int layer);
  void LookAtSettings();
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
    Warn(s_.gFileName, "The design has no file", "Save it first: the program takes its name.",
         Concern::Unsaved);
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

// A program takes three decimals of the band.
void Warnings::LookAtBand() {
  const Field& width = s_.txtBandWidth(s_.Panel());
  if (holds(number(width) > 0) && holds(InUnits(s_, number(width), false) == 0))
    Warn(width, "The band is too narrow", "With three decimals it is 0: dwells lose their angles.");
}

// Both families share the working copies of a part's values: what was typed for the other family stands
// there.
void Warnings::LookAtCopy(const Field& copy, const Field& shown) {
  if (holds(number(copy) != number(shown)))
    Warn(shown, "The other family's value stands for " + shown.text(),
         "The program would take " + copy.text() + ": type the value anew.", Concern::OtherFamily);
}

void Warnings::LookAtTwoAxes(int layers) {
  const Field& left = s_.txtZ2(0);
  const Field& right = s_.txtZ2(1);
  LookAtStop(left, "The left stop");
  LookAtStop(right, "The right stop");
  if (holds(number(left) == number(right)))
    Warn(right, "Both stops stand at the same Z", "The carriage would not move.");
  LookAtBand();
  LookAtCopy(s_.Diameter_Left, s_.txtDiameterLeft);
  LookAtCopy(s_.Diameter_Right, s_.txtDiameterRight);
  LookAtCopy(s_.Length_Total, s_.txtLengthTotal(0));
  LookAtCopy(s_.Band_Width, s_.txtBandWidth(0));
  if (layers == 1 && LosesDecimals())
    Warn(s_.txtNumberOfLayers(0), "Opened again, the design loses decimals",
         "A single layer's values end at their comma in the file: type them anew after each opening.");
  if (!s_.chkWindingSchedule.checked()) return;
  for (int layer = 1; layer <= layers; ++layer) LookAtTwoAxisLayer(layer);
  NameHiddenEnds();
}

// The list of one layer holds no semicolon, so its reader takes a decimal comma for what parts the fields.
// The speeds are worked out anew after that.
bool Warnings::LosesDecimals() const {
  const auto loses = [this](std::string_view text) {
    const auto comma = text.find(',');
    return s_.gDecimalComma && comma != std::string_view::npos &&
           !holds(s_.Read(text) == s_.Read(text.substr(0, comma)));
  };
  return loses(s_.LayerTable2Ax(1, 1)) || loses(s_.LayerTable2Ax(1, 10)) || loses(s_.txtZ2(0).text()) ||
         loses(s_.txtZ2(1).text());
}

void Warnings::LookAtAngle(const Field& angle, int layer) {
  if (!holds(number(angle) >= 0) || !holds(number(angle) <= 90))
    Warn(angle, LayerName(layer) + " has no angle that can be wound", "It lies between 0 and 90 degrees.");
}

void Warnings::LookAtSpeeds(const Field& mandrel, const Field& carriage, int layer, const char* whyItStands) {
  if (holds(number(mandrel) <= 0))
    Warn(mandrel, "The mandrel would stand in layer " + std::to_string(layer), "Its speed is 0.",
         Concern::Stands, layer);
  if (s_.mMaxRPM > 0 && holds(number(mandrel) > s_.mMaxRPM))
    Warn(mandrel, LayerName(layer) + " turns faster than the machine can",
         "Its highest mandrel speed is " + FormatNumberText(s_.signs, s_.mMaxRPM, mask::kMandrelSpeed) +
             " RPM.",
         Concern::TooFast, layer);
  if (holds(number(carriage) <= 0))
    Warn(carriage, "The carriage would stand in layer " + std::to_string(layer), whyItStands, Concern::Stands,
         layer);
}

// A typed mandrel speed goes into the program alone, and takes the carriage speed of every row from its
// angle: a hoop's comes to nothing.
void Warnings::LookAtTypedSpeed(int layer) {
  const Field& mandrel = s_.txtMRPM(layer);
  LookAtSpeeds(mandrel, s_.txtCarriageSpeed(layer), layer,
               holds(number(s_.txtWA(layer)) == 90)
                   ? "A typed mandrel speed does that to hoops: ReCalc All Rows gives them theirs back."
                   : "Its speed is 0.");
  if (holds(number(mandrel) != s_.Read(s_.LayerTable2Ax(layer, 7))))
    Warn(mandrel, LayerName(layer) + "'s typed mandrel speed is not in the file",
         "The program winds with it; the saved design keeps the former one.", Concern::TypedSpeed, layer);
}

// False if there is nothing to wind.
bool Warnings::LookAtPasses(const Field& angle, const Field& passes, Number diameter, int layer) {
  constexpr int kLeastLines = 3;  // of a pass
  if (!holds(number(passes) >= 1)) {
    Warn(angle, LayerName(layer) + " would write no passes",
         "Its angle, the diameters or the band stand against it.");
    return false;
  }
  if (holds(number(passes) * kLeastLines > ProgramLimits{}.lines)) {
    Warn(angle, LayerName(layer) + " would take " + passes.text() + " passes",
         "No program holds so many: look at the diameters and the band.");
    return false;
  }
  if (!holds(number(angle) == 90) && !(diameter * kPi / BandWidth(s_, s_.Panel())).good())
    Warn(passes, LayerName(layer) + " keeps its former passes",
         "They cannot be worked out of the left diameter and the band.");
  return true;
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
  LookAtAngle(angle, layer);
  if (!LookAtPasses(angle, s_.lblPassesToCover(layer), number(s_.txtDiameterLeft), layer)) return;
  LookAtTypedSpeed(layer);
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
         "Choose ms: carriage shift needs ends that the row does not have.", Concern::CarriageShift, layer);
    return;
  }
  const Number shift = (passes - 1) * BandOnAxis(s_, number(s_.txtWA(layer)));
  const Number home = left + shift, far = number(s_.Length_Total) - right + shift;
  const Number reach = !far.good() || holds(home > far) ? home : far;
  if (holds(reach > number(FarOf(s_, s_.txtZ2(0), s_.txtZ2(1)))))
    Warn(method, LayerName(layer) + " would run to Z=" + FormatNumberText(s_.signs, reach.value(), kReach),
         "Choose ms: carriage shift goes a band further with each pass, past the far stop.",
         Concern::CarriageShift, layer);
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
       first == last && LosesDecimals() ? "Its row has no ends yet; saved and opened again it loses decimals."
                                        : "Save the design and open it again: its rows have no ends yet.",
       Concern::NoEnds);
}

// Each end is wrapped by a head that swings round it, at the speeds of the machine's motors.
void Warnings::LookAtHead() {
  if (s_.IsNoWrap()) return;
  const bool hemi = s_.IsHemi();
  const auto look = [this](const Field& wrap, const Field& end, const char* side) {
    if (holds(number(wrap) == number(end)))
      Warn(wrap, "The wrap at the " + std::string(side) + " begins where the traverse ends",
           "The head would turn on the spot: look at the offsets.");
  };
  look(s_.txtAdjust(1), s_.txtZ4(hemi ? 1 : 0), "left");
  look(s_.txtAdjust(5), s_.txtZ4(hemi ? 2 : 3), "right");
  const bool larger = ReadsAsTrue(GetSetting(station_.platform.store, kSettings, "gIsNEMA34", "False"));
  if (larger && !s_.gIsNEMA34)
    Warn(s_.cmbRate, "End wraps would run at the smaller motors' speeds",
         "Click beside the layers first: the station then knows of the larger ones.", Concern::SmallMotors);
}

void Warnings::LookAtFourAxes(int layers) {
  const Field& left = s_.txtZ4(0);
  const Field& right = s_.txtZ4(3);
  LookAtStop(left, "The left end");
  LookAtStop(right, "The right end");
  if (holds(number(left) == number(right)))
    Warn(right, "The part has no length", "Both ends stand at the same Z.");
  LookAtBand();
  LookAtHead();
  if (s_.IsNoWrap()) LookAtCopy(s_.Band_Width, s_.txtBandWidth(1));
  const Field& innerRight = s_.txtZ4(2);
  if (s_.gPartType.text() == "FLAT" && !holds(number(right) == 0) && !holds(number(innerRight) != 0))
    Warn(innerRight, "The hidden inner Z at the right is 0",
         "A flat part starts winding from it: type it as a hemi part, then turn back to flat.");
  if (!s_.chkWindingSchedule.checked()) return;
  for (int layer = 1; layer <= layers; ++layer) {
    const bool hoop = s_.cmbPattern(layer).text() == "HOOP";
    if (hoop || (s_.IsNoWrap() ? LookAtAngleLayer(layer) : LookAtPatternLayer(layer)))
      LookAtSpeeds(s_.lblRPM(layer), s_.lblcSpeed(layer), layer);
    for (const Field* shown : {&s_.txtDia(0), &s_.txtBandWidth(1)})
      if (!number(*shown).good())
        Warn(*shown, LayerName(layer) + " shows nothing on the machine", "A figure of that line is missing.");
  }
}

bool Warnings::LookAtAngleLayer(int layer) {
  const Field& angle = s_.cmbPattern(layer);
  if (!number(angle).good()) {
    Warn(angle, LayerName(layer) + " has no winding angle",
         "Its moves would be left out or stay as they were.");
    return false;
  }
  LookAtAngle(angle, layer);
  return LookAtPasses(angle, s_.lblNPasses(layer), number(s_.txtDia(0)), layer);
}

bool Warnings::HasPattern(int layer) {
  SplitFields fields;
  fields.Split(s_.cmbPattern(layer).text(), kPatternSeparators);
  return s_.Read(fields(1)).good() && holds(Int(s_.Read(fields(2))) >= 1) &&
         holds(Int(s_.Read(fields(3))) >= 1) && s_.Read(fields(4)).good();
}

bool Warnings::LookAtPatternLayer(int layer) {
  const std::string& stored = s_.LayerTable4Ax(layer, 5);
  if (HasPattern(layer)) {
    patternBefore_ = true;
    if (!stored.empty() && !EqualNoCase(stored, s_.cmbPattern(layer).text()))
      Warn(s_.cmbPattern(layer), LayerName(layer) + " may turn back into its file's pattern",
           "A refresh puts " + stored + " back where it fits: save the design and open it again.");
    return true;
  }
  const Field& pattern = s_.cmbPattern(layer);
  const char* why = "No passes would be written.";
  if (layer == 1 && pattern.empty()) why = "The program would neither home nor go to its start.";
  if (patternBefore_) why = "It would be wound like the layer before.";
  Warn(pattern, LayerName(layer) + " has no pattern", why);
  return false;
}

// The time that a program declares follows figures of both families, whichever changed last.
void Warnings::LookAtBuildTime() {
  const Field& minutes = (s_.gShow4Axis ? s_.lblMinutes : s_.lblMinutesToCover)(IndexSet::kAllRows);
  const Number declared = static_cast<double>(s_.gBuildHours) * 60 + static_cast<double>(s_.gBuildMinutes);
  if (holds(Abs(number(minutes) - declared) > 1))
    Warn(minutes,
         "The program would declare a build time of " + NumberToText(s_.signs, declared.value()) + " min",
         "The layers take " + minutes.text() + ": a new figure of any layer sets it right.",
         Concern::BuildTime);
}

// What a program takes from the settings as it stands there: a store may hold any text.
void Warnings::LookAtSettings() {
  const auto look = [this](bool used, const Field& setting, const std::string& name) {
    if (!used) return;
    if (!number(setting).good())
      Warn(setting, name + (setting.empty() ? " is missing" : " is no number: " + setting.text()),
           "What needs it in the program would be left out, or cannot be read.");
    else if (!holds(Abs(number(setting)) <= kBeyondMachines))
      Warn(setting, name + " is beyond any machine", "What needs it cannot be read.");
  };
  look(true, s_.gCarriageOffsetFromRMPFace, "The carriage offset");
  look(s_.gShow4Axis, s_.gDHYtoMandrelCenter, "The delivery head's distance from the mandrel");
  look(true, s_.txtLimitSwitchApproachSpeed, "The approach speed to the limit switch");
  look(s_.chkWindingSchedule.checked(), s_.txtMandrelRotateAfterLayerCompletion, "The turn between layers");
  const bool preWraps[] = {s_.chkPreWrap1.checked(), s_.chkPreWrap2.checked()};
  for (const int n : {1, 2}) {
    look(preWraps[n - 1], s_.txtPreWrapAdvance(n), "The advance of a pre-wrap");
    look(preWraps[n - 1], s_.cmbPreWrapRPM(n), "The mandrel speed of a pre-wrap");
  }
  look(preWraps[0] || preWraps[1], s_.txtMandrelAdvanceAfterPreWrapCarriageStop,
       "The turn at the end of a pre-wrap");
  const bool tape = s_.chkPromptForHST.checked();
  look(tape, s_.txtHSTWidth, "The advance of the tape");
  look(tape, s_.cmbHSTRPM, "The mandrel speed of the tape");
  look(tape, s_.txtMandrelAdvanceAfterHSTCarriageStop, "The turn at the end of the tape");
  look(s_.chkHeatGunApp.checked(), s_.cmbHGRPM, "The mandrel speed under the heat gun");
}

// Numbers of the family in use that hold the group sign or are too large, and texts that are no numbers.
void Warnings::LookAtNumbers(int layers) {
  ForEachField(s_, [&](const Field& field) {
    const FieldRow& row = field.row();
    if (row.kind != Kind::Text || !IsUsed(row, field.index(), s_.family()) ||
        (IsScheduleRow(row) && field.index() > layers))
      return;
    const std::string hint = NumberHint(field, s_.signs);
    if (!hint.empty()) Warn(field, "Look at the number", hint);
    const bool known = std::any_of(found_.begin(), found_.end(),
                                   [&field](const BuildWarning& w) { return w.field == &field; });
    if (known) return;
    if (!Trim(field.text()).empty() && !number(field).good())
      Warn(field, "This is no number: " + field.text(), "What needs it stays as it was or is left out.");
    if (holds(Abs(number(field)) > kBeyondMachines))
      Warn(field, "This is beyond any machine: " + field.text(), "What needs it cannot be read.");
  });
}

}  // namespace

std::vector<BuildWarning> BuildWarnings(const Station& station) { return Warnings(station).Found(); }

}  // namespace torvane
