// Tows, resins and whole plies: the table that the operator owns, and what a design takes of it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "laminate/mechanics/mixture.h"

namespace torvane::laminate {

enum class MaterialKind { Tow, Resin, Ply };

// Base units of the SI: Pa, kg/m3, kg/m, m, 1/K. What the table leaves empty is unknown.
struct Material {
  std::string name, source;
  MaterialKind kind = MaterialKind::Tow;
  double linearDensity = kUnknown;  // of a tow
  double density = kUnknown;
  double fibreShare = kUnknown;  // of a ply's volume
  Ply ply;                       // of a tow along and across its fibre; a resin's stand in E1, nu12, alpha1
  Strength strength;
  double price = kUnknown;     // for each kilogram
  double spool = kUnknown;     // the length on a tow's spool
  double hardener = kUnknown;  // mass of a resin's hardener for each mass of the resin

  Fibre AsFibre() const;
  Resin AsResin() const;
};

struct Materials {
  std::vector<Material> rows;
  // A sentence for each row that cannot be used, with its line; or for the whole table.
  std::vector<std::string> faults;

  // Null where there is none of that kind and name.
  const Material* Find(MaterialKind kind, std::string_view name) const;
};

// The name of the table in the station's folder.
inline constexpr std::string_view kMaterialsFile = "TV_Materials.csv";

// Reads any bytes. Columns are found by their heads, units and all, in any order.
Materials ReadMaterials(std::string_view text);

// What the table holds at first, from published figures, each row with its source.
std::string FirstMaterials();

// What a design is wound of.
struct Choice {
  std::string tow, resin, ply;      // names in the table; a ply stands for tow and resin both
  double resinShare = kUnknown;     // of the volume, as the operator gives it
  double tows = kUnknown;           // side by side in the band
  double waste = 0.1;               // of the resin that is mixed beyond what is wound
  bool growth = false;              // each layer lies on the wall of those below
  std::vector<std::string> faults;  // a sentence for each line that cannot be used
};

// The name of the file beside a design that holds it.
inline constexpr std::string_view kChoiceEnding = ".materials.csv";
Choice ReadChoice(std::string_view text);

}  // namespace torvane::laminate
