// Proving a long program: one layer by mandrel shift, four statements to a pass. Time must grow in
// proportion.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <stop_token>
#include <thread>

#include "executor/player/player.h"
#include "executor/programs.h"

namespace torvane::executor {

namespace {

void ProveProgram(benchmark::State& state) {
  const int passes = static_cast<int>(state.range(0)) / 5;
  const std::string program = ProgramOf({.passes = passes, .step = 360.0 / passes});
  int statements = 0;
  for (auto _ : state) {
    const Proof proof = Prove(program, Limits());
    statements = proof.statements;
    benchmark::DoNotOptimize(statements);
  }
  state.counters["statements"] = statements;
}
BENCHMARK(ProveProgram)->Arg(10'000)->Arg(100'000)->Arg(400'000)->Unit(benchmark::kMillisecond);

// A layer whose passes all differ: their home dwells follow no pattern.
std::string DifferentPasses(int passes) {
  std::string program = Begun();
  unsigned dice = 1;
  for (int pass = 1; pass <= passes; ++pass) {
    dice = dice * 1664525U + 1013904223U;
    program += PassLine(pass, passes);
    if (pass == 1) program += "M4 S" + Fixed(kTestRpm, 8) + "\nM602\n";
    program += pass == 1 ? "G1 F6 Z28\nM601\n" : "G1 Z28\nG4 L601\n";
    program += "G1 Z4\nG4 L602 C" + Fixed(dice / 4294967296.0 * 360, 4) + '\n';
  }
  return program + Ended();
}

void ProveDifferentPasses(benchmark::State& state) {
  const std::string program = DifferentPasses(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const Proof proof = Prove(program, Limits());
    benchmark::DoNotOptimize(proof.statements);
  }
}
BENCHMARK(ProveDifferentPasses)->Arg(20'000)->Arg(100'000)->Arg(400'000)->Unit(benchmark::kMillisecond);

// From the wish to stop to the end, each time a tenth of a second further on; the longest wait counts.
void StopAProof(benchmark::State& state) {
  const std::string program = DifferentPasses(static_cast<int>(state.range(0)));
  double longest = 0;
  int tenths = 0;
  for (auto _ : state) {
    std::jthread prover([&](const std::stop_token& stop) {
      benchmark::DoNotOptimize(Prove(program, Limits(), stop).statements);
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(100 * ++tenths));
    const auto asked = std::chrono::steady_clock::now();
    prover.request_stop();
    prover.join();
    const double wait = std::chrono::duration<double>(std::chrono::steady_clock::now() - asked).count();
    state.SetIterationTime(wait);
    longest = std::max(longest, wait);
  }
  state.counters["longest_ms"] = 1000 * longest;
}
BENCHMARK(StopAProof)
    ->Arg(400'000)
    ->Arg(2'000'000)
    ->Iterations(30)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// The run taken to a line anywhere in the program, whose one layer never closes; the longest seek counts.
void SeekInProgram(benchmark::State& state) {
  const int passes = static_cast<int>(state.range(0)) / 5;
  const auto program = std::make_shared<const Program>(ProgramOf({.passes = passes, .step = 240.0 / passes}));
  Player player;
  player.Load(program);
  unsigned dice = 1;
  double longest = 0;
  for (auto _ : state) {
    dice = dice * 1664525U + 1013904223U;
    const auto asked = std::chrono::steady_clock::now();
    player.SeekLine(1 + static_cast<int>(dice / 4294967296.0 * program->Lines()));
    const double took = std::chrono::duration<double>(std::chrono::steady_clock::now() - asked).count();
    longest = std::max(longest, took);
  }
  state.counters["longest_ms"] = 1000 * longest;
}
BENCHMARK(SeekInProgram)->Arg(100'000)->Arg(5'000'000)->Iterations(200)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace torvane::executor
