// The inputs of a case, read with distrust.
#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "laminate/cases/case.h"
#include "laminate/mechanics/failure.h"
#include "laminate/mechanics/mixture.h"

namespace torvane::laminate {

// One object of the case. It keeps what it was asked for, so that a key that nobody reads is found.
class Inputs {
 public:
  // `name` for the sentences: "inputs".
  Inputs(const nlohmann::json& object, std::string name);

  bool Has(const std::string& key) const;
  // A finite number; kUnknown where the key is missing.
  double Number(const std::string& key) const;
  // The same within limits.
  double Positive(const std::string& key) const;
  double Share(const std::string& key) const;  // from 0 to 1, both left out
  double NotNegative(const std::string& key) const;
  // The key must be there.
  double Needed(const std::string& key) const;
  double NeededPositive(const std::string& key) const;
  double NeededShare(const std::string& key) const;
  std::string NeededWord(const std::string& key) const;
  std::vector<double> NumbersOf(const std::string& key) const;
  std::vector<double> Numbers(const std::string& key, std::size_t count) const;
  const nlohmann::json& At(const std::string& key) const;
  std::string NameOf(const std::string& key) const { return name_ + "." + key; }
  const nlohmann::json& object() const { return object_; }
  const std::string& name() const { return name_; }

  // Refuses keys that were not asked for: a misspelt one would be left out in silence.
  void RefuseOthers() const;

 private:
  const nlohmann::json& object_;
  std::string name_;
  mutable std::set<std::string> asked_;
};

Ply PlyOf(const Inputs& inputs);
Strength StrengthOf(const Inputs& inputs);
Criterion CriterionOf(const std::string& word);

// Fibre and resin under one model, with the resin's share where it is told, else the rest.
struct Constituents {
  Mixing mixing = Mixing::Chamis;
  Fibre fibre;
  Resin resin;
  Shares shares;
  double xi = kUnknown;
  double arealWeight = kUnknown;  // g/m2 of dry fibre in a ply
};
Constituents ConstituentsOf(const Inputs& inputs);

// "plies" with their "materials" or "constituents". Throws for plies that cannot be.
Stack StackOf(const Inputs& inputs);
Climate ClimateOf(const Inputs& inputs);
Resultants LoadOf(const Inputs& inputs);

}  // namespace torvane::laminate
