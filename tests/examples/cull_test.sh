#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# cull_test.sh PROGRAM DATA: runs the culling example, well and badly. Prints a line for each failure.
set -euo pipefail
program=$(realpath "$1")
data=$(realpath "$2")
work=$(mktemp -d)
trap 'rm -rf "$work" "$work.err"' EXIT
cd "$work"
failures=0

fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}

is_png() { [[ -f $1 && $(head -c 8 "$1" | od -An -tx1 | tr -d ' \n') == 89504e470d0a1a0a ]]; }

# figures_hold TEXT: the tree tests at most a fifth of the planes, some boxes are in view, not all.
figures_hold() {
    local tree list seen all
    read -r tree list < <(sed -nE 's/.*evaluations: ([0-9]+) by tree, ([0-9]+) one.*/\1 \2/p' <<<"$1")
    read -r seen all < <(sed -nE 's/.*in view: ([0-9]+) of ([0-9]+) .*/\1 \2/p' <<<"$1")
    ((tree > 0 && 5 * tree <= list && 0 < seen && seen < all))
}

# rejects NAME TEXT ARGUMENTS...: status 2, one line on standard error with TEXT in it, no new file.
rejects() {
    local name=$1 text=$2 status=0 before
    shift 2
    before=$(find . | sort)
    "$program" "$@" >/dev/null 2>"$work.err" || status=$?
    [[ $status == 2 ]] || fail "$name: status $status"
    [[ $(wc -l <"$work.err") == 1 ]] || fail "$name: not one line: $(<"$work.err")"
    grep -qF -- "$text" "$work.err" || fail "$name: no '$text' in: $(<"$work.err")"
    [[ $(find . | sort) == "$before" ]] || fail "$name: left a file behind"
}

out=$("$program") || fail "default run: status $?: $out"
figures_hold "$out" || fail "default run: $out"
is_png cull.png || fail "default run: no picture"

out=$("$program" "$data" --path 2 --output trip.png) || fail "--path 2: status $?: $out"
is_png trip-000.png && is_png trip-001.png && [[ ! -e trip.png && ! -e trip-002.png ]] ||
    fail "--path 2: $(ls)"
cmp -s cull.png trip-000.png || fail "--path 2 does not begin at the default eye"
if cmp -s trip-000.png trip-001.png; then fail "--path 2 does not move"; fi

"$program" --help | grep -q -- --eye || fail "--help"

# Views that hold all, nothing, or boxes on both sides of the eye: no check may fail.
"$program" --eye 15000 16000 90000 --target 15000 16001 0 --far 200000 --output all.png >out ||
    fail "from far above: $(<out)"
"$program" --eye 0 0 500 --target -1 -1 500 --output none.png >out || fail "away: $(<out)"
"$program" --eye 15000 16000 600 --target 15000 17000 600 --fov 120 --near 0.1 >out ||
    fail "from the ground: $(<out)"

# The same three by two heights, with comments in the header and without, draw the same picture.
body='\0001\0000\0001\0020\0001\0040\0001\0060\0001\0100\0001\0120'
printf "P5 3 2 65535\n%b" "$body" >small.pgm
printf "P5 # heights\n# of a test\n3 2\n# above\n65535\n%b" "$body" >comments.pgm
"$program" small.pgm --eye 80 50 900 --target 80 51 0 --output small.png >out || fail "small"
"$program" comments.pgm --eye 80 50 900 --target 80 51 0 --output same.png >out || fail "comments"
cmp -s small.png same.png || fail "comments in the header change the picture"

echo "not a picture" >text.pgm
printf 'P5 3 2 255\nabcdef' >eight.pgm
printf 'P2 3 2 65535\n1 2 3 4 5 6' >plain.pgm
head -c 200000 "$data" >truncated.pgm
printf 'P5 0 2 65535\nabcd' >zero.pgm
printf 'P5 20001 2 65535\nabcd' >wide.pgm
printf 'P5 4294967297 4294967296 65535\nabcd' >overflow.pgm
printf 'P5 -3 2 65535\nabcdabcdabcd' >negative.pgm
printf 'P5 3 2 65535abcdefghijklm' >unended.pgm
mkdir folder
for file in missing text eight plain truncated zero wide overflow negative unended; do
    rejects $file $file.pgm $file.pgm --output bad.png
done
rejects "folder as input" folder folder --output bad.png
rejects "folder as output" folder --output folder
rejects "output in no folder" none/bad.png --output none/bad.png
rejects "eye at the target" target --eye 1 2 3 --target 1 2 3 --output bad.png
rejects "near beyond far" near --near 20 --far 10 --output bad.png
for option in "--fov 180" "--fov nan" "--eye inf 0 0" "--objects -1" "--cell-east 0" "--tilt 3"; do
    rejects "$option" "${option%% *}" $option --output bad.png
done

exit $((failures > 0))
