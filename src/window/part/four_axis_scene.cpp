#include "window/part/four_axis_scene.h"

#include "calc/patterns.h"
#include "design/units.h"
#include "look/text.h"
#include "window/part/part_sketch.h"
#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

void TakeRow(FourAxisScene& scene, const DesignState& s, int row) {
  const Number angle = ShownAngle(s, row);
  if (!holds(angle > 0) || !holds(angle <= 90)) return;
  scene.angle = angle.value();
  const Number wrap = Degrees(s, s.cmbPhiW(row));
  if (holds(wrap > 0)) scene.endWrap = wrap.value();
}

}  // namespace

FourAxisScene SceneOfFourAxes(const Station& station) {
  const DesignState& s = station.s;
  FourAxisScene scene;
  if (s.optType(1).checked()) scene.ends = PartEnds::Hemispherical;
  if (s.optType(2).checked()) scene.ends = PartEnds::NoWrap;
  scene.homeRight = !s.gIsLHDrive;
  for (int i = 0; i < 4; ++i) scene.z[static_cast<std::size_t>(i)] = DrawnValue(s.txtZ4(i));
  for (int i = 0; i < 2; ++i) {
    scene.diameter[static_cast<std::size_t>(i)] = DrawnValue(s.txtDia(i));
    scene.opening[static_cast<std::size_t>(i)] = DrawnValue(s.txtPODia(i));
  }
  for (int i = 0; i < 7; ++i) scene.offset[static_cast<std::size_t>(i)] = DrawnValue(s.txtAdjust(i));
  scene.band = DrawnValue(BandWidthField(s, 1));
  if (!s.lblLengthTotal.empty())
    scene.length = Shown(s.lblLengthTotal.text()) + QStringLiteral(" ") + Shown(s.gUnits.text());
  scene.leftText = Shown(s.txtZ4(0).text());
  scene.rightText = Shown(s.txtZ4(3).text());
  if (const int row = PressedRow(s); row > 0) TakeRow(scene, s, row);
  return scene;
}

}  // namespace torvane
