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

}  // namespace

}  // namespace torvane::executor
