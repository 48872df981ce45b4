#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# mocap_test.sh PROGRAM DATA_DIR: runs the motion capture example, well and badly. Prints a line for
# each failure.
set -euo pipefail
program=$(realpath "$1") data=$(realpath "$2") models=/usr/share/assimp/models/BVH
work=$(mktemp -d)
trap 'rm -rf "$work" "$work.out"' EXIT
cd "$work"
failures=0 check='' output=bad.svg

fail() {
    echo "FAILED: $*: $(tr '\n' ';' <"$work.out")"
    failures=$((failures + 1))
}

# plays FRAMES ARGUMENTS...: status 0, that many frames played, and a whole picture.
plays() {
    "$program" "${@:2}" $check >"$work.out" 2>&1 || fail "${*:2}: status $?"
    grep -qE "played at .* Hz: $1 frames" "$work.out" || fail "${*:2}: not $1 frames"
    [[ $(tail -n 1 mocap.svg) == "</svg>" ]] || fail "${*:2}: no whole picture"
    if grep -qE 'nan|inf' mocap.svg; then fail "${*:2}: not a number in the picture"; fi
    rm -f mocap.svg
}

# rejects TEXT ARGUMENTS...: status 2, one line on standard error with TEXT in it, no new file.
rejects() {
    local status=0 before
    before=$(find . | sort)
    "$program" "${@:2}" --output "$output" 2>"$work.out" >/dev/null || status=$?
    [[ $status == 2 && $(wc -l <"$work.out") == 1 ]] || fail "$*: status $status"
    grep -qF -- "$1" "$work.out" || fail "$*: not in the message"
    [[ $(find . | sort) == "$before" ]] || fail "$*: left a file behind"
}

# All orders, positions before and after rotations, few channels or none, angles at and near poles.
cat >all.bvh <<'END'
HIERARCHY ROOT a {OFFSET 9 8 7 CHANNELS 6 Yposition Xposition Zposition
Yrotation Zrotation Xrotation JOINT b { OFFSET 1 2 3 CHANNELS 3 Xrotation Yrotation Zrotation
JOINT c { OFFSET 1 2 3 CHANNELS 6 Zrotation Xrotation Yrotation Zposition Yposition Xposition
JOINT d { OFFSET 1 2 3 CHANNELS 3 Xrotation Zrotation Yrotation
JOINT e { OFFSET 1 2 3 CHANNELS 3 Zrotation Yrotation Xrotation
JOINT f { OFFSET 1 2 3 CHANNELS 3 Yrotation Xrotation Zrotation
JOINT g { OFFSET 1 2 3 CHANNELS 1 Yrotation JOINT h { OFFSET 1 2 3 CHANNELS 0
End Site { OFFSET 0 1 0 } } } } } } } } } MOTION Frames: 2 Frame Time: 0.1
1 2 3 40 90 60 70 -90 90 10 90.00001 30 4 5 6 10 89.9999 -30 40 270 60 7 -8 9 400
3 2 1 10 20 30 40 -50 60 70 80 90 6 5 4 11 12 13 14 15 16 17 18 19 -179
END

if "$program" --check >"$work.out" 2>&1 || ! grep -q "not built in" "$work.out"; then
    check=--check
else
    rejects "not built in" --check
fi
plays 208
plays 2076 --rate 240
plays 1 "$data/jumps.bvh" --rate 0.1
plays 3 all.bvh
[[ ! -f $models/01_03.bvh ]] || plays 902 $models/01_03.bvh
[[ ! -f $models/Boxing_Toes.bvh ]] || plays 737 $models/Boxing_Toes.bvh
"$program" --help | grep -q -- --rate || fail "--help"

# The line that the message names, and an edit to the file above.
while read -r line edit; do
    sed "$edit" all.bvh >edited.bvh
    rejects "edited.bvh:$line: " edited.bvh
done <<'END'
1 1s/HIERARCHY/SKELETON/
1 1s/CHANNELS 6/CHANNELS 4294967296/
2 2s/CHANNELS 3/CHANNELS 2/
2 2s/Xrotation Yrotation/Xrotation Xrotation/
6 6s/1 2 3/1 2 1e300/
8 8s/} MOTION/} } MOTION/
8 8s/2 Frame/0 Frame/
8 8s/0\.1/0/
8 9,$d
9 9s/ 400//
9 9s/270/nan/
10 10s/$/ 1/
10 10s/19/nineteen/
10 8s/2 Frame/4294967295 Frame/
END
joint='{ OFFSET 0 0 0 CHANNELS 0'
printf "%s\n" "HIERARCHY ROOT a $joint" "${joint/#/JOINT b }"{,,,,,,,,,}{,,,,,,,,,}{,,,,,,,,,} >deep.bvh
rejects "fewer nested joints" deep.bvh
touch empty.bvh
mkdir folder
for file in missing.bvh empty.bvh folder; do rejects "$file:" "$file"; done
for rate in 0 -24 nan inf 1e9 many; do rejects --rate --rate "$rate"; done
sed "8s/0\.1/99/" all.bvh >slow.bvh
rejects "too many" slow.bvh --rate 1e4
rejects --speed --speed 3
output=none/bad.svg rejects none/

exit $((failures > 0))
