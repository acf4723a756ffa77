#include "window/field/help.h"

#include "design/catalogue.h"
#include "look/text.h"
#include "window/field/field_paint.h"
#include "workbench/build/marks.h"
#include "workbench/station/number_hint.h"

namespace torvane {

namespace {

// Of an array whose members mean different things each member has a row of its own.
struct Row {
  std::string_view field;
  const char* name;
  const char* sentence;
};

constexpr Row kHelp[] = {
    {"txtLengthTotal", "Total length", "Length of the part between its ends."},
    {"txtBandWidth", "Band width", "Width of the filament band in inches."},
    {"txtBandWidthMM", "Band width, mm", "Width of the filament band in millimetres."},
    {"txtBandThickness", "Band thickness", "Thickness of the filament band in inches."},
    {"txtBandThicknessMM", "Band thickness, mm", "Thickness of the filament band in millimetres."},
    {"txtNumberOfLayers", "Number of Layers", "1 to 15. Each layer becomes a row of the schedule."},
    {"txtDiameterLeft", "Left diameter", "Diameter of the mandrel at its left end."},
    {"txtDiameterRight", "Right diameter", "Diameter of the mandrel at its right end."},
    {"txtDia(0)", "Left diameter", "Diameter of the mandrel at its left end."},
    {"txtDia(1)", "Right diameter", "Diameter of the mandrel at its right end."},
    {"txtZ2(0)", "Left stop", "Where winding stops, counted from the mandrel post at home."},
    {"txtZ2(1)", "Right stop", "Where winding stops, counted from the mandrel post at home."},
    {"txtZ4(0)", "Left Z", "The part's left end, counted from the mandrel post at home."},
    {"txtZ4(1)", "Inner left Z", "Where the left dome begins, counted from the mandrel post at home."},
    {"txtZ4(2)", "Inner right Z", "Where the right dome begins, counted from the mandrel post at home."},
    {"txtZ4(3)", "Right Z", "The part's right end, counted from the mandrel post at home."},
    {"txtPODia(0)", "Left polar opening", "Diameter of the opening at the left end."},
    {"txtPODia(1)", "Right polar opening", "Diameter of the opening at the right end."},
    {"txtAdjust(0)", "Offset 0, wrap Y at the left",
     "From the axis to the delivery head in the left end wrap."},
    {"txtAdjust(1)", "Offset 1, wrap Z at the left", "Where the carriage stands in the left end wrap."},
    {"txtAdjust(2)", "Offset 2, left end of the run",
     "Where the trace shows the left end of the run along the part."},
    {"txtAdjust(3)", "Offset 3, head gap", "From the part to the delivery head along the run."},
    {"txtAdjust(4)", "Offset 4, right end of the run",
     "Where the trace shows the right end of the run along the part."},
    {"txtAdjust(5)", "Offset 5, wrap Z at the right", "Where the carriage stands in the right end wrap."},
    {"txtAdjust(6)", "Offset 6, wrap Y at the right",
     "From the axis to the delivery head in the right end wrap."},
    {"txtSkirtLeft", "Left skirt", "Length of the left skirt."},
    {"txtSkirtRight", "Right skirt", "Length of the right skirt."},
    {"cmbRate", "Winding Rate", "Speed class of the whole part."},
    {"txtStepSize2Ax", "Step", "How far a press of an arrow shifts both stops."},
    {"txtStepSize4Ax", "Step", "How far a press of an arrow shifts the part or an offset."},
    {"btn2AxLeftRight", "Shift part", "Shifts both stops by a step."},
    {"btnLR", "Shift part", "Shifts all places in Z, and the offsets along the part, by a step."},
    {"btnLeftCloser", "Offset 0, wrap Y at the left", "Moves the delivery head by a step."},
    {"btnLDHZ", "Offset 1, wrap Z at the left", "Moves the delivery head by a step."},
    {"btnLeft", "Offset 2, left end of the run", "Moves the delivery head by a step."},
    {"btnCloser", "Offset 3, head gap", "Moves the delivery head by a step."},
    {"btnRight", "Offset 4, right end of the run", "Moves the delivery head by a step."},
    {"btnRDHZ", "Offset 5, wrap Z at the right", "Moves the delivery head by a step."},
    {"btnRightCloser", "Offset 6, wrap Y at the right", "Moves the delivery head by a step."},
    {"txtWA", "Winding Angle",
     "Degrees to the mandrel's axis; 90 winds a hoop. The row follows as you type."},
    {"cmb2AxisLayerType", "Layer Type", "HOOP lays band beside band, REG crosses the part at its angle."},
    {"cmbSpeed", "Speed", "Speed class of the row."},
    {"cmbMethod", "Method", "ms shifts the mandrel between passes, cs the carriage."},
    {"txtAddRevs", "Add'l Wrap", "Degrees that the mandrel turns on at each end."},
    {"txtMRPM", "Mandrel", "Turns of the mandrel a minute. A typed speed stands."},
    {"txtCarriageSpeed", "Carriage Speed",
     "Follows from angle, diameter and mandrel speed. A click sets classes."},
    {"lblPassesToCover", "Passes", "Passes that cover the mandrel once."},
    {"lblMinutesToCover", "Minutes", "Time of the row."},
    {"lblLengthToCover", "Length", "Filament of the row."},
    {"cmb3D", "Layer Type", "HOOP lays band beside band, REG follows a pattern."},
    {"cmbPattern", "Pattern", "Winding angle | groups x circuits | end wrap."},
    {"cmbPhiW", "End Wrap", "Turn of the mandrel at each end."},
    {"cmbPhiSplit", "Split", "Share of the end wrap before the head moves."},
    {"chkPause", "Pause", "The machine waits behind this layer. Without end wraps the tick does nothing."},
    {"lblBuildTime", "Est. Build Time", "Minutes of winding, without pauses."},
    {"lblLengthRequired", "Filament Length", "Filament for all layers."},
    {"lblFinalThickness", "Wall Thickness", "Two bands for each layer."},
    {"lblFilamentVOlume", "Part Volume", "Volume of the wound wall."},
    {"lblEstWeight", "Est. Total Weight", "Weight of the wound part."},
    {"lblTotalGlueWgt", "Est. Glue Weight", "Resin for the whole part."},
    {"chkPreWrap1", "Pre-Wrap #1", "Wraps the bare mandrel before winding."},
    {"chkPreWrap2", "Pre-Wrap #2", "A second wrap of the bare mandrel."},
    {"chkWindingSchedule", "Winding", "The layers themselves are part of the program."},
    {"chkPromptForHST", "Shrink Tape", "Shrink tape follows the last layer."},
    {"chkHeatGunApp", "Heat Gun", "A pass of the heat gun ends the program."},
    {"chkNotify1", "Send Text Message When Complete", "Sends a message to the first address at the end."},
    {"chkNotify2", "2nd message", "Sends a message to the second address as well."},
    {"cmbPreWrapRPM", "Pre-wrap RPM", "Turns of the mandrel a minute in the pre-wrap."},
    {"cmbHSTRPM", "Shrink tape RPM", "Turns of the mandrel a minute under the tape."},
    {"cmbHGRPM", "Heat gun RPM", "Turns of the mandrel a minute under the heat gun."},
    {"txtPreWrapAdvance", "Pre-wrap advance", "Carriage travel a turn in inches."},
    {"txtPreWrapAdvanceMM", "Pre-wrap advance, mm", "Carriage travel a turn in millimetres."},
    {"txtHSTWidth", "Shrink tape width", "Width of the tape in inches."},
    {"txtHSTWidthMM", "Shrink tape width, mm", "Width of the tape in millimetres."},
    {"txtHGSpeed", "Heat gun speed", "Carriage speed in inches per second."},
    {"txtHGSpeedMM", "Heat gun speed, mm", "Carriage speed in millimetres per second."},
    {"chkDontShowVideoLinks", "Don't Show These Links", "The start card leaves the links out."},
};

}  // namespace

Help HelpOf(const Field& field) {
  const std::string member = NameOf(field);
  for (const Row& row : kHelp) {
    if (row.field != field.row().name && row.field != member) continue;
    QString name = QString::fromLatin1(row.name);
    if (IsScheduleRow(field.row()) && field.index() != IndexSet::kAllRows)
      name += QStringLiteral(", layer %1").arg(field.index());
    return {name, QString::fromLatin1(row.sentence)};
  }
  return {QString::fromStdString(member), {}};
}

QString TipOf(const Field& field, NumberSigns signs) {
  if (const std::string hint = NumberHint(field, signs); !hint.empty()) return Shown(hint);
  if (const Mark mark = ShownMark(field); mark != Mark::Plain) return QString::fromLatin1(WordsOf(mark));
  return field.tip().empty() ? HelpOf(field).sentence : Shown(field.tip());
}

void Explain(QWidget& widget, const Field& field) {
  const Help help = HelpOf(field);
  widget.setAccessibleName(help.name);
  widget.setWhatsThis(help.sentence.isEmpty() ? help.name : help.name + QStringLiteral("\n") + help.sentence);
}

}  // namespace torvane
