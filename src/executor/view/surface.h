// The mandrel's surface as a picture that grows band by band: the present layer in its colours on the
// finished ones in paler ones.
#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <vector>

#include "executor/player/player.h"
#include "look/theme.h"

namespace torvane::dryrun {

// Z against pixels across; the larger Z is at the left.
struct ZScale {
  double zLeft = 1, zRight = 0;
  double left = 0, right = 1;

  double XAt(double z) const { return left + (zLeft - z) / (zLeft - zRight) * (right - left); }
  double ZAt(double x) const { return zLeft - (x - left) / (right - left) * (zLeft - zRight); }
};

// Columns that have changed: from first to before end.
struct Columns {
  int first = 0, end = 0;

  bool Empty() const { return first >= end; }
  void Add(int from, int to);
};

// A straight edge by its heights at both ends, in rows from the foot of the picture; turns count on.
struct Edge {
  double from = 0, to = 0;
};

class Surface {
 public:
  explicit Surface(const Theme& theme) : theme_(theme) {}

  // A row for each step of the angle, 360 degrees at the top. `scale` is in the image's pixels.
  void Reshape(const QSize& pixels, const ZScale& scale);
  // Lays what has been wound since the last time, for some milliseconds at most: what is left over comes the
  // next time. The columns that have changed.
  Columns Follow(const executor::Player& player, int milliseconds);
  bool UpToDate() const { return upToDate_; }

  const QImage& Image() const { return image_; }
  // What becomes of a band's colour when its layer is finished.
  static QColor Finished(const Theme& theme, const QColor& band);

 private:
  // What is painted on, before a layer's first band.
  struct Ground {
    std::size_t layer = 0;  // so many have begun
    QImage image;
  };

  // Forgets what is painted: other colours, another program.
  void Clear();
  // Back to where so many layers have begun and none of the last one is laid.
  void TakeBack(std::size_t layer);
  void BeginLayer();
  // What the finished layer has painted becomes pale.
  void Fade();
  // Lays bands of the painted layer up to there, as long as there is time. Whether all are laid.
  bool LayUpTo(const executor::Player& player, executor::Laid now, const QElapsedTimer& spent,
               int milliseconds, Columns& changed);
  executor::Laid WholeColumns(const executor::Layer& layer, executor::Laid now) const;
  void Lay(const executor::Stroke& stroke, double z0, double z1, const executor::LayerPlace& place,
           Columns& changed);
  // The part of a band between two shares of its width, -1 to 1.
  void Fill(const QColor& colour, const executor::Stroke& stroke, double z0, double z1,
            const executor::LayerPlace& place, double low, double high);
  // What lies between two edges within a column, of which the band takes `width`.
  void FillColumn(int x, double width, const Edge& lower, const Edge& upper, QRgb colour);
  // The band round a hemispherical end, from one traverse to the next.
  void LayWrap(const executor::Stroke& before, const executor::Stroke& behind,
               const executor::LayerPlace& place, Columns& changed);
  void FillWrap(QPainter& painter, const executor::Stroke& before, const executor::Stroke& behind,
                const executor::LayerPlace& place, double low, double high) const;

  const Theme& theme_;
  QImage image_;
  std::vector<double> shares_;  // of a column's pixels, while it is filled
  ZScale scale_;
  std::vector<Ground> grounds_;  // the last one is the painted layer's own
  int run_ = -1;
  std::size_t layer_ = 0;  // the painted one, from 1; 0: none yet
  executor::Laid laid_;    // of it
  bool upToDate_ = true;
};

}  // namespace torvane::dryrun
