#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# plt.sh LIBRARY: the library reaches its own functions directly. No relocation names one of them,
# so none is called through the procedure linkage table or another table of pointers.
set -euo pipefail
functions=$(nm -D --defined-only "$1" | awk '$2 ~ /[TWi]/ {sub(/@.*/, "", $3); print $3}' | LC_ALL=C sort)
relocated=$(readelf -rW "$1" | awk '$3 ~ /^R_X86_64/ {sub(/@.*/, "", $5); print $5}' | LC_ALL=C sort -u)
[[ -n $functions && $relocated == *sincos* ]] || { echo "cannot read $1"; exit 1; }

indirect=$(LC_ALL=C comm -12 <(echo "$functions") <(echo "$relocated"))
if [[ -n $indirect ]]; then
    echo "reached through a relocation:"
    c++filt <<<"$indirect"
    exit 1
fi
