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
    EXPECT_BITS(9.9999998245167004e-15, Ky::KY_SMALL_REAL<double>::epsilon);
    EXPECT_BITS(static_cast<double>(1e-14f), Ky::KY_SMALL_REAL<double>::epsilon);
}

TEST(ToleranceTest, ScalarRuleIsAbsoluteNearZeroAndRelativeToBothElsewhere) {
    const double e = Ky::KY_SMALL_REAL<double>::epsilon, ulp = kEps<double>;
    const double nan = kNaN<double>, inf = kInf<double>, max = kMax<double>;
    // 64 steps apart: within e of the larger, but not of the smaller.
    const double smaller = 64 * ulp / e - 32 * ulp, larger = smaller + 64 * ulp;
    ASSERT_TRUE(64 * ulp / smaller > e && 64 * ulp / larger <= e);
    const struct {
        double a, b;
        bool equal;
    } cases[] = {{0, -0.0, true},
                 {0, 5e-15, true},
                 {0, e, true},
                 {0, -e, true},
                 {0, above(e), false},
                 {0, 1e-14, false},
                 {e, 2 * e, true},
                 {e, above(2 * e), false},
                 {e / 2, -e / 2, true},
                 {above(e), 2 * e, false},
                 {1e-13, 1.5e-13, false},
                 {1, 1 + 1e-15, true},
                 {1, 1 + 45 * ulp, true},
                 {1, 1 + 46 * ulp, false},
                 {-1024, -1024 * (1 + 45 * ulp), true},
                 {-1024, -1024 * (1 + 46 * ulp), false},
                 {1, -1, false},
                 {smaller, larger, false},
                 {max, max, true},
                 {max, -max, false},
                 {inf, inf, false},
                 {inf, 1, false},
                 {nan, nan, false},
                 {nan, 0, false},
                 {nan, 1, false}};
    for (const auto& c : cases) {
        EXPECT_EQ(c.equal, Ky::KY_ARE_EQUAL(c.a, c.b)) << c.a << ", " << c.b;
        EXPECT_EQ(c.equal, Ky::KY_ARE_EQUAL(c.b, c.a)) << c.b << ", " << c.a;
    }
}

// The mixed rule as each type offers it.
template <class V, class T>
bool equalTol(const V& a, const V& b, T tol) {
    return V::areEqualTol(a, b, static_cast<double>(tol));
}
template <class T>
bool equalTol(const Matrix44T<T>& a, const Matrix44T<T>& b, T tol) {
    const bool equal = a.isEqual(b, tol);
    EXPECT_EQ(equal, Matrix44T<T>::areEqualTol(a, b, static_cast<double>(tol)));
    return equal;
}
template <class T>
bool equalTol(const QuaternionT<T>& a, const QuaternionT<T>& b, T tol) {
    return QuaternionT<T>::areEqualTol(a, b, tol);
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

TYPED_TEST(ComparisonTest, EqualityIsExactInEveryComponent) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    const struct {
        T p, q;
        bool equal;
    } cases[] = {{2, 2, true},        {0, -T(0), true},         {2, above(T(2)), false},
                 {2, -2, false},      {kInf<T>, kInf<T>, true}, {kNaN<T>, kNaN<T>, false},
                 {kNaN<T>, 1, false}, {1, kNaN<T>, false}};
    for (int i = 0; i < kCount<V>; ++i) {
        for (const auto& c : cases) {
            EXPECT_EQ(c.equal, with<V>(i, c.p) == with<V>(i, c.q)) << i << ": " << c.p << c.q;
            EXPECT_EQ(!c.equal, with<V>(i, c.p) != with<V>(i, c.q)) << i << ": " << c.p << c.q;
        }
    }
}

TYPED_TEST(ComparisonTest, ToleranceIsAbsoluteNearZeroAndRelativeToBothElsewhere) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    const T tol = T(0.125), tiny = std::numeric_limits<T>::denorm_min();
    const T nan = kNaN<T>, inf = kInf<T>;
    const struct {
        T p, q, tol;
        bool equal;
    } cases[] = {{0, tol, tol, true},
                 {0, -tol, tol, true},
                 {0, above(tol), tol, false},
                 {tol / 2, -tol / 2, tol, true},
                 {tol, 2 * tol, tol, true},
                 {-tol, -2 * tol, tol, true},
                 {-tol, 2 * tol, tol, false},
                 {above(tol), 2 * tol, tol, false},
                 {8, 9, tol, true},
                 {-8, -9, tol, true},
                 {8, -9, tol, false},
                 {8, above(T(9)), tol, false},
                 {8, T(9.125), tol, false},  // within tol of the larger only
                 {1000, 1005, T(0.01), true},
                 {T(0.001), T(0.009), T(0.01), true},
                 {1, T(1.02), T(0.01), false},
                 {1000, T(1000.5), T(1e-3), true},
                 {T(0.001), T(0.0015), T(0.001), true},
                 {3, 3, 0, true},
                 {3, above(T(3)), 0, false},
                 {0, -T(0), 0, true},
                 {0, tiny, 0, false},
                 {3, 5, inf, true},
                 {3, 3, -1, false},
                 {inf, inf, tol, false},
                 {inf, inf, inf, false},
                 {inf, 1, tol, false},
                 {nan, nan, tol, false},
                 {nan, 0, tol, false},
                 {nan, 1, tol, false},
                 {nan, 1, inf, false},
                 {1, 1, nan, false}};
    for (int i = 0; i < kCount<V>; ++i) {
        for (const auto& c : cases) {
            const V a = with<V>(i, c.p), b = with<V>(i, c.q);
            EXPECT_EQ(c.equal, equalTol(a, b, c.tol)) << i << ": " << c.p << ", " << c.q;
            EXPECT_EQ(c.equal, equalTol(b, a, c.tol)) << i << ": " << c.q << ", " << c.p;
        }
    }
}

template <class V>
class FloatComparisonTest : public ::testing::Test {};
using FloatTypesComparedInDouble = ::testing::Types<Vector3f, Vector4f, Matrix44f>;
TYPED_TEST_SUITE(FloatComparisonTest, FloatTypesComparedInDouble, );

TYPED_TEST(FloatComparisonTest, OnlyTheDifferenceIsFormedInFloat) {
    using V = TypeParam;
    // 7 / 10 is above 0.7f in double, though equal to it in float.
    EXPECT_FALSE(equalTol(with<V>(0, 10), with<V>(0, 17), 0.7f));
    EXPECT_FALSE(equalTol(with<V>(0, 17), with<V>(0, 10), 0.7f));
    // 2^24 - 0.75 is 16777215.25, in float 16777215.
    EXPECT_TRUE(equalTol(with<V>(0, 16777216), with<V>(0, 0.75f), 16777215.0f));
    // 0.1f is above 0.1: only matrices narrow the tolerance to float first.
    constexpr bool kNarrows = std::is_same<V, Matrix44f>::value;
    EXPECT_EQ(kNarrows, V::areEqualTol(with<V>(0, 0), with<V>(0, 0.1f), 0.1));
}

TEST(ToleranceTest, FloatQuaternionsAreComparedInFloat) {
    EXPECT_TRUE(equalTol(with<Quaternionf>(0, 10), with<Quaternionf>(0, 17), 0.7f));
    EXPECT_TRUE(equalTol(with<Quaternionf>(0, 17), with<Quaternionf>(0, 10), 0.7f));
}

}  // namespace
}  // namespace test
}  // namespace KyMath
