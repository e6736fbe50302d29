#!/usr/bin/env bash
# outline_test.sh CASE PROGRAM: runs one case of the example that prints the outline of an XML file.
set -u
case_name=$1 program=$2
source "$(dirname "$0")/small_program.sh"

tree() {
  cat > tree.xml <<'XML'
<?xml version="1.0"?>
<graph id="g" directed="">
  <node id="a"><label>to &amp; fro</label><mark/></node>
  <!-- left out -->
  <node id="b"/>
</graph>
XML
  run 0 tree.xml
  prints 'graph id=g directed=
  node id=a
    label: to & fro
    mark
  node id=b'
  [ ! -s err ] || fail "errors"
}

missing() {
  run 1 missing.xml
  says 'missing.xml: file cannot be opened for reading'
  prints ''
}

malformed() {
  printf '<a><b></a>' > malformed.xml
  run 1 malformed.xml
  ends_with 'malformed.xml: malformed'
  grep -q '^ERROR: Badly formed XML file' err || fail "no message of the parser"
  prints ''
}

empty() {
  printf '<!-- nothing -->' > empty.xml
  run 1 empty.xml
  says 'empty.xml: holds no element'
  prints ''
}

usage() {
  run 2
  run 2 one.xml two.xml
}

"$case_name"
