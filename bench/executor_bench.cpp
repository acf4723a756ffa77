// Proving a long program: one layer by mandrel shift, four statements to a pass. Time must grow in
// proportion.
#include <benchmark/benchmark.h>

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
void ProveDifferentPasses(benchmark::State& state) {
  const int passes = static_cast<int>(state.range(0));
  std::string program = Begun();
  unsigned dice = 1;
  for (int pass = 1; pass <= passes; ++pass) {
    dice = dice * 1664525U + 1013904223U;
    program += PassLine(pass, passes);
    if (pass == 1) program += "M4 S" + Fixed(kTestRpm, 8) + "\nM602\n";
    program += pass == 1 ? "G1 F6 Z28\nM601\n" : "G1 Z28\nG4 L601\n";
    program += "G1 Z4\nG4 L602 C" + Fixed(dice / 4294967296.0 * 360, 4) + '\n';
  }
  program += Ended();
  for (auto _ : state) {
    const Proof proof = Prove(program, Limits());
    benchmark::DoNotOptimize(proof.statements);
  }
}
BENCHMARK(ProveDifferentPasses)->Arg(20'000)->Arg(100'000)->Arg(400'000)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace torvane::executor
