#include "window/part/part_scene.h"

#include "design/units.h"
#include "look/text.h"
#include "window/part/part_sketch.h"
#include "workbench/station/layer_count.h"

namespace torvane {

PartScene SceneOfTwoAxes(const Station& station) {
  const DesignState& s = station.s;
  PartScene scene;
  scene.leftStop = DrawnValue(s.txtZ2(0));
  scene.rightStop = DrawnValue(s.txtZ2(1));
  scene.length = DrawnValue(s.txtLengthTotal(0));
  scene.leftDiameter = DrawnValue(s.txtDiameterLeft);
  scene.rightDiameter = DrawnValue(s.txtDiameterRight);
  scene.band = DrawnValue(BandWidthField(s, 0));
  // The machine's own figures are inches.
  if (const Number offset = InUnits(s, number(s.gCarriageOffsetFromRMPFace), false); holds(offset > 0)) {
    scene.offset = offset.value();
    scene.offsetText = Shown(NumberToText(s.signs, offset.value()));
  }
  scene.homeRight = !s.gIsLHDrive;
  scene.stopTooLow = s.txtZ2(1).mark() == Mark::StopTooLow;
  const QString unit = QStringLiteral(" ") + Shown(s.gUnits.text());
  if (!s.lblZ2(4).empty()) scene.total = QStringLiteral("Total length ") + Shown(s.lblZ2(4).text()) + unit;
  scene.winding = QStringLiteral("Winding length");
  if (!s.txtZ2(2).empty()) scene.winding += QStringLiteral(" ") + Shown(s.txtZ2(2).text()) + unit;
  scene.leftStopText = Shown(s.txtZ2(0).text());
  scene.rightStopText = Shown(s.txtZ2(1).text());
  const QString diameter = QString(QChar(0x2300)) + QStringLiteral(" ");
  if (!s.txtDia(3).empty()) scene.leftDiameterText = diameter + Shown(s.txtDia(3).text());
  if (!s.txtDia(2).empty()) scene.rightDiameterText = diameter + Shown(s.txtDia(2).text());
  if (const int row = PressedRow(s); row > 0 && !s.txtWA(row).empty()) {
    const Number angle = number(s.txtWA(row));
    if (holds(angle > 0) && holds(angle <= 90)) scene.angle = angle.value();
    scene.legend = QStringLiteral("Layer %1, %2%3").arg(row).arg(Shown(s.txtWA(row).text()), QChar(0xB0));
    if (scene.band)
      scene.bandText =
          QStringLiteral("band ") + Shown(BandWidthField(s, 0).text()) + unit + QStringLiteral(", to scale");
  }
  return scene;
}

}  // namespace torvane
