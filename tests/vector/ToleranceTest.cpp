// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// The library's tolerances, and the comparisons that all fixed-size types offer alike.
#include "Support.h"

namespace KyMath {
namespace test {
namespace {

template <class T, class = void>
struct HasAreEqual : std::false_type {};
template <class T>
struct HasAreEqual<T, decltype(void(Ky::KY_ARE_EQUAL(std::declval<T>(), std::declval<T>())))>
    : std::true_type {};
static_assert(HasAreEqual<double>::value && !HasAreEqual<float>::value, "for double only");

TEST(ToleranceTest, EpsilonsAreFloatLiteralsTheDoubleOneWidened) {
    EXPECT_BITS(1e-6f, Ky::KY_SMALL_REAL<float>::epsilon);
    EXPECT_BITS(static_cast<double>(1e-14f), Ky::KY_SMALL_REAL<double>::epsilon);
}

TEST(ToleranceTest, ScalarRuleIsAbsoluteNearZeroAndRelativeToBothElsewhere) {
    const double e = Ky::KY_SMALL_REAL<double>::epsilon, half = e / 2, twice = 2 * e;
    const double max = kMax<double>, inf = kInf<double>, nan = kNaN<double>, ulp = kEps<double>;
    // 64 steps apart: within e of the larger, but not of the smaller.
    const double smaller = 64 * ulp / e - 32 * ulp, larger = smaller + 64 * ulp;
    ASSERT_TRUE(64 * ulp / smaller > e && 64 * ulp / larger <= e);
    const double near = 1 + 45 * ulp, beyond = 1 + 46 * ulp;
    const double values[] = {0,       -0.0,         e,   -e,   above(e), 1e-14,  half, -half,
                             twice,   above(twice), 1,   -1,   near,     beyond, -8,   -8 * near,
                             smaller, larger,       max, -max, inf,      nan};
    for (const double a : values) {
        for (const double b : values) {
            EXPECT_EQ(equalWithin(a, b, e), Ky::KY_ARE_EQUAL(a, b)) << a << ", " << b;
        }
    }
}

// The mixed rule as each type offers it.
template <class V>
bool equalTol(const V& a, const V& b, double tol) {
    return V::areEqualTol(a, b, tol);
}
template <class T>
bool equalTol(const Matrix44T<T>& a, const Matrix44T<T>& b, double tol) {
    const bool equal = a.isEqual(b, static_cast<T>(tol));
    EXPECT_EQ(equal, Matrix44T<T>::areEqualTol(a, b, tol));
    return equal;
}
template <class T>
bool equalTol(const QuaternionT<T>& a, const QuaternionT<T>& b, double tol) {
    return QuaternionT<T>::areEqualTol(a, b, static_cast<T>(tol));
}

// A value of V whose component i is x, the others being given.
template <class V>
V with(int i, ScalarOf<V> x) {
    return each<V>([&](int k) { return k == i ? x : ScalarOf<V>(k + 1); });
}

template <class V>
class ComparisonTest : public ::testing::Test {};
using FixedSizeTypes = ::testing::Types<Vector3f, Vector3d, Vector4f, Vector4d, Matrix44f,
                                        Matrix44d, Quaternionf, Quaterniond>;
TYPED_TEST_SUITE(ComparisonTest, FixedSizeTypes, );

TYPED_TEST(ComparisonTest, IsExactOrAbsoluteNearZeroAndRelativeToBothElsewhere) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    const T tol = T(0.125), tiny = std::numeric_limits<T>::denorm_min();
    // 9.125 is within 0.125 of 8 relative to itself only.
    const T values[] = {0,        -T(0),       tiny,     tol,         -tol,   above(tol), tol / 2,
                        -tol / 2, 2 * tol,     3,        above(T(3)), 8,      -8,         9,
                        -9,       above(T(9)), T(9.125), kInf<T>,     kNaN<T>};
    for (const T p : values) {
        for (const T q : values) {
            for (int i = 0; i < kCount<V>; ++i) {
                const V a = with<V>(i, p), b = with<V>(i, q);
                EXPECT_TRUE((a == b) == (p == q) && (a != b) == (p != q)) << i << ": " << p << q;
                for (const double t : {0.125, 0.0, -1.0, kInf<double>, kNaN<double>}) {
                    const bool equal = equalWithin(p, q, t) && equalWithin(T(1), T(1), t);
                    EXPECT_EQ(equal, equalTol(a, b, t)) << i << ": " << p << ", " << q << ", " << t;
                }
            }
        }
    }
}

template <class V>
class FloatComparisonTest : public ::testing::Test {};
using FloatTypes = ::testing::Types<Vector3f, Vector4f, Matrix44f, Quaternionf>;
TYPED_TEST_SUITE(FloatComparisonTest, FloatTypes, );

TYPED_TEST(FloatComparisonTest, OnlyTheDifferenceIsFormedInFloatButForQuaternions) {
    using V = TypeParam;
    constexpr bool kInFloat = std::is_same<V, Quaternionf>::value;
    // 7 / 10 is above 0.7f in double, though equal to it in float.
    const double tol = static_cast<double>(0.7f);
    EXPECT_EQ(kInFloat, equalTol(with<V>(0, 10), with<V>(0, 17), tol));
    EXPECT_EQ(kInFloat, equalTol(with<V>(0, 17), with<V>(0, 10), tol));
    // 2^24 - 0.75 is 16777215.25, in float 16777215.
    EXPECT_TRUE(equalTol(with<V>(0, 16777216), with<V>(0, 0.75f), 16777215));
    // 0.1f is above 0.1: only vectors take the tolerance in double.
    constexpr bool kNarrows = kInFloat || std::is_same<V, Matrix44f>::value;
    EXPECT_EQ(kNarrows, equalTol(with<V>(0, 0), with<V>(0, 0.1f), 0.1));
}

}  // namespace
}  // namespace test
}  // namespace KyMath
