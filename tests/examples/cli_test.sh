#!/usr/bin/env bash
# cli_test.sh CASE PROGRAM PLUGINS DATA TESTS: runs one case of oxa-graph's command line. Below TESTS
# are folders of careless plug-ins.
set -u
case_name=$1 program=$2 plugins=$3 data=$4 tests=$5
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

# add_plugins FOLDER: has the program run with the plug-ins of a folder below TESTS as well.
add_plugins() {
  mkdir mixed
  cp "$plugins"/*.so "$tests/$1"/*.so mixed
  plugins=mixed
}

# Expects that nothing was computed before the program gave up.
computed_nothing() { ! grep -q computing err || fail "computed in vain"; }

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

list_of_record_types() {
  graph 0 --list
  [ ! -s err ] || fail "errors"
  grep -qE '^RECORD TYPE +KIND +MEMBER +DATA TYPE +RANGE +DEFAULT +MEANING$' out || fail "no head"
  grep -qE '^edge_list_reader::edge +edge +source +string +- +- +label of one end' out || fail "no edge"
  grep -qE '^ +weight +double +0 or more +1 +how strong' out || fail "no weight"
  grep -qE '^ +place +force_layout::point +- +- +where' out || fail "no place"
  [ "$(awk '/^RECORD TYPE/ {print index($0, "DATA TYPE")}' out)" = \
    "$(awk '/^ +theme/ {print index($0, "enum")}' out)" ] || fail "columns do not line up"
  local types
  types=$(grep -o '^[a-z_]*::[a-z]*' out)
  [ "$types" = "$(LC_ALL=C sort <<< "$types")" ] || fail "not in order"
}

draws_the_data_set() {
  "$program" --plugins "$plugins" "$data" les.svg > out 2> err || fail "exit code $?"
  shows "77 nodes, 254 edges"
  grep -qE '^pagerank +Valjean 0\.0' out || fail "Valjean does not lead"
  grep -qE '^community +6 groups of ' out || fail "communities"
  shows "drawn to les.svg"
  shows "8 record types, shown by --list"
  ! grep -q "RECORD TYPE" out || fail "the members fill the page"
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

short_forms() {
  "$program" -h > out 2> err || fail "exit code $?"
  shows "-h, --help"
  "$program" --plugins "$plugins" -q small.txt a.svg > out 2> err || fail "exit code $?"
  [ ! -s out ] && [ ! -s err ] || fail "not silent"
  graph 2 -x
  says 'there is no option "-x"; see oxa-graph --help'
}

unknown_names() {
  local known="betweenness, closeness, community, component, degree, eigenvector, pagerank, strength"
  graph 2 --algorithms degree,pagernk small.txt a.svg
  says "there is no algorithm \"pagernk\"; use one of $known (perhaps \"pagerank\")"
  graph 2 --size-by xyzzy small.txt a.svg
  says "there is no algorithm \"xyzzy\"; use one of $known"
  graph 2 --layout round small.txt a.svg
  says 'there is no layout "round"; use one of circle, force'
  only_files ""
}

unfit_columns() {
  "$program" --plugins "$plugins" --size-by community small.txt a.svg > out 2> err
  [ $? -eq 2 ] || fail "exit code"
  shows 'oxa-graph: the option --size-by cannot show "community", whose values are no quantities; name an algorithm that measures' err
  [ "$(grep -c computing err)" -eq 1 ] || fail "computed in vain"
  only_files ""
  add_plugins graph_careless_work
  graph 2 --color-by place small.txt a.svg
  says 'the option --color-by cannot show "place", whose values are neither quantities nor groups; name another algorithm'
  only_files "$(find mixed | sed 's,^,./,' | sort | tr '\n' ' ')"
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

extensions_in_any_case() {
  cp small.txt small.TXT
  graph 0 small.TXT a.SVG
  shows "</svg>" a.SVG
}

output_folder_missing() {
  graph 1 small.txt none/a.svg
  says 'cannot write "none/a.svg": No such file or directory; check the path'
  "$program" --plugins "$plugins" small.txt none/a.svg > out 2> err
  computed_nothing
}

output_folder_read_only() {
  as_anybody
  mkdir locked
  chmod 555 locked
  ${runner-} "$program" --plugins "$plugins" small.txt locked/a.svg > out 2> err
  [ $? -eq 1 ] || fail "exit code"
  says 'cannot write "locked/a.svg": Permission denied; check its permissions'
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
  says 'skipped the plug-in "mixed/broken.so": it is no complete shared object, or fails as it is opened; remove or rebuild the file'
  shows "</svg>" a.svg
}

plugins_that_cannot_be_opened() {
  mkdir mixed
  cp "$plugins"/*.so mixed
  ln -s nowhere mixed/dangling.so
  plugins=mixed
  graph 0 small.txt a.svg
  says 'skipped the plug-in "mixed/dangling.so": cannot open shared object file: No such file or directory; remove or rebuild the file'
}

careless_texts() {
  add_plugins graph_careless_texts
  graph 0 small.txt a.svg
  shows "</svg>" a.svg
  says 'skipped the plug-in "mixed/careless_endless.so": GetExtensions of its writer returns null; remove the file or ask its author
oxa-graph: skipped the plug-in "mixed/careless_nameless.so": GetName of its algorithm returns null; remove the file or ask its author
oxa-graph: skipped the plug-in "mixed/careless_shouting.so": GetName of its reader lets an exception out ("no name today"); remove the file or ask its author
oxa-graph: skipped the plug-in "mixed/careless_undescribed.so": GetDescription of its layout returns null; remove the file or ask its author'
  graph 0 --list
  ! grep -q careless out || fail "a skipped plug-in is listed"
}

# Has the program run with the plug-ins, but without their record types, which stay in $built.
without_record_types() {
  built=$plugins
  mkdir mixed
  cp "$plugins"/*.so mixed
  plugins=mixed
}

bad_record_types() {
  without_record_types
  echo '<extension type="data" plugin="p"><data_type></extension>' > mixed/a.xml
  echo '<graphml/>' > mixed/b.xml
  mkdir mixed/c.xml
  echo '<extension type="data" plugin="p"><data_type name="t" type="s"/></extension>' > mixed/d.xml
  graph 0 small.txt a.svg
  shows "</svg>" a.svg
  says 'skipped the record types in "mixed/a.xml": the library says "Badly formed XML file; parsing confused! (extension)"; correct or remove the file
oxa-graph: skipped the record types in "mixed/b.xml": the library says "Unrecognized XML format - not an extension file!"; correct or remove the file
oxa-graph: skipped the record types in "mixed/c.xml": it holds no element; correct or remove the file'
  graph 0 --list
  grep -qE '^p::t +s +-$' out || fail "the good file is not read"
}

unreadable_record_types() {
  without_record_types
  as_anybody
  cp "$data" mixed/a.xml
  chmod 0 mixed/a.xml
  graph 0 small.txt a.svg
  shows "</svg>" a.svg
  says 'skipped the record types in "mixed/a.xml": file cannot be opened for reading; check or remove the file'
}

unknown_record_types() {
  without_record_types
  cp "$built/svg_writer.xml" mixed
  graph 0 --list
  grep -qE '^ +place +unknown force_layout::point ' out || fail "not marked"
}

no_record_types() {
  without_record_types
  graph 0 --list
  ! grep -qi "record type" out || fail "record types"
  "$program" --plugins "$plugins" small.txt a.svg > out 2> err || fail "exit code $?"
  ! grep -qi "record type" out || fail "record types"
}

# careless WHAT SENTENCE ARGUMENT...: expects "cannot WHAT: the plug-in SENTENCE".
careless() {
  local sentence="cannot $1: the plug-in \"Careless work 1.0\" in careless_work.so $2; ask its author"
  shift 2
  graph 1 "$@"
  says "$sentence"
}

careless_work() {
  add_plugins graph_careless_work
  echo old > a.svg
  cp small.txt small.boom
  careless "compute boom" 'lets an exception out ("boo")' --algorithms boom small.txt a.svg
  careless "compute wordless" "lets an exception out" --algorithms wordless small.txt a.svg
  careless "compute silent" 'gives no reason but "internal inconsistency"' --algorithms silent small.txt a.svg
  careless "compute astronomic" 'gives no reason but "invalid argument"' --algorithms astronomic small.txt a.svg
  careless "compute idle" 'reports success but makes no column "idle"' --algorithms idle small.txt a.svg
  careless "make the layout boom" 'lets an exception out ("boo")' --layout boom small.txt a.svg
  careless "make the layout flat" 'reports success but makes no column "y"' --layout flat small.txt a.svg
  careless 'read "small.boom"' 'lets an exception out ("boo")' small.boom a.svg
  careless 'write "a.boom"' 'lets an exception out ("boo")' small.txt a.boom
  [ "$(cat a.svg)" = old ] || fail "the old file is gone"
  [ ! -e a.boom ] || fail "a failed writer leaves a file"
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
  graph 2 --size-by community small.txt a.svg
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

summary_of_small_graphs() {
  : > empty.txt
  "$program" --plugins "$plugins" empty.txt a.svg > out 2> err || fail "exit code $?"
  shows "empty.txt: 0 nodes, 0 edges"
  grep -qE '^community +no groups$' out || fail "groups of no nodes"
  grep -qE '^degree +no values$' out || fail "values of no nodes"
  echo 'a a' > one.txt
  "$program" --plugins "$plugins" one.txt a.svg > out 2> err || fail "exit code $?"
  shows "one.txt: 1 node, 1 edge"
  grep -qE '^community +1 group of 1 node$' out || fail "groups of one node"
}

"$case_name"
