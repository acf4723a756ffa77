#include "workbench/part/twins.h"

#include "design/units.h"

namespace torvane {

void SetTwin(Field& twin, const Field& inches, Mask mask) {
  twin = (number(inches) * kMillimetresPerInch).as(mask);
}

void MirrorInTwin(const Station& station, Field& twin, const Field& inches, Mask mask) {
  if (station.s.gMirrorOnChange && !station.twinIsTyped) SetTwin(twin, inches, mask);
}

void SetInchesFromTwin(Station& station, Field& inches, const Field& twin, Mask mask) {
  station.twinIsTyped = true;
  inches = (number(twin) / kMillimetresPerInch).as(mask);
  station.twinIsTyped = false;
}

}  // namespace torvane
