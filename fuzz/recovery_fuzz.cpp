// Any bytes as a recovery copy: what is taken for whole comes back, and its own copy says the same again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "persist/recovery_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace torvane;
  const auto design = ReadRecovery({reinterpret_cast<const char*>(data), size});
  if (!design) return 0;
  DesignState s({'.', '/', ':'});
  Restore(s, *design);
  const std::string copy = RecoveryText(s);
  const auto again = ReadRecovery(copy);
  if (!again) std::abort();
  DesignState other({'.', '/', ':'});
  Restore(other, *again);
  if (RecoveryText(other) != copy) std::abort();
  return 0;
}
