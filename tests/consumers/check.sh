#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# check.sh SOURCE_DIR BUILD_DIR COMPILER: the library is usable by every way that is offered: as an
# installed package (in a prefix that was moved), as a subdirectory, by FetchContent and by pkg-config.
set -euo pipefail
source=$1
build=$2
compiler=$3
consumer=$source/tests/consumers
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

try() { # NAME CMAKE_ARGUMENT...
    local name=$1
    shift
    { cmake -G Ninja -S "$consumer" -B "$work/$name" "-DCMAKE_CXX_COMPILER=$compiler" "$@" &&
        cmake --build "$work/$name" -j2 &&
        ctest --test-dir "$work/$name" --output-on-failure; } >"$work/log" 2>&1 ||
        { cat "$work/log"; echo "failed: $name"; return 1; }
}

cmake --install "$build" --prefix "$work/first" >/dev/null
mv "$work/first" "$work/prefix"
library_dir=$(dirname "$(find "$work/prefix" -name 'libKyMath.so')")

try package -DKYMATH_FROM=package "-DCMAKE_PREFIX_PATH=$work/prefix"
try subdirectory -DKYMATH_FROM=subdirectory "-DKYMATH_SOURCE=$source"
try fetch -DKYMATH_FROM=fetch "-DKYMATH_SOURCE=$source"

# Inlined into a client that is compiled for fused operations, the archive gives the same bits still.
if grep -qw fma /proc/cpuinfo && [[ $("$compiler" --version) != *clang* ]]; then
    try inlined -DKYMATH_FROM=package "-DCMAKE_PREFIX_PATH=$work/prefix" \
        "-DCONSUMER_FLAGS=-O3;-flto;-march=x86-64-v3"
    cmp <("$work/inlined/consumer_KyMath") <("$work/inlined/consumer_Static")
    if nm -C "$work/inlined/consumer_Static" | grep -F "Vector3T<double>::cross"; then
        echo "failed: nothing is inlined from the archive"
        exit 1
    fi
fi

export PKG_CONFIG_PATH=$library_dir/pkgconfig
flags=$(pkg-config --cflags --libs KyMath)
# shellcheck disable=SC2086  # the flags are words
"$compiler" -std=c++11 "$consumer/main.cpp" $flags -o "$work/plain"
LD_LIBRARY_PATH=$library_dir "$work/plain"

readelf -dW "$library_dir/libKyMath.so" | grep -q 'soname: \[libKyMath.so.1\]'
[[ $(readlink -f "$library_dir/libKyMath.so") == */libKyMath.so.1.0.0 ]]
