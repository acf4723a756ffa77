// The mandrel's picture: finished layers, moments sought in any order, and the turn by hand.
#include <QTemporaryDir>
#include <QTest>
#include <cmath>
#include <fstream>

#include "executor/programs.h"
#include "staging.h"

namespace torvane::dryrun {

namespace {

// Three layers of 4 passes each that leave most of the mandrel bare.
std::string ThreeLayers() {
  std::string text = executor::Begun();
  for (int layer = 1; layer <= 3; ++layer)
    for (int pass = 1; pass <= 4; ++pass) {
      text += executor::PassLine(pass, 4, "ms", layer, 3);
      if (pass == 1) text += "M4 S28.6\nG1 F6 Z28\n";
      if (pass > 1) text += "G1 Z28\n";
      text += "G4 C" + std::to_string(30 * layer + 17 * pass) + "\nG1 Z4\nG4 C40\n";
    }
  return text + executor::Ended();
}

class MandrelPicture : public QObject {
  Q_OBJECT

 private slots:
  void KeepsFinishedLayersInPaleColours();
  void IsTheSameHoweverTheMomentIsReached();
  void IsTurnedByHand();
  void IsSeenFromItsRightEnd();

 private:
  std::string Write(const std::string& text) {
    const std::string path = folder_.filePath(QStringLiteral("program.T2G")).toStdString();
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }
  static QImage Picture(Staged& stage, const QRectF& box) {
    stage.window.mandrelView().Finish();
    return stage.window.mandrelView().grab(box.toRect()).toImage();
  }
  static int CountOf(const QImage& picture, const QColor& colour) {
    int found = 0;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x) {
        const QColor pixel = picture.pixelColor(x, y);
        found += std::abs(pixel.red() - colour.red()) <= 1 && std::abs(pixel.green() - colour.green()) <= 1 &&
                         std::abs(pixel.blue() - colour.blue()) <= 1
                     ? 1
                     : 0;
      }
    return found;
  }

  QTemporaryDir folder_;
};

void MandrelPicture::KeepsFinishedLayersInPaleColours() {
  for (const bool dark : {false, true}) {
    Staged stage(dark);
    stage.window.show();
    stage.Open(Write(ThreeLayers()));
    const QRectF box = stage.window.mandrelView().UnrolledBox();
    const Theme& t = stage.theme;
    const auto& wound = stage.player().course().wound;
    const QColor ground = t[Token::MandrelMid];
    const auto pale = [&](const QColor& c) {
      const auto mix = [](int a, int b) { return static_cast<int>(std::lround(0.42 * a + 0.58 * b)); };
      return QColor(mix(c.red(), ground.red()), mix(c.green(), ground.green()), mix(c.blue(), ground.blue()));
    };
    stage.session.SeekLine(wound[0].strokes.back().line);
    QVERIFY(CountOf(Picture(stage, box), pale(t[Token::BandOut])) < 60);  // at the bands' edges
    // Layer 2 has begun and nothing of it is laid.
    stage.session.SeekLine(wound[1].line);
    const QImage first = Picture(stage, box);
    QVERIFY(CountOf(first, pale(t[Token::BandOut])) > 300);
    QVERIFY(CountOf(first, pale(t[Token::BandBack])) > 300);
    QCOMPARE(CountOf(first, t[Token::BandOut]), 0);
    // In the third the first one is no paler, and what is wound now has its colours.
    stage.session.SeekLine(wound[2].strokes[3].line);
    const QImage third = Picture(stage, box);
    QVERIFY(CountOf(third, pale(t[Token::BandOut])) > 400);
    QVERIFY(CountOf(third, t[Token::BandOut]) > 200);
    QVERIFY(4 * CountOf(third, pale(pale(t[Token::BandOut]))) < CountOf(third, pale(t[Token::BandOut])));
  }
}

void MandrelPicture::IsTheSameHoweverTheMomentIsReached() {
  const std::string path = Write(ThreeLayers());
  Staged sought;
  sought.window.show();
  sought.Open(path);
  const double whole = sought.player().course().seconds;
  for (const double share : {0.97, 0.9, 0.45, 0.5, 0.2, 0.12, 0.98, 0.3, 0.0, 0.62}) {
    sought.session.SeekTime(whole * share);
    Staged fresh;
    fresh.window.show();
    fresh.Open(path);
    fresh.session.SeekTime(whole * share);
    const QRectF box = fresh.window.mandrelView().UnrolledBox();
    const QImage expected = Picture(fresh, box), found = Picture(sought, box);
    int others = 0;
    for (int y = 0; y < expected.height(); ++y)
      for (int x = 0; x < expected.width(); ++x) {
        const QColor a = expected.pixelColor(x, y), b = found.pixelColor(x, y);
        others += std::abs(a.red() - b.red()) + std::abs(a.blue() - b.blue()) > 24 ? 1 : 0;
      }
    QVERIFY2(others == 0, qPrintable(QStringLiteral("%1 pixels at %2").arg(others).arg(share)));
  }
}

void MandrelPicture::IsTurnedByHand() {
  Staged stage;
  stage.window.show();
  QVERIFY(QTest::qWaitForWindowActive(&stage.window));
  stage.Open(Write(ThreeLayers()));
  stage.session.SeekTime(stage.player().course().seconds * 0.6);
  MandrelView& view = stage.window.mandrelView();
  const QRectF box = view.SideBox();
  const QPoint middle = box.center().toPoint();
  const QImage before = Picture(stage, box);
  for (const auto with : {Qt::NoModifier, Qt::ControlModifier}) {
    QTest::mousePress(&view, Qt::LeftButton, with, middle);
    QTest::mouseMove(&view, middle + QPoint(5, 20));
    QTest::mouseRelease(&view, Qt::LeftButton, with, middle + QPoint(5, 20));
    // As far as the surface rolls under the pointer.
    const double degrees = 20 / (box.height() / 2) / executor::kRadians;
    QVERIFY(std::abs(view.TurnedByHand() - degrees) < 1e-9);
    QVERIFY(Picture(stage, box) != before);
    QTest::mouseMove(&view, middle);
    QVERIFY(std::abs(view.TurnedByHand() - degrees) < 1e-9);
    QTest::mouseDClick(&view, Qt::LeftButton, {}, middle);
    QCOMPARE(view.TurnedByHand(), 0.0);
    QVERIFY(Picture(stage, box) == before);
  }
  view.setFocus();
  QTest::keyClick(&view, Qt::Key_Down);
  QCOMPARE(view.TurnedByHand(), 15.0);
  QTest::keyClick(&view, Qt::Key_Return);
  QCOMPARE(view.TurnedByHand(), 0.0);
}

// What stands somewhere on the mandrel is seen where it is drawn, if it faces the eye.
void MandrelPicture::IsSeenFromItsRightEnd() {
  const double lean = std::sin(14 * executor::kRadians), upright = std::cos(14 * executor::kRadians);
  for (const Oblique& part :
       {Oblique{100, 900, 60, 60, 0}, Oblique{100, 900, 60, 20, 0}, Oblique{100, 900, 20, 60, 0},
        Oblique{100, 900, 60, 60, 60}, Oblique{100, 900, 60, 60, 45}}) {
    for (double at = 101 - part.dome; at < 900 + part.dome; at += 7.3) {
      const double radius = part.RadiusAt(at),
                   slope = (part.RadiusAt(at + 0.01) - part.RadiusAt(at - 0.01)) / 0.02;
      for (double degrees = -85; degrees <= 85; degrees += 17) {
        const double towards = radius * std::cos(degrees * executor::kRadians);
        const double height = radius * std::sin(degrees * executor::kRadians);
        // The surface's normal against the line of sight.
        if (-slope * lean + std::cos(degrees * executor::kRadians) * upright < 0.05) continue;
        const auto seen = part.SeenAt(part.Across(at, towards), height);
        QVERIFY2(seen.has_value(), qPrintable(QStringLiteral("%1 at %2 degrees").arg(at).arg(degrees)));
        QVERIFY2(std::abs(*seen - at) < 0.5, qPrintable(QStringLiteral("%1, not %2").arg(*seen).arg(at)));
      }
    }
    QVERIFY(!part.SeenAt(500, 61).has_value());
  }
  // Flat: the face hides nothing behind it but is no part of the surface.
  const Oblique tube{100, 900, 60, 60, 0};
  QVERIFY(!tube.SeenAt(tube.Across(900, 0) + 2, 0).has_value());
  QVERIFY(tube.SeenAt(tube.Across(900, 60) - 2, 0).has_value());
}

}  // namespace

}  // namespace torvane::dryrun

QTEST_MAIN(torvane::dryrun::MandrelPicture)
#include "mandrel_window.moc"
