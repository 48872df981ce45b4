#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# check.sh INCLUDE_DIR COMPILER [--update]: each public header compiles alone, and all of them in any
# order, under C++11 to C++23 without a warning, as they are and with small members inlined; what must
# not compile gives one readable error; headers cost their clients what cost.txt says. After a
# deliberate change of that: --update.
set -uo pipefail
include=$1
compiler=$2
cost=$(dirname "$0")/cost.txt
standards=(11 14 17 20 23)
if [[ $("$compiler" --version) == *clang* ]]; then
    standards=("${standards[@]/23/2b}")
    warnings=(-Weverything -Wno-c++98-compat-pedantic -Wno-padded)
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
    [[ $text != */Span.h* ]] || local standards=(20 "${standards[-1]}")
    for standard in "${standards[@]}"; do
        compile "-std=c++$standard" "${warnings[@]}" -Werror <<<"$text" || fail "$1, C++$standard"
    done
    for standard in "${standards[0]}" "${standards[-1]}"; do
        compile "-std=c++$standard" "${warnings[@]}" -Werror -DKYMATH_INLINE <<<"$text" ||
            fail "$1, C++$standard, inline"
    done
}

headers=$(cd "$include" && find . -name '*.h' ! -path '*/inline/*' | cut -c3- | LC_ALL=C sort)
for header in $headers; do
    printf '#include <%s>\n#include <%s>\n' "$header" "$header" | strictly "$header"
done
in_order() { # ORDER COMMAND...: without those that include all others
    grep -vE '/(Inline|Ky|KyMath|Span|Vectors)\.h$' <<<"$headers" | "${@:2}" | sed 's/.*/#include <&>/' |
        strictly "headers in $1 order"
}
in_order alphabetical cat
in_order reverse tac
for seed in 1 2 3; do in_order "random $seed" shuf --random-source=<(yes $seed); done

# What a unit reads of ours, without comments, and which headers of the standard library. Without errno,
# where compilers differ.
read_by() { echo "#include <$1>" | "$compiler" -E -dI -x c++ -fno-math-errno "-I$include" "${@:2}" -; }
ours() { awk -v folder="\"$include/" '/^# [0-9]+ "/ {on = index($0, folder); next} on && NF'; }
measured=$(for header in KyMath/Vectors.h KyMath/KyMath.h; do
    echo "$header: $(read_by $header | ours | grep -vc '^#include ') lines," \
        "with small members $(read_by $header -DKYMATH_INLINE | ours | grep -vcE '^ *#(include|pragma) ')," \
        "$(read_by $header -DKYMATH_INLINE | ours | grep -oP '^#include \K<\w+>' | sort -u | xargs)"
done)
[[ ${3:-} != --update ]] || echo "$measured" >"$cost"
diff "$cost" - <<<"$measured" || fail "included: as recorded (<), now (>)"

# refused MESSAGE FLAG...: each line that is read gives errors, all of them with that message. If it has
# a reason after " @ ", that is shown soon, before other candidates.
refused() {
    local line said
    while read -r line; do
        said=$(echo "#include <KyMath/KyMath.h>
            using namespace KyMath;
            void f(std::ostream& os, double* p, Quaterniond q, Vector2d v2, Vector3d v3, Vector4d v4,
                   Matrix44d m, Matrix44f mf, Ky::KyTransform t, Ky::KyEulerAngles e, Planed plane,
                   BoundingBoxd box, Line3 line, Segment3 s, Frustum view) { ${line% @ *}; }" |
            compile "${@:2}" 2>&1)
        grep -q error: <<<"$said" || fail "${*:2} compiles: $line"
        grep error: <<<"$said" | grep -v "$1" && fail "the message is not '$1': $line"
        [[ $line != *@* ]] || head -n 14 <<<"$said" | grep -q "DELETED.*${line#* @ }" || fail "no reason: $line"
    done
}
scalars=$(printf '%s<int> value\n' {Vector{2,3,4},Matrix44,Quaternion,BoundingBox,Plane}T)
refused "KyMath: the scalar type must be float or double" -std=c++17 <<<"$scalars"
deleted="v3 = v2
    v3 = q
    v2 = m
    Vector3d{m}
    Vector3d x = t
    Vector4d{mf}
    v4 = m
    v4 = t
    Vector3d::set(v2, v3)
    q.get(v3)
    q.get(t)
    Vector6(v3, v2)
    Vector6(v2, p)
    Vector6(0, 0)
    Vector6(p, nullptr)
    Vector6(m, v3)
    e.toMatrix44(mf)
    e.fromMatrix44(mf, e.order())
    v3 <= v3
    v3 < v4 @ addresses
    v3 == v4 @ addresses
    v2 >= v3 @ addresses
    v4 != q @ addresses
    q > v4 @ addresses
    v4 <= Vector4f() @ addresses
    v3 - v4 @ addresses
    Vector2f{v2} @ toFloat()
    Vector3f{v3} @ toFloat()
    Vector4f{v4} @ toFloat()
    Quaternionf{q} @ toFloat()
    Matrix44f{m} @ toFloat()
    BoundingBoxf{box} @ toFloat()
    Planef{plane} @ toFloat()
    s.closestPointFactor(line) @ infinite
    s.closestPointTo(line) @ infinite
    s.distanceTo(line, &v3) @ infinite
    s.distanceTo(v3, 1, nullptr, nullptr) @ infinite
    os << v3 @ Format.h
    os << q @ Format.h
    os << m @ Format.h
    os << t @ Format.h
    os << box @ Format.h
    os << BoundingSphere() @ Format.h
    os << plane @ Format.h
    os << *new Polytope @ Format.h
    os << view @ Format.h
    Ky::KY_ARE_EQUAL(1.0f, 1.0f)"
refused deleted -std=c++11 <<<"$deleted"
strictly "what a client has of its own" <<<'#include <KyMath/KyMath.h>
    using namespace KyMath;
    template <class T>
    static std::ostream& operator<<(std::ostream& os, const BoundingBoxT<T>&) { return os; }
    static std::ostream& operator<<(std::ostream& os, const Frustum&) { return os; }
    static std::ostream& operator<<(std::ostream& os, const Ky::KyTransform&) { return os; }
    double f(std::ostream& os, const Vector3d& v, const Segment3& s);
    double f(std::ostream& os, const Vector3d& v, const Segment3& s) {
        os << BoundingBoxf() << Frustum() << Ky::KyTransform();
        return s.distanceTo({v, v}, nullptr);
    }'
late=$(printf '#include <KyMath/%s.h>\n' Vector3 Inline | compile 2>&1)
[[ $late == *"error"*"<KyMath/Inline.h> before"* ]] || fail "KyMath/Inline.h may come late"
[[ $(compile -std=c++17 <<<"#include <KyMath/Span.h>" 2>&1) == *"<KyMath/Span.h> needs C++20"* ]] ||
    fail "KyMath/Span.h does not say what it needs"
containers="Polytope room
    struct { Polytope room; } scene
    Polytope *copy = new Polytope(*static_cast<Polytope*>(nullptr))
    static_cast<Polytope*>(nullptr)->getMaskStack()
    static_cast<Polytope*>(nullptr)->getPlanes()
    std::vector<Vector3d> c; CreateLinearInterpolation(v3, v3, 2, c)
    std::vector<Vector3d> c; CreateBezier(c, 2, c)
    std::vector<Vector3d> c; CreateBSpline(c, 2, c)
    std::vector<Vector3d> c; CreateCatmullRomSpline(c, 2, c)
    std::vector<Vector3d> c; CreateCurve(eCurveBezier, c, 2, c)
    v4 = std::array<double, 4>{}"
refused "KyMath: containers differ" -std=c++11 -D_GLIBCXX_DEBUG <<<"$containers"
if [[ $("$compiler" --version) == *clang* ]]; then
    refused "KyMath: the library was built with another" -std=c++11 -stdlib=libc++ <<<"$containers
        os << Vector6(p, p)
        os << Line3()
        os << e"
fi

exit $((failures > 0))
