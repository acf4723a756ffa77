#include "workbench/dialog/settings_dialog.h"

#include <algorithm>
#include <array>
#include <optional>

#include "calc/two_axis.h"
#include "design/units.h"
#include "persist/settings.h"
#include "text/text.h"
#include "workbench/dialog/links.h"
#include "workbench/station/messages.h"

namespace torvane {

namespace {

constexpr Mask kTwoDecimals = "##0.00"_mask;
constexpr IndexSet kClasses = {0, 2, false};
constexpr IndexSet kTabs = {0, 3, false};

enum class Entry {
  Plain,     // as typed
  YesNo,     // "N" for n, else "Y"
  YesNoKey,  // the same, and by the key itself
  Inches,    // with a millimetre twin
  Offset,    // the carriage offset, which stands on two tabs
  Delay,     // whole milliseconds, 500 at most
  Degrees,   // taken over from key releases alone
};

// A setting: its field here, its twin, and the station's field or number that OK fills.
struct Row {
  std::string_view field;
  std::string_view twin;
  Entry entry;
  std::variant<Field Fields::*, double DesignState::*> module;
};

// In the order in which OK takes them over.
constexpr Row kRows[] = {
    {"txtLimitSwitchApproachSpeed", "txtLimitSwitchApproachSpeedMM", Entry::Inches,
     &Fields::txtLimitSwitchApproachSpeed},
    {"txtMandrelAdvanceAfterPreWrapCarriageStop", "", Entry::Plain,
     &Fields::txtMandrelAdvanceAfterPreWrapCarriageStop},
    {"txtPreWrapFullLengthYN", "", Entry::YesNoKey, &Fields::txtPreWrapFullLengthYN},
    {"txtMandrelRotateAfterLayerCompletion", "", Entry::Plain, &Fields::txtMandrelRotateAfterLayerCompletion},
    {"txtMandrelAdvanceAfterHSTCarriageStop", "", Entry::Plain,
     &Fields::txtMandrelAdvanceAfterHSTCarriageStop},
    {"txtHeatGunJustKeepGoingYN", "", Entry::YesNoKey, &Fields::txtHeatGunJustKeepGoingYN},
    {"txtAddPasses", "", Entry::Plain, &Fields::txtAddPasses},
    {"txtAddExtra360AtFarEndYN", "", Entry::YesNo, &Fields::txtAddExtra360AtFarEndYN},
    {"txtMidAngle", "", Entry::Plain, &Fields::gMidAngle},
    {"txtSplitAngle", "", Entry::Plain, &Fields::gSplitAngle},
    {"txtDHYtoMandrelCenter", "txtDHYtoMandrelCenterMM", Entry::Inches, &Fields::gDHYtoMandrelCenter},
    {"txtDHStructureWidth", "txtDHStructureWidthMM", Entry::Inches, &Fields::gDHStructureWidth},
    {"txtCarriageOffsetFromRMPFace", "txtCarriageOffsetFromRMPFaceMM", Entry::Offset,
     &Fields::gCarriageOffsetFromRMPFace},
    {"txtUseProportionalFilamentSpacingYN", "", Entry::YesNo, &Fields::txtUseProportionalFilamentSpacingYN},
    {"txt2AXAdd360YN", "", Entry::YesNo, &Fields::txt2AXAdd360YN},
    {"txtNoListPatternDegrees", "", Entry::Degrees, &DesignState::gNoListPatternDegrees},
    {"txtDelayTimeInG456ToWaitForMandrelinMS", "", Entry::Delay,
     &DesignState::gDelayTimeInG456ToWaitForMandrelinMS},
    {"txt3AX1stPass360", "", Entry::YesNo, &Fields::txt3AX1stPass360},
    {"txtPauseBeforeHoop", "", Entry::YesNo, &Fields::gPauseBeforeHoop},
};
constexpr std::size_t kRowCount = std::size(kRows);
constexpr std::size_t kOffsetRow = 12;
static_assert(kRows[kOffsetRow].entry == Entry::Offset);

// The offset's four fields: 4-axis and 2-axis, in inches and in millimetres.
constexpr std::string_view kOffsetInches[] = {"txtCarriageOffsetFromRMPFace", "Text3"};
constexpr std::string_view kOffsetMillimetres[] = {"txtCarriageOffsetFromRMPFaceMM", "Text2"};

constexpr WindowField kOtherFields[] = {
    {"Text3", Kind::Text},
    {"Text2", Kind::Text},
    {"txtcSpeed", Kind::Text, kClasses, true},
    {"txtcSpeedmm", Kind::Text, kClasses, true},
    {"txtmSpeed", Kind::Text, kClasses, true},
    {"txtmSpeedmm", Kind::Text, kClasses, true},
    {"lblcMaxSpeed", Kind::ReadOut},
    {"lblcMaxSpeedMM", Kind::ReadOut},
    {"lblmMaxRPM", Kind::ReadOut},
    {"lblmMaxRPMMM", Kind::ReadOut},
    {"lblUnits", Kind::Caption},
    {"lblTab", Kind::Control, kTabs, true},
    {"picGeneral", Kind::Control},
    {"pic2Axis", Kind::Control},
    {"pic4Axis", Kind::Control},
    {"picSpeeds", Kind::Control},
    {"picHOLD", Kind::Control},
    {"Label21", Kind::Control, {}, false, "See Picture"},
    {"Command5", Kind::Control, {}, false, "--> Go Home"},
    {"Command6", Kind::Control, {}, false, "--> Go Home"},
    {"btnOK", Kind::Control, {}, false, "OK"},
    {"btnCancel", Kind::Control, {}, false, "Cancel"},
};

std::vector<WindowField> AllFields() {
  std::vector<WindowField> fields;
  for (const Row& row : kRows) {
    fields.push_back({row.field, Kind::Text});
    if (!row.twin.empty()) fields.push_back({row.twin, Kind::Text});
  }
  fields.insert(fields.end(), std::begin(kOtherFields), std::end(kOtherFields));
  return fields;
}

std::string At(std::string_view name, int index) {
  return std::string(name) + "(" + std::to_string(index) + ")";
}

bool IsOneOf(std::string_view name, std::span<const std::string_view> names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

class SettingsDialog : public Window {
 public:
  explicit SettingsDialog(Station& owner) : Window(owner, "frmSettings", AllFields()) {
    SetModal(true);
    Load();
  }
  using Window::SetModal;

  bool Run(std::string_view control, Event event, int index) override;
  void Closing() override { RecalculateTwoAxisLayers(s(), -1); }
  void ShowTab(int index);
  // `tab` 0 the fields of the 4-axis tab, 1 those of the 2-axis tab.
  void MarkOffset(std::size_t tab, Mark mark);

 private:
  DesignState& s() const { return station().s; }

  void Load();
  bool Change(std::string_view name, int index);
  bool Key(std::string_view name, int index);
  bool IdleKey(std::string_view name);
  bool Click(std::string_view name, int index);
  void ChangeRow(std::size_t i, const Row& row);
  void KeyInRow(std::size_t i, const Row& row);
  void OffsetKey(const Field& typed, bool inches);
  void SpeedKey(int index, std::string_view name, std::string_view twin, double factor,
                std::string_view limit);
  void TakeOver();

  // What OK hands over: the text of the last change of each field.
  std::array<std::optional<std::string>, kRowCount> pending_;
};

void SettingsDialog::Load() {
  DesignState& state = s();
  state.gMirrorOnChange = true;
  field("picHOLD").Show(false);
  field("lblUnits") = "Units = " + state.lblUnits(0).text();
  for (const Row& row : kRows) {
    if (const auto* module = std::get_if<Field Fields::*>(&row.module))
      field(row.field).CopyFrom(state.*(*module));
    else
      field(row.field) = Number(state.*std::get<double DesignState::*>(row.module)).plain();
  }
  constexpr const char* kTabCaptions[] = {"General", "2-Axis", "4-Axis", "Speeds"};
  for (int i = 0; i <= kTabs.last; ++i) field(At("lblTab", i)).SetCaption(kTabCaptions[i]);
  ShowTab(0);
  field("lblcMaxSpeed") = Number(state.cMaxSpeed).as("#0.0"_mask);
  field("lblcMaxSpeedMM") = (Number(state.cMaxSpeed) * kMillimetresPerInch).as("###0.00"_mask);
  field("lblmMaxRPM") = Number(state.mMaxRPM).as("##0.0"_mask);
  field("lblmMaxRPMMM").CopyFrom(field("lblmMaxRPM"));
  for (int i = 0; i <= kClasses.last; ++i) {
    field(At("txtcSpeed", i)) = Number(state.iMaxCarriageSpeeds[static_cast<std::size_t>(i)]).plain();
    field(At("txtmSpeed", i)) = Number(state.iMaxMandrelRPM[static_cast<std::size_t>(i)]).plain();
  }
  state.gMirrorOnChange = false;
  const bool confirmed = IsCarriageOffsetConfirmed(station().platform.store);
  for (const std::size_t shown : {0U, 1U}) MarkOffset(shown, confirmed ? Mark::Plain : Mark::NeedsInput);
}

void SettingsDialog::MarkOffset(std::size_t tab, Mark mark) {
  field(kOffsetInches[tab]).SetMark(mark);
  field(kOffsetMillimetres[tab]).SetMark(mark);
}

void SettingsDialog::ShowTab(int index) {
  constexpr std::string_view kPanels[] = {"picGeneral", "pic2Axis", "pic4Axis", "picSpeeds"};
  for (int i = 0; i <= kTabs.last; ++i) {
    field(kPanels[i]).Show(i == index);
    field(At("lblTab", i)).SetBold(i == index);
  }
}

bool SettingsDialog::Run(std::string_view control, Event event, int index) {
  switch (event) {
    case Event::Change:
      return Change(control, index);
    case Event::Key:
      return Key(control, index);
    case Event::IdleKey:
      return IdleKey(control);
    case Event::Click:
      return Click(control, index);
    default:
      return false;
  }
}

void SettingsDialog::ChangeRow(std::size_t i, const Row& row) {
  Field& changed = field(row.field);
  if (row.entry == Entry::Degrees) return;
  if (row.entry == Entry::YesNo || row.entry == Entry::YesNoKey)
    changed = EqualNoCase(changed.text(), "n") ? "N" : "Y";
  pending_[i] = changed.text();
  if (!row.twin.empty() && s().gMirrorOnChange)
    field(row.twin) = (number(changed) * kMillimetresPerInch).as(kTwoDecimals);
  if (row.entry == Entry::Offset) field("Text3").CopyFrom(changed);
}

bool SettingsDialog::Change(std::string_view name, int index) {
  for (std::size_t i = 0; i < kRowCount; ++i)
    if (kRows[i].field == name) return ChangeRow(i, kRows[i]), true;
  if (name == "Text3") pending_[kOffsetRow] = field(name).text();
  if (name == "txtCarriageOffsetFromRMPFaceMM") field("Text2").CopyFrom(field(name));
  const bool carriage = name == "txtcSpeed";
  if (!carriage && name != "txtmSpeed") return true;
  const Number speed = number(field(At(name, index)));
  auto& classes = carriage ? s().iMaxCarriageSpeeds : s().iMaxMandrelRPM;
  if (speed.good()) classes[static_cast<std::size_t>(index)] = speed.value();
  if (s().gMirrorOnChange)
    field(At(carriage ? "txtcSpeedmm" : "txtmSpeedmm", index)) =
        (speed * (carriage ? kMillimetresPerInch : 1)).as(kTwoDecimals);
  return true;
}

void SettingsDialog::KeyInRow(std::size_t i, const Row& row) {
  Field& typed = field(row.field);
  switch (row.entry) {
    case Entry::YesNoKey:
      typed = station().lastKey == 'Y' || station().lastKey == 'y' ? "Y" : "N";
      break;
    case Entry::Inches:
      field(row.twin) = (number(typed) * kMillimetresPerInch).as(kTwoDecimals);
      break;
    case Entry::Offset:
      OffsetKey(typed, true);
      break;
    case Entry::Delay:
      typed = Whole(number(typed)).plain();
      if (holds(number(typed) > 500)) typed = "499";
      break;
    case Entry::Degrees:
      pending_[i] = typed.text();
      break;
    case Entry::Plain:
    case Entry::YesNo:
      break;
  }
}

// A key in any of the offset's four fields brings the other three in step and confirms the offset.
void SettingsDialog::OffsetKey(const Field& typed, bool inches) {
  const std::string& text = typed.text();
  const Masked millimetres = (s().Read(text) * kMillimetresPerInch).as(kTwoDecimals);
  const Masked inInches = (s().Read(text) / kMillimetresPerInch).as(kTwoDecimals);
  for (std::size_t i = 0; i < 2; ++i) {
    if (inches) {
      field(kOffsetInches[i]) = text;
      field(kOffsetMillimetres[i]) = millimetres;
    } else {
      field(kOffsetMillimetres[i]) = text;
      field(kOffsetInches[i]) = inInches;
    }
  }
  ConfirmCarriageOffset(station().platform.store);
}

void SettingsDialog::SpeedKey(int index, std::string_view name, std::string_view twin, double factor,
                              std::string_view limit) {
  const Field& typed = field(At(name, index));
  if (!field(limit).empty() && holds(number(typed) > number(field(limit))) &&
      ShowMessageDialog(station(), messages::kSpeedBeyondCapability, NumberToText(s().signs, s().cMaxSpeed)))
    return;
  field(At(twin, index)) = (number(typed) * factor).as(kTwoDecimals);
}

bool SettingsDialog::Key(std::string_view name, int index) {
  for (std::size_t i = 0; i < kRowCount; ++i) {
    if (kRows[i].field == name) return KeyInRow(i, kRows[i]), true;
    if (kRows[i].twin == name && kRows[i].entry == Entry::Inches) {
      field(kRows[i].field) = (number(field(name)) / kMillimetresPerInch).as(kTwoDecimals);
      return true;
    }
  }
  if (IsOneOf(name, kOffsetInches)) OffsetKey(field(name), true);
  if (IsOneOf(name, kOffsetMillimetres)) OffsetKey(field(name), false);
  if (name == "txtcSpeed") SpeedKey(index, name, "txtcSpeedmm", kMillimetresPerInch, "lblcMaxSpeed");
  if (name == "txtmSpeed") SpeedKey(index, name, "txtmSpeedmm", 1, "lblmMaxRPM");
  if (name == "txtcSpeedmm")
    field(At("txtcSpeed", index)) = (number(field(At(name, index))) / kMillimetresPerInch).as(kTwoDecimals);
  if (name == "txtmSpeedmm") field(At("txtmSpeed", index)) = number(field(At(name, index))).as(kTwoDecimals);
  return Find(name) != nullptr || Find(At(name, index)) != nullptr;
}

// A key in the offset is enough to confirm it as it stands.
bool SettingsDialog::IdleKey(std::string_view name) {
  if (IsOneOf(name, kOffsetInches) || IsOneOf(name, kOffsetMillimetres))
    ConfirmCarriageOffset(station().platform.store);
  return Find(name) != nullptr;
}

void SettingsDialog::TakeOver() {
  for (std::size_t i = 0; i < kRowCount; ++i) {
    if (!pending_[i]) continue;
    if (const auto* module = std::get_if<Field Fields::*>(&kRows[i].module)) {
      s().*(*module) = *pending_[i];
      continue;
    }
    const Number value = s().Read(*pending_[i]);
    if (value.good()) s().*std::get<double DesignState::*>(kRows[i].module) = value.value();
  }
  RecalculateTwoAxisLayers(s(), -1);
}

bool SettingsDialog::Click(std::string_view name, int index) {
  if (name == "lblTab") {
    ShowTab(index);
    SaveSetting(station().platform.store, kSettings, "LastSettingsTab", std::to_string(index));
    return true;
  }
  if (name == "Label21") return OpenPicture(station()), true;
  if (name != "btnOK" && name != "btnCancel") return false;
  if (name == "btnOK") TakeOver();
  station().Close(*this);
  return true;
}

}  // namespace

void OpenSettings(Station& station, int tab, CarriageOffsetMark mark) {
  auto& dialog = OpenOnce<SettingsDialog>(station, "frmSettings");
  dialog.ShowTab(tab);
  if (mark == CarriageOffsetMark::TooLow) dialog.MarkOffset(tab == 2 ? 0 : 1, Mark::StopTooLow);
  if (station.settingsOpened) station.settingsOpened(tab);
}

void OpenSettingsBeside(Station& station, int tab) {
  const bool wasOpen = station.OpenWindow("frmSettings") != nullptr;
  auto& dialog = OpenOnce<SettingsDialog>(station, "frmSettings");
  if (!wasOpen) dialog.SetModal(false);
  OpenSettings(station, tab);
}

}  // namespace torvane
