// The design's unit, and the band in both.
#include "design/masks.h"
#include "design/reset.h"
#include "persist/settings.h"
#include "workbench/part/operations.h"
#include "workbench/part/twins.h"
#include "workbench/station/end_view.h"
#include "workbench/station/messages.h"

namespace torvane {

namespace {

// Values are never converted: another unit empties the design.
void ChangeUnits(Station& station, const char* inches) {
  DesignState& s = station.s;
  s.gGridSync = false;
  SetUnits(s, station.platform.store, inches);
  BlankInputs(s, 2);
  BlankInputs(s, 4);
  BlankEndView(station);
  s.gGridSync = true;
}

void AskForUnits(Station& station, const StationMessage& question, const char* inches) {
  ShowMessageDialog(station, question);
  if (station.s.gMsgAnswer) ChangeUnits(station, inches);
}

void mnuINCH_Click(Station& station, int) {
  if (station.s.mnuINCH) return;
  AskForUnits(station, messages::kInches, "Y");
}

void mnuMM_Click(Station& station, int) {
  if (station.s.mnuMM) return;
  AskForUnits(station, messages::kMillimetres, "N");
}

void txtBandWidth_Key(Station& station, int i) {
  DesignState& s = station.s;
  SetTwin(s.txtBandWidthMM(i), s.txtBandWidth(i), mask::kBandMM);
  if (s.gUnits.text() == "mm") AskForUnits(station, messages::kInchBandInMillimetres, "Y");
}

void txtBandWidthMM_Key(Station& station, int i) {
  DesignState& s = station.s;
  s.gDirty = true;
  SetInchesFromTwin(station, s.txtBandWidth(i), s.txtBandWidthMM(i), mask::kBandWidth);
  if (s.gUnits.text() == "in") AskForUnits(station, messages::kMillimetreBandInInches, "N");
}

void txtBandThickness_Key(Station& station, int i) {
  DesignState& s = station.s;
  SetTwin(s.txtBandThicknessMM(i), s.txtBandThickness(i), mask::kBandMM);
}

void txtBandThicknessMM_Key(Station& station, int i) {
  DesignState& s = station.s;
  s.gDirty = true;
  SetInchesFromTwin(station, s.txtBandThickness(i), s.txtBandThicknessMM(i), mask::kBandThickness);
}

constexpr Operation kOperations[] = {
    {"mnuINCH", Event::Click, mnuINCH_Click},
    {"mnuMM", Event::Click, mnuMM_Click},
    {"txtBandWidth", Event::Key, txtBandWidth_Key},
    {"txtBandWidthMM", Event::Key, txtBandWidthMM_Key},
    {"txtBandThickness", Event::Key, txtBandThickness_Key},
    {"txtBandThicknessMM", Event::Key, txtBandThicknessMM_Key},
};

}  // namespace

std::span<const Operation> UnitOperations() { return kOperations; }

}  // namespace torvane
