#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# results.sh PROGRAM: all functions give the results of results.txt, to the last bit, and use no more
# than it says. Functions that use libm depend on that: they are left out, with a word, where libm
# itself differs from the one of results.txt (another version, or a CPU without FMA).
# With the Lockstep library, no function depends on libm: those of lockstep.txt give its results.
# EMULATOR in the environment is a command that runs the program.
# After a deliberate change: results.sh PROGRAM --update, and a line in CHANGELOG.md.
set -euo pipefail
expected=$(dirname "$0")/results.txt
actual=$(mktemp)
merged=$(mktemp)
trap 'rm -f "$actual" "$merged"' EXIT
${EMULATOR:-} "$1" >"$actual" 2>/dev/null || { echo "status $?"; exit 1; }

if [[ $1 == *Lockstep* ]]; then
    own=${expected/results/lockstep}
    sed -i 1d "$actual" # the digest of libm
    if [[ ${2:-} == --update ]]; then
        sed 's/ \[libm\]//' "$expected" | grep -vxFf - "$actual" >"$own"
        exit
    fi
    awk '{ name = substr($0, 18); sub(/ \[libm\]/, "", name) }
        NR == FNR { own[name] = $1; next }
        FNR > 1 { print name in own ? own[name] : $1, name }' "$own" "$expected" >"$merged"
    expected=$merged
elif [[ ${2:-} == --update ]]; then
    cp "$actual" "$expected"
    exit
fi
filter='a name without a match'
if [[ $(grep '^libm' "$actual") != $(grep '^libm' "$expected") ]]; then
    echo "another libm: functions that use it are not compared"
    filter='libm'
fi
if ! diff <(grep -v "$filter" "$expected") <(grep -v "$filter" "$actual"); then
    echo "results changed: expected (<) and found (>)"
    exit 1
fi
echo "$(grep -v "$filter" "$actual" | grep -cE '^[0-9a-f]{16} ') functions compared"
