// What the painters draw, measured in the picture itself against the part's geometry.
#include <cmath>
#include <numbers>

#include "on_stage.h"
#include "window/rail/polar_picture.h"

namespace torvane {

namespace {

struct Span {
  double from, to;  // pixels, of a row or column
  double centre() const { return (from + to) / 2; }
  double length() const { return to - from + 1; }
};

class Picture {
 public:
  Picture(const Theme& theme, QImage image) : theme_(theme), image_(std::move(image)) {}

  int width() const { return image_.width(); }
  int height() const { return image_.height(); }
  bool Is(int x, int y, Token token, int tolerance = 24) const {
    const QColor there = image_.pixelColor(x, y), wanted = theme_[token];
    return std::abs(there.red() - wanted.red()) <= tolerance &&
           std::abs(there.green() - wanted.green()) <= tolerance &&
           std::abs(there.blue() - wanted.blue()) <= tolerance;
  }
  // The stretches of a row that have a colour.
  std::vector<Span> Row(int y, Token token, int tolerance = 24) const {
    std::vector<Span> spans;
    for (int x = 0; x < width(); ++x) {
      if (!Is(x, y, token, tolerance)) continue;
      if (!spans.empty() && spans.back().to == x - 1)
        spans.back().to = x;
      else
        spans.push_back({static_cast<double>(x), static_cast<double>(x)});
    }
    return spans;
  }

 private:
  const Theme& theme_;
  QImage image_;
};

// Faces of the two posts and the lines of the stops between them, in the lowest row that shows all of them
// and no lettering beside.
struct Measured {
  double leftFace = 0, rightFace = 0;
  std::vector<double> stops;
};
Measured Measure(const Picture& picture) {
  for (int y = picture.height() - 1; y > 0; --y) {
    Measured measured;
    for (const Span& span : picture.Row(y, Token::Steel)) {
      if (span.length() < 6) continue;
      if (span.centre() < picture.width() / 2.0)
        measured.leftFace = span.to + 1;
      else if (measured.rightFace == 0)
        measured.rightFace = span.from;
    }
    for (const Span& span : picture.Row(y, Token::Accent, 60))
      if (span.length() <= 4 && span.from > measured.leftFace && span.to < measured.rightFace)
        measured.stops.push_back(span.centre());
    if (measured.leftFace > 0 && measured.rightFace > 0 && measured.stops.size() == 2) return measured;
  }
  return {};
}

// Upper and lower edge of the mandrel in a column.
Span MandrelAt(const Picture& picture, int x, int reach) {
  const int middle = picture.height() / 2;
  Span span{0, 0};
  for (int y = middle; y > middle - reach && y > 0; --y)
    if (picture.Is(x, y, Token::DrawnEdge, 60)) span.from = y;
  for (int y = middle; y < middle + reach && y < picture.height(); ++y)
    if (picture.Is(x, y, Token::DrawnEdge, 60)) span.to = y;
  return span;
}

}  // namespace

class Drawings : public QObject {
  Q_OBJECT

 private slots:
  void StopsStandAtTheirPlace();
  void BandLiesAtItsAngleAndWidth();
  void MandrelIsToScale();
  void FourAxisEndsStandAtTheirPlace();
  void PolarArcsRunCounterClockwise();

 private:
  Theme theme_{false};
};

namespace {

// A tube of 4 inches and its band of 0.25, between the stops 28 and 4; no row is pressed.
void MakeTube(WindowOnStage& station) {
  DesignState& s = station.s();
  station.program->binder().Do([&s] {
    s.txtDiameterLeft = "4";
    s.txtDiameterRight = "4";
    s.txtLengthTotal(0) = "24";
    s.txtBandWidth(0) = "0.25";
    s.txtBandThickness(0) = "0.01";
    s.txtZ2(0) = "28";
    s.txtZ2(1) = "4";
    s.txtNumberOfLayers(0) = "1";
  });
}

Picture DrawingOf(WindowOnStage& station, const char* drawing) {
  QCoreApplication::processEvents();
  return {station.theme, station.Find(QString::fromLatin1(drawing))->grab().toImage()};
}

}  // namespace

void Drawings::StopsStandAtTheirPlace() {
  for (const bool homeRight : {true, false}) {
    WindowOnStage station;
    MakeTube(station);
    if (!homeRight)
      station.program->binder().Do([&] {
        station.s().gIsLHDrive = true;
        station.s().txtZ2(0) = "4";
        station.s().txtZ2(1) = "28";
      });
    const Measured drawn = Measure(DrawingOf(station, "drawing2Axis"));
    QCOMPARE(drawn.stops.size(), std::size_t{2});
    // Z counts from the post at home, so both distances have one scale.
    const double home = homeRight ? drawn.rightFace : drawn.leftFace;
    const double near = std::abs(home - drawn.stops[homeRight ? 1 : 0]);
    const double far = std::abs(home - drawn.stops[homeRight ? 0 : 1]);
    QVERIFY2(std::abs(far / near - 28.0 / 4.0) < 0.25,
             qPrintable(QStringLiteral("%1 and %2 pixels").arg(near).arg(far)));
  }
}

void Drawings::MandrelIsToScale() {
  WindowOnStage station;
  MakeTube(station);
  station.program->binder().Do([&] { station.s().txtDiameterRight = "2"; });
  const Picture picture = DrawingOf(station, "drawing2Axis");
  const Measured drawn = Measure(picture);
  QCOMPARE(drawn.stops.size(), std::size_t{2});
  const double scale = (drawn.stops[1] - drawn.stops[0]) / 24;
  // From 2 inches at Z 4 to 4 at Z 28; the dimension lines stand further out.
  const Span at =
      MandrelAt(picture, static_cast<int>(drawn.rightFace - 15 * scale), static_cast<int>(1.9 * scale));
  const double height = (at.to - at.from) / scale;
  QVERIFY2(std::abs(height - 2.92) < 0.25, qPrintable(QString::number(height)));
}

void Drawings::BandLiesAtItsAngleAndWidth() {
  for (const double angle : {45.0, 60.0}) {
    WindowOnStage station;
    MakeTube(station);
    station.program->binder().Do([&] {
      station.s().txtWA(1) = std::to_string(static_cast<int>(angle));
      station.station().Run("btn2XRow", Event::Press, 1);
    });
    const Picture picture = DrawingOf(station, "drawing2Axis");
    const Measured drawn = Measure(picture);
    QCOMPARE(drawn.stops.size(), std::size_t{2});
    const double scale = (drawn.stops[1] - drawn.stops[0]) / 24;
    // A fibre at an angle to the axis advances by pi D / tan in a turn, and a band covers W / sin of it.
    const double radians = angle * std::numbers::pi / 180;
    const double pitch = std::numbers::pi * 4 / std::tan(radians) * scale;
    const double covered = 0.25 / std::sin(radians) * scale;
    // The rows about the axis, but not the axis itself, which is drawn over the band.
    const Span mandrel =
        MandrelAt(picture, static_cast<int>(drawn.stops[0] + 2 * scale), static_cast<int>(2.4 * scale));
    const int row = static_cast<int>(mandrel.centre()) + 4;
    std::vector<Span> bands;
    for (const Span& span : picture.Row(row, Token::BandOut, 40))
      if (span.length() > covered / 2 && span.from > drawn.stops[0] + 2 && span.to < drawn.stops[1] - 2)
        bands.push_back(span);
    QVERIFY2(bands.size() >= 2, qPrintable(QStringLiteral("%1 crossings").arg(bands.size())));
    for (std::size_t i = 1; i < bands.size(); ++i) {
      const double apart = bands[i].centre() - bands[i - 1].centre();
      QVERIFY2(std::abs(apart - pitch) < 3, qPrintable(QStringLiteral("%1, not %2").arg(apart).arg(pitch)));
    }
    QVERIFY2(std::abs(bands.front().length() - covered) < 2.5,
             qPrintable(QStringLiteral("%1, not %2").arg(bands.front().length()).arg(covered)));
  }
}

void Drawings::FourAxisEndsStandAtTheirPlace() {
  WindowOnStage station(StoreEntries{{"mnu2Axis", "0"}});
  DesignState& s = station.s();
  station.program->binder().Do([&] {
    station.station().Choose(s.optType(0), "True");
    s.txtDia(0) = "4";
    s.txtDia(1) = "4";
    s.txtZ4(0) = "32";
    s.txtZ4(3) = "4";
  });
  const Measured drawn = Measure(DrawingOf(station, "drawing4Axis"));
  QVERIFY2(drawn.stops.size() >= 2, qPrintable(QStringLiteral("%1 lines").arg(drawn.stops.size())));
  const double far = drawn.rightFace - drawn.stops.front(), near = drawn.rightFace - drawn.stops.back();
  QVERIFY2(std::abs(far / near - 32.0 / 4.0) < 0.4,
           qPrintable(QStringLiteral("%1 and %2 pixels").arg(near).arg(far)));
}

void Drawings::PolarArcsRunCounterClockwise() {
  // An end wrap of 230 degrees: from 310 through 0 to 180.
  const std::vector<PolarFigure> figures = {
      {PolarKind::Circle, PolarColour::Outline, 100},
      {PolarKind::Arc, PolarColour::Wrap, 112, 310 * std::numbers::pi / 180, std::numbers::pi},
      {PolarKind::Chord, PolarColour::Band, 0, 0, 0, 0, 100, 100, 0}};
  QImage image(400, 400, QImage::Format_RGB32);
  image.fill(theme_[Token::Window]);
  {
    QPainter painter(&image);
    PaintPolar(painter, theme_, figures, QRectF(20, 20, 360, 360));
  }
  const Picture picture(theme_, image);
  const double scale = 180.0 / 112;
  const auto at = [&](double radius, double degrees) {
    const double radians = degrees * std::numbers::pi / 180;
    return QPoint(static_cast<int>(std::lround(200 + radius * scale * std::cos(radians))),
                  static_cast<int>(std::lround(200 - radius * scale * std::sin(radians))));
  };
  for (const auto& [degrees, painted] :
       {std::pair{320, true}, {350, true}, {45, true}, {170, true}, {190, false}, {250, false}, {300, false}})
    QCOMPARE(picture.Is(at(112, degrees).x(), at(112, degrees).y(), Token::BandBack), painted);
  // The newest chord from the top to the right: through its middle, and not through the middle of the disc.
  QVERIFY(picture.Is(at(70.7, 45).x(), at(70.7, 45).y(), Token::BandOut, 60));
  QVERIFY(!picture.Is(200, 200, Token::BandOut, 60));
}

}  // namespace torvane

QTEST_MAIN(torvane::Drawings)
#include "drawings.moc"
