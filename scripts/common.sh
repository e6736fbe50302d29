# shellcheck shell=bash
# What the scripts share; sourced by them. Leaves the caller at the root of the tree.
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit

fail() {
  echo "${0##*/}: $1" >&2
  exit 1
}

# Runs a command, and shows what it wrote only if it fails: quietly LOG COMMAND...
quietly() {
  local log=$1
  shift
  mkdir -p "$(dirname "$log")"
  "$@" >"$log" 2>&1 || { cat "$log" >&2 && return 1; }
}

# Configures and builds a preset.
build() {
  quietly "build/log/$1-configure.txt" cmake --preset "$1" &&
    quietly "build/log/$1-build.txt" cmake --build --preset "$1" -- --quiet -k 0
}

# Lists the C++ files of the tree.
cpp_files() {
  find . \( -path ./build -o -path ./.git \) -prune -o -name '*.h' -print0 -o -name '*.cpp' -print0
}
