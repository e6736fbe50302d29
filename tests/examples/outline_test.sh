#!/usr/bin/env bash
# outline_test.sh CASE PROGRAM: runs one case of the example that prints the outline of an XML file.
set -u
case_name=$1 program=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1

fail() {
  echo "FAILED: $*" >&2
  echo "--- output"; cat out
  echo "--- errors"; cat err
  exit 1
}

# outline EXIT_CODE ARGUMENT...: runs the program and expects the exit code.
outline() {
  local expected=$1
  shift
  "$program" "$@" > out 2> err
  local code=$?
  [ $code -eq "$expected" ] || fail "exit code $code instead of $expected: $*"
}

# Expect all that stands on standard output, and the last line on standard error.
prints() { [ "$(cat out)" = "$1" ] || fail "expected: $1"; }
says() { [ "$(tail -n 1 err)" = "$1" ] || fail "expected: $1"; }

tree() {
  cat > tree.xml <<'XML'
<?xml version="1.0"?>
<graph id="g" directed="">
  <node id="a"><label>to &amp; fro</label><mark/></node>
  <!-- left out -->
  <node id="b"/>
</graph>
XML
  outline 0 tree.xml
  prints 'graph id=g directed=
  node id=a
    label: to & fro
    mark
  node id=b'
  [ ! -s err ] || fail "errors"
}

missing() {
  outline 1 missing.xml
  says 'missing.xml: file cannot be opened for reading'
  prints ''
}

malformed() {
  printf '<a><b></a>' > malformed.xml
  outline 1 malformed.xml
  says 'malformed.xml: malformed'
  grep -q '^ERROR: Badly formed XML file' err || fail "no message of the parser"
  prints ''
}

empty() {
  printf '<!-- nothing -->' > empty.xml
  outline 1 empty.xml
  says 'empty.xml: holds no element'
  prints ''
}

usage() {
  outline 2
  outline 2 one.xml two.xml
}

"$case_name"
