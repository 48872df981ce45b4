#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# mocap_test.sh PROGRAM DATA_DIR: runs the motion capture example, well and badly. Prints a line for
# each failure.
set -euo pipefail
. "$(dirname "$0")/common.sh"
models=/usr/share/assimp/models/BVH check=''

# plays FRAMES ARGUMENTS...: as many frames are played, and the picture is whole.
plays() {
    runs "wrote mocap.svg" "${@:2}" $check
    grep -qE "played at .* Hz: $1 frames?$" "$work.out" || fail "${*:2}: not $1 frames"
    [[ $(tail -n 1 mocap.svg) == "</svg>" ]] || fail "${*:2}: no whole picture"
    if grep -qE 'nan|inf' mocap.svg; then fail "${*:2}: not a number in the picture"; fi
    rm -f mocap.svg
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
# Two lines more than the frames that the file counts. Another reader may not take these.
sed '$p' all.bvh | sed '$p' >more.bvh
check='' plays 3 more.bvh
grep -q "dropped: 2 lines" "$work.out" || fail "more.bvh: does not say what is dropped"

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
rejects "before the end of the file" edited.bvh
joint='{ OFFSET 0 0 0 CHANNELS 0'
printf "%s\n" "HIERARCHY ROOT a $joint" "${joint/#/JOINT b }"{,,,,,,,,,}{,,,,,,,,,}{,,,,,,,,,} >deep.bvh
rejects "fewer nested joints" deep.bvh
touch empty.bvh
for file in missing.bvh empty.bvh folder; do rejects "$file:" "$file"; done
rejects "more than 100 MB" /dev/stdin < <(head -c 110000000 /dev/zero)
for rate in 0 -24 nan inf 1e9 many; do rejects --rate --rate "$rate"; done
sed "8s/0\.1/99/" all.bvh >slow.bvh
rejects "too many" slow.bvh --rate 1e4
rejects --speed --speed 3

# The input by other names.
cp all.bvh in.svg
ln -s in.svg symbolic.svg
ln in.svg hard.svg
for output in in.svg ./folder/../in.svg symbolic.svg hard.svg; do
    rejects "the input would be overwritten" in.svg --output $output
done

((failures == 0))
