// Colours by name, fonts and sizes: the one place that knows what the window looks like. Sizes are logical
// pixels, which the toolkit scales as the desktop says.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QPen>
#include <cstdint>
#include <map>

namespace torvane {

enum class Token : std::uint8_t {
  Window,
  Bars,
  Panel,
  Input,
  Drawing,
  DrawingGrid,
  DrawingGridBold,
  TableHead,
  ReadOut,
  Figures,
  Text,
  Second,
  Off,
  Hairline,
  FieldEdge,
  Accent,
  OnAccent,
  Focus,
  Selected,
  BandOut,
  BandBack,
  MandrelLow,
  MandrelMid,
  MandrelHigh,
  DrawnEdge,
  Steel,
  Dimension,
  NeedsGround,
  NeedsEdge,
  NeedsText,
  TooHigh,
  TooLow,
  Split,
  Ok,
  Note,
  Fault,
};

enum class Weight : std::uint8_t { Regular, Medium };

// Whether the desktop's own palette is dark. Drops the one that the program has set: set it again behind it.
bool DesktopIsDark();

class Theme {
 public:
  explicit Theme(bool dark) : dark_(dark) {}

  bool dark() const { return dark_; }
  void SetDark(bool dark) { dark_ = dark; }
  // The phase of the marks that blink: the same for all fields.
  bool blinkWhite() const { return blinkWhite_; }
  void TurnBlink() { blinkWhite_ = !blinkWhite_; }

  QColor operator[](Token token) const;
  // Lives as long as the theme. `size` in logical pixels.
  const QFont& Font(int size, Weight weight = Weight::Regular) const;
  // The schedule, the totals and the checklist can be read from the machine, two metres away.
  bool large() const { return large_; }
  void SetLarge(bool large) { large_ = large; }
  // A size of what grows with the large figures: cells of 14 become 24.
  int Figure(int size) const { return large_ ? (size * 12 + 3) / 7 : size; }
  const QFont& FigureFont(int size, Weight weight = Weight::Regular) const {
    return Font(Figure(size), weight);
  }
  // For the toolkit's own widgets.
  QPalette Palette() const;
  // With round ends and corners.
  QPen Pen(Token token, double width = 1) const;

 private:
  bool dark_;
  bool blinkWhite_ = false;
  bool large_ = false;
  // Looking a font up costs more than drawing a cell with it.
  mutable std::map<std::pair<int, Weight>, QFont> fonts_;
};

}  // namespace torvane
