#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# curves_test.sh PROGRAM: runs the curves example, well and badly. Stops at the first failure.
set -euo pipefail
program=$(realpath "$1") work=$(mktemp -d)
trap 'rm -rf "$work" "$work.err"' EXIT
cd "$work"

fail() { echo "FAILED: $*"; exit 1; }

"$program" >out || fail "default run: status $?: $(<out)"
[[ $(grep -c 'off by' out) == 2 && $(tail -n 1 curves.svg) == "</svg>" ]] || fail "$(<out)"
for count in 6 7 8 9 10 12 13 1000; do
    "$program" --samples $count $count $count --output all.svg >out || fail "$count: $(<out)"
    if grep -qE 'nan|inf' all.svg; then fail "$count samples: not a number in the picture"; fi
done
mkdir folder
for arguments in "none/bad.svg --output" "folder --output" "5 --samples 9 9" "--tilt"; do
    before=$(find . | sort) status=0 text=${arguments%% *}
    # shellcheck disable=SC2086
    "$program" ${arguments#* } "$text" >/dev/null 2>"$work.err" || status=$?
    [[ $status == 2 && $(wc -l <"$work.err") == 1 ]] || fail "$arguments: status $status"
    grep -qF -- "$text" "$work.err" || fail "$arguments: $(<"$work.err")"
    [[ $(find . | sort) == "$before" ]] || fail "$arguments: left a file behind"
done
