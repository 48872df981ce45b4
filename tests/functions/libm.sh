#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# libm.sh ARCHIVE: which objects refer to which functions of libm, sqrt aside. All calls go through
# src/internal/Libm.h, and only from sources that include it themselves: results of everything else
# are the same wherever IEEE arithmetic is. The Lockstep library calls none of them, and of SLEEF only
# functions that neither use nor look for instructions beyond those of every processor.
set -euo pipefail
src=$(dirname "$0")/../../src
callers=$(grep -rl '^#include "internal/Libm.h"' "$src" --include='*.cpp' | sed 's|.*/||; s/\.cpp$//')
if [[ $1 == *Lockstep* ]]; then called='Sleef_cinz_[a-z0-9]+_u10(purec|sse2)\('; else called='::[a-z0-9]+\('; fi
allowed=$(grep -oE "$called" "$src/internal/Libm.h" | tr -d ':(' | sort -u)
libm=$(nm -D --defined-only "$(${CXX:-c++} -print-file-name=libm.so.6)" | awk '{print $3}' |
    sed 's/@.*//' | sort -u)
objects=$(nm -A --undefined-only "$1" 2>/dev/null |
    sed -nE 's/^.*:([A-Za-z0-9]+)\.cpp\.o: +U (\w+)$/\1 \2/p' | sort -u | grep -vE ' sqrtf?$')

found=$(grep ' Sleef_' <<<"$objects" || true
    join -1 2 -2 1 -o 1.1,1.2 <(sort -k2 <<<"$objects") <(echo "$libm"))
wrong=$(while read -r object name; do
    grep -qx "$object" <<<"$callers" && grep -qx "$name" <<<"$allowed" || echo "$object calls $name"
done <<<"$found")
[[ -n $found ]] || { echo "cannot read $1"; exit 1; }
[[ -z $wrong ]] || { echo "$wrong"; exit 1; }
echo "$(cut -d' ' -f1 <<<"$found" | sort -u | wc -l) objects call $(wc -l <<<"$allowed") functions of libm"
