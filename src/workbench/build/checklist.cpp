// The winding checklist: pre-wraps, finishing passes, notices, each stored as it is chosen.
#include "workbench/build/checklist.h"

#include "design/catalogue.h"
#include "design/masks.h"
#include "persist/settings.h"
#include "workbench/part/twins.h"
#include "workbench/station/messages.h"

namespace torvane {

namespace {

void Store(Station& station, std::string_view key, const Field& field) {
  SaveSetting(station.platform.store, kSettings, key, field.text());
}

template <Field Fields::*field>
void StoreField(Station& station, int) {
  const Field& stored = station.s.*field;
  Store(station, stored.row().name, stored);
}

void StoreCheck(Station& station, const Field& check) {
  SaveSetting(station.platform.store, kSettings, check.row().name, check.checked() ? "1" : "0");
}

template <Field Fields::*check>
void Check_Click(Station& station, int) {
  StoreCheck(station, station.s.*check);
}

void chkPreWrap1_Click(Station& station, int) {
  StoreCheck(station, station.s.chkPreWrap1);
  LinkPreWraps(station);
}

template <Field Fields::*check>
void Notify_Click(Station& station, int) {
  StoreCheck(station, station.s.*check);
  station.s.txtEmail1 = GetSetting(station.platform.store, kSettings, "txtEmail1", "");
}

std::string KeyOf(std::string_view name, int i) { return std::string(name) + std::to_string(i); }

void cmbPreWrapRPM_Click(Station& station, int i) {
  Store(station, KeyOf("cmbPreWrapRPM", i), station.s.cmbPreWrapRPM(i));
}

void txtPreWrapAdvance_Change(Station& station, int i) {
  MirrorInTwin(station, station.s.txtPreWrapAdvanceMM(i), station.s.txtPreWrapAdvance(i), mask::kWrapAdvance);
}

void txtPreWrapAdvance_Key(Station& station, int i) {
  DesignState& s = station.s;
  Store(station, KeyOf("txtPreWrapAdvance", i), s.txtPreWrapAdvance(i));
  if (holds(number(s.txtPreWrapAdvance(i)) * number(s.cmbPreWrapRPM(i)) / 60 > s.cMaxSpeed))
    ShowMessageDialog(station, messages::kAdvanceBeyondCapability);
  SetTwin(s.txtPreWrapAdvanceMM(i), s.txtPreWrapAdvance(i), mask::kWrapAdvance);
}

void txtPreWrapAdvanceMM_Key(Station& station, int i) {
  SetInchesFromTwin(station, station.s.txtPreWrapAdvance(i), station.s.txtPreWrapAdvanceMM(i),
                    mask::kWrapAdvance);
}

template <Field Fields::*inches, Field Fields::*twin>
void Inches_Change(Station& station, int) {
  MirrorInTwin(station, station.s.*twin, station.s.*inches, mask::kWrapAdvance);
}

template <Field Fields::*inches, Field Fields::*twin>
void Inches_Key(Station& station, int) {
  StoreField<inches>(station, 0);
  SetTwin(station.s.*twin, station.s.*inches, mask::kWrapAdvance);
}

template <Field Fields::*inches, Field Fields::*twin>
void Twin_Key(Station& station, int) {
  SetInchesFromTwin(station, station.s.*inches, station.s.*twin, mask::kWrapAdvance);
}

// A value that seems too high above its limit, in the order of the checklist. The limit of a millimetre
// design is held against the same inch field.
struct Limited {
  Field& field;
  const Field& chosen;
  double limitInches, limitMillimetres;

  bool TooHigh(bool inches) const { return holds(number(field) > (inches ? limitInches : limitMillimetres)); }
};

std::array<Limited, 4> LimitedValues(DesignState& s) {
  return {Limited{s.txtHGSpeed, s.chkHeatGunApp, 10, 250}, Limited{s.txtHSTWidth, s.chkPromptForHST, 4, 100},
          Limited{s.txtPreWrapAdvance(1), s.chkPreWrap1, 4, 100},
          Limited{s.txtPreWrapAdvance(2), s.chkPreWrap2, 4, 100}};
}

void tmrBlink_Tick(Station& station, int) {
  DesignState& s = station.s;
  for (const Limited& value : LimitedValues(s))
    value.field.SetMark(value.chosen.checked() && value.TooHigh(s.InInches()) ? Mark::TooHigh : Mark::Plain);
}

void AcceptValues(Station& station, int) {
  if (!station.timers.tmrBlink.due) return;
  for (const Limited& value : LimitedValues(station.s)) value.field.SetMark(Mark::Plain);
  station.timers.Stop(station.timers.tmrBlink);
  station.gWrapValuesAccepted = true;
}

constexpr auto HGSpeed = &Fields::txtHGSpeed;
constexpr auto HGSpeedMM = &Fields::txtHGSpeedMM;
constexpr auto HSTWidth = &Fields::txtHSTWidth;
constexpr auto HSTWidthMM = &Fields::txtHSTWidthMM;

constexpr Operation kOperations[] = {
    {"chkPreWrap1", Event::Click, chkPreWrap1_Click},
    {"chkPreWrap2", Event::Click, Check_Click<&Fields::chkPreWrap2>},
    {"chkHeatGunApp", Event::Click, Check_Click<&Fields::chkHeatGunApp>},
    {"chkPromptForHST", Event::Click, Check_Click<&Fields::chkPromptForHST>},
    {"chkNotify1", Event::Click, Notify_Click<&Fields::chkNotify1>},
    {"chkNotify2", Event::Click, Notify_Click<&Fields::chkNotify2>},
    {"cmbPreWrapRPM", Event::Click, cmbPreWrapRPM_Click},
    {"cmbHGRPM", Event::Change, StoreField<&Fields::cmbHGRPM>},
    {"cmbHSTRPM", Event::Click, StoreField<&Fields::cmbHSTRPM>},
    {"txtPreWrapAdvance", Event::Change, txtPreWrapAdvance_Change},
    {"txtPreWrapAdvance", Event::Key, txtPreWrapAdvance_Key},
    {"txtPreWrapAdvance", Event::Click, AcceptValues},
    {"txtPreWrapAdvanceMM", Event::Key, txtPreWrapAdvanceMM_Key},
    {"txtHGSpeed", Event::Change, Inches_Change<HGSpeed, HGSpeedMM>},
    {"txtHGSpeed", Event::Key, Inches_Key<HGSpeed, HGSpeedMM>},
    {"txtHGSpeed", Event::Click, AcceptValues},
    {"txtHGSpeedMM", Event::Key, Twin_Key<HGSpeed, HGSpeedMM>},
    {"txtHSTWidth", Event::Change, Inches_Change<HSTWidth, HSTWidthMM>},
    {"txtHSTWidth", Event::Key, Inches_Key<HSTWidth, HSTWidthMM>},
    {"txtHSTWidth", Event::Click, AcceptValues},
    {"txtHSTWidthMM", Event::Key, Twin_Key<HSTWidth, HSTWidthMM>},
    {"txtStepSize2Ax", Event::Change, StoreField<&Fields::txtStepSize2Ax>},
    {"txtStepSize4Ax", Event::Change, StoreField<&Fields::txtStepSize4Ax>},
    {"tmrBlink", Event::Tick, tmrBlink_Tick},
};

}  // namespace

std::span<const Operation> ChecklistOperations() { return kOperations; }

void LinkPreWraps(Station& station) {
  DesignState& s = station.s;
  const bool first = s.chkPreWrap1.checked();
  for (Field* field : {&s.chkPreWrap2, &s.cmbPreWrapRPM(2), &s.txtPreWrapAdvance(2)}) field->Enable(first);
  if (!first && s.chkPreWrap2.checked()) station.Choose(s.chkPreWrap2, "0");
}

bool CheckWrapHGValues(Station& station) {
  DesignState& s = station.s;
  for (const Limited& value : LimitedValues(s)) {
    // The tape is looked at only behind the heat gun.
    const bool behindHeatGun = &value.field != &s.txtHSTWidth || s.chkHeatGunApp.checked();
    if (!value.chosen.checked() || !behindHeatGun || !value.TooHigh(s.InInches())) continue;
    station.timers.Start(station.timers.tmrBlink);
    ShowMessageDialog(station, messages::kValuesSeemTooHigh);
    return true;
  }
  return false;
}

}  // namespace torvane
