#!/usr/bin/env bash
# Measures load and pack against plain reading of the same files, prints a table and writes bench/results.json.
# Arguments are handed to that benchmark; --help lists them. Without any, the waits of the windows are measured too.
source "$(dirname "$0")/common.sh"
install_packages "${build_packages[@]}"
build release corvane-bench corvane-ui-bench CorvaneCreator >&2
build/release/bin/corvane-bench --output bench/results.json "$@"
[ $# -gt 0 ] || build/release/bin/corvane-ui-bench
