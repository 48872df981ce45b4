#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# coverage.sh: installs what is missing, runs the tests on the archive, with AVX-512 (which the
# processor must have), with AVX2 only and with neither, and prints how many lines, branches and
# conditions (MC/DC) of src they cover, of a template in its best instantiation; then all that any
# instantiation leaves uncovered. It
# fails for a place that tests/coverage/unreachable.txt does not explain, and for an explanation
# that matches nothing.
. "$(dirname "$(readlink -f "$0")")/common.sh"
takes '' "$@"
build=$root/build/coverage
programs=("kymath_tests_static --gtest_brief=1" kymath_functions_Static) # with their options

prepare library tests coverage
cmake -S "$root" -B "$build" -G Ninja --log-level=WARNING -DCMAKE_CXX_COMPILER=clang++-19 \
    -DCMAKE_BUILD_TYPE=None "-DCMAKE_RUNTIME_OUTPUT_DIRECTORY=$build/bin" -DKYMATH_EXAMPLES=OFF \
    -DCMAKE_CXX_FLAGS="-fprofile-instr-generate -fcoverage-mapping -fcoverage-mcdc"
cmake --build "$build" --target KyMath "${programs[@]%% *}"
rm -f "$build"/*.profraw
for program in "${programs[@]}"; do
    LLVM_PROFILE_FILE=$build/${program%% *}.profraw "$build/bin/"$program
    WITHOUT_AVX2=1 LLVM_PROFILE_FILE=$build/${program%% *}.plain.profraw "$build/bin/"$program
    WITHOUT_AVX512=1 LLVM_PROFILE_FILE=$build/${program%% *}.avx2.profraw "$build/bin/"$program
done
llvm-profdata-19 merge "$build"/*.profraw -o "$build/profdata"
# What there is to cover is read from the shared library: all of it, whatever the programs link.
llvm-cov-19 export "$build/src/libKyMath.so" "-instr-profile=$build/profdata" >"$build/all.json"

jq -r '.data[0] | (.files[], {filename: "Total", summary: .totals}) |
       [.filename, (.summary | .lines, .branches, .mcdc | .covered, .count)] | @tsv' \
    "$build/all.json" | sed -E "s#^$root/(src|include)/##" |
    awk 'BEGIN { printf "%-36s%14s%14s%14s\n", "", "Lines", "Branches", "MC/DC" }
         { printf "%-36s%6d of %4d%6d of %4d%6d of %4d\n", $1, $2, $3, $4, $5, $6, $7 }'
jq -r 'def row($count; file; what): select($count == 0) | [file, .[:4][], what] | @tsv;
       def place: "\(.filenames[0]) \(.regions[0][:2])";
       .data[0].functions | INDEX(.[] | select(.count > 0); place) as $run | .[] |
       select(.count > 0 or ($run[place] | not)) | # each source has its copies of small functions
       .filenames as $f |
       (.regions[] | select(.[7] == 0) | row(.[4]; $f[.[5]]; "never run")),
       (.branches[] | row(.[4]; $f[.[6]]; "never true"), row(.[5]; $f[.[6]]; "never false")),
       (.mcdc_records[] | (.[6] | to_entries[] | select(.value | not) | .key + 1) as $i |
        row(0; $f[0]; "condition \($i) decides nothing"))' "$build/all.json" |
    sort -uV >"$build/uncovered"

declare -A reasons matched # by "file: piece of the source"; a reason is indented below
while IFS= read -r line; do
    if [[ $line == ' '* ]]; then reasons[$entry]+=$line$'\n'; else entry=$line reasons[$line]=; fi
done < <(grep '^[^#]' "$root/tests/coverage/unreachable.txt")
status=0
while IFS=$'\t' read -r path line column endLine endColumn what; do
    text=$(sed -n "${line}p" "$path" | cut -c "$column-$((line < endLine ? 999 : endColumn - 1))")
    file=${path#"$root"/*/} verdict="Not covered"
    [[ $(sed -n "${line}p" "$path") != *constexpr* ]] || continue # the compiler runs it
    for entry in "${!reasons[@]}"; do
        [[ $file == "${entry%%: *}" && $text == *"${entry#*: }"* ]] || continue
        matched[$entry]=1 verdict="Not reachable"
    done
    echo "$verdict: $file:$line:$column: $what: $text"
    [[ $verdict == "Not reachable" ]] || status=1
done <"$build/uncovered"
for entry in "${!reasons[@]}"; do
    printf '%s\n%s' "$entry" "${reasons[$entry]}"
    [[ ${matched[$entry]:-} ]] || { echo "    This matches nothing uncovered." && status=1; }
done
exit $status
