#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# check.sh INCLUDE_DIR COMPILER [--update]: each public header compiles alone, and all of them in any
# order, under C++11 to C++23 without a warning; a wrong scalar type gives one readable error; headers
# cost their clients what cost.txt says. After a deliberate change of that: --update.
set -uo pipefail
include=$1
compiler=$2
cost=$(dirname "$0")/cost.txt
standards=(11 14 17 20 23)
if [[ $("$compiler" --version) == *clang* ]]; then
    standards=("${standards[@]/23/2b}")
    warnings=(-Weverything -Wno-c++98-compat-pedantic)
else # all but those about optimisation, and those that ask for attributes
    warnings=(-Wall -Wextra -Wpedantic -Wabi-tag -Warith-conversion -Wcast-align=strict -Wcast-qual
        -Wcatch-value=3 -Wcomma-subscript -Wconditionally-supported -Wconversion -Wctor-dtor-privacy
        -Wdeprecated -Wdeprecated-copy-dtor -Wdouble-promotion -Wduplicated-branches
        -Wduplicated-cond -Weffc++ -Wextra-semi -Wfloat-equal -Wformat=2 -Wlogical-op
        -Wmismatched-tags -Wmissing-declarations -Wnoexcept -Wnon-virtual-dtor -Wold-style-cast
        -Woverloaded-virtual -Wpacked -Wredundant-decls -Wredundant-tags -Wshadow -Wsign-conversion
        -Wsign-promo -Wsuggest-override -Wswitch-enum -Wundef -Wunused-macros -Wuseless-cast -Wvolatile
        -Wzero-as-null-pointer-constant)
fi
failures=0
fail() { echo "$1"; ((++failures)); }
compile() { "$compiler" -fsyntax-only -x c++ "-I$include" "$@" -; }
strictly() { # NAME: what is read compiles under all standards
    local text standard
    text=$(cat)
    for standard in "${standards[@]}"; do
        compile "-std=c++$standard" "${warnings[@]}" -Werror <<<"$text" || fail "$1, C++$standard"
    done
}

headers=$(cd "$include" && find . -name '*.h' | cut -c3- | LC_ALL=C sort)
for header in $headers; do
    printf '#include <%s>\n#include <%s>\n' "$header" "$header" | strictly "$header"
done
in_order() { # ORDER COMMAND...: without those that include all others
    grep -vE '/(Ky|KyMath|Vectors)\.h$' <<<"$headers" | "${@:2}" | sed 's/.*/#include <&>/' |
        strictly "headers in $1 order"
}
in_order alphabetical cat
in_order reverse tac
for seed in 1 2 3; do in_order "random $seed" shuf --random-source=<(yes $seed); done

# What a unit reads of ours, without comments, and which headers of the standard library.
read_by() { echo "#include <$1>" | "$compiler" -E -dI -x c++ "-I$include" -; }
ours() { awk -v folder="\"$include/" '/^# [0-9]+ "/ {on = index($0, folder); next} on && NF'; }
measured=$(for header in KyMath/Vectors.h KyMath/KyMath.h; do
    echo "$header: $(read_by $header | ours | grep -vc '^#include ') lines," \
        "$(read_by $header | ours | grep -oP '^#include \K<\w+>' | sort -u | xargs)"
done)
[[ ${3:-} != --update ]] || echo "$measured" >"$cost"
diff "$cost" - <<<"$measured" || fail "included: as recorded (<), now (>)"

for type in Vector3T Vector4T Matrix44T QuaternionT BoundingBoxT PlaneT; do
    errors=$(echo "#include <KyMath/KyMath.h>
                   void f() { KyMath::$type<int> value; }" | compile -std=c++17 2>&1 | grep 'error:')
    [[ -n $errors ]] || fail "$type<int> compiles"
    grep -v "KyMath: the scalar type must be float or double" <<<"$errors" && fail "$type<int>"
done
echo "#include <Ky/Tolerance.h>
      bool f() { return Ky::KY_ARE_EQUAL(1.0f, 1.0f); }" | compile 2>/dev/null &&
    fail "KY_ARE_EQUAL of floats compiles"

exit $((failures > 0))
