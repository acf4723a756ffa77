#include "executor/measure/cover_map.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "executor/measure/run.h"

namespace torvane::executor {

namespace {

constexpr double kFewestRows = 64, kMostRows = 1024, kFewestPlaces = 180, kMostPlaces = 720;

bool IsKnown(const Layer& layer, const Mandrel& mandrel) {
  return layer.band > 0 && mandrel.leftRadius > 0 && mandrel.rightRadius > 0 && !layer.strokes.empty();
}

void Lay(const Stroke& stroke, double band, const CoverMap& map, LayerCover& cover) {
  const double rowHeight = (map.zHigh - map.zLow) / map.rows, placeWidth = 360.0 / map.places;
  const double low = std::min(stroke.z0, stroke.z1), high = std::max(stroke.z0, stroke.z1);
  if (!(high > low)) return;
  const auto row = [&](double z) {
    return static_cast<int>(std::clamp(std::ceil((z - map.zLow) / rowHeight - 0.5), 0.0, double(map.rows)));
  };
  for (int r = row(low); r < row(high); ++r) {
    const double z = map.ZOf(r), radius = map.mandrel.RadiusAt(z);
    const double reach = std::min(360.0, BandDegrees(band, Tangent(stroke, radius), radius));
    const double from = stroke.AngleAt(z) - reach / 2;
    // The places whose middles lie within.
    const double first = std::ceil(from / placeWidth - 0.5);
    const int count = static_cast<int>(std::ceil((from + reach) / placeWidth - 0.5) - first);
    int place = static_cast<int>(first - std::floor(first / map.places) * map.places);
    for (int i = 0; i < count; ++i, place = place + 1 < map.places ? place + 1 : 0) {
      std::uint8_t& bands = cover.bands[map.Cell(r, place)];
      if (bands < 255) ++bands;
    }
  }
}

void Append(std::string& text, double value, int decimals) {
  std::array<char, 400> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, decimals);
  text.append(digits.data(), end.ptr);
}

void ChooseRaster(CoverMap& map, double band) {
  const double radius = std::max(map.mandrel.leftRadius, map.mandrel.rightRadius);
  map.rows =
      static_cast<int>(std::clamp(std::ceil(4 * (map.zHigh - map.zLow) / band), kFewestRows, kMostRows));
  map.places =
      static_cast<int>(std::clamp(std::ceil(4 * 2 * kPi * radius / band), kFewestPlaces, kMostPlaces));
}

}  // namespace

int CoverMap::BandsAt(int row, int place) const {
  int bands = 0;
  for (const LayerCover& layer : layers) bands += layer.bands[Cell(row, place)];
  return bands;
}

int CoverMap::Meant() const {
  int bands = 0;
  for (const LayerCover& layer : layers) bands += layer.meant;
  return bands;
}

CoverMap MapOf(std::string_view program, const Limits& limits, bool millimetres, int rows, int places,
               const std::stop_token& stop) {
  const Rerun run = RunBy(program, DriveOf(limits), stop);
  const HeadComments& comments = run.winding.comments();
  CoverMap map;
  std::vector<const Layer*> known;
  double narrowest = 0;
  for (const Layer& layer : run.winding.layers()) {
    if (layer.passes.empty()) continue;
    const Mandrel mandrel = MandrelOf(layer, comments);
    if (!IsKnown(layer, mandrel) || !(mandrel.zLeft > mandrel.zRight)) continue;
    if (known.empty()) {
      map.mandrel = mandrel;
      map.zLow = mandrel.zRight;
      map.zHigh = mandrel.zLeft;
    }
    map.zLow = std::min(map.zLow, mandrel.zRight);
    map.zHigh = std::max(map.zHigh, mandrel.zLeft);
    narrowest = known.empty() ? layer.band : std::min(narrowest, layer.band);
    known.push_back(&layer);
  }
  if (known.empty() || stop.stop_requested()) return map;
  map.rows = rows;
  map.places = places;
  if (rows == 0) ChooseRaster(map, narrowest);
  map.millimetres = millimetres;
  map.thickness = comments.thicknessInches * (map.millimetres ? 25.4 : 1);
  for (const Layer* layer : known) {
    LayerCover cover{layer->number, 2, {}, 0};
    cover.bands.resize(map.Cell(map.rows, 0));
    for (const Stroke& stroke : layer->strokes) {
      if (stop.stop_requested()) return map;
      Lay(stroke, layer->band, map, cover);
    }
    const auto bare = std::count(cover.bands.begin(), cover.bands.end(), std::uint8_t{0});
    cover.covered = 1 - static_cast<double>(bare) / static_cast<double>(cover.bands.size());
    map.layers.push_back(std::move(cover));
  }
  return map;
}

std::string MapAsCsv(const CoverMap& map) {
  const std::string unit = map.millimetres ? "_mm" : "_in";
  std::string text = "z" + unit + ",angle_deg,bands,thickness" + unit;
  for (const LayerCover& layer : map.layers) text += ",layer" + std::to_string(layer.number);
  text += '\n';
  for (int row = 0; row < map.rows; ++row)
    for (int place = 0; place < map.places; ++place) {
      Append(text, map.ZOf(row), 4);
      text += ',';
      Append(text, map.AngleOf(place), 3);
      const int bands = map.BandsAt(row, place);
      text += ',' + std::to_string(bands) + ',';
      Append(text, bands * map.thickness, 4);
      for (const LayerCover& layer : map.layers)
        text += ',' + std::to_string(layer.bands[map.Cell(row, place)]);
      text += '\n';
    }
  return text;
}

// The first place stands once more behind the last one, so that the surface closes.
std::string MapAsVtk(const CoverMap& map) {
  const int round = map.places + 1;
  std::string text = "# vtk DataFile Version 3.0\nBands and thickness on the part\nASCII\n";
  text += "DATASET STRUCTURED_GRID\nDIMENSIONS " + std::to_string(round) + " " + std::to_string(map.rows) +
          " 1\nPOINTS " + std::to_string(round * map.rows) + " float\n";
  const auto forEach = [&](const auto& take) {
    for (int row = 0; row < map.rows; ++row)
      for (int i = 0; i < round; ++i) take(row, i % map.places);
  };
  forEach([&](int row, int place) {
    const double z = map.ZOf(row), radius = map.mandrel.RadiusAt(z), angle = map.AngleOf(place) * kRadians;
    for (const double at : {radius * std::cos(angle), radius * std::sin(angle), z}) {
      Append(text, at, 5);
      text += ' ';
    }
    text.back() = '\n';
  });
  text += "POINT_DATA " + std::to_string(round * map.rows) + "\n";
  const auto figures = [&](const std::string& name, const char* type, const auto& take) {
    text += "SCALARS " + name + " " + type + " 1\nLOOKUP_TABLE default\n";
    forEach(take);
  };
  figures("bands", "int",
          [&](int row, int place) { text += std::to_string(map.BandsAt(row, place)) + '\n'; });
  figures("thickness", "float", [&](int row, int place) {
    Append(text, map.BandsAt(row, place) * map.thickness, 5);
    text += '\n';
  });
  for (const LayerCover& layer : map.layers)
    figures("layer" + std::to_string(layer.number), "int",
            [&](int row, int place) { text += std::to_string(layer.bands[map.Cell(row, place)]) + '\n'; });
  return text;
}

}  // namespace torvane::executor
