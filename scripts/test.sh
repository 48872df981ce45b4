#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# test.sh [PRESET...]: installs what is missing, builds everything and runs the tests, for each of the
# presets of CMakePresets.json that are named. By default: release.
. "$(dirname "$(readlink -f "$0")")/common.sh"
takes 'release|clang|debug|develop|asan|tsan|msan' "$@"
(($#)) || set -- release

[[ " $* " =~ \ (clang|msan)\  ]] && clang=clang || clang=
prepare library examples peers tests $clang
for preset in "$@"; do
    echo "== $preset: building"
    configure "$preset"
    cmake --build --preset "$preset"
    echo "== $preset: testing"
    ctest --preset "$preset" -j "$(nproc)"
done
