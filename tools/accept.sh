#!/usr/bin/env bash
# Takes over what the cases print now, where a change of theirs is meant, and shows the difference:
#
#   tools/accept.sh [NAME...]        such as hoop_rows; all of them without a name
#
# For tests/cases/scripts and the working days in samples. A program in tests/cases/programs is worked out by hand.
# The release build stands, with cli_tests.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

filter=''
for name in "${@:-*}"; do
  filter+="Cases/Scripts.*/$name:Cases/WorkingDays.*/${name//-/_}:"
done
TORVANE_ACCEPT=yes build/release/tests/cli_tests --gtest_brief=1 --gtest_filter="$filter"
git --no-pager diff -- tests/cases/scripts samples
