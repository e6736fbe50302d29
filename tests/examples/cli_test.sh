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
  shows "Exit codes: 0 done; 1 failed; 2 the command line makes no sense; 3 done, and"
  shows "A GraphML file keeps values of nodes, edges and the graph as well; as OUTPUT it"
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
    "$(awk '/^writers.*svg_writer/ {print index($0, "svg_writer.so")}' out)" ] || fail "columns do not line up"
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
  says 'the option --theme cannot be "pink"; use one of auto, light, dark'
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
  says "the option --size-by cannot be \"xyzzy\"; use one of none, $known"
  graph 2 --layout round small.txt a.svg
  says 'the option --layout cannot be "round"; use one of circle, force'
  only_files ""
}

usual_algorithms_may_be_missing() {
  mkdir some
  cp "$plugins"/{edge_list_reader,components,force_layout,svg_writer}.so some
  plugins=some
  graph 0 small.txt a.svg
  graph 2 --algorithms degree,community small.txt a.svg
  says 'there is no algorithm "degree"; use one of component'
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
  says 'cannot read "small.xyz": no plug-in knows ".xyz"; use a name that ends in .txt or .edges or .edgelist or .graphml'
  graph 2 small.txt picture
  says 'cannot write "picture": its name has no extension; use a name that ends in .graphml or .svg'
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

# The lines that --settings shows of the setting $1.
lines_of() { grep -F -A 2 "  $1=" out; }

settings() {
  graph 0 --settings --theme dark --set checks::most-rows=7
  [ ! -s err ] || fail "errors"
  [ "$(lines_of picture::theme)" = '  picture::theme=dark
      theme: colours of the page; auto follows the viewer
      enum: auto, light, dark (default: auto)' ] || fail "theme"
  lines_of checks::most-rows | grep -qF 'int: from 1 to 1000000 (default: 20)' || fail "range"
  shows '  checks::most-rows=7'
  shows "  plugins::folder=$plugins"
  lines_of layout::name | grep -qF 'enum: circle, force (default: force)' || fail "layouts"
  [ "$(grep -E '^[A-Z]' out | tr '\n' ' ')" = "Algorithms Layout Picture Plug-ins Checks " ] ||
    fail "groups"
}

settings_of_plugins() {
  add_plugins graph_reporting
  graph 0 --settings --set force_layout::rounds=7
  shows '  force_layout::rounds=7'
  lines_of force_layout::rounds | grep -qF 'int: from 0 to 100000 (default: 500)' || fail "range"
  [ "$(lines_of reporting::plain)" = '  reporting::plain=some
      plain
      string' ] || fail "plain"
  ! grep -q hidden out || fail "a setting that is not to be shown"
}

# Each option and its setting do the same.
set_and_short_forms() {
  local option path value
  while read -r option path value; do
    graph 0 "--$option" "$value" small.txt a.svg
    graph 0 --set "$path=$value" small.txt b.svg
    graph 0 --set "$path=" small.txt c.svg
    cmp -s a.svg b.svg || fail "--$option and $path differ"
    ! cmp -s a.svg c.svg || fail "--$option changes nothing"
  done <<< 'theme picture::theme dark
title picture::title Anything
size-by picture::size-by none
color-by picture::color-by closeness
layout layout::name circle
algorithms algorithms::names degree'
  graph 1 --set plugins::folder="$work/none" small.txt a.svg
  graph 0 --set plugins::folder="$work/none" --plugins "$plugins" small.txt a.svg
}

bad_settings() {
  graph 2 --set picture::them=dark small.txt a.svg
  says 'there is no setting "picture::them" (perhaps picture::theme); see oxa-graph --settings'
  graph 2 --set force_layout::round=7 small.txt a.svg
  says 'there is no setting "force_layout::round" (perhaps force_layout::rounds); see oxa-graph --settings'
  graph 2 --set picture::theme=drak small.txt a.svg
  says 'the setting picture::theme cannot be "drak"; use one of auto, light, dark (perhaps "dark")'
  graph 2 --set checks::most-rows=0 --check small.txt
  says 'the setting checks::most-rows cannot be "0"; use a whole number from 1 to 1000000'
  graph 2 --set force_layout::rounds=1e3 small.txt a.svg
  says 'the setting force_layout::rounds cannot be "1e3"; use a whole number from 0 to 100000'
  graph 2 --set centralities::damping=1 small.txt a.svg
  says 'the setting centralities::damping cannot be "1"; use a number from 0.01 to 0.99'
  graph 2 --set checks::self-loops=no --check small.txt
  says 'the setting checks::self-loops cannot be "no"; use true or false'
  graph 2 --set theme=dark small.txt a.svg
  says 'the option --set takes NAMESPACE::NAME=VALUE, not "theme=dark"; see oxa-graph --settings'
  graph 2 --set picture::theme small.txt a.svg
  says 'the option --set takes NAMESPACE::NAME=VALUE, not "picture::theme"; see oxa-graph --settings'
  graph 2 small.txt a.svg --set
  says 'the option --set has no value; give one behind it'
  graph 2 --set picture::size-by=community small.txt a.svg
  says 'the setting picture::size-by cannot show "community", whose values are no quantities; name an algorithm that measures'
  only_files ""
}

settings_of_plugins_are_used() {
  graph 0 "$data" a.svg
  graph 0 --set force_layout::rounds=3 "$data" b.svg
  ! cmp -s a.svg b.svg || fail "the rounds change nothing"
}

check() {
  printf 'a b\nb a\nÄpfel Äpfel\n' > odd.txt
  "$program" --plugins "$plugins" --check odd.txt > out 2> err
  [ $? -eq 3 ] || fail "exit code"
  [ "$(cat out)" = 'CATEGORY        SEVERITY  FINDING        WHERE  COUNT
self loops      warning   self loop      Äpfel  1
parallel edges  warning   parallel edge  a - b  2
isolated nodes  note      isolated node  Äpfel  -

self loop      an edge from a node to itself
parallel edge  one of several edges that join the same two nodes
isolated node  a node that no edge joins to another one

odd.txt: 3 nodes, 3 edges; 1 self loop, 2 parallel edges, 1 isolated node' ] || fail "table"
  only_files "./odd.txt "
}

check_values_out_of_range() {
  cat > ages.graphml << 'END'
<graphml xmlns="http://graphml.graphdrawing.org/xmlns" xmlns:oxa="urn:oxa-graph:1">
  <key id="d0" for="node" attr.name="age" attr.type="int" oxa:min="0" oxa:max="120"/>
  <graph edgedefault="undirected">
    <node id="Ann"><data key="d0">121</data></node>
    <node id="Bob"><data key="d0">120</data></node>
    <edge source="Ann" target="Bob"/>
  </graph>
</graphml>
END
  "$program" --plugins "$plugins" --check ages.graphml > out 2> err
  [ $? -eq 3 ] || fail "exit code"
  [ "$(head -n 2 out)" = 'CATEGORY             SEVERITY  FINDING             WHERE     VALUE
values out of range  warning   out-of-range value  Ann: age  121' ] || fail "table"
}

check_finds_nothing() {
  "$program" --plugins "$plugins" --check small.txt > out 2> err || fail "exit code $?"
  [ "$(cat out)" = "small.txt: 3 nodes, 2 edges; no findings" ] || fail "output"
  echo 'a a' > loop.txt
  graph 0 --check --set checks::least-severity=error loop.txt
  graph 0 --check --set checks::self-loops=false --set checks::isolated-nodes=false loop.txt
  graph 3 --check --set checks::least-severity=warning loop.txt
}

check_says_little_when_quiet() {
  echo 'a a' > loop.txt
  graph 3 --check loop.txt
  [ ! -s out ] && [ ! -s err ] || fail "not silent"
}

check_errors() {
  graph 2 --check
  says 'the name of the input file is missing; give INPUT, or see oxa-graph --help'
  graph 2 --check small.txt a.svg
  says 'the argument "a.svg" is one too many; quote names with blanks, and give no output with --check'
  graph 1 --check none.txt
  says 'cannot read "none.txt": No such file or directory; check the path'
  graph 2 --check small.xyz
  shows 'cannot read "small.xyz": no plug-in knows ".xyz"; use a name that ends in ' err
  graph 2 --check --algorithms xyzzyxyzzy small.txt
  "$program" --plugins "$plugins" --check small.txt > /dev/full 2> err
  [ $? -eq 1 ] || fail "exit code"
  shows 'oxa-graph: cannot write to standard output; check where it leads' err
}

modes() {
  graph 2 --list --check small.txt
  says 'the options --list and --check do not go together; give one of them'
  graph 2 --settings small.txt
  says 'the argument "small.txt" is one too many; quote names with blanks, and give no files with --settings'
  graph 2 --list small.txt
  says 'the argument "small.txt" is one too many; quote names with blanks, and give no files with --list'
}

summary_of_findings() {
  printf 'a a\nb b\nb c\n' > loops.txt
  "$program" --plugins "$plugins" loops.txt a.svg > out 2> err || fail "exit code $?"
  grep -qFx '2 self loops, 1 isolated node; oxa-graph --check shows them' out || fail "no summary"
  shows "oxa-graph: checking loops.txt" err
  "$program" --plugins "$plugins" small.txt a.svg > out 2> err || fail "exit code $?"
  ! grep -q -- --check out || fail "findings in a sound graph"
}

findings_of_plugins() {
  add_plugins graph_reporting
  "$program" --plugins "$plugins" --algorithms reporting small.txt a.svg > out 2> err ||
    fail "exit code $?"
  grep -qFx '1 odd thing; oxa-graph --check shows them' out || fail "no summary"
  graph 0 --check small.txt
  "$program" --plugins "$plugins" --check --algorithms reporting small.txt > out 2> err
  [ $? -eq 3 ] || fail "exit code"
  grep -qE '^reports +error +odd thing +here +0.5$' out || fail "no row"
}

"$case_name"
