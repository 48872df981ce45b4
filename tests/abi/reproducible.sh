#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# reproducible.sh SOURCE_DIR BUILD_DIR: the library and the archive of a release build are the same
# bytes wherever and whenever they are built: built again in a folder of another name and depth, at
# another age of the sources, in another time zone, under another umask, locale and user, and not in
# parallel.
set -euo pipefail
source=$1
build=$(cd "$2" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
another=$work/another/and/deeper
cached() { grep -oP "^$1:[^=]*=\K.*" "$build/CMakeCache.txt"; }
compiler=$(cached CMAKE_CXX_COMPILER)

umask 077
mkdir -p "$another/source"
tar -c -C "$source" --exclude=./build --exclude=./.git . |
    tar -x -C "$another/source" --no-same-permissions
find "$another/source" -exec touch -d 2001-02-03 {} +
export TZ=Asia/Tokyo LC_ALL=C.UTF-8 USER=other
{ cmake -G Ninja -S "$another/source" -B "$another/build" "-DCMAKE_CXX_COMPILER=$compiler" \
    -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_FLAGS=$(cached CMAKE_CXX_FLAGS)" \
    "-DKYMATH_STRICT=$(cached KYMATH_STRICT)" -DKYMATH_TESTS=OFF -DKYMATH_EXAMPLES=OFF &&
    cmake --build "$another/build" -j1 --target KyMath KyMathStatic; } >"$work/log" 2>&1 ||
    { cat "$work/log"; exit 1; }

cmp "$build/src/libKyMath.so" "$another/build/src/libKyMath.so"
if [[ $(cached CMAKE_CXX_COMPILER_LAUNCHER) ]]; then
    echo "The archive is not compared: a launcher such as ccache may have changed paths in it."
    exit
fi
cp "$build/src/libKyMath.a" "$work"
# In the archive, one section for link-time optimisation holds the path of its source, whatever GCC is
# told.
if [[ $("$compiler" --version) != *clang* ]]; then
    objcopy -D -w -R '.gnu.lto_.decls.*' "$work/libKyMath.a"
    objcopy -D -w -R '.gnu.lto_.decls.*' "$another/build/src/libKyMath.a"
fi
cmp "$work/libKyMath.a" "$another/build/src/libKyMath.a"
