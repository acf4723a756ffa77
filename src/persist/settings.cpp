#include "persist/settings.h"

#include <algorithm>
#include <vector>

#include "design/masks.h"
#include "design/units.h"
#include "text/text.h"

namespace torvane {

namespace {

constexpr bool kYes = true;
constexpr bool kNo = false;
constexpr std::string_view kMessage = "MSG";
constexpr std::string_view kOffsetConfirmed = "gHasUserCheckedCarriageZOffset";

template <Field Fields::*field>
constexpr SettingTarget Of() {
  return field;
}

constexpr SettingTarget CarriageClass(int speedClass) {
  return ClassAt{&DesignState::iMaxCarriageSpeeds, speedClass};
}
constexpr SettingTarget MandrelClass(int speedClass) {
  return ClassAt{&DesignState::iMaxMandrelRPM, speedClass};
}

using Form = SettingForm;
using Entry = SettingEntry;
using Line = SettingLine;

// key, default, target, form, read at start, place at exit, empty falls back, meaning;
// dialog: field, entry, tab, place, letter, unit, twin, sentence, note
// clang-format off
constexpr Setting kTable[] = {
    {"iMaxCarriageSpeeds(1)", "2", CarriageClass(1), Form::Number, kYes, 1, kNo, "carriage speed of class slow, in/s",
     {"txtcSpeed(0)", Entry::SpeedClass, Line::Speeds, 2, 0, "in/s", "txtcSpeedmm(0)", "slow"}},
    {"iMaxCarriageSpeeds(2)", "4", CarriageClass(2), Form::Number, kYes, 2, kNo, "carriage speed of class med, in/s",
     {"txtcSpeed(1)", Entry::SpeedClass, Line::Speeds, 3, 0, "in/s", "txtcSpeedmm(1)", "med"}},
    {"iMaxCarriageSpeeds(3)", "6", CarriageClass(3), Form::Number, kYes, 3, kNo, "carriage speed of class fast, in/s",
     {"txtcSpeed(2)", Entry::SpeedClass, Line::Speeds, 4, 0, "in/s", "txtcSpeedmm(2)", "fast"}},
    {"iMaxMandrelRPM(1)", "15", MandrelClass(1), Form::Number, kYes, 4, kNo, "mandrel limit of class slow, RPM",
     {"txtmSpeed(0)", Entry::SpeedClass, Line::Speeds, 7, 0, "1/min", "txtmSpeedmm(0)", "slow"}},
    {"iMaxMandrelRPM(2)", "30", MandrelClass(2), Form::Number, kYes, 5, kNo, "mandrel limit of class med, RPM",
     {"txtmSpeed(1)", Entry::SpeedClass, Line::Speeds, 8, 0, "1/min", "txtmSpeedmm(1)", "med"}},
    {"iMaxMandrelRPM(3)", "45", MandrelClass(3), Form::Number, kYes, 6, kNo, "mandrel limit of class fast, RPM",
     {"txtmSpeed(2)", Entry::SpeedClass, Line::Speeds, 9, 0, "1/min", "txtmSpeedmm(2)", "fast"}},
    {"chkDontShowVideoLinks", "0", Of<&Fields::chkDontShowVideoLinks>(), Form::Text, kYes, 0, kNo, "1 hides the video links"},
    {"chkUpdateCellsAuto", "1", &DesignState::gAutoUpdateCells, Form::FalseIf0, kYes, 0, kNo, "an edit of a cell recalculates its row; each start sets it to 1"},
    {"chkShiftLayer", "1", &DesignState::chkShiftLayer, Form::FalseIf0, kYes, 0, kNo, "0: the mandrel does not shift between layers"},
    {"chkHeatGunApp", "1", Of<&Fields::chkHeatGunApp>(), Form::TrueIf1, kYes, 0, kNo, "1: heat gun after the winding"},
    {"chkPromptForHST", "1", Of<&Fields::chkPromptForHST>(), Form::TrueIf1, kYes, 0, kNo, "1: heat shrink tape after the winding"},
    {"chkNotify1", "0", Of<&Fields::chkNotify1>(), Form::Text, kYes, 0, kNo, "1: a notice when the winding is complete"},
    {"chkNotify2", "0", Of<&Fields::chkNotify2>(), Form::Text, kYes, 0, kNo, "1: a second notice"},
    {"txtMailServer", "", Of<&Fields::txtMailServer>(), Form::Text, kYes, 0, kNo, "mail server of the notices"},
    {"txtEmail1", "", Of<&Fields::txtEmail1>(), Form::Text, kYes, 0, kNo, "first address of the notices"},
    {"txtEmail2", "", Of<&Fields::txtEmail2>(), Form::Text, kYes, 0, kNo, "second address of the notices"},
    {"chkPreWrap1", "0", Of<&Fields::chkPreWrap1>(), Form::Text, kYes, 0, kNo, "1: first pre-wrap"},
    {"chkPreWrap2", "0", Of<&Fields::chkPreWrap2>(), Form::Text, kYes, 0, kNo, "1: second pre-wrap, behind the first"},
    {"txtPreWrapAdvance1", "1", FieldAt{&Fields::txtPreWrapAdvance, 1}, Form::Text, kYes, 19, kNo, "carriage advance a revolution in pre-wrap 1, inches"},
    {"txtPreWrapAdvance2", "1", FieldAt{&Fields::txtPreWrapAdvance, 2}, Form::Text, kYes, 20, kNo, "carriage advance a revolution in pre-wrap 2, inches"},
    {"cmbPreWrapRPM1", "40", FieldAt{&Fields::cmbPreWrapRPM, 1}, Form::Text, kYes, 0, kNo, "mandrel speed of pre-wrap 1, RPM"},
    {"cmbPreWrapRPM2", "40", FieldAt{&Fields::cmbPreWrapRPM, 2}, Form::Text, kYes, 0, kNo, "mandrel speed of pre-wrap 2, RPM"},
    {"txtHGSpeed", "1", Of<&Fields::txtHGSpeed>(), Form::Text, kYes, 22, kNo, "heat gun speed, in/s"},
    {"cmbHGRPM", "10", Of<&Fields::cmbHGRPM>(), Form::Text, kYes, 0, kNo, "mandrel speed under the heat gun, RPM"},
    {"cmbHSTRPM", "20", Of<&Fields::cmbHSTRPM>(), Form::Text, kYes, 0, kNo, "mandrel speed of the tape pass, RPM"},
    {"txtHSTWidth", "1", Of<&Fields::txtHSTWidth>(), Form::Text, kYes, 21, kNo, "carriage advance a revolution of the tape pass, inches"},
    {"txtLimitSwitchApproachSpeed", "1", Of<&Fields::txtLimitSwitchApproachSpeed>(), Form::Text, kYes, 8, kYes, "carriage speed toward its limit switch, in/s",
     {"txtLimitSwitchApproachSpeed", Entry::Inches, Line::General, 1, 'A', "in/s", "txtLimitSwitchApproachSpeedMM",
      "When Carriage is Moving to Activate the Limit Switch, Move at this Speed"}},
    {"txtMandrelAdvanceAfterPreWrapCarriageStop", "1080", Of<&Fields::txtMandrelAdvanceAfterPreWrapCarriageStop>(), Form::Text, kYes, 9, kYes, "mandrel turn at the end of a pre-wrap, degrees",
     {"txtMandrelAdvanceAfterPreWrapCarriageStop", Entry::Plain, Line::General, 2, 'B', "deg", "",
      "After Carriage Movement Stops after a Pre-Wrap Pass, Rotate the Mandrel by this Many Degrees before Stopping Mandrel"}},
    {"txtPreWrapFullLengthYN", "Y", Of<&Fields::txtPreWrapFullLengthYN>(), Form::Text, kYes, 10, kYes, "Y: pre-wraps run the full length",
     {"txtPreWrapFullLengthYN", Entry::YesNoKey, Line::General, 3, 0, "", "",
      "Allow Carriage to Move to Full Length of Part (Y/N) (Ignore Offsets During Pre-Wrap)"}},
    {"txtMandrelRotateAfterLayerCompletion", "0", Of<&Fields::txtMandrelRotateAfterLayerCompletion>(), Form::Text, kYes, 11, kYes, "mandrel turn between layers, degrees",
     {"txtMandrelRotateAfterLayerCompletion", Entry::Plain, Line::TwoAxes, 3, 'B', "deg", "",
      "After a Layer Completes Winding, Rotate Mandrel by this many Degrees Before Starting new Layer"}},
    {"txtMandrelAdvanceAfterHSTCarriageStop", "1080", Of<&Fields::txtMandrelAdvanceAfterHSTCarriageStop>(), Form::Text, kYes, 12, kYes, "mandrel turn at the end of the tape pass, degrees",
     {"txtMandrelAdvanceAfterHSTCarriageStop", Entry::Plain, Line::General, 4, 'C', "deg", "",
      "After Carriage Movement Stops after a Heat Shrink Tape Pass, Rotate the Mandrel by this Many Degrees before Stopping Mandrel"}},
    {"txtHeatGunJustKeepGoingYN", "Y", Of<&Fields::txtHeatGunJustKeepGoingYN>(), Form::Text, kYes, 13, kYes, "Y: the heat gun runs until it is stopped",
     {"txtHeatGunJustKeepGoingYN", Entry::YesNoKey, Line::General, 5, 0, "", "",
      "After Heat Gun Process Completes, Just Keep Going Until Torvane is Stopped Manually (Y/N)"}},
    {"txtAddPasses", "0", Of<&Fields::txtAddPasses>(), Form::Text, kYes, 14, kNo, "passes added to each layer but hoops",
     {"txtAddPasses", Entry::Plain, Line::TwoAxes, 2, 0, "", "",
      "Add This Many Additional Passes to Each Layer (1 Pass Includes One Forward Pass and One Back Pass). Does Not Include Hoop Winding Layers."}},
    {"txtAddExtra360AtFarEndYN", "N", Of<&Fields::txtAddExtra360AtFarEndYN>(), Form::Text, kYes, 15, kNo, "Y: an extra turn at the ends of a layer's first pass",
     {"txtAddExtra360AtFarEndYN", Entry::YesNo, Line::TwoAxes, 4, 0, "", "",
      "On the first pass of a layer, wrap an extra 360 degrees at the far end (Y/N)"}},
    {"txtUseProportionalFilamentSpacingYN", "Y", Of<&Fields::txtUseProportionalFilamentSpacingYN>(), Form::Text, kYes, 16, kNo, "N: bands are spaced by their width, else by equal parts of the circle",
     {"txtUseProportionalFilamentSpacingYN", Entry::YesNo, Line::TwoAxes, 5, 0, "", "",
      "Use proportional filament spacing to match 360 deg. (Y/N)"}},
    {"txt2AXAdd360YN", "N", Of<&Fields::txt2AXAdd360YN>(), Form::Text, kYes, 17, kNo, "Y: an extra turn in every pass",
     {"txt2AXAdd360YN", Entry::YesNo, Line::TwoAxes, 6, 0, "", "",
      "Add Extra 360 deg. to every pass (Y/N)"}},
    {"txt3AX1stPass360", "Y", Of<&Fields::txt3AX1stPass360>(), Form::Text, kYes, 18, kYes, "Y: an extra turn at the ends of the first pass, three axes",
     {"txt3AX1stPass360", Entry::YesNo, Line::FourAxes, 7, 0, "", "",
      "On the first pass of the a 3-Axis winding layer, wrap an extra 360 degrees at each end (Y/N)"}},
    {"txtStepSize4Ax", "0.10", Of<&Fields::txtStepSize4Ax>(), Form::Text, kYes, 0, kNo, "jog step of the four-axis family"},
    {"txtStepSize2Ax", "0.10", Of<&Fields::txtStepSize2Ax>(), Form::Text, kYes, 0, kNo, "jog step of the two-axis family"},
    {"gMidAngle", "45", Of<&Fields::gMidAngle>(), Form::Text, kYes, 28, kNo, "middle angle, degrees",
     {"txtMidAngle"}},
    {"gSplitAngle", "45", Of<&Fields::gSplitAngle>(), Form::Text, kYes, 29, kNo, "split angle, degrees",
     {"txtSplitAngle"}},
    {"gDHYtoMandrelCenter", "4.4375", Of<&Fields::gDHYtoMandrelCenter>(), Form::Text, kYes, 30, kNo, "retracted delivery head to the mandrel's axis, inches",
     {"txtDHYtoMandrelCenter", Entry::Inches, Line::FourAxes, 3, 'C', "in", "txtDHYtoMandrelCenterMM",
      "Distance from delivery head to mandrel central axis when delivery head fully retracted",
      "(Default for Model #4T-23 is 4.625 inches or 117.50 mm)"}},
    {"gDHStructureWidth", "2.00", Of<&Fields::gDHStructureWidth>(), Form::Text, kYes, 31, kNo, "width of the delivery head, inches",
     {"txtDHStructureWidth", Entry::Inches, Line::FourAxes, 2, 'B', "in", "txtDHStructureWidthMM",
      "Total width (including bolts) of delivery head when delivery head is horizontal",
      "(Default for Model #4T-23 is 2.00 inches or 50.8mm)"}},
    {"gCarriageOffsetFromRMPFace", "1.875", Of<&Fields::gCarriageOffsetFromRMPFace>(), Form::Text, kYes, 32, kNo, "carriage at its limit switch to the mandrel post, inches",
     {"txtCarriageOffsetFromRMPFace", Entry::Offset, Line::FourAxes, 1, 'A', "in", "txtCarriageOffsetFromRMPFaceMM",
      "Z-distance from delivery head mid point to closest edge of mandrel post when carriage activates the limit switch (home position). Measure all Z distances from this reference point.",
      "(Default for Model #4T-23 is 1.875 inches or 47.625mm)"}},
    {"gNoListPatternDegrees", "25", &DesignState::gNoListPatternDegrees, Form::Number, kYes, 33, kNo, "patterns of this winding angle and above are not listed",
     {"txtNoListPatternDegrees", Entry::Degrees, Line::FourAxes, 4, 0, "deg", "",
      "Do not list winding patterns with winding angles greater than this many degrees"}},
    {"gDelayTimeInG456ToWaitForMandrelinMS", "250", &DesignState::gDelayTimeInG456ToWaitForMandrelinMS, Form::Number, kYes, 35, kNo, "wait for the mandrel in end wraps, milliseconds",
     {"txtDelayTimeInG456ToWaitForMandrelinMS", Entry::Delay, Line::FourAxes, 5, 0, "ms", "",
      "Delay time in milliseconds (1/1000 s) between C, DHL and DHR movement completion and Mandrel  movement completion (applies to G4, G5 and G6 movements)"}},
    {"gPauseBeforeHoop", "Y", Of<&Fields::gPauseBeforeHoop>(), Form::Text, kYes, 34, kNo, "Y: a pause before each hoop layer",
     {"txtPauseBeforeHoop", Entry::YesNo, Line::FourAxes, 6, 0, "", "",
      "When hoop winding, pause winder before each hoop layer to ensure proper transition from helical layer to hoop layer"}},
    {"gProofAngleNote", "0.5", {}, Form::Text, kNo, 0, kNo, "proof: degrees beside the asked winding angle that are noted; 0: none"},
    {"gProofAngleFault", "3", {}, Form::Text, kNo, 0, kNo, "proof: degrees beside the asked winding angle that are a fault; 0: none"},
    {"gProofCarriageAcceleration", "0", {}, Form::Text, kNo, 0, kNo, "proof: acceleration of the carriage, in/s in a second; 0: not known"},
    {"gProofMandrelAcceleration", "0", {}, Form::Text, kNo, 0, kNo, "proof: acceleration of the mandrel, RPM in a second; 0: not known"},
    {"gProofHeadAcceleration", "0", {}, Form::Text, kNo, 0, kNo, "proof: acceleration of the delivery head, in/s in a second; 0: not known"},
    {"gProofHeadTurnAcceleration", "0", {}, Form::Text, kNo, 0, kNo, "proof: acceleration of the head's rotation, RPM in a second; 0: not known"},
    {"gProofFibreDensity", "1.8", {}, Form::Text, kNo, 0, kNo, "proof: density of the fibre, g/cm3; 0: not known"},
    {"gProofResinDensity", "1.2", {}, Form::Text, kNo, 0, kNo, "proof: density of the resin, g/cm3; 0: not known"},
    {"gProofResinShare", "50", {}, Form::Text, kNo, 0, kNo, "proof: the resin's share of the band's volume, percent"},
    {"gProofSpoolLength", "0", {}, Form::Text, kNo, 0, kNo, "proof: tow on a spool, feet; 0: without end"},
    {"gVersionNumber", "", {}, Form::Text, kNo, 0, kNo, "version of the station that ran last"},
    {"mnu2Axis", "1", {}, Form::Text, kNo, 0, kNo, "1: the two-axis family is in use, 0: the four-axis family"},
    {"gLastFileInUse", "", Of<&Fields::gLastFileInUse>(), Form::Text, kNo, 7, kNo, "design that the next start opens"},
    {"Units", "", {}, Form::Text, kNo, 0, kNo, "unit last set, in or mm; nothing reads it"},
    {"gIsLHDrive", "False", {}, Form::Text, kNo, 0, kNo, "True: the drive stands at the left"},
    {"gIsNEMA34", "False", {}, Form::Text, kNo, 0, kNo, "True: the machine has the larger motors"},
    {"chkLaunchwLastFile", "", {}, Form::Text, kNo, 0, kNo, "each start sets it to 1; nothing reads it"},
    {"DontShowYouTubeDialogueAgain", "0", {}, Form::Text, kNo, 0, kNo, "the video link"},
    {"LastSettingsTab", "0", {}, Form::Text, kNo, 0, kNo, "tab on which the settings open"},
    {kOffsetConfirmed, "0", {}, Form::Text, kNo, 0, kNo, "1: the operator has measured the carriage offset"},
    {"strTRACE", "", {}, Form::Text, kNo, 0, kNo, "last trace text of the pattern preview"},
    {"cmbSpeed", "1x", {}, Form::Text, kNo, 0, kNo, "drawing speed of the pattern preview"},
    {"Me.Top", "400", Of<&Fields::meTop>(), Form::Text, kYes, 23, kNo, "place of the window, twips"},
    {"Me.Left", "400", Of<&Fields::meLeft>(), Form::Text, kYes, 24, kNo, "place of the window, twips"},
    {"Me.Width", "17000", Of<&Fields::meWidth>(), Form::Text, kYes, 25, kNo, "width of the window, twips"},
    {"Me.Height", "12500", Of<&Fields::meHeight>(), Form::Text, kYes, 26, kNo, "height of the window, twips"},
    {"Me.WasMaximized", "0", Of<&Fields::meWasMaximized>(), Form::Text, kYes, 27, kNo, "1: the window was maximised at exit"},
};
// clang-format on

// Puts a stored text into its target. A number that cannot be read leaves the target as it was.
struct Reader {
  DesignState& s;
  const std::string& value;
  SettingForm form;

  bool Flag() const {
    const Number number = s.Read(value);
    return form == Form::FalseIf0 ? !holds(number == 0) : holds(number == 1);
  }
  void To(Field& field) const {
    if (form == Form::Text)
      field = value;
    else
      field = Flag() ? "1" : "0";
  }
  void To(double& number) const {
    const Number read = s.Read(value);
    if (read.good()) number = read.value();
  }

  void operator()(std::monostate) const {}
  void operator()(Field Fields::*field) const { To(s.*field); }
  void operator()(const FieldAt& at) const { To((s.*at.array)(at.index)); }
  void operator()(const ClassAt& at) const {
    To((s.*at.classes)[static_cast<std::size_t>(at.speedClass) - 1]);
  }
  void operator()(double DesignState::*number) const { To(s.*number); }
  void operator()(bool DesignState::*flag) const { s.*flag = Flag(); }
};

// The text under which a target is stored.
struct Writer {
  const DesignState& s;

  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(Field Fields::*field) const { return (s.*field).text(); }
  std::string operator()(const FieldAt& at) const { return (s.*at.array)(at.index).text(); }
  std::string operator()(const ClassAt& at) const {
    return NumberToText(s.signs, (s.*at.classes)[static_cast<std::size_t>(at.speedClass) - 1]);
  }
  std::string operator()(double DesignState::*number) const { return NumberToText(s.signs, s.*number); }
  std::string operator()(bool DesignState::*flag) const { return s.*flag ? "1" : "0"; }
};

// A store with speed classes of 0 was never set up.
void DefaultClasses(DesignState& s) {
  if (s.iMaxCarriageSpeeds[0] == 0) s.iMaxCarriageSpeeds = {2, 4, 6};
  if (s.iMaxMandrelRPM[0] != 0) return;
  constexpr std::array<double, 3> kShares = {0.3, 0.6, 0.9};
  for (std::size_t i = 0; i < kShares.size(); ++i) {
    const std::string text = FormatNumberText(s.signs, s.mMaxRPM * kShares[i], mask::kSpeedClass);
    s.iMaxMandrelRPM[i] = s.Read(text).value();
  }
}

// The millimetre twins of two choices, from the stored text as it stands.
void FillTwins(DesignState& s) {
  s.txtHGSpeedMM = (number(s.txtHGSpeed) * kMillimetresPerInch).as(mask::kStoredTwinMM);
  s.txtHSTWidthMM = (number(s.txtHSTWidth) * kMillimetresPerInch).as(mask::kStoredTwinMM);
}

// A store may come from a computer with the other decimal sign. Where an inch field changes so, its twin
// follows it.
void NormaliseSigns(DesignState& s) {
  const char foreign = s.gDecimalComma ? '.' : ',';
  const char own = s.gDecimalComma ? ',' : '.';
  for (Field* field :
       {&s.txtPreWrapAdvance(1), &s.txtPreWrapAdvance(2), &s.txtHSTWidth, &s.txtHGSpeed, &s.txtStepSize4Ax,
        &s.txtStepSize2Ax, &s.gDHYtoMandrelCenter, &s.gDHStructureWidth, &s.gCarriageOffsetFromRMPFace})
    *field = Replaced(field->text(), foreign, own);
}

}  // namespace

std::string GetSetting(const SettingsStore& store, std::string_view section, std::string_view key,
                       std::string_view fallback) {
  return store.Read(section, key).value_or(std::string(fallback));
}

void SaveSetting(SettingsStore& store, std::string_view section, std::string_view key,
                 std::string_view value) {
  store.Write(section, key, value);
}

bool ReadsAsTrue(std::string_view stored) {
  return EqualNoCase(Trim(stored), "True") || holds(ReadNumberText({}, stored) != 0);
}

std::span<const Setting> Settings() { return kTable; }

void ReadStoredSettings(DesignState& s, const SettingsStore& store) {
  for (const Setting& setting : kTable) {
    if (!setting.atStart) continue;
    std::string value = GetSetting(store, kSettings, setting.key, setting.fallback);
    if (value.empty() && setting.emptyFallsBack) value = setting.fallback;
    std::visit(Reader{s, value, setting.form}, setting.target);
    if (setting.key == "iMaxMandrelRPM(3)") DefaultClasses(s);
    if (setting.key == "txtHSTWidth") FillTwins(s);
  }
  NormaliseSigns(s);
}

void SaveStoredSettings(const DesignState& s, SettingsStore& store) {
  std::vector<const Setting*> written;
  for (const Setting& setting : kTable)
    if (setting.atExit != 0) written.push_back(&setting);
  std::sort(written.begin(), written.end(),
            [](const Setting* a, const Setting* b) { return a->atExit < b->atExit; });
  for (const Setting* setting : written)
    SaveSetting(store, kSettings, setting->key, std::visit(Writer{s}, setting->target));
}

std::string MessageKey(int number) { return std::string(kMessage) + std::to_string(number); }

bool IsMessageKey(std::string_view key) {
  return key.starts_with(kMessage) && key.size() > kMessage.size() &&
         key.find_first_not_of("0123456789", kMessage.size()) == std::string_view::npos;
}

bool IsCarriageOffsetConfirmed(const SettingsStore& store) {
  return GetSetting(store, kSettings, kOffsetConfirmed, "0") != "0";
}

void ConfirmCarriageOffset(SettingsStore& store) { SaveSetting(store, kSettings, kOffsetConfirmed, "1"); }

void SetUnits(DesignState& s, SettingsStore& store, std::string_view inches) {
  ShowUnits(s, inches);
  SaveSetting(store, kSettings, "Units", s.gUnits.text());
}

}  // namespace torvane
