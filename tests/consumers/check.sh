#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# check.sh SOURCE_DIR BUILD_DIR COMPILER [--update]: exactly the files of installed.txt are installed,
# and the library is usable by every way that is offered: as an installed package (in a prefix that was
# moved), as a subdirectory, by FetchContent and by pkg-config. A project that takes it is as it was
# before. After a deliberate change of the list: --update.
set -euo pipefail
source=$(cd "$1" && pwd)
build=$(cd "$2" && pwd)
compiler=$3
consumer=$source/tests/consumers
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

configure() { # NAME CMAKE_ARGUMENT...
    cmake -G Ninja -S "$consumer" -B "$work/$1" "-DCMAKE_CXX_COMPILER=$compiler" "${@:2}"
}
try() { # the same
    { configure "$@" && cmake --build "$work/$1" -j2 &&
        ctest --test-dir "$work/$1" --output-on-failure; } >"$work/log" 2>&1 ||
        { cat "$work/log"; echo "failed: $1"; return 1; }
}

cached() { grep -oP "^$1:[^=]*=\K.*" "$build/CMakeCache.txt"; }
version=$(cached CMAKE_PROJECT_VERSION)

# What each component installs, wherever the libraries go.
list=$consumer/installed.txt
for component in development runtime; do
    for library in KyMath KyMathLockstep; do
        cmake --install "$build" --prefix "$work/$component" --component "${library}_$component" >/dev/null
    done
    (cd "$work/$component" && find . ! -type d -printf "$component %P\n")
done | sed "s| $(cached CMAKE_INSTALL_LIBDIR)/| lib/|; s|\.so\.$version|.so.VERSION|" |
    LC_ALL=C sort >"$work/installed"
[[ ${4:-} != --update ]] || cp "$work/installed" "$list"
absent=$([[ $(cached KYMATH_LOCKSTEP) == ON ]] || echo '[Ll]ockstep')
diff <(grep -v "${absent:-^$}" "$list") "$work/installed" || { echo "no more (<) or newly (>) installed"; exit 1; }

# Together that is everything. No file tells where it was installed: all of it can be moved.
cmake --install "$build" --prefix "$work/first" >/dev/null
mv "$work/first" "$work/prefix"
library_dir=$(dirname "$(find "$work/prefix" -name 'libKyMath.so')")
cp -a "$work/runtime/." "$work/development"
diff -r "$work/development" "$work/prefix"
DESTDIR=$work/root cmake --install "$build" --prefix /opt/kymath >/dev/null
mkdir -p "$work/expected/opt"
mv "$work/development" "$work/expected/opt/kymath"
diff -r "$work/expected" "$work/root"

try package -DKYMATH_FROM=package "-DCMAKE_PREFIX_PATH=$work/prefix"
# What this would build, the next one builds.
configure subdirectory -DKYMATH_FROM=subdirectory "-DKYMATH_SOURCE=$source" >/dev/null
# A whole project may have a standard library of its own.
if [[ $("$compiler" --version) == *clang* ]]; then mode=-stdlib=libc++; else mode=-D_GLIBCXX_DEBUG; fi
try fetch -DKYMATH_FROM=fetch "-DKYMATH_SOURCE=$source" -DCMAKE_BUILD_TYPE=Debug \
    "-DCMAKE_CXX_FLAGS_DEBUG=$mode"
for name in package subdirectory; do
    diff "$work/$name/before" "$work/$name/after" || { echo "changed in the client: $name"; exit 1; }
done

# One program cannot have both libraries: one of them would serve all of it.
if [[ -z $absent ]]; then
    said=$(try both -DKYMATH_FROM=package "-DCMAKE_PREFIX_PATH=$work/prefix" \
        -DKYMATH_ALSO=KyMath::LockstepInline) && { echo "accepted: both libraries"; exit 1; }
    [[ $said == *"INTERFACE_KYMATH_LIBM property of \"KyMath::Lockstep\""* ]] || { echo "$said"; exit 1; }
fi

# A version that is not there is refused, and the message says which one is.
for other in ${version%%.*}.99 $((${version%%.*} + 1)).0; do
    said=$(try refused -DKYMATH_FROM=package "-DCMAKE_PREFIX_PATH=$work/prefix" \
        "-DKYMATH_VERSION=$other" | tr -s '[:space:]' ' ') &&
        { echo "accepted as version $other"; exit 1; }
    [[ $said == *"\"KyMath\" that is compatible with requested version \"$other\""* &&
        $said == *"KyMathConfig.cmake, version: $version"* ]] || { echo "$said"; exit 1; }
done

# Inlined into a client that is compiled for fused operations, the same bits still.
if grep -qw fma /proc/cpuinfo && [[ $("$compiler" --version) != *clang* ]]; then
    try inlined -DKYMATH_FROM=package "-DCMAKE_PREFIX_PATH=$work/prefix" \
        "-DCONSUMER_FLAGS=-O3;-flto;-march=x86-64-v3"
    for library in Static Inline; do
        cmp <("$work/inlined/consumer_KyMath") <("$work/inlined/consumer_$library")
        if nm -C "$work/inlined/consumer_$library" | grep -F "Vector3T<double>::cross"; then
            echo "failed: nothing is inlined by KyMath::$library"
            exit 1
        fi
    done
fi

export PKG_CONFIG_PATH=$library_dir/pkgconfig
pkg-config --exact-version="$version" KyMath || { echo "pkg-config tells another version"; exit 1; }
[[ $(pkg-config --static --libs KyMath) == *"-lKyMath -lm"* ]] ||
    { echo "pkg-config: not all that the archive needs"; exit 1; }
for own in -D_GLIBCXX_USE_CXX11_ABI=0 "-DWITHHELD $mode" "-O1 $(pkg-config --cflags KyMath-inline)"; do
    # shellcheck disable=SC2086  # the flags are words
    "$compiler" -std=c++11 $own "$consumer/main.cpp" $(pkg-config --cflags --libs KyMath) -o "$work/plain"
    LD_LIBRARY_PATH=$library_dir "$work/plain"
done
if nm -C "$work/plain" | grep -F "Vector3T<double>::cross"; then
    echo "failed: nothing is inlined with the flags of KyMath-inline.pc"
    exit 1
fi
if [[ -z $absent ]]; then
    # shellcheck disable=SC2046  # the flags are words
    "$compiler" -O1 "$consumer/main.cpp" $(pkg-config --cflags --libs KyMath-lockstep-inline) -o "$work/lockstep"
    LD_LIBRARY_PATH=$library_dir "$work/lockstep" >"$work/expected.txt"
    for library in Lockstep LockstepInline LockstepStatic; do
        "$work/package/consumer_$library" | diff "$work/expected.txt" -
    done
    if "$work/package/consumer_KyMath" | cmp -s "$work/expected.txt" -; then
        echo "failed: the Lockstep library gives the results of the other"
        exit 1
    fi
fi

readelf -dW "$library_dir/libKyMath.so" | grep -qF "soname: [libKyMath.so.${version%%.*}]"
[[ $(readlink -f "$library_dir/libKyMath.so") == */libKyMath.so.$version ]]
