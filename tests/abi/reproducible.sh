#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# reproducible.sh SOURCE_DIR COMPILER: the library and the archive are the same bytes wherever and
# whenever they are built: in folders of other names and depths, at another time of day and age of the
# sources, under another umask and locale, in parallel or not.
set -euo pipefail
source=$1
compiler=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

build() { # FOLDER JOBS
    local folder=$work/$1
    mkdir -p "$folder/source"
    cp -r "$source"/{CMakeLists.txt,cmake,debug,include,packaging,src} "$folder/source"
    if (($2 == 1)); then find "$folder/source" -exec touch -d 2001-02-03 {} +; fi
    { cmake -G Ninja -S "$folder/source" -B "$folder/build" "-DCMAKE_CXX_COMPILER=$compiler" \
        -DCMAKE_BUILD_TYPE=Release -DKYMATH_TESTS=OFF -DKYMATH_EXAMPLES=OFF &&
        cmake --build "$folder/build" -j"$2" --target KyMath KyMathStatic; } >"$work/log" 2>&1 ||
        { cat "$work/log"; exit 1; }
    # In the archive, one section for link-time optimisation holds the path of its source, whatever
    # GCC is told.
    [[ $("$compiler" --version) == *clang* ]] ||
        objcopy -D -w -R '.gnu.lto_.decls.*' "$folder/build/src/libKyMath.a"
}
(umask 022; TZ=UTC LC_ALL=C build first 2)
(umask 077; TZ=Asia/Tokyo LC_ALL=C.UTF-8 USER=other build another/and/deeper 1)

for file in libKyMath.so libKyMath.a; do
    cmp "$work/first/build/src/$file" "$work/another/and/deeper/build/src/$file" || failures=1
done
exit $failures
