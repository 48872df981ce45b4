#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# test.sh [PRESET...]: installs what is missing, builds everything and runs the tests, for each of the
# presets of CMakePresets.json that are named. By default: release, which has the Python module too, as
# has asan, for a Python that counts references.
. "$(dirname "$(readlink -f "$0")")/common.sh"
takes 'release|clang|debug|develop|asan|tsan|msan' "$@"
(($#)) || set -- release

[[ " $* " =~ \ (clang|msan)\  ]] && clang=clang || clang=
[[ " $* " =~ \ (release|asan)\  ]] && python=python || python=
[[ " $* " == *" asan "* ]] && python+=" pydebug"
prepare library lockstep examples peers tests $clang $python
for preset in "$@"; do
    echo "== $preset: building"
    module=
    [[ $preset == release ]] && module="-DKYMATH_PYTHON=ON -DPython3_EXECUTABLE=/usr/bin/python3"
    [[ $preset == asan ]] && module="-DKYMATH_PYTHON=ON -DPython3_EXECUTABLE=/usr/bin/python3-dbg"
    configure "$preset" -DKYMATH_LOCKSTEP=ON $module
    cmake --build --preset "$preset"
    echo "== $preset: testing"
    ctest --preset "$preset" -j "$(nproc)"
done
