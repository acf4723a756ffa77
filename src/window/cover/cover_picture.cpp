#include "window/cover/cover_picture.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "executor/program/number.h"
#include "look/text.h"
#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

constexpr int kLevels = 4;
constexpr std::array<QRgb, kLevels> kRamp = {0xFFC3DCEA, 0xFF7FB2D3, 0xFF3F82B4, 0xFF17496F};

int LayerShown(const Desk& desk) { return desk.live->view().allLayers ? 0 : PressedRow(desk.station.s); }

std::shared_ptr<const executor::CoverMap> MapShown(const Desk& desk) {
  const LiveResult* result = desk.live->result();
  return result == nullptr ? nullptr : result->map;
}

// In steps of a quarter of the most.
std::uint8_t LevelOf(int count, int most) {
  return static_cast<std::uint8_t>(count == 0 ? 0 : (kLevels * count + most - 1) / most);
}

}  // namespace

CoverPicture::CoverPicture(const Desk& desk)
    : map_(MapShown(desk)),
      shows_(desk.live->view().shows),
      layer_(LayerShown(desk)),
      dark_(desk.theme.dark()),
      signs_(desk.station.s.signs) {
  if (map_ == nullptr || map_->empty()) return;
  for (const executor::LayerCover& layer : map_->layers)
    if (layer.number == layer_) one_ = &layer;
  if (layer_ > 0 && one_ == nullptr) return;
  std::vector<int> counts(map_->Cell(map_->rows, 0));
  for (std::size_t cell = 0; cell < counts.size(); ++cell) {
    if (one_ == nullptr && shows_ == PartShows::Coverage) {
      // Whole layers: those that lie there at all.
      for (const executor::LayerCover& layer : map_->layers) counts[cell] += layer.bands[cell] > 0 ? 1 : 0;
    } else {
      counts[cell] = BandsIn(cell);
    }
    most_ = std::max(most_, counts[cell]);
    covered_ += counts[cell] > 0 ? 1 : 0;
  }
  covered_ /= static_cast<double>(counts.size());
  const bool counted = shows_ == PartShows::Coverage && (one_ != nullptr || most_ <= kLevels);
  for (const int count : counts)
    levels_.push_back(counted ? static_cast<std::uint8_t>(std::min(count, kLevels))
                              : LevelOf(count, std::max(most_, 1)));
}

bool CoverPicture::IsOf(const Desk& desk) const {
  return map_ == MapShown(desk) && shows_ == desk.live->view().shows && layer_ == LayerShown(desk) &&
         dark_ == desk.theme.dark();
}

int CoverPicture::BandsIn(std::size_t cell) const {
  if (one_ != nullptr) return one_->bands[cell];
  int bands = 0;
  for (const executor::LayerCover& layer : map_->layers) bands += layer.bands[cell];
  return bands;
}

// Light to dark by count on a light ground, the other way round on a dark one.
QColor CoverPicture::ColourOf(int level) const {
  if (level == 0) return Theme(dark_)[Token::Fault];
  return QColor::fromRgb(kRamp[static_cast<std::size_t>(dark_ ? kLevels - level : level - 1)]);
}

std::vector<CoverPicture::Key> CoverPicture::Keys() const {
  std::vector<Key> keys = {{ColourOf(0), QStringLiteral("bare")}};
  const bool layers = one_ == nullptr && shows_ == PartShows::Coverage;
  const bool counted = shows_ == PartShows::Coverage && (one_ != nullptr || most_ <= kLevels);
  const int last = counted ? std::clamp(most_, 1, kLevels) : kLevels;
  for (int level = 1; level <= last; ++level) {
    QString text;
    if (shows_ == PartShows::Thickness)
      text = Shown(executor::Fixed(most_ * map_->thickness * level / kLevels, map_->millimetres ? 2 : 3))
                 .replace(QLatin1Char('.'), QLatin1Char(signs_.decimal));
    else
      text = QString::number(counted ? level : most_ * level / kLevels);
    if (level == last && shows_ == PartShows::Thickness)
      text += map_->millimetres ? QStringLiteral(" mm") : QStringLiteral(" in");
    else if (level == last)
      text += (most_ > last && counted ? QStringLiteral("+") : QString()) +
              (layers ? QStringLiteral(" layers") : QStringLiteral(" bands"));
    keys.push_back({ColourOf(level), text});
  }
  return keys;
}

QString CoverPicture::Title() const {
  return layer_ > 0 ? QStringLiteral("Layer %1").arg(layer_) : QStringLiteral("All layers");
}

double CoverPicture::Covered() const { return covered_; }

double CoverPicture::CoveredAt(double z) const {
  const auto cell = CellAt({z, 0});
  if (!cell) return 0;
  const auto places = static_cast<std::size_t>(map_->places);
  const auto first = levels_.begin() + static_cast<std::ptrdiff_t>(*cell / places * places);
  return 1 - static_cast<double>(std::count(first, first + map_->places, std::uint8_t{0})) / map_->places;
}

std::optional<std::size_t> CoverPicture::CellAt(const SurfacePlace& place) const {
  if (!Known() || !(place.z >= map_->zLow) || !(place.z <= map_->zHigh)) return std::nullopt;
  const double share = (place.z - map_->zLow) / (map_->zHigh - map_->zLow);
  const double turn = place.degrees / 360 - std::floor(place.degrees / 360);
  return map_->Cell(std::min(static_cast<int>(share * map_->rows), map_->rows - 1),
                    std::min(static_cast<int>(turn * map_->places), map_->places - 1));
}

QString CoverPicture::TipAt(const SurfacePlace& place) const {
  const auto cell = CellAt(place);
  if (!cell) return {};
  const int bands = BandsIn(*cell), meant = one_ != nullptr ? one_->meant : map_->Meant();
  const auto fixed = [this](double value, int decimals) {
    return Shown(executor::Fixed(value, decimals)).replace(QLatin1Char('.'), QLatin1Char(signs_.decimal));
  };
  const QString unit = map_->millimetres ? QStringLiteral("mm") : QStringLiteral("in");
  const int decimals = map_->millimetres ? 2 : 3;
  const double turn = place.degrees - 360 * std::floor(place.degrees / 360);
  QString tip = QStringLiteral("Z %1 %2\nAngle %3\u00B0\nBands here %4 of %5")
                    .arg(fixed(place.z, 2), unit, fixed(turn, 0))
                    .arg(bands)
                    .arg(meant);
  if (map_->thickness > 0)
    tip += QStringLiteral("\nThickness %1 of %2 %3")
               .arg(fixed(bands * map_->thickness, decimals), fixed(meant * map_->thickness, decimals), unit);
  return tip;
}

std::optional<SurfacePlace> CoverPicture::NextBare(const SurfacePlace& from, bool forward) const {
  if (!Known()) return std::nullopt;
  const auto size = static_cast<std::ptrdiff_t>(levels_.size());
  const auto start = static_cast<std::ptrdiff_t>(CellAt(from).value_or(0));
  const auto bare = [&](std::ptrdiff_t cell) {
    return levels_[static_cast<std::size_t>((cell + size) % size)] == 0;
  };
  const std::ptrdiff_t step = forward ? 1 : -1;
  // Out of the strip in hand, then on to the next one; to the end of it when going back.
  std::ptrdiff_t cell = start, left = size;
  for (; left > 0 && bare(cell); --left) cell += step;
  for (; left > 0 && !bare(cell); --left) cell += step;
  if (left == 0) return std::nullopt;
  const auto at = static_cast<int>((cell % size + size) % size);
  return SurfacePlace{map_->ZOf(at / map_->places), map_->AngleOf(at % map_->places)};
}

QImage CoverPicture::Draw(const QSize& pixels,
                          const std::function<std::optional<SurfacePlace>(int x, int y)>& placeOf) const {
  QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  std::array<QRgb, kLevels + 1> colours{};
  for (int level = 0; level <= kLevels; ++level)
    colours[static_cast<std::size_t>(level)] = ColourOf(level).rgb();
  for (int y = 0; y < pixels.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < pixels.width(); ++x)
      if (const auto place = placeOf(x, y))
        if (const auto cell = CellAt(*place)) line[x] = colours[levels_[*cell]];
  }
  return image;
}

}  // namespace torvane
