# SPDX-License-Identifier: MIT
# Shared by ./run, ./test and .ci/run: says what is done, installs packages, builds a preset.
# To be sourced from the top folder of the checkout.

say() { printf '== %s\n' "$*" >&2; }
fail() { printf '== %s\n' "$*" >&2; exit 1; }

build_packages=(g++ cmake ninja-build qt6-base-dev libqt6svg6 nlohmann-json3-dev libgtest-dev libgmock-dev libuchardet-dev python3)
emulator_packages=(fceux)
test_packages=(git util-linux dbus at-spi2-core python3-gi gir1.2-atspi-2.0 xvfb xdotool openbox imagemagick fceux 64tass dasm cc65)
check_packages=(clang clang-tidy clang-format libclang-rt-14-dev)

# install_emulator: installs an emulator to play the examples with when ./run is new here and no emulator for the
# NES is installed yet. Never fails, and never asks for a password of its own.
install_emulator() {
  local folder folders=() name=${emulator_packages[0]}
  [ ! -e out/release/bin/Kestrel ] && command -v apt-get >/dev/null || return 0
  IFS=: read -ra folders <<<"${XDG_DATA_HOME:-${HOME-}/.local/share}:${XDG_DATA_DIRS:-/usr/local/share:/usr/share}"
  for folder in "${folders[@]}"; do
    ! grep -qrs --include='*.desktop' application/x-nes-rom "$folder/applications" || return 0
  done
  [ "$(id -u)" -eq 0 ] || sudo -n true 2>/dev/null || return 0
  (install_packages emulator) || say "Going on without the emulator $name; Kestrel itself needs none."
}

# install_packages GROUP...: installs the Debian packages of these groups that are not there yet.
install_packages() {
  local group name missing=() wanted=()
  for group in "$@"; do
    local -n list=${group}_packages
    wanted+=("${list[@]}")
  done
  if ! command -v dpkg-query >/dev/null; then
    say "This is no Debian system, so nothing is installed. Needed are: ${wanted[*]}"
    return 0
  fi
  for name in "${wanted[@]}"; do
    dpkg-query -W -f '${db:Status-Status}\n' "$name" 2>/dev/null | grep -qx installed || missing+=("$name")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  say "Installing ${missing[*]}"
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null ||
      fail "Packages are missing. Run this as root: apt-get install ${missing[*]}"
    as_root=(sudo)
  fi
  local log
  log=$(mktemp)
  if ! { "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update &&
         "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
    tail -n 20 "$log" >&2
    fail "The packages could not be installed; the reason stands above (whole text in $log)."
  fi
  rm -f "$log"
}

# build_preset NAME [TARGET...]: configures and builds out/NAME, whole or only the targets named.
build_preset() {
  local log=out/$1-build.log preset=$1
  shift
  mkdir -p out
  say "Building the preset $preset in out/$preset"
  if ! { cmake --preset "$preset" && cmake --build --preset "$preset" ${1+--target "$@"}; } >"$log" 2>&1; then
    tail -n 60 "$log" >&2
    fail "The build failed; the reason stands above (whole text in $log)."
  fi
}
