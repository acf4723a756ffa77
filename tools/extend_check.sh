#!/usr/bin/env bash
# Follows docs/extending.md in a copy of the project: a made-up field, setting, statement, message and warning. Each
# step may touch only files that its section of the page names. Then the copy is built without windows, the made-up
# things are tried, the tests that they reach run, and the copy is thrown away; with --keep it stays in build/extend.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source tools/setup.sh
page=$PWD/docs/extending.md
copy=$PWD/build/extend
rm -rf "$copy"
mkdir -p "$copy/tree"
[ "${1:-}" = --keep ] || trap 'rm -rf "$copy"' EXIT
git ls-files -co --exclude-standard -z |
  { while IFS= read -r -d '' file; do [ ! -f "$file" ] || printf '%s\0' "$file"; done; } |
  tar --null -T - -cf - | tar -xf - -C "$copy/tree"
cd "$copy/tree"

# section NAME: the steps that follow are its.
section() {
  text=$(awk -v head="## $1" '$0 == head { on = 1; next } /^## / { on = 0 } on' "$page")
  [ -n "$text" ] || fail "docs/extending.md has no section $1"
  section=$1
}
named() {
  grep -qF -e "\`$1\`" -e "\`${1#src/}\`" <<<"$text" || fail "the section $section does not name $1"
}

# below FILE LINE TEXT and above FILE LINE TEXT: TEXT goes next to the first line that holds LINE.
below() { insert 1 "$@"; }
above() { insert 0 "$@"; }
insert() {
  named "$2"
  grep -qF -e "$3" "$2" || fail "$2 has no line with $3: mend this script, and see whether the page is still true"
  LINE=$3 TEXT=$4 awk -v below="$1" '
    function text() { print ENVIRON["TEXT"]; done = 1 }
    !done && index($0, ENVIRON["LINE"]) { if (below) { print; text(); next } text() }
    { print }' "$2" >"$copy/new"
  cp "$copy/new" "$2"
}

section "A field"
below src/design/fields.h '// Part, two axes.' '  Field txtResinBatch;'
below src/design/catalogue.cpp '// Part, two axes' \
  '    {"txtResinBatch", &Fields::txtResinBatch, Kind::Text, UsedBy::Station, {}, "", {"Resin batch", "Number of the resin that the part is wound with."}},'
below docs/window-names.md '| `txtSplitAngle` |' '| `txtResinBatch` |  | `frmMain` | made up | no place |'
below src/workbench/part/part_fields.cpp 'constexpr Operation kOperations[] = {' \
  '    {"txtResinBatch", Event::Key, txtResinBatch_Key},'

section "A setting"
above src/persist/settings.cpp '{"gVersionNumber"' \
  '    {"txtResinBatch", "", Of<&Fields::txtResinBatch>(), Form::Text, kYes, 36, kNo, "batch of the resin, 1 to 9999"},'
below tests/persist/settings_test.cpp '"gPauseBeforeHoop",' '"gDelayTimeInG456ToWaitForMandrelinMS", "txtResinBatch"};'
sed -i '/^ *"gDelayTimeInG456ToWaitForMandrelinMS"};$/d' tests/persist/settings_test.cpp

section "A statement"
below src/gcode/dialect.h '// Session.' \
  'template <class Batch>
void ResinBatch(Program& p, const Batch& batch) {
  p.Line("M712 R", batch, " [Batch of the Resin]");
}'
below src/gcode/two_axis_program.cpp 'SetPassEnds(s);' \
  '  dialect::ResinBatch(p, number(s.txtResinBatch).plain());'
below src/executor/program/statement.h '  BuildTime,' '  ResinBatch,'
below src/executor/program/statement.cpp '{"M711"' \
  '    {"M712", Command::ResinBatch, "R", "", "", "Announces the batch of the resin."},'
below docs/dialect.md '| `M711` |' '| `M712` | R | announces the batch of the resin |'

section "A message"
above src/workbench/station/messages.h '}  // namespace messages' \
  'inline constexpr StationMessage kResinBatch = {
    9901, {.okOnly = true, .offer = true}, "A batch is a number from 1 on"};
'
above src/workbench/part/part_fields.cpp 'constexpr Operation kOperations[] = {' \
  'void txtResinBatch_Key(Station& station, int) {
  station.s.gDirty = true;
  if (!holds(number(station.s.txtResinBatch) >= 1))
    ShowMessageDialog(station, messages::kResinBatch);
}
'

section "A warning"
above src/workbench/build/build_warnings.cpp 'if (s_.chkWindingSchedule.checked()) LookAtBuildTime();' \
  '    if (holds(number(s_.txtResinBatch) > 9999))
      Warn(s_.txtResinBatch, "The batch has five digits", "The executor shows four.");'
above tests/workbench/build_warnings_test.cpp 'TEST_F(BuildWarningsTest, ARowWithoutAnAngleAndEmptyStopsAreNamed) {' \
  'TEST_F(BuildWarningsTest, AMadeUpBatch) {
  TypeTube(station, 1, "45");
  Name("tube.t2d");
  s.txtResinBatch = "12345";
  EXPECT_EQ(Fields(), std::vector<std::string>{"txtResinBatch"});
  EXPECT_NE(Program().find("M712 R12345 ["), std::string::npos);
}
'

section "A test"
mkdir tests/cases/scripts/made_up_batch
named tests/cases/scripts/NAME/
cat >tests/cases/scripts/made_up_batch/script <<'END'
store Settings txtResinBatch 7
start
wait 6000
get txtResinBatch
get gDirty
type txtResinBatch none
get gDirty
answer yes noshow
type txtResinBatch
type txtResinBatch 0
setting Settings MSG9901
END
cat >tests/cases/scripts/made_up_batch/expected <<'END'
txtResinBatch = 7
gDirty = False
message 9901 ok-only offer: A batch is a number from 1 on
gDirty = True
message 9901 ok-only offer: A batch is a number from 1 on
Settings MSG9901 = True
END

cmake -S . -B "$copy/build" -G Ninja -DCMAKE_CXX_FLAGS=-O0 -DTORVANE_WINDOWS=OFF -DTORVANE_BENCH=OFF >"$copy/log" 2>&1 ||
  { cat "$copy/log" >&2; fail "the copy could not be configured"; }
# Those of cli compare whole programs and proofs, which spares the time of gcode's and the executor's own.
tests=(rooms design persist workbench cli)
cmake --build "$copy/build" --target "${tests[@]/%/_tests}" >"$copy/log" 2>&1 ||
  { tail -n 40 "$copy/log" >&2; fail "what docs/extending.md asks for does not build"; }
for room in "${tests[@]}"; do
  "$copy/build/tests/${room}_tests" --gtest_brief=1 >"$copy/log" 2>&1 ||
    { tail -n 60 "$copy/log" >&2; fail "what docs/extending.md asks for does not pass the tests of $room"; }
done

# The own dry run reads the statement.
program=$("$copy/build/torvane" gcode samples/Tube-4x24.t2d --home "$copy" --store "$copy/none.ini" \
  --setting txtResinBatch=7 2>/dev/null)
grep -q '^M712 R7 ' "$program" || fail "the program has no made-up statement"
"$copy/build/Torvane_Executor.exe" --check "$program" >"$copy/log" 2>&1 ||
  { cat "$copy/log" >&2; fail "the dry run finds a fault in the made-up statement"; }
say "docs/extending.md: followed, builds and passes"
