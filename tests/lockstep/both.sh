#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# both.sh PROGRAM LOCKSTEP_PROGRAM PLUGIN LOCKSTEP_PLUGIN: where one process holds both libraries, each
# client gets the results of the library that it is linked with, whichever was loaded first.
set -euo pipefail
read -r default beside <<<"$("$1" "$3")"
read -r lockstep beside_lockstep <<<"$("$2" "$4")"
found="$("$1" "$4") $("$2" "$3")"
expected="$default $lockstep $lockstep $default"
[[ $default == "$beside" && $lockstep == "$beside_lockstep" && $default != "$lockstep" ]] ||
    { echo "with one library: $default $beside, $lockstep $beside_lockstep"; exit 1; }
[[ $found == "$expected" ]] || { echo "expected $expected, found $found"; exit 1; }
