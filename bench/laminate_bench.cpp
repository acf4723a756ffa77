// What it takes to tell what a proven part will be.
#include <benchmark/benchmark.h>

#include "laminate/part/estimate.h"
#include "live/live_proof.h"
#include "support/station_on_stage.h"

namespace torvane {
namespace {

// The tube of 15 layers at 45 degrees, proven before; with `range(0)` it is tapered, and has five walls.
void EstimateAPart(benchmark::State& state) {
  StationOnStage onStage;
  Station& station = onStage.Started();
  TypeTube(station, 15, "45");
  const bool tapered = state.range(0) != 0;
  if (tapered) station.Type(station.s.txtDiameterLeft, "5");
  const LiveResult proven =
      ProveDesign(station.s, {station.platform.files.ProgramFolder(), station.platform.clock.Now()}, {});
  const laminate::Materials materials = laminate::ReadMaterials(laminate::FirstMaterials());
  laminate::Choice choice;
  choice.tow = "T300 (NASA)";
  choice.resin = "Epoxy IMHS (NASA)";
  std::vector<std::string> missing;
  const laminate::Stock stock = StockOf(materials, choice, missing);
  laminate::Estimate estimate;
  for (auto _ : state) {
    estimate = EstimateOf(proven.proof, stock, choice, {}, {.pressure = 1e6});
    benchmark::DoNotOptimize(estimate);
  }
  state.counters["layers"] = static_cast<double>(estimate.margins.size());
  state.counters["walls"] = static_cast<double>(estimate.layUp.sections.size());
}
BENCHMARK(EstimateAPart)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace torvane
