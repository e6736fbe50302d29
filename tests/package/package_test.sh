#!/usr/bin/env bash
# The installed package as others meet it: package_test.sh CASE BUILD_DIRECTORY SOURCE_DIRECTORY LIBDIR
#
# The case "install" installs the build into a folder. Cases that need a package use that folder, and
# build copies of outside/ that lie outside the tree.
set -euo pipefail

case=$1
build=$2
source=$3
libdir=$4
installed=$build/tests/package/installed
prefix=$installed/all
here=$source/tests/package

fail() {
  echo "package_$case: $1" >&2
  exit 1
}

# Enters a copy of outside/ that is removed in the end.
enter_outside() {
  work=$(mktemp -d)
  trap 'rm -rf "$work"' EXIT
  cp -r "$here/outside/." "$work"
  cd "$work"
}

# Runs the host over ./plugins, compares what it prints, and looks at what the plug-in shows.
check_outside() {
  local shown
  shown=$(nm -D --defined-only plugins/outside.so | cut -d' ' -f2-)
  [[ $shown == "T OXACreatePluginInterface" ]] || fail "the plug-in shows: $shown"
  LD_LIBRARY_PATH=${1-} ./host plugins >printed.txt
  diff -u expected.txt printed.txt >&2 || fail "the host did not print what was expected."
}

# Runs a command that links a plug-in with an undefined symbol, which must fail for that reason.
refuses_incomplete() {
  ! LC_ALL=C "$@" >incomplete.txt 2>&1 || fail "a plug-in with an undefined symbol was linked."
  grep -q 'undefined reference to .function_that_nobody_defines' incomplete.txt ||
    { cat incomplete.txt >&2 && fail "the linker does not name the undefined symbol."; }
}

# Builds host and plug-in with the compiler $1, the arguments of both in "flags", and those of the
# plug-in's linking in "plugin_flags".
compile() {
  local strict=("$1" -std=c++17 -O2 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
  local shared=("${strict[@]}" -shared -fPIC -fvisibility=hidden)
  mkdir -p plugins
  "${strict[@]}" host.cpp "${flags[@]}" -o host
  cp outside.xml plugins
  "${shared[@]}" plugin.cpp "${flags[@]}" "${plugin_flags[@]}" -o plugins/outside.so
  refuses_incomplete "${shared[@]}" incomplete.cpp "${flags[@]}" "${plugin_flags[@]}" -o incomplete.so
}

test_install() {
  rm -rf "$installed"
  mkdir -p "$installed"
  local component
  for component in Runtime Development; do
    cmake --install "$build" --prefix "$installed/$component" --component $component
  done
  cmake --install "$build" --prefix "$prefix"
}

# Lists the files of a folder in installed/ under names that do not depend on the configuration.
list() {
  (cd "$installed/$1" && find . ! -type d -printf '%P\n') |
    sed -E "s,^$libdir/,lib/,; s,-targets-[a-z]+[.]cmake$,-targets-CONFIGURATION.cmake," | LC_ALL=C sort
}

test_files() {
  local component
  for component in Runtime Development; do
    list $component | sed "s/^/$component /"
  done >"$installed/files.txt"
  grep -v '^#' "$here/files.txt" | diff -u - "$installed/files.txt" >&2 ||
    fail "the installed files differ from tests/package/files.txt; if that is meant, correct the list."
  sed 's/^[^ ]* //' "$installed/files.txt" | LC_ALL=C sort | diff -u - <(list all) >&2 ||
    fail "a file is installed in both components or in none."
  ! grep -rIF -e "$source" -e "$build" "$prefix" >&2 ||
    fail "an installed file names a folder of this machine."
}

# Lists the values of one kind of entry in the dynamic section of the library.
dynamic() {
  readelf -dW "$prefix/$libdir/liboxa_common.so" | sed -n "s/.*($1).*\[\(.*\)\]$/\1/p"
}

test_linkage() {
  [[ $(dynamic SONAME) == liboxa_common.so.1 ]] || fail "the soname is '$(dynamic SONAME)'."
  [[ -z $(dynamic RUNPATH)$(dynamic RPATH) ]] || fail "the library has a search path of its own."
  local needed
  while read -r needed; do
    [[ $needed =~ ^(libstdc\+\+|libgcc_s|libc|libm|ld-linux-x86-64)\.so\.[0-9]$ ]] ||
      fail "the library needs $needed."
  done < <(dynamic NEEDED)
}

test_cmake() {
  enter_outside
  # The package asks for the standard that its headers need, whatever the project's own is.
  cmake -S . -B . -G Ninja -Wno-dev --log-level=WARNING -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_EXPORT_NO_PACKAGE_REGISTRY=ON -DCMAKE_CXX_STANDARD=14
  cmake --build . -- --quiet
  ! ninja -t deps | grep -F -e "$source/include" -e "$source/src" >&2 ||
    fail "a file of the source tree was used."
  check_outside
  refuses_incomplete cmake --build . --target incomplete
  echo "$prefix/$libdir/oxa/plugins" | diff -u - plugin_directory.txt >&2 ||
    fail "the package names another plug-in folder."
}

test_pkg_config() {
  enter_outside
  export PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig
  local flags plugin_flags plugins
  read -ra flags < <(pkg-config --cflags --libs oxa_common)
  read -ra plugin_flags < <(pkg-config --variable=plugin_ldflags oxa_common)
  compile g++
  check_outside "$prefix/$libdir"
  grep -q '^Description: .*needs C++17' "$PKG_CONFIG_PATH/oxa_common.pc" ||
    fail "the package does not tell which C++ it needs."
  plugins=$(pkg-config --variable=plugindir oxa_common)
  echo "$plugins"
  [[ $(realpath -m "$plugins") == "$(realpath -m "$prefix/$libdir/oxa/plugins")" ]] ||
    fail "the package names the plug-in folder $plugins."
}

test_plain_compiler() {
  enter_outside
  local compiler map=$prefix/$libdir/cmake/oxa_common/oxa_plugin.map
  local flags=(-I"$prefix/include" -L"$prefix/$libdir" -loxa_common)
  local plugin_flags=(-Wl,--version-script="$map" -Wl,-z,defs)
  for compiler in g++ clang++; do
    compile $compiler
    check_outside "$prefix/$libdir"
  done
}

# The library as a part of another project builds what that project uses, and installs nothing.
test_subproject() {
  enter_outside
  cp "$here/subproject/CMakeLists.txt" .
  cmake -S . -B build -G Ninja -Wno-dev --log-level=WARNING -DCMAKE_INSTALL_PREFIX="$work/installed" \
    -DOXA_SOURCE_DIRECTORY="$source"
  cmake --build build -- --quiet
  mv build/host build/plugins .
  check_outside
  ! ninja -C build -t targets all | grep -F oxa-graph >&2 || fail "the examples are built."
  cmake --install build >&2
  [[ ! -e installed ]] || fail "something is installed: $(find installed -type f)"
  echo "$work/installed/$libdir/oxa/plugins" | diff -u - build/plugin_directory.txt >&2 ||
    fail "the project is told of another plug-in folder."
}

# Defect: a folder outside the prefix gave a pkg-config file and search paths that led nowhere.
test_absolute_directories() {
  enter_outside
  local directory
  for directory in BINDIR LIBDIR INCLUDEDIR; do
    ! cmake -S "$source" -B "$directory" -G Ninja -DCMAKE_INSTALL_$directory=/opt/x >log.txt 2>&1 ||
      fail "an absolute CMAKE_INSTALL_$directory is accepted."
    grep -q "CMAKE_INSTALL_$directory must be relative" log.txt ||
      { cat log.txt >&2 && fail "the message does not name CMAKE_INSTALL_$directory."; }
  done
}

# Warnings are errors where we build, and not where users do.
test_presets() {
  enter_outside
  cd "$source"
  local preset strict
  for preset in dev asan tsan coverage bench release; do
    strict=$(cmake --preset $preset -B "$work/$preset" -N | sed -n 's/^ *OXA_WERROR="\(.*\)"$/\1/p')
    case $preset in
      release) [[ -z $strict ]] || fail "the preset release makes warnings errors." ;;
      *) [[ $strict == ON ]] || fail "the preset $preset lets warnings pass." ;;
    esac
  done
}

"test_$case"
