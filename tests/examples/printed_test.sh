#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# printed_test.sh PROGRAM SOURCE: the program prints what the head of its source says.
set -euo pipefail
diff <(sed -n '/It prints:$/,/^$/s|^//     ||p' "$2") <("$1") ||
    { echo "expected (<) and printed (>)"; exit 1; }
