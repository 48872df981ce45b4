#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# agree.sh [--quick]: installs what is missing, builds the library and its table of functions in many
# ways, and compares the results of every function, to the last bit: GCC and Clang, without and with
# optimisation, with link-time optimisation and flags that let a compiler round differently, for plain
# x86-64 up to what this CPU has, shared and static, the latter also as on a processor without AVX2 or
# AVX-512; then clients of one shared library that are compiled with flags of their own, and inline small
# members or not. A difference names the build and the function. Flags that the library cannot be built
# with must be refused. The same for the library on SLEEF, also without FMA and AVX2 in the C library.
# --quick takes a few builds that differ most.
. "$(dirname "$(readlink -f "$0")")/common.sh"
takes --quick "$@"
prepare library lockstep tests clang
out=$root/build/agree
mkdir -p "$out"

marches=(x86-64)
supported=$(/lib64/ld-linux-x86-64.so.2 --help)
for march in x86-64-v3 x86-64-v4; do
    [[ $supported != *"$march (supported"* ]] || marches+=("$march")
done
optimised="-O3 -flto -freciprocal-math -fassociative-math -fno-signed-zeros -fno-trapping-math"
if [[ ${1:-} == --quick ]]; then
    builds=("g++ -O0 -march=x86-64")
    for compiler in g++ clang++; do builds+=("$compiler $optimised -march=${marches[-1]}"); done
else
    builds=()
    for march in "${marches[@]}"; do
        for level in -O0 -O2 -O3 "$optimised"; do
            for compiler in g++ clang++; do builds+=("$compiler $level -march=$march"); done
        done
    done
fi

compared=0 status=0
rm -f "$out"/reference*
# compare NAME PROGRAM
compare() {
    local reference=$out/reference
    "$2" >"$out/results" 2>"$out/messages" || { echo "$1 fails:" && cat "$out/messages" && status=1; }
    # That of the C library, which the library on SLEEF does not call.
    [[ $2 != *Lockstep* ]] || { reference+=-lockstep && sed -i 1d "$out/results"; }
    [[ -e $reference ]] || cp "$out/results" "$reference"
    compared=$((compared + 1))
    if ! diff "$reference" "$out/results" >"$out/difference"; then
        echo "$1 differs in:"
        sed -n 's/^> //p' "$out/difference"
        status=1
    fi
}

for build in "${builds[@]}"; do
    compiler=${build%% *} dir=$out/${build// /}
    cmake -S "$root" -B "$dir" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
        -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS="${build#* }" -DKYMATH_EXAMPLES=OFF \
        -DKYMATH_LOCKSTEP=ON -DCMAKE_AR="$(command -v "$([[ $compiler == g++ ]] && echo gcc-ar || echo llvm-ar)")" \
        >/dev/null
    cmake --build "$dir" --target kymath_functions_{KyMath,Static,Lockstep,LockstepStatic} >/dev/null
    if objdump -d "$dir"/src/libKyMath*.so | grep -qE 'vfn?m(add|sub)'; then
        echo "$build fuses multiplications and additions"
        status=1
    fi
    compare "$build, shared" "$dir/tests/kymath_functions_KyMath"
    compare "$build, static" "$dir/tests/kymath_functions_Static"
    WITHOUT_AVX2=1 compare "$build, static, without AVX2" "$dir/tests/kymath_functions_Static"
    WITHOUT_AVX512=1 compare "$build, static, without AVX-512" "$dir/tests/kymath_functions_Static"
    compare "$build, Lockstep" "$dir/tests/kymath_functions_Lockstep"
    GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX2,-FMA,-AVX512F,-AVX512VL \
        compare "$build, Lockstep, static, less glibc" "$dir/tests/kymath_functions_LockstepStatic"
    echo "$build: $(wc -l <"$out/results") functions"
done

dir=$out/${builds[0]// /}
clients=("-O3 -march=${marches[-1]} -ffp-contract=fast -ffast-math") # all at once
[[ ${1:-} == --quick ]] || clients=("${clients[0]% *}" -O0 "-O2 -ffast-math")
for flags in "${clients[@]}"; do
    for compiler in g++ clang++; do
        # Without -ffast-math when linking, which would change the mode of the processor.
        $compiler -std=c++17 $flags "-I$root/include" -c "$root/tests/functions/Functions.cpp" \
            -o "$out/client.o"
        g++ "$out/client.o" "$dir/tests/libkymath_function_driver.a" \
            "-L$dir/src" "-Wl,-rpath,$dir/src" -lKyMath -o "$out/client"
        compare "a client with $compiler $flags" "$out/client"
        echo "a client with $compiler $flags"
    done
done
[[ ${1:-} == --quick ]] || for compiler in g++ clang++; do # clients that inline small members
    "$root/tests/functions/inline.sh" "$dir/src/libKyMath.so" "$dir/tests/libkymath_function_driver.a" \
        $compiler --all || status=1
done
for flag in -Ofast -ffast-math -funsafe-math-optimizations -mdaz-ftz -mpc32 -mpc64; do
    said=$(cmake -S "$root" -B "$out/refused" -G Ninja -DCMAKE_BUILD_TYPE=None -DKYMATH_TESTS=OFF \
        -DCMAKE_CXX_FLAGS="-O2 $flag" -DKYMATH_EXAMPLES=OFF 2>&1) || true
    [[ $said == *"Build KyMath without $flag"* ]] || { echo "$flag is not refused" && status=1; }
done
for flag in -freciprocal-math "-fassociative-math -fno-signed-zeros -fno-trapping-math" \
    -fno-signed-zeros -fsingle-precision-constant; do # without CMake
    said=$(g++ -std=c++17 $flag -fsyntax-only "-I$root/src" "-I$root/include" \
        "$root/src/vector/Vector3.cpp" 2>&1) || true
    [[ $said == *"error: #error"*KyMath* ]] || { echo "the sources do not refuse $flag" && status=1; }
done
echo "$compared runs compared"
exit $status
