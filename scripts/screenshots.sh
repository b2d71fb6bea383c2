#!/usr/bin/env bash
# Renders the main window, a record's window and every dialog over the sample database, in both themes at 100 and
# 200 %, without a display. The pictures come to build/screenshots/<theme>-<scale>.
# Usage: scripts/screenshots.sh [DIRECTORY]
source "$(dirname "$0")/common.sh"

out=${1:-$PWD/build/screenshots}
install_packages "${build_packages[@]}"
build release corvane-screenshots CorvaneCreator GlossarRuntime Outpost outpost_strings >&2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
# A copy, so that nothing is written beside the sample.
cp -r samples/outpost "$scratch/Outpost"
export XDG_CONFIG_HOME=$scratch/config XDG_STATE_HOME=$scratch/state XDG_CACHE_HOME=$scratch/cache
export XDG_DATA_HOME=$scratch/data XDG_RUNTIME_DIR=$scratch QT_QPA_PLATFORM=offscreen

for theme in light dark; do
  for scale in 1 2; do
    pictures=$out/$theme-${scale}00
    mkdir -p "$pictures"
    rm -rf "$scratch/config"
    CORVANE_THEME=$theme QT_SCALE_FACTOR=$scale build/release/bin/corvane-screenshots \
      "$pictures" "$scratch/Outpost/Database/Outpost.Gamdb00s" 2> >(grep -v propagateSizeHints >&2)
    say "$(find "$pictures" -name '*.png' | wc -l) pictures in $pictures"
  done
done
