# shellcheck shell=bash
# What the tests of small example programs share; sourced by them, with `program` set. Leaves the
# caller in an empty folder.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1

fail() {
  echo "FAILED: $*" >&2
  echo "--- output"; cat out
  echo "--- errors"; cat err
  exit 1
}

# run EXIT_CODE ARGUMENT...: runs the program and expects the exit code.
run() {
  local expected=$1
  shift
  "$program" "$@" > out 2> err
  local code=$?
  [ $code -eq "$expected" ] || fail "exit code $code instead of $expected: $*"
}

# Expect all that stands on standard output, all on standard error, and its last line.
prints() { [ "$(cat out)" = "$1" ] || fail "expected: $1"; }
says() { [ "$(cat err)" = "$1" ] || fail "expected: $1"; }
ends_with() { [ "$(tail -n 1 err)" = "$1" ] || fail "expected: $1"; }
