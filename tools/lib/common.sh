# What the scripts in tools/ share. Source it; it sets -euo pipefail and $root, the project's folder.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
jobs=${UNITLIB_JOBS:-$(nproc)}

# One compiler cache serves every checkout: paths count from the project's folder.
export CCACHE_BASEDIR=${CCACHE_BASEDIR:-$root} CCACHE_NOHASHDIR=${CCACHE_NOHASHDIR:-1}

say() { printf '\n== %s\n' "$*"; }

# as_root COMMAND...   runs it directly as root, with sudo otherwise
as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# need PACKAGE...   installs the Debian packages that are missing; asks the network for nothing when none is
need() {
  local missing=() package
  for package in "$@"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
  done
  [ ${#missing[@]} = 0 ] && return 0
  say "Installing ${missing[*]}"
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

build_packages=(g++ cmake ninja-build ccache pkg-config libpugixml-dev libpcre2-dev libboost-dev libcli11-dev
  libwxgtk3.2-dev libsqlite3-dev libgtest-dev libgmock-dev librapidcheck-dev python3)
# Measuring: the frameworks, and the libraries and programs measured beside ours.
bench_packages=(libbenchmark-dev valgrind locales util-linux)
peer_packages=(libfmt-dev libicu-dev libmuparser-dev libqalculate-dev libudunits2-dev)
test_packages=(python3-pytest xvfb xauth x11-utils xdotool imagemagick locales libx11-dev libxtst-dev fonts-dejavu-core fonts-wqy-microhei
  zsh mandoc) # zsh and mandoc: the completion and the man page of unitctl are tested with them

# configure PRESET [CMAKE_ARGUMENT...]   into build/PRESET
configure() {
  local preset=$1; shift
  (cd "$root" && cmake --preset "$preset" -DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache "$@" >"/tmp/unitlib-configure-$$.log" 2>&1) ||
    { cat "/tmp/unitlib-configure-$$.log"; rm -f "/tmp/unitlib-configure-$$.log"; return 1; }
  rm -f "/tmp/unitlib-configure-$$.log"
}

# build PRESET [TARGET...]
build() {
  local preset=$1; shift
  cmake --build "$root/build/$preset" -j "$jobs" ${1:+--target "$@"}
}

# run_tests PRESET [CTEST_ARGUMENT...]   twice as many at a time as there are processors: tests of windows mostly wait
run_tests() {
  local preset=$1; shift
  ctest --test-dir "$root/build/$preset" --output-on-failure -j "$((jobs * 2))" "$@"
}
