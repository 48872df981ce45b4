#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# exported.sh LIBRARY: what the library exports is exactly the list in exported.txt, under its version.
# After a deliberate change of the interface: exported.sh LIBRARY --update
set -euo pipefail
list=$(dirname "$0")/exported.txt
names() { nm -D --defined-only "$1" | awk '$2 != "A" && sub(/@@KYMATH(LOCKSTEP)?_1$/, "", $3) {print $3}' | LC_ALL=C sort; }

if [[ ${2:-} == --update ]]; then
    names "$1" >"$list"
elif ! difference=$(diff "$list" <(names "$1")); then
    echo "lost (<) and leaked (>) names:"
    c++filt <<<"$difference"
    exit 1
fi
