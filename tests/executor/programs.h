// Small programs with known answers: a mandrel of 4 in, a band of 0.25 in at 45 degrees.
#pragma once

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "executor/program/number.h"
#include "executor/proof/proof.h"

namespace torvane::executor {

constexpr double kTestPi = 3.14159265358979;
// At 45 degrees surface and carriage are equally fast: 6 in/s round a circumference of 4 pi.
inline const double kTestRpm = 60 * 6 / (4 * kTestPi);
// How far round a band reaches: 0.25 / cos 45 on 4 pi.
inline const double kTestBand = 0.25 * std::sqrt(2.0) / (4 * kTestPi) * 360;
// Degrees round the mandrel to inches across the band.
inline const double kTestAcross = 4 * kTestPi / 360 / std::sqrt(2.0);

// What a machine must be told before it moves.
inline std::string Ready(const std::string& unit = "G20", const std::string& homeZ = "1.875") {
  return unit + "\nX V420 T4 Z" + homeZ + " Y4.4375\nM17\nG28 E1 R4 F1\nM0\n";
}

inline std::string Begun(const std::string& form = "C C0\nG20\n") {
  return form +
         "G90\nX V420.000 T2 Z1.875\nM17\nG28 F1.000\nG4 Z P10000\nG1 F1.000 Z4.000\nD0 ST=Winding "
         "Schedule\nM0\n";
}

inline std::string Ended() { return "D0 GM=Winding_Process_Complete\nM5\nM5\n"; }

inline std::string PassLine(int pass, int passes, const std::string& method = "ms", int layer = 1,
                            int layers = 1, double farZ = 28) {
  return "D0 LA=" + std::to_string(layer) + "_of_" + std::to_string(layers) + " PA=" + std::to_string(pass) +
         "_of_" + std::to_string(passes) + " RPM=28.6 CS=6 WA=45 WM=" + method +
         " LD=4 FW=0.25 HL=" + Fixed(farZ, 2) + " [Display Layer Properties]\n";
}

struct ShiftedMandrel {
  int passes = 36;
  double step = 10;   // degrees from pass to pass
  int announced = 0;  // 0: as many as there are
  int oddPass = 0;    // its home dwell goes `odd` degrees too far
  double odd = 0;
  double farZ = 28;
};

inline std::string LayerOf(const ShiftedMandrel& m) {
  std::string text;
  for (int pass = 1; pass <= m.passes; ++pass) {
    text += PassLine(pass, m.announced > 0 ? m.announced : m.passes, "ms", 1, 1, m.farZ);
    if (pass == 1) text += "M4 S" + Fixed(kTestRpm, 8) + "\nM602\n";
    text += std::string(pass == 1 ? "G1 F6 Z" : "G1 Z") + Fixed(m.farZ, 2) + "\n";
    text += pass == 1 ? "M601\n" : "G4 L601 C" + Fixed(m.step * (pass - 1), 6) + "\n";
    text += "G1 Z4.00\nG4 L602 C" + Fixed(m.step * pass + (pass == m.oddPass ? m.odd : 0), 6) + "\n";
  }
  return text;
}

inline std::string ProgramOf(const ShiftedMandrel& m) { return Begun() + LayerOf(m) + Ended(); }

// Kinds and layers of all findings, in their order.
inline std::vector<std::pair<std::string, int>> KindsOf(const Proof& proof) {
  std::vector<std::pair<std::string, int>> kinds;
  for (const Finding& f : proof.findings.all()) kinds.emplace_back(NameOf(f.kind), f.layer);
  return kinds;
}

using Kinds = std::vector<std::pair<std::string, int>>;

}  // namespace torvane::executor
