#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# interface.sh SOURCE: the binary interface is the one of KyMath.abi.xz: names, signatures,
# types, sizes and offsets. A program built against 1.0 runs with this library.
# After a deliberate change, which a new soname must announce unless it only adds:
# interface.sh SOURCE --update
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
stored=$(cd "$(dirname "$0")" && pwd)/KyMath.abi.xz
cd "$1"
build=build/interface
{ cmake --preset debug -B $build -DCMAKE_CXX_COMPILER=g++ -DKYMATH_TESTS=OFF -DKYMATH_EXAMPLES=OFF &&
    cmake --build $build --target KyMath; } >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
library=$build/src/libKyMath.so

if [[ ${2:-} == --update ]]; then
    abidw --no-show-locs --no-corpus-path --no-comp-dir-path --no-elf-needed \
        $library | xz -9 >"$stored"
    exit
fi
xz -d <"$stored" >"$work/stored.abi"
abidiff --no-added-syms "$work/stored.abi" $library ||
    { echo "the interface changed (status $?)"; exit 1; }
echo "$(grep -c '<elf-symbol ' "$work/stored.abi") symbols, unchanged"
