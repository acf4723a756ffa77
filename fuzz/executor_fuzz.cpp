// Any bytes as a program: the dry run neither fails nor hangs on them.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "executor/proof/report.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace torvane::executor;
  const std::string_view program(reinterpret_cast<const char*>(data), size);
  const Proof proof = Prove(program, Limits());
  if (Report(proof).empty()) std::abort();
  for (const LayerFigures& layer : proof.layers)
    if (layer.judged && !(layer.coveredShare >= 0 && layer.coveredShare <= 1)) std::abort();
  return 0;
}
