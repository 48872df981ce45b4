#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# reliability.sh [--quick]: installs what is missing, proves what docs/reliability.md promises and
# prints a line per promise with its figure. It takes about two hours on two cores. --quick builds
# fewer variants, fuzzes briefly and leaves the tests of each build to scripts/test.sh.
. "$(dirname "$(readlink -f "$0")")/common.sh"
takes --quick "$@"
quick=${1:-}
logs=$root/build/reliability
status=0

# promise TEXT PATTERN COMMAND...: runs the command; its last line with the pattern is the figure.
promise() {
    local log=$logs/${1//[^a-zA-Z]/-}.log begin=$SECONDS
    printf '%-44s ' "$1"
    if "${@:3}" >"$log" 2>&1 && grep -qE "$2" "$log"; then
        printf 'holds: %s (%d s)\n' "$(grep -E "$2" "$log" | tail -n 1 | xargs)" $((SECONDS - begin))
    else
        echo "BROKEN: $log"
        tail -n 20 "$log"
        status=1
    fi
}
passes() { ctest --preset release -V -R "^$1\$" | sed 's/^[0-9]*: //'; }
reproducible() {
    for preset in release clang; do bash tests/abi/reproducible.sh . build/$preset || return; done
    echo "library and archive, GCC and Clang"
}

prepare library lockstep examples peers tests clang coverage
mkdir -p "$logs"
echo "== Building"
configure release -DKYMATH_LOCKSTEP=ON
cmake --build --preset release
echo "== Proving"
promise "Every exported name is tested" 'names' passes FunctionTableIsComplete
promise "Results are the pinned ones" 'compared' passes FunctionResultsKyMath
promise "Lockstep: the same without AVX and FMA" 'compared' passes FunctionResultsLockstepOnNehalem
promise "All builds, all clients: the same bits" 'compared' bash scripts/agree.sh $quick
promise "libm is called in known places only" 'objects' passes LibmThroughOneHeader
promise "Without memory, nothing is lost or changed" 'allocations failed' passes FunctionMemoryKyMath
promise "Eight threads on shared objects" 'threads' passes FunctionThreadsKyMath
promise "Laws of geometry" 'PASSED' env "RC_PARAMS=max_success=$([[ $quick ]] && echo 1000 || echo 50000)" \
    build/release/tests/kymath_properties --gtest_brief=1
if [[ ! $quick ]]; then
    for preset in release clang debug asan tsan msan; do
        promise "Tests: $preset" 'tests passed' bash scripts/test.sh $preset
    done
    promise "Reproducible, byte by byte" 'archive' reproducible
fi
promise "Lines, branches, MC/DC covered" '^Total' bash scripts/coverage.sh
promise "Binary interface as released" 'unchanged' passes Interface
promise "Loaded and unloaded" 'rounds' passes Unload
promise "Hardened" 'RELRO' passes Hardened
promise "Fuzzed, no finding" 'executions in all' bash scripts/fuzz.sh "$([[ $quick ]] && echo 10 || echo 300)"
exit $status
