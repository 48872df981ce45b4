#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# libm.sh ARCHIVE: which objects refer to which functions of libm, sqrt aside. All calls go through
# src/internal/Libm.h, and only from sources that include it themselves: results of everything else
# are the same wherever IEEE arithmetic is. The Lockstep library calls none of them, and of SLEEF only
# functions that neither use nor look for instructions beyond those of every processor.
set -euo pipefail
library=$1
src=$(dirname "$0")/../../src
callers=$(grep -rlE '^#include "internal/Libm(Arrays)?.h"' "$src" --include='*.cpp' | sed 's|.*/||; s/\.cpp$//')
allowed=$(grep -oE '::[a-z0-9]+\(' "$src/internal/Libm.h" | tr -d ':(' | sort -u)
mayCall() { # OBJECT NAME
    if [[ $library == *Lockstep* ]]; then
        local set='(purec|sse2)'
        case $1 in Avx2) set=avx ;; Avx512) set=avx512fnofma ;; Baseline) ;; *) grep -qx "$1" <<<"$callers" || return ;; esac
        [[ $2 =~ ^Sleef_cinz_[a-z0-9]+_u10$set$ ]]
    else
        grep -qx "$1" <<<"$callers" && grep -qx "$2" <<<"$allowed"
    fi
}
libm=$(nm -D --defined-only "$(${CXX:-c++} -print-file-name=libm.so.6)" | awk '{print $3}' |
    sed 's/@.*//' | sort -u)
objects=$(nm -A --undefined-only "$1" 2>/dev/null |
    sed -nE 's/^.*:([A-Za-z0-9]+)\.cpp\.o: +U (\w+)$/\1 \2/p' | sort -u | grep -vE ' sqrtf?$')

found=$(grep ' Sleef_' <<<"$objects" || true
    join -1 2 -2 1 -o 1.1,1.2 <(sort -k2 <<<"$objects") <(echo "$libm"))
wrong=$(while read -r object name; do
    mayCall "$object" "$name" || echo "$object calls $name"
done <<<"$found")
[[ -n $found ]] || { echo "cannot read $1"; exit 1; }
[[ -z $wrong ]] || { echo "$wrong"; exit 1; }
echo "$(cut -d' ' -f1 <<<"$found" | sort -u | wc -l) objects call $(cut -d' ' -f2 <<<"$found" | sort -u | wc -l) functions of libm"
