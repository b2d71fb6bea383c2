#!/usr/bin/env bash
# From a fresh clone to a packed database: installs what is missing, builds, packs the sample game through the
# default creator library and prints what was packed. Usage: scripts/pack-sample.sh [--build N]
source "$(dirname "$0")/common.sh"

number=()
case "${1:-}" in
  "") ;;
  --build) number=(-BuildNumber "${2:?--build takes a number}") ;;
  *) die "Usage: scripts/pack-sample.sh [--build N]" ;;
esac

install_packages "${build_packages[@]}"
build release corvane CorvaneCreator gamedb-dump Outpost outpost-postbuild >&2

root=$PWD/samples/outpost/Database/Outpost.Gamdb00s
packed=$PWD/samples/outpost/Game/Outpost.Gamdb00p
log=$PWD/build/release/outpost-validation.log
status=0
build/release/bin/corvane -Pack "${number[@]}" -Log "$log" "$root" </dev/null || status=$?
[ "$status" -eq 0 ] || die "Packing the sample ended with status $status; the findings are in $log."
say "Packed $packed"
build/release/bin/gamedb-dump --summary "$packed"
