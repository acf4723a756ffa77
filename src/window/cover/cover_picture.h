// The bands on the part as colours that can be told apart without seeing red and green.
#pragma once

#include <QColor>
#include <QImage>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "window/desk/binder.h"
#include "window/desk/live_watch.h"
#include "window/desk/part_view.h"

namespace torvane {

// A place of the part's surface.
struct SurfacePlace {
  double z = 0, degrees = 0;

  bool operator==(const SurfacePlace&) const = default;
};

class CoverPicture {
 public:
  // As the view says: of the pressed row or of all layers. Nothing is known before the proof.
  explicit CoverPicture(const Desk& desk);

  bool Known() const { return !levels_.empty(); }
  // What it was made of is still what is to be shown.
  bool IsOf(const Desk& desk) const;

  struct Key {
    QColor colour;
    QString text;
  };
  // From bare to the most, the unit behind the last.
  std::vector<Key> Keys() const;
  // What is shown: "Layer 3" or "All layers", and the share that is covered.
  QString Title() const;
  double Covered() const;
  double CoveredAt(double z) const;
  // Four lines: where, how many bands of those meant, how thick of what is meant.
  QString TipAt(const SurfacePlace& place) const;
  // The next bare place beside one, the way of growing Z or back; nothing where none is bare.
  std::optional<SurfacePlace> NextBare(const SurfacePlace& from, bool forward) const;

  // A picture of that many pixels; `placeOf` says what a pixel shows, nothing for one beside the part.
  QImage Draw(const QSize& pixels,
              const std::function<std::optional<SurfacePlace>(int x, int y)>& placeOf) const;
  double zLow() const { return map_->zLow; }
  double zHigh() const { return map_->zHigh; }

 private:
  std::optional<std::size_t> CellAt(const SurfacePlace& place) const;
  int BandsIn(std::size_t cell) const;
  QColor ColourOf(int level) const;

  std::shared_ptr<const executor::CoverMap> map_;
  PartShows shows_;
  int layer_ = 0;  // 0: all
  bool dark_;
  NumberSigns signs_;
  const executor::LayerCover* one_ = nullptr;
  std::vector<std::uint8_t> levels_;  // of each place, 0 bare to 4
  int most_ = 0;                      // bands on any place, or layers
  double covered_ = 0;
};

}  // namespace torvane
