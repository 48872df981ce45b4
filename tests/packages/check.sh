#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# check.sh SOURCE_DIR PACKAGES_DIR: what the packages hold serves programs, by CMake and by pkg-config,
# and the examples; links of the pages lead to files; a program's own package would depend on the right
# one; no two hold the same file.
set -euo pipefail
source=$1
packages=$(cd "$2" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
root=$work/root
library_dir=$root/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)

for package in libkymath1 libkymath-dev libkymath-doc libkymathlockstep1 libkymathlockstep-dev python3-kymath; do
    dpkg-deb -x "$packages/${package}_"*.deb "$root"
    dpkg-deb -c "$packages/${package}_"*.deb | grep -v '/$' >>"$work/files"
done
twice=$(awk '{print $6}' "$work/files" | sort | uniq -d)
[[ ! $twice ]] || { echo "in two packages: $twice"; exit 1; }

build() { # NAME SOURCE_DIR CMAKE_ARGUMENT...
    { cmake -G Ninja -S "$2" -B "$work/$1" "-DCMAKE_PREFIX_PATH=$root/usr" "${@:3}" &&
        cmake --build "$work/$1"; } >"$work/log" 2>&1 ||
        { cat "$work/log"; echo "failed: $1"; exit 1; }
}
build client "$source/tests/consumers" -DKYMATH_FROM=package
ctest --test-dir "$work/client" --output-on-failure >"$work/log" || { cat "$work/log"; exit 1; }
build examples "$root/usr/share/doc/libkymath-doc/examples"
"$work/examples/curves" --output "$work/curves.svg" >/dev/null

export PKG_CONFIG_PATH=$library_dir/pkgconfig
[[ $(pkg-config --cflags KyMath) != *-I* ]] || { echo "pkg-config names a folder of the system"; exit 1; }
# shellcheck disable=SC2046  # the flags are words
g++ "$source/tests/consumers/main.cpp" -o "$work/plain" \
    $(pkg-config --define-variable=prefix="$root/usr" --cflags --libs KyMath)
LD_LIBRARY_PATH=$library_dir "$work/plain" >/dev/null
# shellcheck disable=SC2046
g++ "$source/tests/consumers/main.cpp" -o "$work/lockstep" \
    $(pkg-config --define-variable=prefix="$root/usr" --cflags --libs KyMath-lockstep)

PYTHONPATH=$root/usr/lib/python3/dist-packages /usr/bin/python3 -B - <<'END'
import kymath as ky, numpy as np, pathlib
m = ky.Transformation.createTranslationT(1.0, 2.0, 3.0)
assert list(ky.arrays.Transformation.transformPositionT(m, np.ones((2, 3)))[1]) == [2, 3, 4]
assert "/usr/lib/python3/dist-packages/" in ky.__file__ and pathlib.Path(ky.__path__[0], "py.typed").exists()
END
needs=$(dpkg-deb -f "$packages"/python3-kymath_*.deb Depends)
[[ $needs == "python3 (>= 3.11), "*libstdc++6* ]] || { echo "the module needs: $needs"; exit 1; }

doc=$root/usr/share/doc/libkymath-doc
[[ -e $doc/html/index.html ]] || { echo "no pages"; exit 1; }
while IFS=: read -r page target; do
    [[ -e ${page%/*}/$target ]] || { echo "${page#"$doc/"}: a link leads nowhere: $target"; exit 1; }
done < <(grep -roP --include='*.md' '\]\(\K(?!https?:)[^) :#&]+(?=[)#])' "$doc")

mkdir "$work/debian"
echo "Source: program" >"$work/debian/control"
for program in plain:libkymath1 lockstep:libkymathlockstep1; do
    library=${program#*:}
    dpkg-deb -e "$packages/${library}"_*.deb "$root/DEBIAN"
    needs=$(cd "$work" && dpkg-shlibdeps -O "-S$root" "${program%:*}" 2>/dev/null)
    [[ $needs =~ $library\ \(\>=\ [0-9]+\.[0-9]+\)(,|$) ]] || { echo "a program needs: $needs"; exit 1; }
done
needs=$(dpkg-deb -f "$packages"/libkymathlockstep-dev_*.deb Depends)
[[ $needs == *libkymath-dev* && $needs == *libkymathlockstep1* && $needs == *libsleef-dev* ]] ||
    { echo "libkymathlockstep-dev needs: $needs"; exit 1; }
