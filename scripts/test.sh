#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# test.sh [PRESET...]: installs what is missing, builds everything and runs the tests, for each of the
# presets of CMakePresets.json that are named. By default: release.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
(($#)) || set -- release

bash "$root/scripts/setup.sh" g++ make cmake ninja-build pkg-config libgtest-dev libeigen3-dev \
    librapidcheck-dev libglm-dev libimath-dev libbullet-dev libpng-dev libcli11-dev libassimp-dev \
    assimp-testmodels abigail-tools xz-utils gdb python3
if [[ " $* " =~ \ (clang|msan)\  ]]; then
    bash "$root/scripts/setup.sh" clang libclang-rt-dev googletest
fi

cd "$root"
for preset in "$@"; do
    echo "== $preset: building"
    cmake --preset "$preset" -DKYMATH_TESTS=ON ${KYMATH_STRICT:+-DKYMATH_STRICT=$KYMATH_STRICT} \
        --log-level=WARNING
    cmake --build --preset "$preset"
    echo "== $preset: testing"
    ctest --preset "$preset"
done
