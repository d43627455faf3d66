# Shared by ./run, ./test and .ci/run: installs what is missing and builds. To be sourced from the project's root.

say() { printf '\n== %s\n' "$*"; }

# Packages of Debian 12 that building and testing need.
build_packages=(g++ cmake ninja-build ccache libfmt-dev libcli11-dev nlohmann-json3-dev)
test_packages=(libgtest-dev mdbtools)

install_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  say "Installing ${missing[*]}"
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "These packages are missing, and only root can install them: ${missing[*]}" >&2; return 1; }
    as_root=(sudo)
  fi
  "${as_root[@]}" apt-get update -q
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"
}

# build PRESET [CMAKE-OPTION...] -- [TARGET...]
build() {
  local preset=$1 options=()
  shift
  while [ $# -gt 0 ] && [ "$1" != -- ]; do options+=("$1"); shift; done
  [ $# -gt 0 ] && shift
  say "Building ($preset)"
  cmake --preset "$preset" "${options[@]}" >"build-$preset.log" 2>&1 || { cat "build-$preset.log"; rm -f "build-$preset.log"; return 1; }
  rm -f "build-$preset.log"
  cmake --build "build/$preset" --target "${@:-all}"
}
