#!/usr/bin/env bash
# cli_test.sh CASE PROGRAM PLUGINS DATA: runs one case of oxa-graph's command line.
set -u
case_name=$1 program=$2 plugins=$3 data=$4
work=$(mktemp -d)
trap 'chmod -R u+rwx "$work"; rm -rf "$work"' EXIT
cd "$work" || exit 1
printf 'a b\nb c 2\n' > small.txt

fail() {
  echo "FAILED: $*" >&2
  echo "--- output"; cat out 2>/dev/null
  echo "--- errors"; cat err 2>/dev/null
  exit 1
}

# graph EXIT_CODE ARGUMENT...: runs the program, quietly, and expects the exit code.
graph() {
  local expected=$1
  shift
  ${runner-} "$program" --plugins "$plugins" --quiet "$@" > out 2> err
  local code=$?
  [ $code -eq "$expected" ] || fail "exit code $code instead of $expected: $*"
}

# says SENTENCE: expects it to be all that stands on standard error.
says() { [ "$(cat err)" = "oxa-graph: $1" ] || fail "expected: oxa-graph: $1"; }

shows() { grep -qF -- "$1" "${2:-out}" || fail "no \"$1\" in ${2:-out}"; }

# Expects no file but those named, besides what every case has.
only_files() {
  local found
  found=$(find . -mindepth 1 ! -name out ! -name err ! -name small.txt | sort | tr '\n' ' ')
  [ "$found" = "$1" ] || fail "files: $found, expected: $1"
}

# Has the program run without the right to open any file, which root has.
as_anybody() {
  [ "$(id -u)" -ne 0 ] || runner="setpriv --bounding-set -dac_override,-dac_read_search"
}

help() {
  graph 0 --help
  shows "Exit codes: 0 done; 1 failed; 2 the command line makes no sense; 130 stopped"
  [ ! -s err ] || fail "errors"
}

version() {
  graph 0 --version
  grep -qE '^oxa-graph [0-9]+\.[0-9]+\.[0-9]+$' out || fail "version"
}

list() {
  graph 0 --list
  grep -qE '^readers +IOXAFileReader +edge list +Edge lists 1.0 +edge_list_reader.so$' out ||
    fail "no reader"
  grep -qE '^algorithms +IOXAAlgorithm +strength +Strength 1.0 +strength.so$' out || fail "no strength"
  [ "$(awk 'NR == 1 {print index($0, "FILE")}' out)" = \
    "$(awk '/^writers/ {print index($0, "svg_writer.so")}' out)" ] || fail "columns do not line up"
}

draws_the_data_set() {
  "$program" --plugins "$plugins" "$data" les.svg > out 2> err || fail "exit code $?"
  shows "77 nodes, 254 edges"
  grep -qE '^pagerank +Valjean 0\.0' out || fail "Valjean does not lead"
  grep -qE '^community +6 groups of ' out || fail "communities"
  shows "drawn to les.svg"
  shows "oxa-graph: computing betweenness" err
  shows "</svg>" les.svg
  shows "Thénardier</text>" les.svg
  only_files "./les.svg "
}

themes() {
  graph 0 --theme dark small.txt a.svg
  ! grep -q prefers-color-scheme a.svg || fail "forced theme follows the viewer"
  graph 0 --theme auto small.txt a.svg
  shows prefers-color-scheme a.svg
}

quiet_is_silent() {
  graph 0 small.txt a.svg
  [ ! -s out ] && [ ! -s err ] || fail "not silent"
}

same_input_same_output() {
  graph 0 "$data" a.svg
  graph 0 "$data" b.svg
  cmp -s a.svg b.svg || fail "two runs differ"
}

usage_errors() {
  graph 2 --colour small.txt a.svg
  says 'there is no option "--colour"; see oxa-graph --help'
  graph 2 --themes small.txt a.svg
  says 'there is no option "--themes" (perhaps --theme); see oxa-graph --help'
  graph 2
  says 'the name of the input file is missing; give INPUT and OUTPUT, or see oxa-graph --help'
  graph 2 small.txt
  says 'the name of the output file is missing; give INPUT and OUTPUT, or see oxa-graph --help'
  graph 2 small.txt a.svg b.svg
  says 'the argument "b.svg" is one too many; quote names with blanks'
  graph 2 small.txt a.svg --title
  says 'the option --title has no value; give one behind it'
  graph 2 --list=x
  says 'the option --list takes no value; leave out "=x"'
  graph 2 --theme pink small.txt a.svg
  says 'there is no theme "pink"; use auto, light or dark'
  only_files ""
}

unknown_names() {
  local known="betweenness, closeness, community, component, degree, eigenvector, pagerank, strength"
  graph 2 --algorithms degree,pagernk small.txt a.svg
  says "there is no algorithm \"pagernk\"; use one of $known (perhaps \"pagerank\")"
  graph 2 --size-by xyzzy small.txt a.svg
  says "there is no algorithm \"xyzzy\"; use one of $known"
  graph 2 --layout round small.txt a.svg
  says 'there is no layout "round"; use one of circle, force'
  graph 1 --size-by community small.txt a.svg
  says 'cannot write "a.svg": sizes cannot show "community", whose values are no quantities; size by a measure'
  only_files ""
}

missing_input() {
  graph 1 none.txt a.svg
  says 'cannot read "none.txt": No such file or directory; check the path'
  only_files ""
}

folder_as_input() {
  mkdir folder.txt
  graph 1 folder.txt a.svg
  says 'cannot read "folder.txt": Is a directory; name a file'
}

unreadable_input() {
  as_anybody
  chmod 0 small.txt
  graph 1 small.txt a.svg
  says 'cannot read "small.txt": Permission denied; check its permissions'
}

malformed_input() {
  printf 'a b\n\nc\n' > bad.txt
  graph 1 bad.txt a.svg
  says 'cannot read "bad.txt": line 3 has one field where source and target are expected; write two labels separated by blanks'
  only_files "./bad.txt "
}

unknown_extensions() {
  cp small.txt small.xyz
  graph 2 small.xyz a.svg
  says 'cannot read "small.xyz": no plug-in knows ".xyz"; use a name that ends in .txt or .edges or .edgelist'
  graph 2 small.txt picture
  says 'cannot write "picture": its name has no extension; use a name that ends in .svg'
}

output_folder_missing() {
  graph 1 small.txt none/a.svg
  says 'cannot write "none/a.svg": No such file or directory; check the path'
}

output_is_a_folder() {
  mkdir a.svg
  graph 1 small.txt a.svg
  says 'cannot write "a.svg": Is a directory; name a file'
  only_files "./a.svg "
}

no_plugins() {
  plugins=$work/empty
  mkdir empty
  graph 1 small.txt a.svg
  says "there are no plug-ins in \"$work/empty\" that can be loaded; name their folder with --plugins"
  plugins=$work/none
  graph 1 small.txt a.svg
  says "cannot read the plug-in folder \"$work/none\": folder cannot be opened; name another one with --plugins"
}

broken_plugins() {
  mkdir mixed
  cp "$plugins"/*.so mixed
  echo "not a shared object" > mixed/broken.so
  plugins=mixed
  graph 0 small.txt a.svg
  says 'skipped the plug-in "mixed/broken.so": operating system or plug-in step failed; remove or rebuild the file'
  shows "</svg>" a.svg
}

full_device_keeps_nothing() {
  ln -s /dev/full full.svg
  graph 1 small.txt full.svg
  says 'cannot write "full.svg": No space left on device; make room or write elsewhere'
  [ -c /dev/full ] || fail "the device is gone"
  only_files "./full.svg "
}

full_disk_keeps_the_old_file() {
  echo old > a.svg
  (trap '' XFSZ; ulimit -f 8; graph 1 "$data" a.svg) || exit 1
  says 'cannot write "a.svg": File too large; make room or write elsewhere'
  [ "$(cat a.svg)" = old ] || fail "the old file is gone"
  only_files "./a.svg "
}

failure_keeps_the_old_file() {
  echo old > a.svg
  graph 1 --size-by community small.txt a.svg
  [ "$(cat a.svg)" = old ] || fail "the old file is gone"
  only_files "./a.svg "
}

links_are_followed() {
  mkdir there
  echo old > there/a.svg
  ln -s there/a.svg a.svg
  graph 0 small.txt a.svg
  [ -L a.svg ] || fail "the link is gone"
  shows "</svg>" there/a.svg
}

permissions_stay() {
  echo old > a.svg
  chmod 640 a.svg
  graph 0 small.txt a.svg
  [ "$(stat -c %a a.svg)" = 640 ] || fail "permissions changed"
  umask 027
  graph 0 small.txt b.svg
  [ "$(stat -c %a b.svg)" = 640 ] || fail "the umask is ignored"
}

full_standard_output() {
  "$program" --plugins "$plugins" --list > /dev/full 2> err
  [ $? -eq 1 ] || fail "exit code"
  says 'cannot write to standard output; check where it leads'
}

interrupt() {
  awk 'BEGIN { for (i = 0; i < 60000; ++i) print i, (i * 7919) % 59999 }' > large.txt
  echo old > a.svg
  for signal in INT TERM; do
    # A shell makes its background jobs ignore SIGINT; python3 or env would be one more need.
    (set -m; "$program" --plugins "$plugins" --algorithms betweenness large.txt a.svg > out 2> err &
      child=$!
      for _ in $(seq 200); do grep -q "computing" err && break; sleep 0.05; done
      sleep 0.3
      kill -$signal $child
      wait $child
      echo $? > code)
    [ "$(cat code)" = $([ $signal = INT ] && echo 130 || echo 143) ] || fail "code $(cat code)"
    shows "oxa-graph: stopped; nothing was written" err
    [ "$(cat a.svg)" = old ] || fail "the old file is gone"
  done
  only_files "./a.svg ./code ./large.txt "
}

odd_graphs() {
  : > empty.txt
  echo 'a a' > one.txt
  printf 'a b\na b\nc c\nd e 0\n' > odd.txt
  for name in empty one odd; do
    for layout in force circle; do
      graph 0 --layout $layout $name.txt $name.svg
      shows "</svg>" $name.svg
      ! grep -qiE '"-?(nan|inf)' $name.svg || fail "not a number in $name"
    done
  done
}

"$case_name"
