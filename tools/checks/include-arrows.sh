#!/usr/bin/env bash
# Holds every quoted #include of the layers against tools/checks/arrows.txt. Tests, benchmarks and fuzzers may
# look anywhere and are left out. Prints each arrow that the table does not have; exit status 1 when there is one.
# Usage: tools/checks/include-arrows.sh [TREE]
set -euo pipefail
table=$(cd "$(dirname "$0")" && pwd)/arrows.txt
cd "${1:-$(dirname "$0")/../..}"

sources() {
  find sdk libs tools/shared tools/Corvane tools/corvanectl tools/zrc modules samples/outpost/src tests/support \
    -type d \( -name tests -o -name fuzz -o -name bench \) ! -path tests/support -prune -o \
    -type f \( -name '*.h' -o -name '*.cpp' \) -print 2>/dev/null | sort
}

sources | awk -v table="$table" '
  # The layer of a file: the longest folder of the table that it lies in.
  function layer(file,   folder, best) {
    if (file ~ /^tools\/Corvane\/types\/.*(View|Dlg|Dialog|FindPanel)\.(h|cpp)$/) return "tools/Corvane/types:views"
    best = ""
    for (folder in allowed)
      if (index(file, folder "/") == 1 && length(folder) > length(best)) best = folder
    return best
  }
  # The layers that see the UI toolkit.
  function shows(from) {
    return from ~ /^(tools\/shared\/controls|tools\/Corvane\/ui\/|tools\/Corvane\/types:views|tests\/support\/ui)/
  }
  BEGIN {
    while ((getline line < table) > 0) {
      if (line ~ /^#/ || line !~ /:/) continue
      end = match(line, /:( |$)/) # A layer may have a colon in its name.
      folder = substr(line, 1, end - 1)
      allowed[folder] = " " substr(line, end + 1) " "
    }
  }
  {
    files[++count] = $0
    name = $0
    sub(/.*\//, "", name)
    home[name] = home[name] " " layer($0)
  }
  END {
    if (count == 0) { print "There is no source to look at."; exit 1 }
    for (i = 1; i <= count; ++i) {
      from = layer(files[i])
      if (from == "") { print files[i] ": lies in no layer of the table"; bad = 1; continue }
      while ((getline line < files[i]) > 0) {
        if (!shows(from) && line ~ /^[ \t]*#[ \t]*include[ \t]*<Q[A-Z]/) { print files[i] ": the core includes no UI toolkit"; bad = 1 }
        if (line !~ /^[ \t]*#[ \t]*include[ \t]*"/) continue
        header = line
        sub(/^[^"]*"/, "", header); sub(/".*/, "", header); sub(/.*\//, "", header)
        if (!(header in home)) continue
        n = split(home[header], places, " ")
        ok = 0
        for (p = 1; p <= n; ++p)
          if (places[p] == from || index(allowed[from], " " places[p] " ")) ok = 1
        if (!ok) { print files[i] ": may not include \"" header "\" of" home[header]; bad = 1 }
      }
      close(files[i])
    }
    exit bad
  }'
