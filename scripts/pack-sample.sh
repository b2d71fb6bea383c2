#!/usr/bin/env bash
# From a fresh clone to packed databases: installs what is missing, builds, packs the sample game through the
# default creator library for each of its three builds, and prints what was packed and how the packs differ.
# Usage: scripts/pack-sample.sh [--build N]      (only the pack for build N, in the game's own place)
source "$(dirname "$0")/common.sh"

game_build=7
later_builds=(10 20)
only=
case "${1:-}" in
  "") ;;
  --build) only=${2:?--build takes a number} ;;
  *) die "Usage: scripts/pack-sample.sh [--build N]" ;;
esac

install_packages "${build_packages[@]}"
build release corvane CorvaneCreator GlossarRuntime gamedb-dump Outpost outpost-postbuild outpost_strings >&2

bin=$PWD/build/release/bin
root=$PWD/samples/outpost/Database/Outpost.Gamdb00s
game=$PWD/samples/outpost/Game
log=$PWD/build/release/outpost-validation.log

# pack BUILD FILE
pack() {
  local status=0
  "$bin/corvane" -Pack -BuildNumber "$1" -Output "$2" -Log "$log" "$root" </dev/null >&2 || status=$?
  [ "$status" -eq 0 ] || die "Packing the sample for build $1 ended with status $status; the findings are in $log."
  printf '\nBuild %s: %s\n\n' "$1" "$2"
  "$bin/gamedb-dump" --summary "$2"
}

# What came (+), went (-) or changed its type (~) between two packs.
show_differences() {
  printf '\nFrom build %s to build %s\n\n' "$1" "$3"
  LC_ALL=C join -a 1 -a 2 -e . -o 0,1.2,2.2 \
    <("$bin/gamedb-dump" --attributes "$2") <("$bin/gamedb-dump" --attributes "$4") |
    awk '$2 == "."  { printf "  + %-36s %s\n", $1, $3; next }
         $3 == "."  { printf "  - %-36s %s\n", $1, $2; next }
         $2 != $3   { printf "  ~ %-36s %s -> %s\n", $1, $2, $3 }'
}

if [ -n "$only" ]; then
  pack "$only" "$game/Outpost.Gamdb00p"
  exit 0
fi
before_build=$game_build
before=$game/Outpost.Gamdb00p
differences=
pack "$game_build" "$before"
for number in "${later_builds[@]}"; do
  packed=$game/Outpost.build$number.Gamdb00p
  pack "$number" "$packed"
  differences+=$(show_differences "$before_build" "$before" "$number" "$packed")$'\n'
  before_build=$number
  before=$packed
done
printf '%s' "$differences"
