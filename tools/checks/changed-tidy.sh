#!/usr/bin/env bash
# Runs the linter over the sources that changed since a base: those of the last commit on the main line, or
# those since $TIDY_BASE. Needs the clang build's compile commands.
set -euo pipefail
cd "$(dirname "$0")/../.."

base=${TIDY_BASE:-$(git rev-parse --verify -q HEAD~1 || git hash-object -t tree /dev/null)}
mapfile -t changed < <(git diff --name-only --diff-filter=d "$base" -- '*.cpp' | grep -v '/fuzz/' || true)
if [ ${#changed[@]} -eq 0 ]; then
  echo "No source changed since $base."
  exit 0
fi
printf '%s\n' "${changed[@]}" | xargs -P "$(nproc)" -n 1 clang-tidy-14 --quiet -p build/clang --warnings-as-errors='*'
