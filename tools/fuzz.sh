# Runs the fuzz targets; sourced behind tools/setup.sh.

# fuzz SECONDS: builds them, then runs each for that long, as many at once as there are processors, from its
# corpus and with the words of its dictionary. What a target finds lies in build/fuzz/found. Fails on a find.
fuzz() {
  packages=(clang libclang-rt-14-dev)
  install_packages
  configure fuzz
  cmake --build build/fuzz --target fuzzers >&2 || fail "the fuzz build failed"
  local target targets=()
  for target in fuzz/corpus/*; do targets+=("$(basename "$target")"); done
  export -f fuzz_one
  printf '%s\n' "${targets[@]}" | xargs -P "$(nproc)" -I{} bash -c "fuzz_one {} $1" || fail "the fuzzers found something"
}

# fuzz_one TARGET SECONDS: one line of what it came to, or the end of its report.
fuzz_one() {
  local found=build/fuzz/found/$1 log=build/fuzz/$1.log
  mkdir -p "$found"
  # Freed memory is watched for as long as a run takes, no longer: more of it costs time.
  if ! ASAN_OPTIONS=quarantine_size_mb=16:malloc_context_size=8 "build/fuzz/$1_fuzz" -max_total_time="$2" \
    -max_len=65536 -timeout=60 -print_final_stats=1 \
    -dict="fuzz/dictionaries/$1.dict" -artifact_prefix="$found/" "$found" "fuzz/corpus/$1" >"$log" 2>&1; then
    tail -n 60 "$log"
    echo "fuzz $1: FOUND something, see above; to replay: build/fuzz/$1_fuzz FILE in $found"
    return 1
  fi
  awk -v target="$1" '/number_of_executed_units/ { runs = $2 } /average_exec_per_sec/ { speed = $2 }
    END { printf "fuzz %s: nothing found, %d runs, %d a second\n", target, runs, speed }' "$log"
}
