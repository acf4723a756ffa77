// A program of 15 layers for another winder's controller: written, and read back beside it.
#include <benchmark/benchmark.h>

#include <fstream>
#include <sstream>

#include "executor/programs.h"
#include "post/machine/machine.h"
#include "post/motion/motions.h"
#include "post/proof/proof.h"
#include "post/write/writer.h"

namespace torvane::post {

namespace {

std::string LayersOf(int passes) {
  std::string program = executor::Begun();
  for (int layer = 1; layer <= 15; ++layer)
    for (int pass = 1; pass <= passes; ++pass) {
      program += executor::PassLine(pass, passes, "ms", layer, 15);
      if (pass == 1) program += "M4 S30\nM602\n";
      program += pass == 1 ? "G1 F6 Z28.00\nM601\n"
                           : "G1 Z28.00\nG4 L601 C" + executor::Fixed(0.09 * pass, 2) + "\n";
      program += "G1 Z4.00\nG4 L602 C" + executor::Fixed(0.09 * pass, 2) + "\n";
    }
  return program + executor::Ended();
}

Machine MachineOf(const char* name) {
  std::ifstream file(std::string(MACHINES) + "/" + name + ".json");
  std::stringstream text;
  text << file.rdbuf();
  Result<Machine> machine = ReadMachine(text.str());
  Machine read = machine.Take();
  read.maxTurns = 0;
  return read;
}

void PostProgram(benchmark::State& state) {
  const std::string program = LayersOf(static_cast<int>(state.range(0)));
  const Machine machine = MachineOf("linuxcnc");
  std::size_t bytes = 0;
  for (auto _ : state) {
    std::stringstream text;
    Writer writer(machine, "part", [&](std::string_view line) { return static_cast<bool>(text << line); });
    Motions motions(writer, 10);
    motions.Take(program);
    if (!motions.Finish() || !writer.Finish()) state.SkipWithError("not written");
    bytes = static_cast<std::size_t>(text.tellp());
    Proof proof(machine, [&](std::string& line) { return static_cast<bool>(std::getline(text, line)); });
    Motions again(proof, 10);
    again.Take(program);
    if (!again.Finish() || !proof.Finish()) state.SkipWithError("not proved");
  }
  state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(PostProgram)->Arg(40)->Arg(400)->Arg(4000)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace torvane::post
