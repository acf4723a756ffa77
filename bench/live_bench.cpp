// From a key to its proof, and how soon a long proof gives way to the next key.
#include <benchmark/benchmark.h>

#include <thread>

#include "live/live_proof.h"
#include "support/station_on_stage.h"

namespace torvane {
namespace {

ProgramPlace PlaceOf(const Station& station) {
  return {station.platform.files.ProgramFolder(), station.platform.clock.Now()};
}

void Settle(const LiveProof& live) {
  while (live.Proving()) std::this_thread::yield();
}

// The tube of 15 layers at 45 degrees, of which the first one's angle changes.
void ProveWhileTyping(benchmark::State& state) {
  StationOnStage onStage;
  Station& station = onStage.Started();
  TypeTube(station, 15, "45");
  LiveProof live(station.s.signs, [] {});
  bool steep = false;
  for (auto _ : state) {
    station.Type(station.s.txtWA(1), (steep = !steep) ? "44" : "45");
    live.Ask(station.s, PlaceOf(station), {});
    Settle(live);
  }
  state.counters["statements"] = live.Result()->proof.statements;
}
BENCHMARK(ProveWhileTyping)->Unit(benchmark::kMillisecond)->UseRealTime();

// What a key waits for at most: the copy of the state.
void AskForAProof(benchmark::State& state) {
  StationOnStage onStage;
  Station& station = onStage.Started();
  TypeTube(station, 15, "45");
  LiveProof live(station.s.signs, [] {});
  bool steep = false;
  for (auto _ : state) {
    station.s.txtWA(1) = (steep = !steep) ? "44" : "45";
    live.Ask(station.s, PlaceOf(station), {});
  }
}
BENCHMARK(AskForAProof)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
}  // namespace torvane
