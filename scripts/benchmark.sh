#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# benchmark.sh [--quick] [--update]: installs what is missing, compares the library with others and
# with its own arithmetic written inline, prints tables and draws build/performance.svg. It takes
# some ten minutes, on a machine that should have nothing else to do; --quick takes fewer repetitions.
# --update puts tables and chart into docs.
. "$(dirname "$(readlink -f "$0")")/common.sh"
takes '--quick|--update' "$@"
quick='' update=''
for option in "$@"; do
    case $option in
    --quick) quick=1 ;;
    --update) update=1 ;;
    esac
done

prepare library peers benchmarks
configure release -DKYMATH_TESTS=OFF -DKYMATH_EXAMPLES=OFF -DKYMATH_BENCHMARKS=ON
cmake --build --preset release
programs=build/release/benchmarks
results=build/benchmark
mkdir -p $results
[[ $quick ]] && repeats=(3 0.005) || repeats=(25 0.01)
for library in KyMath Static; do
    for family in vectors matrices rotations bounds culling; do
        "$programs/benchmark_${family}_$library" --benchmark_enable_random_interleaving=true \
            "--benchmark_repetitions=${repeats[0]}" "--benchmark_min_time=${repeats[1]}" \
            --benchmark_report_aggregates_only=true --benchmark_format=csv 2>$results/messages ||
            { cat $results/messages >&2 && exit 1; }
    done >$results/$library.csv
done

# A unit that includes a header: the median time of five compilations, and its size preprocessed.
header_cost() { # HEADER GOAL_MILLISECONDS GOAL_KIB
    echo "#include <$1>" >$results/unit.cpp
    for _ in 1 2 3 4 5; do
        local begin=${EPOCHREALTIME/./}
        g++ -O2 -Iinclude -c $results/unit.cpp -o $results/unit.o
        echo $((${EPOCHREALTIME/./} - begin))
    done | sort -n | sed -n 3p >$results/microseconds
    printf '| `%s` | %d ms | %s ms | %d KiB | %s KiB |\n' "$1" $(($(<$results/microseconds) / 1000)) \
        "$2" $(($(g++ -O2 -Iinclude -E $results/unit.cpp | wc -c) / 1024)) "$3"
}
{
    echo "$(sed -n 's/^model name.*: //p' /proc/cpuinfo | head -n 1), $(g++ --version | head -n 1)"
    $programs/benchmark_report benchmarks/goals.txt $results/KyMath.csv $results/Static.csv \
        build/performance.svg
    printf '\n| A unit that includes | takes | goal | preprocessed | goal |\n|---|--:|--:|--:|--:|\n'
    while read -r _ header milliseconds size; do
        header_cost "$header" "$milliseconds" "$size"
    done < <(grep '^include ' benchmarks/goals.txt)
} | tee $results/report.md

if [[ $update ]]; then
    cp build/performance.svg docs/performance.svg
    sed -i "/<!-- begin -->/,/<!-- end -->/{
        /<!-- begin -->/r $results/report.md
        /<!-- begin -->\|<!-- end -->/!d
    }" docs/performance.md
fi
