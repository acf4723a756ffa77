// From the proof to the wall: what lies on the mandrel, layer by layer, as it is really laid. All in metres
// and kilograms, whatever the program's unit.
#pragma once

#include <string>
#include <vector>

#include "executor/machine/limits.h"
#include "executor/proof/proof.h"
#include "laminate/part/materials.h"

namespace torvane::laminate {

// What is wound, as far as it is known: null where the design names none, or one that the table lacks.
struct Stock {
  const Material* tow = nullptr;
  const Material* resin = nullptr;
  const Material* ply = nullptr;  // measured as a whole, it stands for tow and resin
};

// Takes the names of the choice from the table; a sentence into `missing` for each that it lacks.
Stock StockOf(const Materials& materials, const Choice& choice, std::vector<std::string>& missing);

// Where the fibre's share of the volume comes from.
enum class ShareFrom { Operator, Ply, Band, Station };
std::string_view NameOf(ShareFrom from);

// A band as it lies, without gaps and laps.
struct BandAsLaid {
  double fibreShare = kUnknown;
  ShareFrom from = ShareFrom::Station;
  double width = kUnknown, thickness = kUnknown;
};

// One layer at one place along the part.
struct LaidLayer {
  int number = 0;
  bool hoop = false;
  double asked = 0;  // degrees; 0 where none is told, and of a hoop
  double angle = 0;  // as laid, at this diameter
  int bands = 0;     // of a circuit's direction
  double covered = 0;
  executor::Level stands = executor::Level::Ok;
  double radius = 0;     // on which it lies
  double thickness = 0;  // of both ways together
};

// The wall at one place.
struct Section {
  double z = 0;
  double mandrelRadius = 0, wall = 0;
  std::vector<LaidLayer> layers;  // the innermost first

  double MiddleRadius() const { return mandrelRadius + wall / 2; }
};

// What winding takes.
struct Amounts {
  double fibre = 0, resin = 0;  // kg on the part
  double toMix = 0;             // resin with its waste
  double hardener = kUnknown;   // of that
  double price = kUnknown;      // of the tow and of the resin that is mixed
  double spools = kUnknown;
  double tow = 0;  // m, of all tows
};

struct LayUp {
  BandAsLaid band;
  double length = 0;  // along which all layers lie
  // From the right end to the left: one of an equally thick part, five of a tapered one.
  std::vector<Section> sections;
  Amounts amounts;
  std::vector<std::string> missing, remarks;

  const Section& Middle() const { return sections[sections.size() / 2]; }
};

// A layer whose angle, band or diameter is not known is left out, and `missing` says so. A layer that the
// proof faults is taken as it is laid, and `remarks` says so.
LayUp LayUpOf(const executor::Proof& proof, const Stock& stock, const Choice& choice,
              const executor::Limits& limits);

}  // namespace torvane::laminate
