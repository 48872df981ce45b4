#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# benchmark.sh [--quick] [--update | --clang]: installs what is missing, compares the library with others
# and with its own arithmetic written inline, prints tables and draws build/performance.svg. It takes some
# ten minutes, on a machine that should have nothing else to do.
#
#     --quick    fewer repetitions, for two or three minutes
#     --update   puts tables and picture into docs
#     --clang    by Clang instead, the loops alone: only prints their table
. "$(dirname "$(readlink -f "$0")")/common.sh"
takes '--quick|--update|--clang' "$@"
preset=release filter=. rounds=5 repeats=5 time=0.01 picture=build/performance.svg update=''
for option in "$@"; do
    case $option in
    --quick) rounds=2 repeats=3 time=0.003 ;;
    --update) update=1 ;;
    --clang) preset=clang filter=^loop picture='' ;;
    esac
done

prepare library peers tests benchmarks
[[ $preset == release ]] || prepare clang
configure $preset -DKYMATH_EXAMPLES=OFF -DKYMATH_BENCHMARKS=ON
cmake --build --preset $preset --target benchmarks
results=build/benchmark
rm -rf $results
mkdir -p $results

# All programs in turn, so that a slow minute of the machine slows all of them.
for ((round = 0; round < rounds; ++round)); do
    for program in build/$preset/benchmarks/benchmark_*; do
        [[ $program == *_functions ]] && continue
        "$program" --benchmark_filter=$filter --benchmark_enable_random_interleaving=true \
            --benchmark_repetitions=$repeats --benchmark_min_time=$time --benchmark_format=json \
            >$results/${program#*/benchmark_}.$round.json 2>$results/messages ||
            { cat $results/messages >&2 && exit 1; }
    done
done
build/$preset/benchmarks/benchmark_functions >$results/functions.txt

# A unit that includes a header: the median time of five compilations, and its size preprocessed.
header_cost() { # HEADER GOAL_MILLISECONDS GOAL_KIB
    echo "#include <$1>" >$results/unit.cpp
    for _ in 1 2 3 4 5; do
        local begin=${EPOCHREALTIME/./}
        g++ -O2 -Iinclude -c $results/unit.cpp -o $results/unit.o
        echo $((${EPOCHREALTIME/./} - begin))
    done | sort -n | sed -n 3p >$results/microseconds
    local time=$(($(<$results/microseconds) / 1000)) holds=missed
    local size=$(($(g++ -O2 -Iinclude -E $results/unit.cpp | wc -c) / 1024))
    ((time <= $2 && size <= $3)) && holds=held
    echo "| \`$1\` | $time ms | $2 ms | $size KiB | $3 KiB | $holds |"
}
{
    compiler=$(sed -n 's/^CMAKE_CXX_COMPILER:[^=]*=//p' build/$preset/CMakeCache.txt)
    echo "$(sed -n 's/^model name.*: //p' /proc/cpuinfo | head -n 1), $("$compiler" --version | head -n 1)"
    /usr/bin/python3 benchmarks/report.py benchmarks/goals.txt $results $picture # Debian's, with matplotlib
    if [[ $picture ]]; then
        printf '\n| A unit that includes | takes | goal | preprocessed | goal | goals |\n|---|--:|--:|--:|--:|---|\n'
        while read -r _ header milliseconds size; do
            header_cost "$header" "$milliseconds" "$size"
        done < <(grep '^@include ' benchmarks/goals.txt)
    fi
} | tee $results/report.md

if [[ $update ]]; then
    cp $picture docs/performance.svg
    sed -i "/<!-- begin -->/,/<!-- end -->/{
        /<!-- begin -->/r $results/report.md
        /<!-- begin -->\|<!-- end -->/!d
    }" docs/performance.md
fi
