// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// What the vectors of two, three and four components share (VectorFamilyTest), and the
// three-component one. Their == and areEqualTol are in ToleranceTest.cpp.
#include "Support.h"

namespace KyMath {
namespace test {
namespace {

static_assert(kRefuses<Vector3f, int, std::nullptr_t, Vector3d, Quaternionf>);
static_assert(kRefuses<Vector3d, int, std::nullptr_t, Vector3f, Quaterniond>);
static_assert(!IsStreamable<Vector3f>::value && !IsStreamable<Vector3d>::value);
static_assert(kRefuses<Vector4f, Vector3f, Vector3f&, Quaternionf, int, std::nullptr_t, Vector4d>);
static_assert(kRefuses<Vector4d, Vector3d, Vector3d&, Quaterniond, int, std::nullptr_t, Vector4f>);
static_assert(!IsStreamable<Vector4f>::value && !IsStreamable<Vector4d>::value);

template <class V>
class VectorFamilyTest : public ::testing::Test {};
using Vectors = ::testing::Types<Vector2f, Vector2d, Vector3f, Vector3d, Vector4f, Vector4d>;
TYPED_TEST_SUITE(VectorFamilyTest, Vectors, );

// Deliberate: an order of lengths, in which different vectors can be alike.
TYPED_TEST(VectorFamilyTest, OrderingComparesSquaredLengths) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    V a, b;
    a[0] = -4, b[kCount<V> - 1] = 4;
    EXPECT_FALSE(a < b || b < a || a > b || b > a);
    // The length of 1 and sqrt(eps) rounds to 1, but its square is above 1.
    a[0] = b[0] = 1, b[kCount<V> - 1] = std::sqrt(kEps<T>);
    EXPECT_EQ(a.norm(), b.norm());
    EXPECT_TRUE(a < b && b > a && !(b < a) && !(a > b));
    b[0] = kNaN<T>;
    EXPECT_FALSE(a < b || b < a || a > b || b > a);
}

TYPED_TEST(VectorFamilyTest, NormalizeWantsAPositiveSquareOrALengthAboveTheTolerance) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    const auto along = [](T x, T y) {
        V v;
        v[0] = x, v[kCount<V> - 1] = y;
        return v;
    };
    const V five = along(3, -4), unit = along(3 * (1 / T(5)), -4 * (1 / T(5)));
    EXPECT_BITS(unit, after(five, [](V& v) { v.normalize(); }));
    for (const T tol : {T(5), below(T(5)), above(T(5)), T(-1), kNaN<T>}) {
        V v = five;
        T length = 42;
        EXPECT_EQ(5 > tol, v.normalize(tol, &length)) << tol;
        EXPECT_BITS(5 > tol ? T(5) : T(0), length);
        EXPECT_BITS(5 > tol ? unit : five, v);
    }
    // The square of 0 or near it is 0: there is no direction, unless any length will do.
    const T root = std::sqrt(std::numeric_limits<T>::min());
    for (const T x : {T(0), -T(0), root * kEps<T>, root}) {
        const V v = along(0, x), expected = along(0, x < root ? x : T(1));
        EXPECT_BITS(expected, after(v, [](V& u) { u.normalize(); })) << x;
        T length = 42;
        EXPECT_BITS(expected,
                    after(v, [&](V& u) { EXPECT_EQ(x == root, u.normalize(0, &length)); }));
        EXPECT_BITS(x < root ? T(0) : root, length);
    }
    V zero;
    T length = 42;
    EXPECT_TRUE(zero.normalize(-1, &length));
    EXPECT_TRUE(length == 0 && std::isnan(zero[0]));
}

template <class T>
class Vector3Test : public ::testing::Test {};
TYPED_TEST_SUITE(Vector3Test, Scalars, );

TYPED_TEST(Vector3Test, ViewsShareTheArrayAndPrintPrintsNothing) {
    using T = TypeParam;
    using V = Vector3T<T>;
    T array[] = {1, T(0.1), 3};
    EXPECT_EQ(static_cast<void*>(array), V::cast(array));
    EXPECT_EQ(static_cast<const void*>(array), V::constCast(array));
    double wide[] = {0, 0, 0, 7};
    V::set(wide, V(array));
    EXPECT_TRUE(wide[0] == 1 && wide[1] == static_cast<double>(T(0.1)) && wide[3] == 7);
    ::testing::internal::CaptureStdout();
    V(array).print("label");
    EXPECT_EQ("", ::testing::internal::GetCapturedStdout());
}

TYPED_TEST(Vector3Test, OperandsMayBeTheVectorItselfOrItsComponents) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const V v(2, -3, 5), u(7, 11, -13);
    EXPECT_BITS(V(4, -6, 10), after(v, [](V& w) { w += w; }));
    EXPECT_BITS(V(0, 0, 0), after(v, [](V& w) { w -= w; }));
    EXPECT_BITS(V(4, -6, 10), after(v, [](V& w) { w *= w[0]; }));
    EXPECT_BITS(V(4, 9, 25), after(v, [](V& w) { w.multComp(w); }));
    EXPECT_BITS(V(6, -9, 15), after(v, [](V& w) { w.addMultiple(w[0], w); }));
    EXPECT_BITS(V(25, 27, -29), after(v, [&](V& w) { w.setLinear(w[0], w, w[2] - 2, u); }));
    EXPECT_BITS(V(-16, 61, 43), after(v, [&](V& w) { w.postCross(u); }));
    EXPECT_BITS(V(16, -61, -43), after(v, [&](V& w) { w.preCross(u); }));
    EXPECT_BITS(V(16, -61, -43), after(v, [&](V& w) { w.setCross(u, w); }));
    // v x (1, 0, 0): the axis after the largest component.
    EXPECT_EQ(V(0, 5, 3), after(v, [](V& w) { w.setOrthogonal(w); }));
    V dir(0, 0, 1), across;
    v.project(dir, &dir, &across);
    EXPECT_BITS(V(0, 0, 5), dir);
    EXPECT_BITS(V(2, -3, 0), across);
}

TYPED_TEST(Vector3Test, LargestComponentIsTheLaterOfEqualsAndIsCleanedWithinTheTolerance) {
    using T = TypeParam;
    const T nan = kNaN<T>, tol = T(0.125);
    const struct {
        T x, y, z;
        int index;
    } largest[] = {{-3, 2, 1, 0}, {-2, 2, 1, 1},  {2, 1, -2, 2},  {1, 1, 1, 2},  {1, -3, 2, 1},
                   {1, 2, 2, 2},  {nan, 0, 0, 2}, {5, nan, 0, 2}, {5, 0, nan, 2}};
    for (const auto& c : largest) {
        EXPECT_EQ(c.index, Vector3T<T>(c.x, c.y, c.z).maxComponentIndex()) << c.x << ", " << c.y;
    }
    const struct {
        T most, other, expected;  // 0: not clean
    } clean[] = {{1, tol, 1},         {-1, -tol, -1},   {1, above(tol), 0},
                 {1, -above(tol), 0}, {1 + tol, 0, 1},  {above(1 + tol), 0, 0},
                 {1 - tol, 0, 1},     {tol - 1, 0, -1}, {below(1 - tol), 0, 0}};
    for (const auto& c : clean) {
        for (int i = 0; i < 6; ++i) {
            const int k = i % 3, other = (k + 1 + i / 3) % 3;
            Vector3T<T> v;
            v[k] = c.most, v[other] = c.other;
            const Vector3T<T> before = v;
            EXPECT_EQ(c.expected != 0, v.makeCleanBase(tol)) << c.most << ", " << c.other;
            EXPECT_BITS(c.expected != 0 ? c.expected : before[k], v[k]);
            EXPECT_BITS(c.expected != 0 ? T(0) : before[other], v[other]);
        }
    }
    Vector3T<T> v(nan, nan, nan);  // within any tolerance, and not positive
    EXPECT_TRUE(v.makeCleanBase(tol));
    EXPECT_BITS(Vector3T<T>(0, 0, -1), v);
}

TYPED_TEST(Vector3Test, OrthogonalizeIgnoresZeroAndTakesAnyOtherLength) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const auto made = [](const V& dir) {
        return after(V(1, 2, 3), [&](V& v) { v.orthogonalize(dir); });
    };
    EXPECT_BITS(V(1, 2, 3), made(V(0, -T(0), 0)));
    EXPECT_BITS(V(1, 0, 3), made(V(0, 8, 0)));
    // What is not zero counts, even if its square is.
    EXPECT_TRUE(std::isnan(made(V(0, 0, std::numeric_limits<T>::denorm_min()))[0]));
}

// Deliberate: the sum of two magnitudes decides, not the largest component.
TYPED_TEST(Vector3Test, PlaneSpaceComparesTheSumOfXAndZWithY) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const auto check = [](const V& n, bool first) {
        V u, v;
        n.planeSpace(u, v);
        EXPECT_EQ(first, u[1] == 0) << n[1];
        EXPECT_EQ(first, u[0] != 0) << n[1];
        EXPECT_BITS(n.cross(u), v);
    };
    check(V(1, below(T(3)), 2), true);
    check(V(1, 3, -2), false);
    check(V(-1, -3, 2), false);
    V u, v;
    V(3, 1, 4).planeSpace(u, v);
    EXPECT_BITS(V(4 * (1 / T(5)), 0, -3 * (1 / T(5))), u);
    V(0, 3, 0).planeSpace(u, v);
    EXPECT_EQ(V(0, 0, 3 * (1 / T(3))), u);
    V().planeSpace(u, v);  // no direction: the zeros are those of the formula
    EXPECT_TRUE(u[0] == 0 && std::isnan(u[1]) && std::isnan(u[2]));
}

TYPED_TEST(Vector3Test, PlaneNormalTurnsFromTheFirstEdgeToTheSecond) {
    using T = TypeParam;
    using V = Vector3T<T>;
    for (int i = 0; i < 4; ++i) {  // the result may replace a point
        V q[] = {V(1, 2, 3), V(3, 2, 3), V(5, 5, 3), V()};
        EXPECT_TRUE(V::planeNormal(q[0], q[1], q[2], q[i]));
        EXPECT_BITS(V(0, 0, 6 * (1 / T(6))), q[i]);
    }
    // Deliberate: the tolerance is a widened float, below 1e-4 for double.
    const T tol = T(1e-4f);
    for (const T length : {T(0), below(tol), tol, above(tol), T(1e-4), kNaN<T>}) {
        V normal(7, 7, 7);
        EXPECT_EQ(length > tol, V::planeNormal(V(0, 0, 0), V(1, 0, 0), V(1, length, 0), normal));
        EXPECT_BITS(length > tol ? length * (1 / length) : length, normal[2]);
    }
}

TEST(ComputeAngleTest, FailsOnlyWhenBothProductsAreBelowTheTolerance) {
    const auto angleOf = [](double x, const Vector3d& other) {
        double angle = 42;
        const bool measured = Ky::KyComputeAngle(Vector3d(x, 0, 0), other, angle);
        EXPECT_EQ(measured, angle != 42) << x;
        return angle;
    };
    const double right = std::atan2(runtime(1.0), runtime(0.0)), pi = 2 * right, tol = 1e-14;
    const Vector3d along(1, 0, 0), across(0, 1, 0);
    EXPECT_EQ(0, angleOf(tol, along));
    EXPECT_EQ(pi, angleOf(-tol, along));
    for (const double x : {tol, -tol}) EXPECT_EQ(right, angleOf(x, across));
    for (const double x : {0.0, below(tol), -below(tol)}) {
        EXPECT_EQ(42, angleOf(x, along));
        EXPECT_EQ(42, angleOf(x, across));
    }
    EXPECT_TRUE(std::isnan(angleOf(kNaN<double>, along)));
}

}  // namespace
}  // namespace test
}  // namespace KyMath
