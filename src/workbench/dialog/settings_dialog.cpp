#include "workbench/dialog/settings_dialog.h"

#include <algorithm>
#include <optional>

#include "calc/two_axis.h"
#include "design/masks.h"
#include "design/units.h"
#include "persist/settings.h"
#include "text/text.h"
#include "workbench/dialog/links.h"
#include "workbench/station/messages.h"

namespace torvane {

namespace {

constexpr IndexSet kClasses = {0, 2, false};
constexpr IndexSet kTabs = {0, 3, false};

using Entry = SettingEntry;

// The settings that OK takes over; the speed classes are taken at once.
std::vector<const Setting*> HeldSettings() {
  std::vector<const Setting*> held;
  for (const Setting& setting : Settings())
    if (!setting.line.field.empty() && setting.line.entry != Entry::SpeedClass) held.push_back(&setting);
  return held;
}

// The offset's four fields: 4-axis and 2-axis, in inches and in millimetres.
constexpr std::string_view kOffsetInches[] = {"txtCarriageOffsetFromRMPFace", "Text3"};
constexpr std::string_view kOffsetMillimetres[] = {"txtCarriageOffsetFromRMPFaceMM", "Text2"};

constexpr WindowField kOtherFields[] = {
    {"Text3", Kind::Text},
    {"Text2", Kind::Text},
    {"txtcSpeed", Kind::Text, {}, kClasses, true},
    {"txtcSpeedmm", Kind::Text, {}, kClasses, true},
    {"txtmSpeed", Kind::Text, {}, kClasses, true},
    {"txtmSpeedmm", Kind::Text, {}, kClasses, true},
    {"lblcMaxSpeed", Kind::ReadOut},
    {"lblcMaxSpeedMM", Kind::ReadOut},
    {"lblmMaxRPM", Kind::ReadOut},
    {"lblmMaxRPMMM", Kind::ReadOut},
    {"lblUnits", Kind::Caption},
    {"lblTab", Kind::Control, {}, kTabs, true},
    {"picGeneral", Kind::Control},
    {"pic2Axis", Kind::Control},
    {"pic4Axis", Kind::Control},
    {"picSpeeds", Kind::Control},
    {"picHOLD", Kind::Control},
    {"Label21",
     Kind::Control,
     {"See Picture", "Shows in large where the offset is measured.", FieldUnit::None, "See Picture"}},
    {"Command5",
     Kind::Control,
     {"Go Home", "The machine drives to its limit switches.", FieldUnit::None, "--> Go Home"}},
    {"Command6",
     Kind::Control,
     {"Go Home", "The machine drives to its limit switches.", FieldUnit::None, "--> Go Home"}},
    {"btnOK", Kind::Control, {"OK", "Takes over what was changed.", FieldUnit::None, "OK"}},
    {"btnCancel", Kind::Control, {"Cancel", "Leaves everything as it was.", FieldUnit::None, "Cancel"}},
};

std::vector<WindowField> AllFields() {
  std::vector<WindowField> fields(std::begin(kOtherFields), std::end(kOtherFields));
  for (const Setting* setting : HeldSettings()) {
    fields.push_back({setting->line.field, Kind::Text});
    if (!setting->line.twin.empty()) fields.push_back({setting->line.twin, Kind::Text});
  }
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
    for (const Setting* setting : HeldSettings()) held_.push_back({*setting, {}});
    Load();
  }
  using Window::SetModal;

  bool Run(std::string_view control, Event event, int index) override;
  void Closing() override { RecalculateTwoAxisLayers(s(), kSpeedsByAngle); }
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
  // What stands in the dialog for a setting.
  struct Held {
    const Setting& setting;
    std::optional<std::string> pending;  // what OK hands over: the text of the field's last change

    const SettingLine& line() const { return setting.line; }
  };

  void ChangeSetting(Held& held);
  void KeyInSetting(Held& held);
  void OffsetKey(const Field& typed, bool inches);
  void SpeedKey(int index, std::string_view name, std::string_view twin, double factor,
                std::string_view limit);
  void TakeOver();

  std::vector<Held> held_;
};

void SettingsDialog::Load() {
  DesignState& state = s();
  state.gMirrorOnChange = true;
  field("picHOLD").Show(false);
  field("lblUnits") = "Units = " + state.lblUnits(0).text();
  for (const Held& held : held_) {
    Field& shown = field(held.line().field);
    if (const auto* target = std::get_if<Field Fields::*>(&held.setting.target))
      shown.CopyFrom(state.*(*target));
    else
      shown = Number(state.*std::get<double DesignState::*>(held.setting.target)).plain();
  }
  constexpr const char* kTabCaptions[] = {"General", "2-Axis", "4-Axis", "Speeds"};
  for (int i = 0; i <= kTabs.last; ++i) field(At("lblTab", i)).SetCaption(kTabCaptions[i]);
  ShowTab(0);
  field("lblcMaxSpeed") = Number(state.cMaxSpeed).as(mask::kFastestCarriage);
  field("lblcMaxSpeedMM") = (Number(state.cMaxSpeed) * kMillimetresPerInch).as(mask::kFastestCarriageMM);
  field("lblmMaxRPM") = Number(state.mMaxRPM).as(mask::kMandrelSpeed);
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

void SettingsDialog::ChangeSetting(Held& held) {
  const SettingLine& line = held.line();
  Field& changed = field(line.field);
  if (line.entry == Entry::Degrees) return;
  if (line.entry == Entry::YesNo || line.entry == Entry::YesNoKey)
    changed = EqualNoCase(changed.text(), "n") ? "N" : "Y";
  held.pending = changed.text();
  if (!line.twin.empty() && s().gMirrorOnChange)
    field(line.twin) = (number(changed) * kMillimetresPerInch).as(mask::kLimit);
  if (line.entry == Entry::Offset) field("Text3").CopyFrom(changed);
}

bool SettingsDialog::Change(std::string_view name, int index) {
  for (Held& held : held_) {
    if (held.line().field == name) {
      ChangeSetting(held);
      return true;
    }
    if (held.line().entry == Entry::Offset && name == "Text3") held.pending = field(name).text();
  }
  if (name == "txtCarriageOffsetFromRMPFaceMM") field("Text2").CopyFrom(field(name));
  const bool carriage = name == "txtcSpeed";
  if (!carriage && name != "txtmSpeed") return true;
  const Number speed = number(field(At(name, index)));
  auto& classes = carriage ? s().iMaxCarriageSpeeds : s().iMaxMandrelRPM;
  if (speed.good()) classes[static_cast<std::size_t>(index)] = speed.value();
  if (s().gMirrorOnChange)
    field(At(carriage ? "txtcSpeedmm" : "txtmSpeedmm", index)) =
        (speed * (carriage ? kMillimetresPerInch : 1)).as(mask::kLimit);
  return true;
}

void SettingsDialog::KeyInSetting(Held& held) {
  Field& typed = field(held.line().field);
  switch (held.line().entry) {
    case Entry::YesNoKey:
      typed = station().lastKey == 'Y' || station().lastKey == 'y' ? "Y" : "N";
      break;
    case Entry::Inches:
      field(held.line().twin) = (number(typed) * kMillimetresPerInch).as(mask::kLimit);
      break;
    case Entry::Offset:
      OffsetKey(typed, true);
      break;
    case Entry::Delay:
      typed = Whole(number(typed)).plain();
      if (holds(number(typed) > 500)) typed = "499";
      break;
    case Entry::Degrees:
      held.pending = typed.text();
      break;
    case Entry::Plain:
    case Entry::YesNo:
    case Entry::SpeedClass:
      break;
  }
}

// A key in any of the offset's four fields brings the other three in step and confirms the offset.
void SettingsDialog::OffsetKey(const Field& typed, bool inches) {
  const std::string& text = typed.text();
  const Masked millimetres = (s().Read(text) * kMillimetresPerInch).as(mask::kLimit);
  const Masked inInches = (s().Read(text) / kMillimetresPerInch).as(mask::kLimit);
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
  field(At(twin, index)) = (number(typed) * factor).as(mask::kLimit);
}

bool SettingsDialog::Key(std::string_view name, int index) {
  for (Held& held : held_) {
    const SettingLine& line = held.line();
    if (line.field == name) {
      KeyInSetting(held);
      return true;
    }
    if (line.twin == name && line.entry == Entry::Inches) {
      field(line.field) = (number(field(name)) / kMillimetresPerInch).as(mask::kLimit);
      return true;
    }
  }
  if (IsOneOf(name, kOffsetInches)) OffsetKey(field(name), true);
  if (IsOneOf(name, kOffsetMillimetres)) OffsetKey(field(name), false);
  if (name == "txtcSpeed") SpeedKey(index, name, "txtcSpeedmm", kMillimetresPerInch, "lblcMaxSpeed");
  if (name == "txtmSpeed") SpeedKey(index, name, "txtmSpeedmm", 1, "lblmMaxRPM");
  if (name == "txtcSpeedmm")
    field(At("txtcSpeed", index)) = (number(field(At(name, index))) / kMillimetresPerInch).as(mask::kLimit);
  if (name == "txtmSpeedmm") field(At("txtmSpeed", index)) = number(field(At(name, index))).as(mask::kLimit);
  return Find(name) != nullptr || Find(At(name, index)) != nullptr;
}

// A key in the offset is enough to confirm it as it stands.
bool SettingsDialog::IdleKey(std::string_view name) {
  if (IsOneOf(name, kOffsetInches) || IsOneOf(name, kOffsetMillimetres))
    ConfirmCarriageOffset(station().platform.store);
  return Find(name) != nullptr;
}

void SettingsDialog::TakeOver() {
  for (const Held& held : held_) {
    if (!held.pending) continue;
    if (const auto* target = std::get_if<Field Fields::*>(&held.setting.target)) {
      s().*(*target) = *held.pending;
      continue;
    }
    const Number value = s().Read(*held.pending);
    if (value.good()) s().*std::get<double DesignState::*>(held.setting.target) = value.value();
  }
  RecalculateTwoAxisLayers(s(), kSpeedsByAngle);
}

bool SettingsDialog::Click(std::string_view name, int index) {
  if (name == "lblTab") {
    ShowTab(index);
    SaveSetting(station().platform.store, kSettings, "LastSettingsTab", std::to_string(index));
    return true;
  }
  if (name == "Label21") {
    OpenPicture(station());
    return true;
  }
  if (name != "btnOK" && name != "btnCancel") return false;
  if (name == "btnOK") TakeOver();
  station().windows.Close(*this);
  return true;
}

}  // namespace

void OpenSettings(Station& station, int tab, CarriageOffsetMark mark) {
  auto& dialog = station.windows.OpenOnce<SettingsDialog>(station);
  dialog.ShowTab(tab);
  if (mark == CarriageOffsetMark::TooLow) dialog.MarkOffset(tab == 2 ? 0 : 1, Mark::StopTooLow);
  if (station.settingsOpened) station.settingsOpened(tab);
}

void OpenSettingsBeside(Station& station, int tab) {
  const bool wasOpen = station.windows.Find<SettingsDialog>() != nullptr;
  auto& dialog = station.windows.OpenOnce<SettingsDialog>(station);
  if (!wasOpen) dialog.SetModal(false);
  OpenSettings(station, tab);
}

}  // namespace torvane
