#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# lint.sh: installs what is missing and checks that every file names its licence, the layout of all
# sources with clang-format, and the library, the examples and the benchmarks with clang-tidy.
# lint.sh --fix lays the sources out instead.
. "$(dirname "$(readlink -f "$0")")/common.sh"
takes --fix "$@"

prepare library examples peers tests benchmarks clang lint
mapfile -t sources < <(find include src examples tests benchmarks python -name '*.h' -o -name '*.cpp' -o -name '*.inc')
if [[ ${1:-} == --fix ]]; then
    clang-format -i "${sources[@]}"
    exit
fi
# Comments name tests that exist.
missing=$(grep -rhoE '[A-Za-z0-9]+Test\.\w+' include src | sort -u | while IFS=. read -r suite case; do
    grep -rqE "TEST(_F|_P)?\($suite, $case\)" tests || echo "no test $suite.$case"
done)
[[ -z $missing ]] || { echo "$missing" && exit 1; }
# In a copy without what is built: sources need not be in git.
sources_only=$(mktemp -d)
trap 'rm -rf "$sources_only"' EXIT
tar -c --exclude=./build --exclude=./.git . | tar -x -C "$sources_only"
licences=$(reuse --root "$sources_only" lint 2>&1) || { echo "$licences" && exit 1; }
clang-format --dry-run -Werror "${sources[@]}"
configure clang -DKYMATH_BENCHMARKS=ON -DKYMATH_LOCKSTEP=OFF
ours=$(sed 's/[][\.*^$()+?{|]/\\&/g' <<<"$root") # in a regular expression
# Not on what calls the benchmarks' peers: their templates take minutes.
find src examples benchmarks -name '*.cpp' ! -name '*Peers.cpp' -print0 |
    xargs -0 -n 3 -P "$(nproc)" clang-tidy -p build/clang --quiet \
        "--header-filter=^$ours/(include|src|examples|benchmarks)/" 2>&1 |
    { grep -vE '^[0-9]+ warnings? generated' || true; } # in headers of the system
