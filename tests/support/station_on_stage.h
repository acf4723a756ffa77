// A station on a computer in memory, started, with the start guard behind it.
#pragma once

#include <chrono>
#include <string>

#include "handoff/launch.h"
#include "stage/stage.h"
#include "workbench/document/startup.h"

namespace torvane {

class StationOnStage {
 public:
  explicit StationOnStage(char decimalSign = '.')
      : station_((stage.locale.signs.decimal = decimalSign, stage.AsPlatform())) {
    stage.files.MakeFolder("C:\\Torvane\\TV_Design_Files");
    stage.files.MakeFolder("C:\\Torvane\\TV_G-Code_Files");
  }

  Station& Started() {
    Form_Load(station_);
    stage.clock.Advance(std::chrono::seconds(6));
    station_.Run("mnuNewFile", Event::Click);
    return station_;
  }

  Station& station() { return station_; }

  Stage stage;

 private:
  WholeStation station_;
};

// A tube of 4 inches, wound over 24 inches between the stops with `layers` rows at `angle`.
inline void TypeTube(Station& station, int layers, const std::string& angle) {
  DesignState& s = station.s;
  s.txtDiameterLeft = "4";
  s.txtDiameterRight = "4";
  s.txtLengthTotal(0) = "24";
  s.txtBandWidth(0) = "0.25";
  s.txtBandThickness(0) = "0.01";
  s.txtZ2(0) = "28";
  s.txtZ2(1) = "4";
  s.txtNumberOfLayers(0) = std::to_string(layers);
  for (int row = 1; row <= layers; ++row) {
    s.txtLeft(row) = "0";
    s.txtRight(row) = "0";
    s.txtWA(row) = angle;
  }
}

}  // namespace torvane
