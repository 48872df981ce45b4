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
    const double equal[][2] = {
        {0, -0.0}, {0, e}, {e, 2 * e}, {e / 2, -e / 2}, {1, 1 + 45 * ulp}, {-8, -8 - 360 * ulp}};
    // 64 steps apart: within e of the larger, but not of the smaller.
    const double smaller = 64 * ulp / e - 32 * ulp;
    const double unequal[][2] = {
        {0, above(e)},    {0, 1e-14},        {e, above(2 * e)}, {e, -e},
        {1, -1},          {1, 1 + 46 * ulp}, {inf, inf},        {smaller, smaller + 64 * ulp},
        {0, kNaN<double>}};
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
    check(false, 3, above(T(3)), 0);
    for (const double none : {-1.0, kNaN<double>}) check(false, 3, 3, none);
    check(false, inf, inf, kInf<double>);
}

}  // namespace
}  // namespace KyMath::test
