# What the scripts share: the tree's top, the packages that a command needs, and the build of one preset.
# Sourced, not run.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

build_packages=(
  g++ cmake ninja-build ccache mold pkg-config
  libicu-dev uuid-dev libglib2.0-dev libflatbuffers-dev flatbuffers-compiler
  libgtest-dev libgmock-dev libbenchmark-dev gettext zlib1g-dev
  qt6-base-dev qt6-svg-dev qt6-multimedia-dev libgl-dev fonts-dejavu-core dbus-daemon
  gstreamer1.0-plugins-base gstreamer1.0-plugins-good
)
extended_packages=(clang-14 clang-tidy-14 clang-format-14 libclang-rt-14-dev strace)

say() { printf '%s\n' "$*" >&2; }

die() {
  say "$*"
  exit 1
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    die "This step needs root: run it as root, or install sudo. The step was: $*"
  fi
}

# Installs those of the named packages that are missing; asks the package system nothing when none is.
install_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  say "Installing: ${missing[*]}"
  as_root apt-get update -q
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...]
build() {
  local preset=$1
  shift
  cmake --preset "$preset" >"build-$preset.log" 2>&1 || {
    cat "build-$preset.log" >&2
    rm -f "build-$preset.log"
    die "The $preset preset could not be configured."
  }
  rm -f "build-$preset.log"
  if [ $# -gt 0 ]; then
    cmake --build --preset "$preset" --target "$@"
  else
    cmake --build --preset "$preset"
  fi
}
