#include "persist/settings.h"

#include <algorithm>
#include <vector>

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

// key, default, target, form, read at start, place at exit, empty falls back, meaning
// clang-format off
constexpr Setting kTable[] = {
    {"iMaxCarriageSpeeds(1)", "2", CarriageClass(1), Form::Number, kYes, 1, kNo, "carriage speed of class slow, in/s"},
    {"iMaxCarriageSpeeds(2)", "4", CarriageClass(2), Form::Number, kYes, 2, kNo, "carriage speed of class med, in/s"},
    {"iMaxCarriageSpeeds(3)", "6", CarriageClass(3), Form::Number, kYes, 3, kNo, "carriage speed of class fast, in/s"},
    {"iMaxMandrelRPM(1)", "15", MandrelClass(1), Form::Number, kYes, 4, kNo, "mandrel limit of class slow, RPM"},
    {"iMaxMandrelRPM(2)", "30", MandrelClass(2), Form::Number, kYes, 5, kNo, "mandrel limit of class med, RPM"},
    {"iMaxMandrelRPM(3)", "45", MandrelClass(3), Form::Number, kYes, 6, kNo, "mandrel limit of class fast, RPM"},
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
    {"txtLimitSwitchApproachSpeed", "1", Of<&Fields::txtLimitSwitchApproachSpeed>(), Form::Text, kYes, 8, kYes, "carriage speed toward its limit switch, in/s"},
    {"txtMandrelAdvanceAfterPreWrapCarriageStop", "1080", Of<&Fields::txtMandrelAdvanceAfterPreWrapCarriageStop>(), Form::Text, kYes, 9, kYes, "mandrel turn at the end of a pre-wrap, degrees"},
    {"txtPreWrapFullLengthYN", "Y", Of<&Fields::txtPreWrapFullLengthYN>(), Form::Text, kYes, 10, kYes, "Y: pre-wraps run the full length"},
    {"txtMandrelRotateAfterLayerCompletion", "0", Of<&Fields::txtMandrelRotateAfterLayerCompletion>(), Form::Text, kYes, 11, kYes, "mandrel turn between layers, degrees"},
    {"txtMandrelAdvanceAfterHSTCarriageStop", "1080", Of<&Fields::txtMandrelAdvanceAfterHSTCarriageStop>(), Form::Text, kYes, 12, kYes, "mandrel turn at the end of the tape pass, degrees"},
    {"txtHeatGunJustKeepGoingYN", "Y", Of<&Fields::txtHeatGunJustKeepGoingYN>(), Form::Text, kYes, 13, kYes, "Y: the heat gun runs until it is stopped"},
    {"txtAddPasses", "0", Of<&Fields::txtAddPasses>(), Form::Text, kYes, 14, kNo, "passes added to each layer but hoops"},
    {"txtAddExtra360AtFarEndYN", "N", Of<&Fields::txtAddExtra360AtFarEndYN>(), Form::Text, kYes, 15, kNo, "Y: an extra turn at the ends of a layer's first pass"},
    {"txtUseProportionalFilamentSpacingYN", "Y", Of<&Fields::txtUseProportionalFilamentSpacingYN>(), Form::Text, kYes, 16, kNo, "N: bands are spaced by their width, else by equal parts of the circle"},
    {"txt2AXAdd360YN", "N", Of<&Fields::txt2AXAdd360YN>(), Form::Text, kYes, 17, kNo, "Y: an extra turn in every pass"},
    {"txt3AX1stPass360", "Y", Of<&Fields::txt3AX1stPass360>(), Form::Text, kYes, 18, kYes, "Y: an extra turn at the ends of the first pass, three axes"},
    {"txtStepSize4Ax", "0.10", Of<&Fields::txtStepSize4Ax>(), Form::Text, kYes, 0, kNo, "jog step of the four-axis family"},
    {"txtStepSize2Ax", "0.10", Of<&Fields::txtStepSize2Ax>(), Form::Text, kYes, 0, kNo, "jog step of the two-axis family"},
    {"gMidAngle", "45", Of<&Fields::gMidAngle>(), Form::Text, kYes, 28, kNo, "middle angle, degrees"},
    {"gSplitAngle", "45", Of<&Fields::gSplitAngle>(), Form::Text, kYes, 29, kNo, "split angle, degrees"},
    {"gDHYtoMandrelCenter", "4.4375", Of<&Fields::gDHYtoMandrelCenter>(), Form::Text, kYes, 30, kNo, "retracted delivery head to the mandrel's axis, inches"},
    {"gDHStructureWidth", "2.00", Of<&Fields::gDHStructureWidth>(), Form::Text, kYes, 31, kNo, "width of the delivery head, inches"},
    {"gCarriageOffsetFromRMPFace", "1.875", Of<&Fields::gCarriageOffsetFromRMPFace>(), Form::Text, kYes, 32, kNo, "carriage at its limit switch to the mandrel post, inches"},
    {"gNoListPatternDegrees", "25", &DesignState::gNoListPatternDegrees, Form::Number, kYes, 33, kNo, "patterns of this winding angle and above are not listed"},
    {"gDelayTimeInG456ToWaitForMandrelinMS", "250", &DesignState::gDelayTimeInG456ToWaitForMandrelinMS, Form::Number, kYes, 35, kNo, "wait for the mandrel in end wraps, milliseconds"},
    {"gPauseBeforeHoop", "Y", Of<&Fields::gPauseBeforeHoop>(), Form::Text, kYes, 34, kNo, "Y: a pause before each hoop layer"},
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
    const std::string text = FormatNumberText(s.signs, s.mMaxRPM * kShares[i], "#00"_mask);
    s.iMaxMandrelRPM[i] = s.Read(text).value();
  }
}

// The millimetre twins of two choices, from the stored text as it stands.
void FillTwins(DesignState& s) {
  s.txtHGSpeedMM = (number(s.txtHGSpeed) * kMillimetresPerInch).as("##0.0"_mask);
  s.txtHSTWidthMM = (number(s.txtHSTWidth) * kMillimetresPerInch).as("##0.0"_mask);
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
