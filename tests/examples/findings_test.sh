#!/usr/bin/env bash
# findings_test.sh CASE PROGRAM FOLDER: runs one case of the example that prints a table of
# findings; FOLDER is the example's.
set -u
case_name=$1 program=$2 folder=$3
source "$(dirname "$0")/small_program.sh"

found() {
  run 0 a-b b-c a-b c-c
  diff "$folder/findings.txt" out || fail "another table"
  says ''
}

several() {
  run 0 a-a b-b a-a
  prints 'Edge | Place | Severity | Diagnostics
edges
  of one node
    a-a | 1 | error | The edge joins a node with itself.
    b-b | 2 | error | The edge joins a node with itself.
    a-a | 3 | error | The edge joins a node with itself.'
}

nothing() {
  run 0 a-b b-c
  prints 'Edge | Place | Severity | Diagnostics
edges'
}

"$case_name"
