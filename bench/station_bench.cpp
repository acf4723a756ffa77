// The calculation, one keystroke, and the writer of a program.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <vector>

#include "calc/patterns.h"
#include "calc/two_axis.h"
#include "gcode/session.h"
#include "support/station_on_stage.h"

namespace torvane {
namespace {

void Recalculate15Rows(benchmark::State& state) {
  StationOnStage onStage;
  DesignState& s = onStage.Started().s;
  TypeTube(onStage.station(), 15, "45");
  s.operations = nullptr;
  for (auto _ : state) RecalculateTwoAxisLayers(s, -1);
}
BENCHMARK(Recalculate15Rows)->Unit(benchmark::kMicrosecond);

// Nearly a hoop on a thin rod: the search that takes hundreds of thousands of steps one by one.
void Recalculate15RowsNearlyHoops(benchmark::State& state) {
  StationOnStage onStage;
  DesignState& s = onStage.Started().s;
  TypeTube(onStage.station(), 15, "45");
  s.operations = nullptr;
  s.Diameter_Left = "1";
  s.Diameter_Right = "1";
  for (int row = 1; row <= 15; ++row) s.txtWA(row) = "89.99";
  for (auto _ : state) RecalculateTwoAxisLayers(s, -1);
}
BENCHMARK(Recalculate15RowsNearlyHoops)->Unit(benchmark::kMicrosecond);

void KeystrokeInOneRow(benchmark::State& state) {
  StationOnStage onStage;
  Station& station = onStage.Started();
  TypeTube(station, 15, "45");
  bool other = false;
  for (auto _ : state) station.Type(station.s.txtWA(7), (other = !other) ? "44" : "45");
}
BENCHMARK(KeystrokeInOneRow)->Unit(benchmark::kMillisecond);

// A diameter changes every figure of every row.
void KeystrokeInTheDiameter(benchmark::State& state) {
  StationOnStage onStage;
  Station& station = onStage.Started();
  TypeTube(station, 15, "45");
  bool other = false;
  for (auto _ : state) station.Type(station.s.txtDiameterLeft, (other = !other) ? "5" : "4");
}
BENCHMARK(KeystrokeInTheDiameter)->Unit(benchmark::kMillisecond);

constexpr int kPasses = 4000;

void FillLargeDesign(StationOnStage& onStage) {
  Station& station = onStage.Started();
  TypeTube(station, 15, "45");
  station.s.gGridSync = false;
  for (int row = 1; row <= 15; ++row) {
    station.s.lblPassesToCover(row) = std::to_string(kPasses);
    if (row % 5 == 0) station.s.cmbMethod(row) = "cs";
  }
  station.s.gFilePath = "C:\\Torvane\\TV_Design_Files\\large.t2d";
}

// What the bytes of a program cost when they only have to be copied and written, in seconds.
double CopyAndWrite(const std::string& bytes, std::vector<char>& copy) {
  const auto start = std::chrono::steady_clock::now();
  std::memcpy(copy.data(), bytes.data(), bytes.size());
  std::FILE* file = std::fopen("/dev/null", "wb");
  benchmark::DoNotOptimize(std::fwrite(copy.data(), 1, copy.size(), file));
  std::fclose(file);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Bytes a second, and how many times as long it takes as a plain copy and write of the same bytes.
void FormProgramOf15Layers(benchmark::State& state) {
  StationOnStage onStage;
  FillLargeDesign(onStage);
  Station& station = onStage.station();
  std::string bytes;
  double forming = 0;
  double copying = 0;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    Program program(station.s.signs);
    FormProgram(station.s, station.platform, program);
    forming += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    state.PauseTiming();
    bytes.clear();
    for (const std::string_view block : program.Text()) bytes += block;
    std::vector<char> copy(bytes.size());
    copying += CopyAndWrite(bytes, copy);
    state.ResumeTiming();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes.size()) *
                          static_cast<std::int64_t>(state.iterations()));
  state.counters["times_copy_and_write"] = forming / copying;
}
BENCHMARK(FormProgramOf15Layers)->Unit(benchmark::kMillisecond);

void DescribeFourAxisTube(StationOnStage& onStage, int layers) {
  Station& station = onStage.Started();
  DesignState& s = station.s;
  station.Run("optX", Event::Click, 1);
  station.Run("optType", Event::Click, 0);
  s.cmbRate = "MED";
  s.txtDia(0) = "4";
  s.txtDia(1) = "4";
  s.txtPODia(0) = "1";
  s.txtZ4(0) = "28";
  s.txtZ4(3) = "4";
  s.txtAdjust(1) = "30";
  s.txtAdjust(5) = "2";
  s.txtBandWidth(1) = "0.25";
  s.txtNumberOfLayers(1) = std::to_string(layers);
  for (int row = 1; row <= layers; ++row) {
    s.cmbPhiSplit(row) = "45\xB0";
    station.Choose(s.cmbPhiW(row), "180\xB0");
    station.Choose(s.cmbPattern(row), "18.12 | 4 x 12 | 180\xB0");
    s.LayerTable4Ax.Set(row, 5, s.cmbPattern(row).text());
  }
}

void PatternListOfOneRow(benchmark::State& state) {
  StationOnStage onStage;
  DescribeFourAxisTube(onStage, 1);
  for (auto _ : state) PopulatePatternCombo(onStage.station().s, 1);
}
BENCHMARK(PatternListOfOneRow)->Unit(benchmark::kMicrosecond);

void RefreshOf15Rows(benchmark::State& state) {
  StationOnStage onStage;
  DescribeFourAxisTube(onStage, 15);
  for (auto _ : state) Refresh4AXGrid(onStage.station().s);
}
BENCHMARK(RefreshOf15Rows)->Unit(benchmark::kMillisecond);

void PatternListOfANarrowBand(benchmark::State& state) {
  const PatternPart part{4 * kPi, 0.01, 24, 180, 25};
  for (auto _ : state) benchmark::DoNotOptimize(ClosingPatterns({}, part));
}
BENCHMARK(PatternListOfANarrowBand)->Unit(benchmark::kMillisecond);

void PatternListOfAThreadOnATank(benchmark::State& state) {
  const PatternPart part{10000 * kPi, 0.0001, 24, 180, 25};
  for (auto _ : state) benchmark::DoNotOptimize(ClosingPatterns({}, part));
}
BENCHMARK(PatternListOfAThreadOnATank)->Unit(benchmark::kMillisecond);

void FormFourAxisProgramOf15Layers(benchmark::State& state) {
  StationOnStage onStage;
  DescribeFourAxisTube(onStage, 15);
  Station& station = onStage.station();
  for (int row = 1; row <= 15; ++row) station.s.cmbPattern(row) = "18.12 | 40 x 60 | 180\xB0";
  station.s.gFilePath = "C:\\Torvane\\TV_Design_Files\\large.t4d";
  std::size_t bytes = 0;
  for (auto _ : state) {
    Program program(station.s.signs);
    FormProgram(station.s, station.platform, program);
    bytes = 0;
    for (const std::string_view block : program.Text()) bytes += block.size();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * static_cast<std::int64_t>(state.iterations()));
}
BENCHMARK(FormFourAxisProgramOf15Layers)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace torvane
