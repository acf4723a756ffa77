// The polar preview: the picture of a row in the main window, and the window that draws it pass by pass.
#pragma once

#include "workbench/station/end_view.h"
#include "workbench/station/station.h"

namespace torvane {

// Draws the whole of the noted pattern into the end view.
void DrawEndView(Station& station);
// The same, writes the row's speeds, and stores the pattern's trace text if it has as many circuits as the
// row pressed has a number.
void DrawPolarCircPattern(Station& station, int row);

// Whether a four-axis row can be previewed: it is no hoop, and its pattern's cell is not empty.
bool HasPreview(const DesignState& s, int row);

// Opens the preview of the pattern that the end view shows; with the row's angles where a row was pressed.
enum class RowAngles : bool { Left, Shown };
void ShowPreview(Station& station, RowAngles angles = RowAngles::Left);

// The pointer stands at a point of the preview's picture, in the picture's units. Shows the point, and how
// far from the axis and at which angle of the mandrel it lies.
void ShowPointer(Station& station, double x, double y);

// How far the preview's drawing has come; no passes without a pattern.
struct DrawnPasses {
  int drawn = 0;
  int all = 0;
};
DrawnPasses PassesDrawn(const Station& station);

// The picture in front: the preview's while it is open, else the end view's.
const std::vector<PolarFigure>& LastDrawing(const Station& station);

}  // namespace torvane
