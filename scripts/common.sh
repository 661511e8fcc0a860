# Shared by run.sh, test.sh and bench.sh: Debian packages and the CMake build.
# shellcheck shell=bash

# Debian packages the build, the tests and the demo need. The README's dependency table says
# why each is there.
KORVANE_PACKAGES=(
  cmake ninja-build g++ ccache pkg-config
  qt6-base-dev libqt6sql6-sqlite libqt6sql6-psql libgl-dev qt6-webengine-dev
  libsndfile1-dev portaudio19-dev libsoxr-dev libebur128-dev libtwolame-dev
  libcdio-dev libcdio-paranoia-dev jackd2 libjack-jackd2-dev
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  clang libclang-rt-14-dev
  xvfb xauth
  postgresql
)

# Installs what is missing, and only that; apt-get update runs only when something is.
ensure_packages() {
  local missing=()
  for package in "${KORVANE_PACKAGES[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing: ${missing[*]}"
  local sudo=""
  [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

source "$(dirname "${BASH_SOURCE[0]}")/postgres.sh"

# ccache finds earlier compiles of the same sources even from another clone of the repo.
export CCACHE_BASEDIR="${CCACHE_BASEDIR:-$PWD}"
export CCACHE_NOHASHDIR=1

# configure_and_build BUILD_DIR BUILD_TYPE [cmake args...] -- [ninja targets...]
configure_and_build() {
  local dir=$1 type=$2
  shift 2
  local cmake_args=() targets=()
  while [ $# -gt 0 ] && [ "$1" != "--" ]; do cmake_args+=("$1"); shift; done
  [ "${1:-}" = "--" ] && shift
  targets=("$@")
  if [ ! -f "$dir/build.ninja" ]; then
    cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE="$type" "${cmake_args[@]}" >/dev/null
  fi
  ninja -C "$dir" "${targets[@]}"
}
