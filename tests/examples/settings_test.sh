#!/usr/bin/env bash
# settings_test.sh CASE PROGRAM FOLDER: runs one case of the example that offers settings; FOLDER is
# the example's.
set -u
case_name=$1 program=$2 folder=$3
source "$(dirname "$0")/small_program.sh"

listed() {
  run 0 drawing::edges=curve
  diff "$folder/settings.txt" out || fail "other settings"
  says ''
}

takes() {
  run 0 layout::force::rounds=10000 drawing::width=2.5e1
  grep -qx 'drawing::width = 25 (double, 0 to 100)' out || fail "no width"
  grep -q '^layout::force::rounds = 10000 ' out || fail "no rounds"
}

# refuses ARGUMENT: the program sets nothing for it, and says so.
refuses() {
  run 1 "$1"
  says "$1: $2"
  prints ''
}

refused() {
  for value in 0 10001 7x 1e3 1.5 abc 99999999999999999999 ' '; do
    refuses "layout::force::rounds=$value" 'invalid argument'
  done
  refuses drawing::width=-1 'invalid argument'
  refuses drawing::edges=zigzag 'invalid argument'
  refuses drawing::edges= 'invalid argument'
}

unknown() {
  refuses drawing::color=red 'not found'
  refuses edges=line 'not found'
  refuses drawing::edges 'invalid argument'
}

"$case_name"
