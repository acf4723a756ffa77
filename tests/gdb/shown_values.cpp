// One of each kind that the debugger's printers know; printers_test.sh stops in Shown.
#include "design/catalogue.h"
#include "design/state.h"

namespace torvane {
namespace {

// NOLINTNEXTLINE: the debugger reads its arguments
void Shown([[maybe_unused]] const Field& marked, [[maybe_unused]] const Field& hidden,
           [[maybe_unused]] const Field& missing, [[maybe_unused]] Number third,
           [[maybe_unused]] Number failed, [[maybe_unused]] Kept kept, [[maybe_unused]] Mask mask) {}

}  // namespace
}  // namespace torvane

int main() {
  using namespace torvane;
  if (Catalogue().front().name.empty()) return 1;
  DesignState s({});
  s.txtWA(3) = "45\xB0";
  s.txtWA(3).SetMark(Mark::TooHigh);
  s.txtDiameterLeft.Show(false);
  Kept kept;
  kept = Number(12.5);
  Shown(s.txtWA(3), s.txtDiameterLeft, s.txtWA(19), Number(1) / 3, Number(1) / 0, kept, "##00.0#"_mask);
}
