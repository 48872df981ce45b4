#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# complete.sh OBJECT: the object of the function table, an ordinary client of the headers, names all
# that the library exports and defines none of it, neither out of line nor inline.
# (Constructors and destructors of base parts, C2 and D2, are other names of the same functions.)
set -euo pipefail
exported=$(grep -vE '[CD]2E' "$(dirname "$0")/../abi/exported.txt")
names() { nm "$2" "$1" | awk '{print $NF}' | LC_ALL=C sort; }

missing=$(LC_ALL=C comm -23 <(echo "$exported") <(names "$1" --undefined-only))
copied=$(LC_ALL=C comm -12 <(echo "$exported") <(names "$1" --defined-only))
[[ -z $missing ]] || printf 'not in the table:\n%s\n' "$(c++filt <<<"$missing")"
[[ -z $copied ]] || printf 'copied into the client:\n%s\n' "$(c++filt <<<"$copied")"
[[ -z $missing$copied ]] && echo "$(wc -l <<<"$exported") names in the table"
