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

# The runtimes of sanitizers give up where the kernel randomizes more address bits than they know, so
# the layout is fixed; a container may forbid that.
fixed_layout=()
! setarch -R true 2>/dev/null || fixed_layout=(setarch -R)

# Names the fuzz targets.
fuzz_targets() {
  find fuzz -maxdepth 1 -name '*_fuzz.cpp' -printf '%f\n' | sed 's/_fuzz\.cpp$//' | sort
}

# Runs a target of the preset 'fuzz': run_fuzzer TARGET FOLDER OPTION... It starts from its seeds and
# from FOLDER/corpus/TARGET, which grows, and leaves inputs that fail as FOLDER/findings/TARGET-*.
run_fuzzer() {
  local target=$1 corpus=$2/corpus/$1 findings=$2/findings
  shift 2
  mkdir -p "$corpus" "$findings" build/log
  "${fixed_layout[@]}" "build/fuzz/bin/${target}_fuzz" -dict="fuzz/$target.dict" \
    -artifact_prefix="$findings/$target-" -print_final_stats=1 -timeout=10 "$@" \
    "$corpus" "fuzz/seeds/$target" >"build/log/fuzz-$target.txt" 2>&1
}

# Lists the inputs with which a target has failed: fuzz_findings TARGET FOLDER.
fuzz_findings() {
  find "$2/findings" -name "$1-*"
}

# Runs a command for each target, so many at a time, and leaves those for which it failed in the
# array 'lost': for_targets JOBS COMMAND TARGET...
for_targets() {
  local jobs=$1 command=$2 target
  local -A running=()
  shift 2
  lost=()
  for target in "$@"; do
    ((${#running[@]} < jobs)) || await_target
    "$command" "$target" &
    running[$!]=$target
  done
  while ((${#running[@]})); do
    await_target
  done
}

# Waits for one of those that for_targets has started.
await_target() {
  local finished
  wait -n -p finished "${!running[@]}" || lost+=("${running[$finished]}")
  unset "running[$finished]"
}

# Prints how often a target was called when it ran last.
fuzz_executions() {
  sed -n 's/^stat::number_of_executed_units: *//p' "build/log/fuzz-$1.txt" | grep . || echo 0
}
