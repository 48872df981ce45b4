// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// The library's tolerances, and the comparisons that all fixed-size types offer alike.
#include "Support.h"

namespace KyMath::test {
namespace {

template <class T, class = void>
struct HasAreEqual : std::false_type {};
template <class T>
struct HasAreEqual<T, decltype(void(Ky::KY_ARE_EQUAL(std::declval<T>(), std::declval<T>())))>
    : std::true_type {};
static_assert(HasAreEqual<double>::value && !HasAreEqual<float>::value, "for double only");

TEST(ToleranceTest, EpsilonsAreFloatLiterals) {
    EXPECT_BITS(1e-6f, Ky::KY_SMALL_REAL<float>::epsilon);
    EXPECT_BITS(static_cast<double>(1e-14f), Ky::KY_SMALL_REAL<double>::epsilon);
}

TEST(ToleranceTest, ScalarsMustBeWithinEpsilonOfBoth) {
    const double e = Ky::KY_SMALL_REAL<double>::epsilon, ulp = kEps<double>, inf = kInf<double>;
    // 64 steps apart: within e of the larger, but not of the smaller.
    const double smaller = 64 * ulp / e - 32 * ulp, larger = smaller + 64 * ulp;
    ASSERT_GT(64 * ulp / smaller, e);
    ASSERT_LE(64 * ulp / larger, e);
    const double equal[][2] = {
        {0, -0.0}, {0, e}, {e, 2 * e}, {e / 2, -e / 2}, {1, 1 + 45 * ulp}, {-8, -8 - 360 * ulp}};
    const double unequal[][2] = {{0, above(e)}, {0, 1e-14},        {e, above(2 * e)},
                                 {e, -e},       {1, 1 + 46 * ulp}, {smaller, larger},
                                 {1, -1},       {inf, inf},        {kNaN<double>, 0}};
    for (const auto& [a, b] : equal) EXPECT_TRUE(Ky::KY_ARE_EQUAL(a, b)) << a << ", " << b;
    for (const auto& [a, b] : unequal) {
        EXPECT_FALSE(Ky::KY_ARE_EQUAL(a, b)) << a << ", " << b;
        EXPECT_FALSE(Ky::KY_ARE_EQUAL(b, a)) << a << ", " << b;
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
using FixedSizeTypes = ::testing::Types<Vector2f, Vector2d, Vector3f, Vector3d, Vector4f, Vector4d,
                                        Matrix44f, Matrix44d, Quaternionf, Quaterniond>;
TYPED_TEST_SUITE(ComparisonTest, FixedSizeTypes, );

TYPED_TEST(ComparisonTest, IsAbsoluteNearZeroRelativeElsewhere) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    const T tol = T(0.125), inf = kInf<T>, nan = kNaN<T>;
    const auto check = [](bool expected, T p, T q, double tolerance) {
        for (int i = 0; i < kCount<V>; ++i) {
            const V a = with<V>(i, p), b = with<V>(i, q);
            EXPECT_EQ(p == q, a == b) << p << ", " << q;
            EXPECT_EQ(p != q, a != b) << p << ", " << q;
            EXPECT_EQ(expected, equalTol(a, b, tolerance)) << i << ": " << p << ", " << q;
            EXPECT_EQ(expected, equalTol(b, a, tolerance)) << i << ": " << q << ", " << p;
        }
    };
    const T equal[][2] = {{0, tol}, {tol, 2 * tol}, {tol / 2, -tol / 2}, {8, 9}, {-8, -9}};
    const T unequal[][2] = {{0, above(tol)}, {tol, -tol}, {8, above(T(9))}, {8, T(9.125)},
                            {8, -8},         {inf, 3},    {nan, 0},         {nan, nan}};
    for (const auto& [p, q] : equal) check(true, p, q, 0.125);
    for (const auto& [p, q] : unequal) check(false, p, q, 0.125);
    check(true, 0, -T(0), 0);
    check(true, 3, 3, 0);
    check(true, 3, 9, kInf<double>);
    check(false, 3, above(T(3)), 0);
    check(false, 3, 3, -1);
    check(false, 3, 3, kNaN<double>);
    check(false, inf, inf, kInf<double>);
}

template <class V>
class FloatComparisonTest : public ::testing::Test {};
using FloatTypes = ::testing::Types<Vector2f, Vector3f, Vector4f, Matrix44f, Quaternionf>;
TYPED_TEST_SUITE(FloatComparisonTest, FloatTypes, );

// Except for quaternions.
TYPED_TEST(FloatComparisonTest, OnlyTheDifferenceIsFormedInFloat) {
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
}  // namespace KyMath::test
