// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// What the vectors of two, three and four components share (VectorFamilyTest), and the
// three-component one. Their == and areEqualTol are in ToleranceTest.cpp.
#include "Support.h"

namespace KyMath::test {
namespace {

static_assert(kRefuses<Vector3f, int, std::nullptr_t, Vector3d, Quaternionf>);
static_assert(kRefuses<Vector3d, int, std::nullptr_t, Vector3f, Quaterniond>);
static_assert(!IsStreamable<Vector3f>::value && !IsStreamable<Vector3d>::value);
static_assert(kRefuses<Vector4f, Vector3f, Vector3f&, Quaternionf, int, std::nullptr_t, Vector4d>);
static_assert(kRefuses<Vector4d, Vector3d, Vector3d&, Quaterniond, int, std::nullptr_t, Vector4f>);
static_assert(!IsStreamable<Vector4f>::value && !IsStreamable<Vector4d>::value);

template <class V>
class VectorFamilyTest : public ::testing::Test {};
TYPED_TEST_SUITE(VectorFamilyTest, Vectors, );

template <class V>
V ends(ScalarOf<V> first, ScalarOf<V> last) {
    return each<V>([&](int i) { return i == 0 ? first : i == kCount<V> - 1 ? last : 0; });
}

// Deliberate: an order of lengths, in which different vectors can be alike.
TYPED_TEST(VectorFamilyTest, OrderingComparesSquaredLengths) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    // The length of 1 and sqrt(eps) rounds to 1, but its square is above 1.
    const V a = ends<V>(1, 0), b = ends<V>(1, std::sqrt(kEps<T>));
    EXPECT_EQ(a.norm(), b.norm());
    EXPECT_TRUE(a < b);
    EXPECT_TRUE(b > a);
    for (const V& v : {a, ends<V>(0, -1), ends<V>(kNaN<T>, 0)}) {
        EXPECT_FALSE(a < v);
        EXPECT_FALSE(a > v);
    }
}

TYPED_TEST(VectorFamilyTest, NormalizeNeedsALengthAboveTheTolerance) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    const V five = ends<V>(3, -4), unit = ends<V>(3 * (1 / T(5)), -4 * (1 / T(5)));
    for (const T tol : {T(5), below(T(5)), above(T(5)), T(-1), kNaN<T>}) {
        V v = five;
        T length = 42;
        EXPECT_EQ(5 > tol, v.normalize(tol, &length)) << tol;
        EXPECT_BITS(5 > tol ? T(5) : T(0), length);
        EXPECT_BITS(5 > tol ? unit : five, v);
    }
}

TYPED_TEST(VectorFamilyTest, NormalizeLeavesWhatIsTooSmallToSquare) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    const T root = std::sqrt(std::numeric_limits<T>::min());
    for (const T x : {T(0), -T(0), root * kEps<T>, root}) {
        const V expected = ends<V>(0, x < root ? x : T(1));
        EXPECT_BITS(expected, after(ends<V>(0, x), [](V& v) { v.normalize(); })) << x;
        T length = 42;
        EXPECT_BITS(expected, after(ends<V>(0, x), [&](V& v) { v.normalize(0, &length); }));
        EXPECT_BITS(x < root ? T(0) : root, length);
    }
}

KY_SUITE(Vector3Test);

KY_TEST(Vector3Test, ViewsShareTheArray) {
    T array[] = {1, T(0.1), 3};
    EXPECT_EQ(static_cast<void*>(array), Vec<T>::cast(array));
    EXPECT_EQ(static_cast<const void*>(array), Vec<T>::constCast(array));
    double wide[] = {0, 0, 0, 7};
    Vec<T>::set(wide, Vec<T>(array));
    EXPECT_BITS(Vector4d(1, double(T(0.1)), 3, 7), Vector4d(wide));
}

KY_TEST(Vector3Test, PrintPrintsNothing) {
    ::testing::internal::CaptureStdout();
    Vec<T>().print("label");
    EXPECT_EQ("", ::testing::internal::GetCapturedStdout());
}

KY_TEST(Vector3Test, OperandsMayBeTheVectorItself) {
    using V = Vec<T>;
    const V v(2, -3, 5), u(7, 11, -13);
    EXPECT_BITS(V(4, -6, 10), after(v, [](V& w) { w += w; }));
    EXPECT_BITS(V(4, -6, 10), after(v, [](V& w) { w *= w[0]; }));
    EXPECT_BITS(V(4, 9, 25), after(v, [](V& w) { w.multComp(w); }));
    EXPECT_BITS(V(6, -9, 15), after(v, [](V& w) { w.addMultiple(w[0], w); }));
    EXPECT_BITS(V(25, 27, -29), after(v, [&](V& w) { w.setLinear(w[0], w, w[2] - 2, u); }));
    EXPECT_BITS(V(0, 0, 0), after(v, [](V& w) { w.postCross(w); }));
    EXPECT_EQ(V(0, 5, 3), after(v, [](V& w) { w.setOrthogonal(w); }));
    V dir(0, 0, 1), across;
    v.project(dir, &dir, &across);
    EXPECT_BITS(V(0, 0, 5), dir);
    EXPECT_BITS(V(2, -3, 0), across);
}

KY_TEST(Vector3Test, LargestComponentIsTheLaterOfEquals) {
    const T nan = kNaN<T>;
    const T cases[][4] = {{-3, 2, 1, 0}, {-2, 2, 1, 1}, {2, 1, -2, 2},  {1, 1, 1, 2},
                          {1, -3, 2, 1}, {1, 2, 2, 2},  {5, nan, 0, 2}, {5, 0, nan, 2}};
    for (const auto& c : cases) EXPECT_EQ(c[3], T(Vec<T>(c).maxComponentIndex())) << c[0];
}

KY_TEST(Vector3Test, CleanBaseIsWithinTheTolerance) {
    const T tol = T(0.125);
    const T cases[][3] = {{1, tol, 1},         {-1, -tol, -1},   {1, above(tol), 0},
                          {1, -above(tol), 0}, {1 + tol, 0, 1},  {above(1 + tol), 0, 0},
                          {1 - tol, 0, 1},     {tol - 1, 0, -1}, {below(1 - tol), 0, 0}};
    for (const auto& [most, other, snapped] : cases) {  // 0: not clean
        for (int k = 0; k < 3; ++k) {
            Vec<T> v, axis;
            v[k] = most, v[(k + 1) % 3] = other, axis[k] = snapped;
            const Vec<T> expected = snapped == 0 ? v : axis;
            EXPECT_EQ(snapped != 0, v.makeCleanBase(tol)) << most << ", " << other;
            EXPECT_BITS(expected, v);
        }
    }
}

// Deliberate: the sum of two magnitudes decides, not the largest component.
KY_TEST(Vector3Test, PlaneSpaceComparesXPlusZWithY) {
    using V = Vec<T>;
    const T fifth = 1 / T(5), root = 1 / std::sqrt(T(13));
    const V cases[][2] = {{{3, 6, 4}, {4 * fifth, 0, -3 * fifth}},
                          {{3, -6, 4}, {4 * fifth, 0, -3 * fifth}},
                          {{0, 3, 0}, {0, 0, 3 * (1 / T(3))}},
                          {{1, 3, -2}, {0, 2 * root, 3 * root}}};
    V u, v;
    for (const auto& [normal, first] : cases) {
        normal.planeSpace(u, v);
        EXPECT_EQ(first, u) << normal[1];
        EXPECT_BITS(normal.cross(u), v);
    }
    V(1, below(T(3)), 2).planeSpace(u, v);
    EXPECT_EQ(0, u[1]);
}

KY_TEST(Vector3Test, PlaneNormalTurnsFromEdgeToEdge) {
    using V = Vec<T>;
    for (int i = 0; i < 4; ++i) {  // the result may replace a point
        V q[] = {V(1, 2, 3), V(3, 2, 3), V(5, 5, 3), V()};
        EXPECT_TRUE(V::planeNormal(q[0], q[1], q[2], q[i]));
        EXPECT_BITS(V(0, 0, 6 * (1 / T(6))), q[i]);
    }
}

KY_TEST(Vector3Test, PlaneNormalToleranceIsAWidenedFloat) {
    const T tol = T(1e-4f);
    for (const T length : {T(0), below(tol), tol, above(tol), T(1e-4), kNaN<T>}) {
        const Vec<T> a, b(1, 0, 0), c(1, length, 0);
        Vec<T> normal(7, 7, 7);
        EXPECT_EQ(length > tol, Vec<T>::planeNormal(a, b, c, normal)) << length;
        EXPECT_BITS(length > tol ? length * (1 / length) : length, normal[2]);
    }
}

TEST(ComputeAngleTest, FailsWhenBothProductsAreShort) {
    const double right = std::atan2(runtime(1.0), runtime(0.0)), tol = 1e-14;
    const double cases[][3] = {{tol, 0, right},
                               {-tol, 2 * right, right},
                               {0, 42, 42},
                               {below(tol), 42, 42},
                               {-below(tol), 42, 42}};
    for (const auto& [x, along, across] : cases) {
        double angle = 42, other = 42;
        EXPECT_EQ(along != 42, Ky::KyComputeAngle(Vector3d(x, 0, 0), Vector3d(1, 0, 0), angle));
        EXPECT_EQ(across != 42, Ky::KyComputeAngle(Vector3d(x, 0, 0), Vector3d(0, 1, 0), other));
        EXPECT_EQ(along, angle) << x;
        EXPECT_EQ(across, other) << x;
    }
}

}  // namespace
}  // namespace KyMath::test
