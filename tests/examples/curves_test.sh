#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# curves_test.sh PROGRAM: runs the curves example, well and badly. Prints a line for each failure.
set -euo pipefail
. "$(dirname "$0")/common.sh"

for count in 6 7 8 9 10 11 12 13 1000; do
    runs "wrote all.svg" --samples $count $count $count --output all.svg
    [[ $(grep -c 'off by' "$work.out") == 2 ]] || fail "$count samples: checks are missing"
    [[ $(tail -n 1 all.svg) == "</svg>" ]] || fail "$count samples: no whole picture"
    if grep -qE 'nan|inf' all.svg; then fail "$count samples: not a number in the picture"; fi
done
rejects "not a number from 6 to 1000" --samples 9 9 5
rejects --tilt --tilt

((failures == 0))
