#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# cull_test.sh PROGRAM DATA: runs the culling example, well and badly. Prints a line for each failure.
set -euo pipefail
. "$(dirname "$0")/common.sh"

is_png() { [[ -f $1 && $(head -c 8 "$1" | od -An -tx1 | tr -d ' \n') == 89504e470d0a1a0a ]]; }

# figures: boxes in view and in all; planes tested by the tree and one by one.
figures() {
    sed -nE 's/.*evaluations: ([0-9]+) by tree, ([0-9]+) one.*/\1 \2/p
             s/.*in view: ([0-9]+) of ([0-9]+) .*/\1 \2/p' "$work.out" | xargs
}

runs "wrote cull.png"
read -r seen all tree list < <(figures)
((tree > 0 && 5 * tree <= list && 0 < seen && seen < all)) || fail "default run"
is_png cull.png || fail "default run: no picture"

runs "wrote trip-001.png" "$data" --path 2 --output trip.png
is_png trip-000.png && is_png trip-001.png && [[ ! -e trip.png && ! -e trip-002.png ]] ||
    fail "--path 2: $(ls)"
cmp -s cull.png trip-000.png || fail "--path 2 does not begin at the default eye"
if cmp -s trip-000.png trip-001.png; then fail "--path 2 does not move"; fi

# Views that hold all, nothing, or boxes on both sides of the eye: no check may fail.
runs "wrote o.png" --output o.png --eye 15000 16000 90000 --target 15000 16001 0 --far 200000
runs "wrote o.png" --output o.png --eye 0 0 500 --target -1 -1 500
runs "wrote o.png" --output o.png --eye 15000 16000 600 --target 15000 17000 600 --fov 120 --near 0.1

# The same three by two heights, with comments in the header and without, draw the same picture.
body='\0001\0000\0001\0020\0001\0040\0001\0060\0001\0100\0001\0120'
printf "P5 3 2 336\n%b" "$body" >small.pgm
printf "P5 # heights\n# of a test\n3 2\n# above\n336\n%b" "$body" >comments.pgm
runs "wrote small.png" small.pgm --output small.png
runs "wrote same.png" comments.pgm --output same.png
cmp -s small.png same.png || fail "comments in the header change the picture"

# Any terrain: the camera sees some of it, and there are as many objects as asked for.
{ printf 'P5 9000 2 300\n' && head -c 36000 /dev/zero; } >long.pgm
for terrain in small.pgm long.pgm "$data"; do
    for objects in 0 1 501; do
        runs "wrote o.png" "$terrain" --objects $objects --output o.png
        read -r seen all _ < <(figures)
        ((objects > 0)) || tiles=$all
        ((seen > 0 && all == tiles + objects)) || fail "$terrain with $objects objects: $all boxes"
    done
done

echo "not a picture" >text.pgm
printf 'P5 3 2 255\nabcdef' >eight.pgm
printf 'P2 3 2 65535\n1 2 3 4 5 6' >plain.pgm
head -c 200000 "$data" >truncated.pgm
printf 'P5 0 2 65535\nabcd' >zero.pgm
printf 'P5 20001 2 65535\nabcd' >wide.pgm
printf 'P5 4294967297 4294967296 65535\nabcd' >overflow.pgm
printf 'P5 -3 2 65535\nabcdabcdabcd' >negative.pgm
printf 'P5 3 2 65535abcdefghijklm' >unended.pgm
printf "P5 3 2 335\n%b" "$body" >above.pgm
for file in missing text eight plain truncated zero wide overflow negative unended above; do
    rejects $file.pgm $file.pgm --output bad.png
done
rejects "folder: " folder --output bad.png
rejects "not a regular file" --output folder.png
rejects "No such file" --output none/bad.png
rejects "ends in .png" --output bad.jpg
rejects target --eye 1 2 3 --target 1 2 3 --output bad.png
rejects "--near must be less" --near 20 --far 10 --output bad.png
for option in "--fov 180" "--fov nan" "--eye inf 0 0" "--objects -1" "--cell-east 0" "--tilt 3"; do
    rejects "${option%% *}" $option --output bad.png
done
rejects "not a number from 1 to 170" --fov 35x

((failures == 0))
