#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# inline.sh LIBRARY DRIVER COMPILER [--all]: small members that a compiler may inline give the bits of the
# library, alone and in chains, with any flags of a client, also beside sources without them; the client
# defines none of them, and at -O2 calls none, except the one that Clang finds too long. --all takes every combination of flags.
set -euo pipefail
library=$1 driver=$2 compiler=$3
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mode="-DKYMATH_INLINE -DKYMATH_FP_CONTRACT_OFF -ffp-contract=off"

build() { # LINKER_FLAGS FLAG...
    "$compiler" -std=c++17 "${@:2}" "-I$here/../../include" -c "$here/Chains.cpp" -o "$work/chains.o"
    "$compiler" $1 "$work/chains.o" "$driver" "$library" "-Wl,-rpath,${library%/*}" -ldl -o "$work/chains"
}
exported() { # nm OPTION...: names of the library, whatever a compiler appended
    nm "$@" "$work/chains.o" | awk '{sub(/[.].*/, "", $NF); print $NF}' | LC_ALL=C sort -u |
        LC_ALL=C comm -12 - "$here/../abi/exported.txt"
}

unsafe=(-ffast-math -ffinite-math-only -freciprocal-math "-UKYMATH_FP_CONTRACT_OFF -ffp-contract=fast"
    "-fassociative-math -fno-signed-zeros -fno-trapping-math")
marches=(-march=x86-64)
grep -qw avx512f /proc/cpuinfo && unsafe+=("-march=x86-64 -mavx512f -mprefer-vector-width=512 -UKYMATH_FP_CONTRACT_OFF -ffp-contract=fast")
grep -qw fma /proc/cpuinfo && marches+=(-march=x86-64-v3)
grep -qw avx512vl /proc/cpuinfo && marches+=(-march=x86-64-v4)
builds=(-O2 -O0 -Os "-O2 -fno-inline" "-O2 -fkeep-inline-functions -Wno-ignored-optimization-argument" "-O1 -fsanitize=undefined")
if [[ ${4:-} == --all ]]; then
    for march in "${marches[@]}"; do
        for level in -O0 -O1 -O2 -O3; do
            for flags in "" -fno-math-errno "${unsafe[@]}"; do builds+=("$level $march $flags"); done
        done
    done
else
    for flags in "" "${unsafe[@]}"; do builds+=("-O3 ${marches[-1]} $flags"); done
fi

build "" -O0
"$work/chains" >"$work/expected"
failures=0
for flags in "${builds[@]}"; do
    sanitizer=$(grep -o -- '-fsanitize[^ ]*' <<<"$flags" || true)
    # shellcheck disable=SC2086  # the flags are words
    build "$sanitizer" $mode $flags
    "$work/chains" | diff "$work/expected" - || { echo "other results with $flags"; failures=1; }
    copied=$(exported --defined-only)
    [[ -z $copied ]] || { echo "defined with $flags:"; c++filt <<<"$copied"; failures=1; }
    called=$(exported --undefined-only)
    if [[ $flags == -O2 ]]; then
        called=$(grep -v '^_ZN6KyMath8Polytope8containsE' <<<"$called" || true)
        [[ -z $called ]] || { echo "called with $flags:"; c++filt <<<"$called"; failures=1; }
    elif [[ $flags == -O0 ]]; then
        (($(wc -l <<<"$called") > 400)) || { echo "hardly anything is called at -O0"; failures=1; }
    fi
done
((failures)) || echo "${#builds[@]} builds of $(wc -l <"$work/expected") chains"
exit $failures
