// The winding schedule of a two-axis design.
#pragma once

#include <string>
#include <string_view>

#include "gcode/session.h"

namespace torvane {

// Sets `gFarEndZ` and `gHomeEndZ`, the carriage positions at which a pass turns round, from the stops and
// the side of the drive.
void SetPassEnds(DesignState& s);

// Every layer with its passes. Writes nothing without `chkWindingSchedule`.
void WriteTwoAxisProgram(GCodeSession& session);

// The mandrel turns on by the operator's degrees before the next layer is begun; nothing behind the last one.
// By mandrel shift from where it stands, else from the angle of the home register.
void WriteAdvanceToNextLayer(GCodeSession& session, int layer, const MaybeText& rpm, bool mandrelShift);

// Minutes left in the build when the first pass of a layer begins, from the rows' minutes and their sum. The
// rows are taken from the end of the schedule backward, layer by layer; `timeLeft` is what the layer before
// has left.
MaybeText MinutesLeft(NumberSigns signs, const FieldArray& minutes, int layer, int layers, Kept& timeLeft);

// How far along Z the bands of a carriage shift lie from each other, design units: a band as it stands on the
// axis, its width over the sine of its angle.
Number BandOnAxis(const DesignState& s, Number windingAngle);

// Where the passes of a mandrel shift reverse at an end ("H" home, any other far): each band comes to lie
// beside the last one. The step is the band's width measured round the mandrel, or the equal part of the
// circle that holds one band more than fit whole.
class MandrelShift {
 public:
  MandrelShift(const DesignState& s, std::string_view endCode, Number windingAngle);

  // Degrees from the register of the end.
  Number AngleAt(int step) const;

 private:
  Number bandAround_, circumference_;
  bool bandWidthSpacing_;
};

}  // namespace torvane
