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
g++ -std=c++17 -g -O1 -fPIC -shared -fvisibility=hidden -ffp-contract=off -Wno-psabi \
    -Iinclude -Isrc src/*/*.cpp -Wl,--version-script=cmake/KyMath.map -Wl,-soname,libKyMath.so.1 \
    -o "$work/libKyMath.so"

if [[ ${2:-} == --update ]]; then
    abidw --no-show-locs --no-corpus-path --no-comp-dir-path --no-elf-needed \
        "$work/libKyMath.so" | xz -9 >"$stored"
    exit
fi
xz -d <"$stored" >"$work/stored.abi"
abidiff --no-added-syms "$work/stored.abi" "$work/libKyMath.so" || { echo "the interface changed (status $?)"; exit 1; }
echo "$(grep -c '<elf-symbol ' "$work/stored.abi") symbols, unchanged"
