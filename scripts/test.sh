#!/usr/bin/env bash
# Installs what is missing, builds and runs every test with the address and undefined-behaviour sanitizers.
# --extended adds the same tests in the release build, the thread sanitizer over the workers, 100,000 random
# operations, Clang with its linter over what changed, and the fuzzers for a minute each.
source "$(dirname "$0")/common.sh"

extended=false
case "${1:-}" in
  "") ;;
  --extended) extended=true ;;
  *) die "Usage: scripts/test.sh [--extended]" ;;
esac

install_packages "${build_packages[@]}"

# run_tests PRESET [CTEST-ARGUMENT...]
run_tests() {
  local preset=$1
  shift
  ctest --test-dir "build/$preset" --output-on-failure -j "$(nproc)" --no-tests=error "$@"
}

build asan
run_tests asan

if $extended; then
  build release
  run_tests release
  build tsan compile_tests
  run_tests tsan -R 'Worker|PostBuild|DependencyOutput|OverrideOutput'
  build/asan/bin/operations-driver --count 100000 --seed "$(date +%Y%m%d)"
  install_packages "${extended_packages[@]}"
  build clang
  run_tests clang
  tools/checks/changed-tidy.sh
  tools/checks/fuzz.sh build/clang 60
fi
