// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// What the plain functions compute, by whole numbers that are exact in both types.
#include "Support.h"

namespace KyMath::test {
namespace {

KY_SUITE(FormulasTest);

template <class V>
class VectorFormulasTest : public ::testing::Test {};
TYPED_TEST_SUITE(VectorFormulasTest, Vectors, );

TYPED_TEST(VectorFormulasTest, Arithmetic) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    const V a = each<V>([](int i) { return T(4 * i + 2); });  // (2, 6, 10, 14)
    const V b = each<V>([](int i) { return T(i - 3); });      // (-3, -2, -1, 0)
    const V sum = each<V>([](int i) { return T(5 * i - 1); });
    const V half = each<V>([](int i) { return T(2 * i + 1); });
    const T squares[] = {4, 40, 140, 336};
    EXPECT_BITS(sum, a + b);
    EXPECT_BITS(a, sum - b);
    EXPECT_BITS(half, a / 2);
    expectInPlace(sum, a, [&](V& v) -> V& { return v += b; });
    expectInPlace(a, sum, [&](V& v) -> V& { return v -= b; });
    expectInPlace(half, a, [](V& v) -> V& { return v /= 2; });
    EXPECT_BITS(squares[kCount<V> - 1], a.normSquare());
    EXPECT_BITS(squares[kCount<V> - 1], static_cast<const V&>(a).lengthSqr());
    const V five = each<V>([](int i) { return i == 0 ? T(3) : i == kCount<V> - 1 ? T(-4) : T(0); });
    EXPECT_BITS(T(5), five.norm());
    EXPECT_BITS(T(5), five.length());
}

KY_TEST(FormulasTest, Vector2) {
    using V = Vector2T<T>;
    const V a(1, 2);
    EXPECT_BITS(T(11), a.dot(V(3, 4)));
    EXPECT_BITS(T(-2), a.cross(V(3, 4)));
    EXPECT_BITS(T(5), V(a).normSquare());
    EXPECT_BITS(V(2, 1), V(a.y(), a.x()));
    EXPECT_BITS(a, after(V(), [](V& v) { v.y() = 2, v.x() = 1; }));
    EXPECT_BITS(a, after(V(), [](V& v) { v.set(1, 2); }));
    EXPECT_BITS(a, after(V(), [&](V& v) { v = a; }));
    EXPECT_BITS(V(0, 0), V::kZero);
}

KY_TEST(FormulasTest, Vector3) {
    using V = Vec<T>;
    const V a(1, 2, 3), b(4, 5, 6);
    EXPECT_BITS(T(32), a * b);
    EXPECT_BITS(V(-2, -4, -6), -a * 2);
    EXPECT_BITS(V(4, 10, 18), V::multComp(a, b));
    EXPECT_BITS(V(-3, 6, -3), a.cross(b));
    EXPECT_BITS(V(-3, 6, -3), after(V(), [&](V& v) { v.setCross(a, b); }));
    EXPECT_BITS(V(-3, 6, -3), after(a, [&](V& v) { v.postCross(b); }));
    EXPECT_BITS(V(3, -6, 3), after(a, [&](V& v) { v.preCross(b); }));
    EXPECT_BITS(V(9, 12, 15), after(a, [&](V& v) { v.addMultiple(2, b); }));
    EXPECT_BITS(V(14, 19, 24), after(V(), [&](V& v) { v.setLinear(2, a, 3, b); }));
    EXPECT_BITS(T(49), V::distanceSqr(a, V(3, 5, 9)));
    EXPECT_BITS(T(7), V::distance(V(3, 5, 9), a));
    EXPECT_EQ(V(0, 5, 3), V(2, -3, 5).getOrthogonal());
    EXPECT_BITS(V(1, 0, 3), after(a, [](V& v) { v.orthogonalize(V(0, 8, 0)); }));
    EXPECT_BITS(a, after(a, [](V& v) { v.orthogonalize(V(0, -T(0), 0)); }));
    EXPECT_BITS(a, V(a.x(), a.y(), a.z()));
    EXPECT_BITS(a, after(V(), [](V& v) { v.x() = 1, v.y() = 2, v.z() = 3; }));
    EXPECT_BITS(a, after(V(), [](V& v) { v.set(1, 2, 3); }));
    EXPECT_BITS(V(0, 0, 0), V::kZero);
}

KY_TEST(FormulasTest, Vector4) {
    using V = Vec4<T>;
    const V a(1, 2, 3, 4);
    EXPECT_BITS(T(70), a * V(5, 6, 7, 8));
    EXPECT_BITS(T(70), a.dot(V(5, 6, 7, 8)));
    EXPECT_BITS(V(-2, -4, -6, -8), -a * T(2));
    EXPECT_BITS(Vec<T>(1, 2, 3), a.xyz());
    EXPECT_BITS(a, V(Vec<T>(1, 2, 3), 4));
    EXPECT_BITS(a, V(a.x(), a.y(), a.z(), a.w()));
    EXPECT_BITS(a, after(V(), [](V& v) { v.x() = 1, v.y() = 2, v.z() = 3, v.w() = 4; }));
    EXPECT_BITS(a, after(V(), [](V& v) { v.set(1, 2, 3, 4); }));
}

// Zero in every component, finite in every component.
TYPED_TEST(VectorFormulasTest, IsZeroAndIsFinite) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    if constexpr (kCount < V >> 2) {
        for (int i = 0; i < kCount<V>; ++i) {
            const auto with = [i](T x) { return after(V(), [=](V& v) { v[i] = x; }); };
            EXPECT_TRUE(with(-T(0)).isZero());
            EXPECT_FALSE(with(1).isZero());
            EXPECT_TRUE(with(-kMax<T>).isFinite());
            EXPECT_FALSE(with(-kInf<T>).isFinite());
            EXPECT_FALSE(with(kNaN<T>).isFinite());
        }
    }
}

TEST(Vector6FormulasTest, Arithmetic) {
    const double halves[] = {4, 5, 6, 1, 2, 3};
    Vector6 v(halves + 3, halves);  // (1, 2, 3, 4, 5, 6)
    const auto expectIs = [&v](std::initializer_list<double> expected) {
        for (int i = 0; i < 6; ++i) EXPECT_BITS(expected.begin()[i], v[i]) << i;
    };
    EXPECT_BITS(56.0, v.dot(Vector6(6, 5, 4, 3, 2, 1)));
    v.add(Vector6(10, 20, 30, 40, 50, 60));
    expectIs({11, 22, 33, 44, 55, 66});
    v.sub(Vector6(1, 1, 1, 2, 2, 2));
    expectIs({10, 21, 32, 42, 53, 64});
    v.set(Vector3d(1, 2, 2), Vector3d(2, 4, 14));
    v.scale(2);
    expectIs({2, 4, 4, 4, 8, 28});
    EXPECT_BITS(30.0, v.norm());
}

KY_TEST(FormulasTest, Matrix) {
    using M = Mat<T>;
    using V = Vec4<T>;
    const M a(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
    const M b(1, 2, 3, 4, 0, 1, 0, 0, 0, 0, 0, 2, 1, 0, 0, -1);
    EXPECT_BITS(V(90, 100, 110, 120), M::multiplyWithVector(a, V(1, 2, 3, 4)));
    EXPECT_BITS(M(V(90, 100, 110, 120), V(5, 6, 7, 8), V(26, 28, 30, 32), V(-12, -12, -12, -12)),
                M::multiply(a, b));
    EXPECT_BITS(M(a.row(0), a.row(1), a.row(2), a.row(3)), M(a).transpose());
    EXPECT_BITS(M(2, 4, 6, 8, 0, 2, 0, 0, 0, 0, 0, 4, 2, 0, 0, -2), M::multiply(b, 2));
    EXPECT_BITS(M::multiply(b, 2), M(b) *= 2);
    EXPECT_BITS(b, M::divide(M::multiply(b, 4), 4));
    EXPECT_BITS(b, M::multiply(b, 4) /= 4);
    const M whole(1, 2, 1, 3, 1, 3, 3, 4, 2, 5, 5, 9, 1, 5, 9, 11);
    EXPECT_BITS(M(-28, 2, 17, -7, 13, 0, -8, 3, -9, 1, 5, -2, 4, -1, -2, 1), whole.inverse());
    const M c(2, 1, 3, 4, 1, 0, 5, 2, 3, 2, 1, 1, 1, 4, 2, 3);
    EXPECT_BITS(T(-125), c.determinant());
    EXPECT_BITS(T(50), c.determinant3x3(0, 1, 2, 1, 2, 3));
    EXPECT_BITS(M(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0), M::kZero);
    EXPECT_BITS(M(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1), M());
    EXPECT_BITS(M(), M::kIdentity);
    M m;
    EXPECT_EQ(m[2], m.column(2));
}

KY_TEST(FormulasTest, Quaternion) {
    using Q = Quat<T>;
    using V = Vec<T>;
    const Q p(1, 2, 3, 4), q(5, 6, 7, 8);
    EXPECT_BITS(Q(-60, 12, 30, 24), p * q);
    EXPECT_BITS(Q(6, 8, 10, 12), p + q);
    EXPECT_BITS(Q(-4, -4, -4, -4), p - q);
    EXPECT_BITS(Q(3, 6, 9, 12), p * T(3));
    EXPECT_BITS(Q(1, -2, -3, -4), p.getInverse());
    EXPECT_BITS(Q(1, -2, -3, -4), after(p, [](Q& r) { r.invert(); }));
    EXPECT_BITS(Q(1, -2, -3, -4), after(Q(), [&](Q& r) { r.setInverse(p); }));
    EXPECT_BITS(p, after(Q(), [&](Q& r) { p.get(r); }));
    EXPECT_BITS(p, after(Q(), [&](Q& r) { p.get(static_cast<T*>(r)); }));
    EXPECT_BITS(p, after(Q(), [](Q& r) { r.set(1, 2, 3, 4); }));
    const T values[] = {1, 2, 3, 4};
    EXPECT_BITS(p, after(Q(), [&](Q& r) { r = values; }));
    EXPECT_BITS(p, Q(values));
    EXPECT_BITS(T(70), p.dot(q));
    EXPECT_BITS(T(2), Q(1, -1, 1, -1).norm());
    EXPECT_BITS(V(54, 60, 78), p.rotate(V(1, 2, 3)));
    EXPECT_BITS(V(54, 60, 78), p * V(1, 2, 3));
}

// Each matrix takes its point to where it must.
KY_TEST(FormulasTest, Transformations) {
    using V = Vec<T>;
    using namespace Transformation;
    const V a(1, 2, 3), b(4, 5, 6), c(7, 8, 9), up(0, 0, 1), ahead(1, 7, 3);
    const T right = T(1.5707963267948966);
    const struct {
        Mat<T> m;
        V from, to;
    } cases[] = {
        {createScaleT<T>(2, 3, 4), {1, 2, 3}, {2, 6, 12}},
        {createScaleT(V(2, 3, 4)), {1, 2, 3}, {2, 6, 12}},
        {createTranslationT<T>(1, 2, 3), {4, 6, 8}, {5, 8, 11}},
        {createTranslationT(a), {4, 6, 8}, {5, 8, 11}},
        {createRotationT<T>(right, 0, 0), {1, 2, 3}, {1, -3, 2}},
        {createRotationT<T>(0, right, 0), {1, 2, 3}, {3, 2, -1}},
        {createRotationT<T>(0, 0, right), {1, 2, 3}, {-2, 1, 3}},
        {createRotationT<T>(right, right, 0), {1, 2, 3}, {3, 1, 2}},  // y first
        {createRotationT(Quat<T>(1, 1, 1, 1)), {1, 2, 3}, {3, 1, 2}},
        {createRotationT(up * T(5), right), {1, 2, 3}, {-2, 1, 3}},
        {createRotationFromAxesT(a, b, c), {1, 10, 100}, {741, 852, 963}},
        {createRotationFromOuterProductT(a, b), {1, 1, 1}, {15, 30, 45}},
        {createObjectLookAtT(a, ahead, up), {1, 10, 100}, {-9, 3, 103}},   // forward, left, up
        {createCameraLookAtT(a, ahead, up), {1, 10, -100}, {2, 102, 13}},  // right, up, back
        {createOrthographicT<T>(-2, 3, -1, 4, 1, 6), {-2, -1, -1}, {-1, -1, 1}},
        {createOrthographicT<T>(-2, 3, -1, 4, 1, 6), {3, 4, -6}, {1, 1, -1}},
        {createFrustumT<T>(-2, 3, -1, 4, 1, 6), {-2, -1, -1}, {-1, -1, 1}},
        {createFrustumT<T>(-2, 3, -1, 4, 1, 6), {18, 24, -6}, {1, 1, 0}},
        {createPerspectiveT<T>(right, 2, 1, 6), {2, 1, -1}, {1, 1, 1}},
        {createPerspectiveT<T>(right, 2, 1, 6), {12, 6, -6}, {1, 1, 0}},
        {composeT(V(2, 3, 4), V(0, 0, right), b, T(1)), {1, 1, 1}, {1, 7, 10}},
        {composeT(V(2, 3, 4), V(0, 0, right), b, T(-1)), {1, 1, 1}, {7, 3, 2}},
        {translateToT(createScaleT<T>(2, 3, 4), b), {1, 1, 1}, {6, 8, 10}},
        {rotateToT(createScaleT<T>(2, 2, 2), V(0, 0, right)), {1, 2, 3}, {-4, 2, 6}},
        {scaleToT(createTranslationT(a), V(2, 3, 4)), {1, 1, 1}, {3, 5, 7}},
    };
    for (const auto& k : cases) {
        const V error = transformPositionT(k.m, k.from) - k.to;
        EXPECT_LE(error.norm(), 32 * kEps<T> * k.from.norm()) << &k - cases;
    }
    const Mat<T> turned = composeT(V(2, 3, 4), V(0, 0, 1), b, T(1));
    EXPECT_LE((getRotationT(turned, true) - V(0, 0, 1)).norm(), 4 * kEps<T>);
    EXPECT_BITS(V(1, 2, 3),
                linearVelocityT(createTranslationT(a), createTranslationT(a * 3), T(2)));
}

KY_TEST(FormulasTest, BoundingBox) {
    using B = Box<T>;
    const B box(1, 2, 3, 5, 8, 11);
    EXPECT_BITS(Vec<T>(3, 5, 7), box.center());
    EXPECT_BITS(Vec<T>(4, 6, 8), box.getBBSize());
    EXPECT_BITS(B(2, 3, 4, 5, 7, 9), box.intersect(B(2, 3, 4, 6, 7, 9)));
    EXPECT_BITS(B(0, 2, 3, 5, 9, 11), box + B(0, 3, 4, 1, 9, 9));
    EXPECT_BITS(box, B(box.xMin(), box.yMin(), box.zMin(), box.xMax(), box.yMax(), box.zMax()));
    EXPECT_BITS(box, after(B(), [](B& b) { b.set(1, 2, 3, 5, 8, 11); }));
    EXPECT_BITS(box, after(B(), [](B& b) {
                    b.xMin() = 1, b.yMin() = 2, b.zMin() = 3, b.xMax() = 5, b.yMax() = 8,
                    b.zMax() = 11;
                }));
}

TEST(KyTransformFormulasTest, RowsAndColumns) {
    using Ky::KyTransform;
    float a[16];
    for (int i = 0; i < 16; ++i) a[i] = float(i);
    KyTransform set;
    set.set(a);
    const KyTransform t = set;
    EXPECT_EQ(7, t(3, 1));
    EXPECT_EQ(7, set(3, 1));
    EXPECT_BITS(Vector3d(12, 13, 14), t.getTranslation());
    EXPECT_BITS(Vector3d(44, 51, 58), t.transformPoint(Vector3d(1, 2, 3)));
    EXPECT_BITS(Vector3d(32, 38, 44), t.transformDirection(Vector3d(1, 2, 3)));
    EXPECT_BITS(Vector3d(24, 30, 36),
                KyTransform::outerProduct3x3(Vector3d(1, 2, 3), Vector3d(4, 5, 6))
                    .transformDirection(Vector3d(1, 1, 1)));
}

}  // namespace
}  // namespace KyMath::test
