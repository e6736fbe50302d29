#!/usr/bin/env bash
# The installed package as others meet it: package_test.sh CASE BUILD_DIRECTORY SOURCE_DIRECTORY LIBDIR
#
# The case "install" installs the build into a folder; the other cases use that folder, and build
# copies of outside/ that lie outside the tree.
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

# Runs the host over ./plugins and compares what it prints.
check_host() {
  LD_LIBRARY_PATH=${1-} ./host plugins >printed.txt
  diff -u expected.txt printed.txt >&2 || fail "the host did not print what was expected."
}

# Builds host and plug-in by a line of the compiler $1 with further arguments.
compile() {
  local compiler=$1
  shift
  local strict=(-std=c++17 -O2 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
  mkdir -p plugins
  "$compiler" "${strict[@]}" host.cpp "$@" -o host
  "$compiler" "${strict[@]}" -shared -fPIC -fvisibility=hidden plugin.cpp "$@" -o plugins/outside.so
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
  cmake -S . -B . -G Ninja -Wno-dev --log-level=WARNING -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_EXPORT_NO_PACKAGE_REGISTRY=ON
  cmake --build . -- --quiet
  ! ninja -t deps | grep -F -e "$source/include" -e "$source/src" >&2 ||
    fail "a file of the source tree was used."
  check_host
  echo "$prefix/$libdir/oxa/plugins" | diff -u - plugin_directory.txt >&2 ||
    fail "the package names another plug-in folder."
}

test_pkg_config() {
  enter_outside
  export PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig
  local flags plugins
  read -ra flags < <(pkg-config --cflags --libs oxa_common)
  compile g++ "${flags[@]}"
  check_host "$prefix/$libdir"
  plugins=$(pkg-config --variable=plugindir oxa_common)
  echo "$plugins"
  [[ $(realpath -m "$plugins") == "$(realpath -m "$prefix/$libdir/oxa/plugins")" ]] ||
    fail "the package names the plug-in folder $plugins."
}

test_plain_compiler() {
  enter_outside
  local compiler
  for compiler in g++ clang++; do
    compile $compiler -I"$prefix/include" -L"$prefix/$libdir" -loxa_common
    check_host "$prefix/$libdir"
  done
}

"test_$case"
