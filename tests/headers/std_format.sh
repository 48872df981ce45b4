#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# std_format.sh SOURCE_DIR LIBRARY: what OptIn.cpp does with fmt, with std::format, by Clang 19 and its
# standard library. Where `scripts/setup.sh clang` has not brought these, it is skipped: status 77.
set -euo pipefail
libcxx=$1/build/libc++-19/usr/lib/llvm-19
if ! command -v clang++-19 >/dev/null || [[ ! -d $libcxx ]]; then
    echo "skipped: scripts/setup.sh clang brings Clang 19 and its standard library"
    exit 77
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
clang++-19 -std=c++20 -Wall -Wextra -Wconversion -Werror -DTEXT=std -DWITHHELD "-I$1/include" \
    -nostdinc++ -isystem "$libcxx/include/c++/v1" "$1/tests/headers/OptIn.cpp" -o "$work/program" \
    -nostdlib++ "$2" "-Wl,-rpath,$(dirname "$2")" "$libcxx/lib/libc++.a" "$libcxx/lib/libc++abi.a"
"$work/program"
