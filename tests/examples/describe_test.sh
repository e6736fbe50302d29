#!/usr/bin/env bash
# describe_test.sh CASE PROGRAM FOLDER: runs one case of the example that prints the types of an
# extension file; FOLDER is the example's.
set -u
case_name=$1 program=$2 folder=$3
source "$(dirname "$0")/small_program.sh"

streets() {
  run 0 "$folder/streets.xml"
  diff "$folder/streets.txt" out || fail "other types"
  says ''
}

unknown_type() {
  echo '<extension type="data" plugin="p"><data_type name="t" type="s"><member name="m"
    type="point"/></data_type></extension>' > unknown.xml
  run 0 unknown.xml
  prints 'p::t, s
  m: of unknown type, 0 to 1, default "0"'
}

missing() {
  run 1 missing.xml
  says 'missing.xml: file cannot be opened for reading'
}

other_root() {
  echo '<graph/>' > graph.xml
  run 1 graph.xml
  says 'ERROR: Unrecognized XML format - not an extension file!
graph.xml: malformed or unusable data'
}

usage() {
  run 2
  run 2 one.xml two.xml
}

"$case_name"
