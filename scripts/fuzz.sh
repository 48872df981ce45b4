#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# fuzz.sh [SECONDS]: installs what is missing and lets libFuzzer look for inputs that crash, hang or
# trip a sanitizer, for so many seconds per target (10 by default): the functions of each layer of the
# library, and the readers of the example programs. What it learns is kept in build/fuzz/corpus, what
# it finds stays in build/fuzz.
. "$(dirname "$(readlink -f "$0")")/common.sh"
takes '[0-9]+' "$@"
(($# < 2)) || stop "takes one number of seconds; see --help"

prepare library examples peers tests clang
configure fuzz
cmake --build --preset fuzz --target fuzzers
cd build/fuzz
total=0
for target in VectorFuzz MatrixFuzz RotationFuzz BoundsFuzz CurveFuzz BvhFuzz PgmFuzz; do
    corpus=corpus/$target seeds=$root/tests/fuzz/corpus/$target
    mkdir -p "$corpus"
    [[ -d $seeds ]] || seeds=
    # The readers must not ask for more memory than a file is worth.
    [[ $seeds ]] && limit=1 || limit=64
    if ! "tests/$target" -max_total_time="${1:-10}" -max_len=4096 -timeout=5 -rss_limit_mb=1024 \
        -malloc_limit_mb=$limit -close_fd_mask=2 "$corpus" $seeds >"$target.log" 2>&1; then
        tail -n 40 "$target.log"
        echo "$target: a finding"
        exit 1
    fi
    total=$((total + $(sed -n 's/^Done \([0-9]*\) runs.*/\1/p' "$target.log")))
    runs=$(sed -n 's/^Done \([0-9]*\) runs in \([0-9]*\).*/\1 executions in \2 s/p' "$target.log")
    coverage=$(sed -n 's/.*DONE *\(cov: [0-9]*\).*/\1/p' "$target.log")
    echo "$target: $runs, $coverage, no finding"
done
echo "$total executions in all, ${1:-10} s for each of 7 targets"
