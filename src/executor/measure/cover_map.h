// How many bands lie on each place of the part, for the eye and for other programs.
#pragma once

#include <cstdint>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "executor/machine/limits.h"
#include "executor/machine/mandrel.h"

namespace torvane::executor {

// A layer on the raster of the map, row by row from the smallest Z.
struct LayerCover {
  int number = 0;
  int meant = 0;  // bands that are to lie on each place: one out, one back
  std::vector<std::uint8_t> bands;
  double covered = 0;  // share of the part under a band
};

// Angles are the mandrel's, in degrees; place 0 begins at 0. Lengths in the program's unit.
struct CoverMap {
  int rows = 0, places = 0;
  double zLow = 0, zHigh = 0;
  bool millimetres = false;
  double thickness = 0;  // of a band; 0 where it is not told
  Mandrel mandrel;
  std::vector<LayerCover> layers;

  bool empty() const { return rows == 0 || layers.empty(); }
  double ZOf(int row) const { return zLow + (row + 0.5) * (zHigh - zLow) / rows; }
  double AngleOf(int place) const { return (place + 0.5) * 360 / places; }
  std::size_t Cell(int row, int place) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(places) + static_cast<std::size_t>(place);
  }
  // Of all layers on a place, and what is meant to lie there.
  int BandsAt(int row, int place) const;
  int Meant() const;
};

// The raster of a picture.
inline constexpr int kMapRows = 512, kMapPlaces = 360;

// Of the layers that tell their band and diameter; empty where none does. With 0 rows it takes as many as
// show a quarter of a band both ways, within reason.
CoverMap MapOf(std::string_view program, const Limits& limits, bool millimetres, int rows, int places,
               const std::stop_token& stop = {});

// A line for each place, under a line of names: Z, angle, bands and thickness of all layers, bands of each.
std::string MapAsCsv(const CoverMap& map);
// The part's surface as a structured grid of the VTK legacy format, with the same figures at its points.
std::string MapAsVtk(const CoverMap& map);

}  // namespace torvane::executor
