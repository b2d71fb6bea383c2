#!/usr/bin/env bash
# Installs the build into a scratch directory and uses what lies there: the programs find their modules, each
# header compiles alone, and the manual pages format cleanly and know every sub-command.
# Usage: install-test.sh TREE BUILD CMAKE COMPILER
set -euo pipefail
tree=$1 build=$2 cmake=$3 compiler=$4
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export XDG_CONFIG_HOME=$scratch/config XDG_STATE_HOME=$scratch/state
"$cmake" --install "$build" --prefix "$scratch/corvane" >"$scratch/log" || { cat "$scratch/log"; exit 1; }

# The sample's locator names the creator library by a path that is not there; the installed one is found.
cp -r "$tree/samples/outpost" "$scratch/outpost"
"$scratch/corvane/bin/corvane" -Silent -Pack -Output "$scratch/out.Gamdb00p" \
  "$scratch/outpost/Database/Outpost.Gamdb00s"
"$scratch/corvane/bin/gamedb-dump" --summary "$scratch/out.Gamdb00p" >"$scratch/summary"

# The windows and the player of sounds lie where the program looks for them.
told=$(QT_QPA_PLATFORM=none-such "$scratch/corvane/bin/corvane" 2>&1) || true
case $told in *"platform plugin"*) ;; *) echo "$told"; exit 1 ;; esac
[ -x "$scratch/corvane/lib/corvane/corvane-sound" ] || { echo "There is no player of sounds."; exit 1; }

for header in "$scratch/corvane/include/corvane"/*.h; do
  "$compiler" -std=c++20 -fsyntax-only -I "$scratch/corvane/include/corvane" -x c++ "$header" -w
done

pages=$scratch/corvane/share/man/man1
for page in "$pages"/*.1; do
  command -v groff >/dev/null || break
  warnings=$(groff -man -Tutf8 -ww -z "$page" 2>&1)
  [ -z "$warnings" ] || { echo "$warnings"; exit 1; }
done
"$scratch/corvane/bin/corvanectl" --help | sed -n 's/^  \([a-z]*\)  .*/\1/p' >"$scratch/commands"
[ "$(wc -l <"$scratch/commands")" -gt 5 ] || { echo "No commands in the help."; exit 1; }
while read -r command; do
  grep -q "^\.SS $command\$" "$pages/corvanectl.1" || { echo "corvanectl.1 does not know '$command'."; exit 1; }
done <"$scratch/commands"
