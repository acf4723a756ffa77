#!/usr/bin/env bash
# What gdb shows of the core types: printers_test.sh PROGRAM PRINTERS. Skipped where there is no gdb.
set -euo pipefail
command -v gdb >/dev/null || exit 77
shown=$(gdb --batch -nx -ex "source $2" -ex 'break Shown' -ex run -ex 'info args' "$1" 2>&1) || true
# Where a program may not be traced, as in some containers, there is nothing to see.
grep -q 'ptrace' <<<"$shown" && exit 77
failed=0
while read -r line; do
  grep -qF -- "$line" <<<"$shown" || { echo "gdb does not show: $line"; failed=1; }
done <<'END'
= txtWA(3) "45°", TooHigh
= txtDiameterLeft "", hidden
= no field: its array has no such index
= 0.333333333333333
= failure
= kept 12.5
= "#00.0#"_mask
END
[ $failed = 0 ] || printf '%s\n' "$shown"
exit $failed
