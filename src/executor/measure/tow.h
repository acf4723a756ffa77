// How much tow a layer takes, piece by piece in the order of winding.
#pragma once

#include <stop_token>

#include "executor/machine/mandrel.h"

namespace torvane::executor {

// What one statement lays. `end` is a turn at an end or behind the layer, not a traverse.
struct TowPiece {
  int pass = 0;  // index
  double z0 = 0, z1 = 0, length = 0;
  bool end = false;
};

// The way of a band over the mandrel: on a cone it winds round what gets thicker.
double LengthOf(const Stroke& stroke, const Mandrel& mandrel);
// A turn lies on the mandrel as it is thick there; round a hemisphere a half turn is as long.
double LengthOf(const EndTurn& turn, const Mandrel& mandrel);

// Hands every piece to `take`, those behind the layer last.
template <class Take>
void ForEachTow(const Layer& layer, const Mandrel& mandrel, const std::stop_token& stop, const Take& take) {
  std::size_t turn = 0;
  const auto turnsBefore = [&](std::size_t stroke) {
    for (; turn < layer.endTurns.size() && layer.endTurns[turn].behindStrokes <= stroke; ++turn) {
      const EndTurn& t = layer.endTurns[turn];
      take(TowPiece{t.pass, t.z - t.along, t.z, LengthOf(t, mandrel), true});
    }
  };
  for (std::size_t i = 0; i < layer.strokes.size() && !stop.stop_requested(); ++i) {
    turnsBefore(i);
    const Stroke& stroke = layer.strokes[i];
    take(TowPiece{stroke.pass, stroke.z0, stroke.z1, LengthOf(stroke, mandrel), false});
  }
  turnsBefore(layer.strokes.size());
}

// Grams of a length of band.
struct TowMass {
  bool known = false;
  double fibre = 0, resin = 0;
};

// A place where one spool ends and the next begins.
struct Splice {
  int layer = 0;
  double pass = 0;  // its number
  double z = 0;
  bool atEnd = false;  // in a turn at an end, else on a traverse
};

// Cuts the tow of a program into spools.
class Spools {
 public:
  // 0 for one without end.
  explicit Spools(double length) : length_(length) {}

  void Take(const Layer& layer, const TowPiece& piece);

  // How many are begun: none before there is tow.
  long long Count() const { return used_ > 0 ? static_cast<long long>(splices_) + 1 : 0; }
  // The first of them; of a spool as short as a pass there are too many to tell.
  const std::vector<Splice>& splices() const { return told_; }

 private:
  double length_;
  double used_ = 0;  // in all
  double left_ = 0;  // on the spool in hand
  double splices_ = 0;
  std::vector<Splice> told_;
};

}  // namespace torvane::executor
