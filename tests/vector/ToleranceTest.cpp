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
    const double e = Ky::KY_SMALL_REAL<double>::epsilon, ulp = kEps<double>, inf = kInf<double>;
    // 64 steps apart: within e of the larger, but not of the smaller.
    const double smaller = 64 * ulp / e - 32 * ulp, larger = smaller + 64 * ulp;
    ASSERT_TRUE(64 * ulp / smaller > e && 64 * ulp / larger <= e);
    const struct {
        double a, b;
        bool equal;
    } cases[] = {{0, -0.0, true},          {0, e, true},
                 {0, above(e), false},     {0, 1e-14, false},
                 {e, 2 * e, true},         {e, above(2 * e), false},
                 {e / 2, -e / 2, true},    {e, -e, false},
                 {1, 1 + 45 * ulp, true},  {1, 1 + 46 * ulp, false},
                 {smaller, larger, false}, {-8, -8 - 360 * ulp, true},
                 {1, -1, false},           {inf, inf, false},
                 {kNaN<double>, 0, false}};
    for (const auto& c : cases) {
        EXPECT_EQ(c.equal, Ky::KY_ARE_EQUAL(c.a, c.b)) << c.a << ", " << c.b;
        EXPECT_EQ(c.equal, Ky::KY_ARE_EQUAL(c.b, c.a)) << c.b << ", " << c.a;
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

TYPED_TEST(ComparisonTest, IsExactOrAbsoluteNearZeroAndRelativeToBothElsewhere) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    const T tol = T(0.125), inf = kInf<T>, nan = kNaN<T>;
    const struct {
        T p, q;
        double tol;
        bool equal;
    } cases[] = {{0, tol, 0.125, true},
                 {0, above(tol), 0.125, false},
                 {tol, 2 * tol, 0.125, true},
                 {tol / 2, -tol / 2, 0.125, true},
                 {tol, -tol, 0.125, false},
                 {8, 9, 0.125, true},
                 {8, above(T(9)), 0.125, false},
                 {8, T(9.125), 0.125, false},
                 {-8, -9, 0.125, true},
                 {8, -8, 0.125, false},
                 {3, above(T(3)), 0, false},
                 {0, -T(0), 0, true},
                 {3, 3, 0, true},
                 {3, 3, -1, false},
                 {3, 3, kNaN<double>, false},
                 {3, 9, kInf<double>, true},
                 {inf, 3, 0.125, false},
                 {inf, inf, kInf<double>, false},
                 {nan, 0, 0.125, false},
                 {nan, nan, 0.125, false}};
    for (const auto& c : cases) {
        for (int i = 0; i < kCount<V>; ++i) {
            const V a = with<V>(i, c.p), b = with<V>(i, c.q);
            EXPECT_TRUE((a == b) == (c.p == c.q) && (a != b) == (c.p != c.q)) << c.p << c.q;
            EXPECT_EQ(c.equal, equalTol(a, b, c.tol)) << i << ": " << c.p << ", " << c.q;
            EXPECT_EQ(c.equal, equalTol(b, a, c.tol)) << i << ": " << c.q << ", " << c.p;
        }
    }
}

template <class V>
class FloatComparisonTest : public ::testing::Test {};
using FloatTypes = ::testing::Types<Vector2f, Vector3f, Vector4f, Matrix44f, Quaternionf>;
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
