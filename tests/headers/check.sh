#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# check.sh INCLUDE_DIR COMPILER: each public header compiles alone under C++11 to C++23 without a
# warning, and a wrong scalar type gives one readable error.
set -uo pipefail
include=$1
compiler=$2
warnings=(-Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
          -Wdouble-promotion -Wundef -Wnon-virtual-dtor -Wdeprecated -Werror)
failures=0
fail() { echo "$1"; ((++failures)); }
compile() { "$compiler" -fsyntax-only -x c++ "-I$include" "$@" -; }

headers=$(cd "$include" && find . -name '*.h' | cut -c3- | sort)
for header in $headers; do
    for standard in 11 14 17 20 23; do
        [[ $("$compiler" --version) == *clang* ]] && standard=${standard/23/2b}
        printf '#include <%s>\n#include <%s>\n' "$header" "$header" |
            compile "-std=c++$standard" "${warnings[@]}" || fail "$header, C++$standard"
    done
done

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
