#!/usr/bin/env bash
# The include check passes on this tree and finds a planted arrow: a check that cannot fail checks nothing.
# Usage: include-arrows-test.sh TREE
set -euo pipefail
tree=$1
"$tree/tools/checks/include-arrows.sh" "$tree"

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -p "$scratch/sdk/inc" "$scratch/tools/shared/engine" "$scratch/tools/Corvane/model"
echo '#pragma once' >"$scratch/tools/Corvane/model/CorvaneMgr.h"
echo '#include "CorvaneMgr.h"' >"$scratch/tools/shared/engine/Path.cpp"
found=$("$tree/tools/checks/include-arrows.sh" "$scratch" && echo passed || true)
case "$found" in
  *'Path.cpp: may not include "CorvaneMgr.h"'*) ;;
  *) echo "A planted back arrow was not found: $found"; exit 1 ;;
esac
