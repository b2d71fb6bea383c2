#!/usr/bin/env bash
# Runs every fuzzer of a build for some seconds each. Usage: tools/checks/fuzz.sh BUILD-DIRECTORY SECONDS
set -euo pipefail
build=$1
seconds=$2
found=false
for fuzzer in "$build"/bin/*_fuzz; do
  [ -x "$fuzzer" ] || continue
  found=true
  corpus=$build/fuzz/corpus/$(basename "$fuzzer")
  mkdir -p "$corpus"
  echo "$(basename "$fuzzer"): $seconds seconds"
  "$fuzzer" -max_total_time="$seconds" -rss_limit_mb=4096 -timeout=20 -verbosity=0 -print_final_stats=1 \
    -artifact_prefix="$corpus/crash-" "$corpus"
done
$found || { echo "There is no fuzzer in $build/bin." >&2; exit 1; }
