// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// What vectors of three and four components share (VectorFamilyTest), and the three-component one.
// Their == and areEqualTol are in ToleranceTest.cpp.
#include "Support.h"

namespace KyMath {
namespace test {
namespace {

static_assert(kRefuses<Vector3f, int, std::nullptr_t, Vector3d, Quaternionf>);
static_assert(kRefuses<Vector3d, int, std::nullptr_t, Vector3f, Quaterniond>);
static_assert(!IsStreamable<Vector3f>::value && !IsStreamable<Vector3d>::value);

template <class V>
class VectorFamilyTest : public ::testing::Test {};
using Vectors = ::testing::Types<Vector3f, Vector3d, Vector4f, Vector4d>;
TYPED_TEST_SUITE(VectorFamilyTest, Vectors, );

TYPED_TEST(VectorFamilyTest, EveryAccessFindsTheSameComponent) {
    using V = TypeParam;
    const ScalarOf<V> numbers[] = {1, 2, 3, 4};
    V v(numbers);
    const V& k = v;
    EXPECT_TRUE(V().isZero());
    expectSubscripts(v);
    for (int i = 0; i < kCount<V>; ++i) EXPECT_BITS(numbers[i], k[i]);
    v.x() = 7, v.y() = 8, v.z() = 9;
    EXPECT_TRUE(k[0] == 7 && k[1] == 8 && k[2] == 9);
    EXPECT_TRUE(k.x() == 7 && k.y() == 8 && k.z() == 9);
}

TYPED_TEST(VectorFamilyTest, OrderingComparesSquaredLengths) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    // The length of 1 and sqrt(eps) rounds to 1, but its square is above 1.
    const T tiny = std::numeric_limits<T>::denorm_min(), small = std::sqrt(kEps<T>);
    const T values[] = {0, tiny, small, 1, -2, kMax<T>, kInf<T>, kNaN<T>};
    for (const T x : values) {
        for (const T y : values) {
            V a, b;
            a[0] = b[kCount<V> - 1] = x;
            b[0] = y;
            EXPECT_TRUE((a < b) == (x * x < y * y + x * x) && (b > a) == (a < b)) << x << ", " << y;
            EXPECT_FALSE(b < a || a > b) << x << ", " << y;
        }
    }
}

TYPED_TEST(VectorFamilyTest, ZeroAndFiniteLookAtEveryComponent) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    for (const T value : {T(0), -T(0), T(-1), std::numeric_limits<T>::denorm_min(), kMax<T>,
                          -kMax<T>, kInf<T>, -kInf<T>, kNaN<T>}) {
        for (int i = 0; i < kCount<V>; ++i) {
            V v;
            v[i] = value;
            EXPECT_EQ(value == 0, v.isZero()) << i << ": " << value;
            EXPECT_EQ(std::isfinite(value), v.isFinite()) << i << ": " << value;
        }
    }
}

TYPED_TEST(VectorFamilyTest, ArithmeticIsByComponentAndSumsInIndexOrder) {
    using V = TypeParam;
    forCorpus<V>(301, [](const V& a, const V& b, ScalarOf<V> s) {
        const ScalarOf<V> square = dot(a, a);
        expectComponentwise(a, b, s, scaled(a, 1 / s));
        EXPECT_BITS(each<V>([&](int i) { return -a[i]; }), -a);
        EXPECT_BITS(dot(a, b), a * b);
        if constexpr (kCount<V> == 4) {
            EXPECT_BITS(dot(a, b), a.dot(b));
        }
        for (const auto x : {a.normSquare(), a.lengthSqr()}) EXPECT_BITS(square, x);
        for (const auto x : {a.norm(), a.length()}) EXPECT_BITS(std::sqrt(square), x);
    });
}

TYPED_TEST(VectorFamilyTest, NormalizeWantsAPositiveSquareOrALengthAboveTheTolerance) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    const auto check = [](const V& a, const V&, T tol) {
        const T square = dot(a, a), length = std::sqrt(square);
        const V unit = scaled(a, 1 / length);
        EXPECT_BITS(square > 0 ? unit : a, after(a, [](V& v) { v.normalize(); }));
        V v = a;
        T written = 42;
        EXPECT_EQ(length > tol, v.normalize(tol, &written)) << length << ", " << tol;
        EXPECT_BITS(length > tol ? length : T(0), written);
        EXPECT_BITS(length > tol ? unit : a, v);
    };
    V five, small;
    five[1] = 3, five[kCount<V> - 1] = -4;
    for (const T tol : {T(5), below(T(5)), above(T(5)), T(-1), kNaN<T>}) check(five, V(), tol);
    const T root = std::sqrt(std::numeric_limits<T>::min());
    for (const T x : {T(0), root * kEps<T>, root}) {  // the first two have a square of 0
        small[kCount<V> - 1] = x;
        for (const T tol : {T(0), T(-1)}) check(small, V(), tol);
    }
    forCorpus<V>(304, check);
}

template <class T>
class Vector3Test : public ::testing::Test {};
TYPED_TEST_SUITE(Vector3Test, Scalars, );

// Index of the largest magnitude; whoever is not greater loses to the later one.
template <class T>
int largest(const Vector3T<T>& v) {
    const int first = std::abs(v[0]) > std::abs(v[1]) ? 0 : 1;
    return std::abs(v[first]) > std::abs(v[2]) ? first : 2;
}

TYPED_TEST(Vector3Test, SettersAndCastsAgreeAndPrintPrintsNothing) {
    using T = TypeParam;
    using V = Vector3T<T>;
    EXPECT_BITS(V(0, 0, 0), V::kZero);
    T array[] = {1, T(0.1), 3};
    EXPECT_EQ(static_cast<void*>(array), V::cast(array));
    EXPECT_EQ(static_cast<const void*>(array), V::constCast(array));
    const V v = after(V(), [](V& u) { u.set(1, T(0.1), 3); });
    EXPECT_BITS(V(array), v);
    EXPECT_BITS(V(1, T(0.1), 3), v);
    double wide[] = {0, 0, 0, 7};
    V::set(wide, v);
    EXPECT_BITS(static_cast<double>(T(0.1)), wide[1]);
    EXPECT_TRUE(wide[0] == 1 && wide[2] == 3 && wide[3] == 7);
    ::testing::internal::CaptureStdout();
    v.print("label");
    EXPECT_EQ("", ::testing::internal::GetCapturedStdout());
}

TYPED_TEST(Vector3Test, CombinationsAreByComponentAndProductsRightHanded) {
    using T = TypeParam;
    using V = Vector3T<T>;
    forCorpus<V>(305, [](const V& u, const V& v, T a) {
        const T b = u[2];
        const V product = each<V>([&](int i) { return u[i] * v[i]; });
        EXPECT_BITS(product, V::multComp(u, v));
        EXPECT_BITS(product, after(u, [&](V& w) { w.multComp(v); }));
        EXPECT_BITS(each<V>([&](int i) { return u[i] + a * v[i]; }),
                    after(u, [&](V& w) { w.addMultiple(a, v); }));
        EXPECT_BITS(each<V>([&](int i) { return a * u[i] + b * v[i]; }),
                    after(u, [&](V& w) { w.setLinear(a, u, b, v); }));
        EXPECT_BITS(dot<V>(u - v, u - v), V::distanceSqr(u, v));
        EXPECT_BITS(std::sqrt(dot<V>(u - v, u - v)), V::distance(u, v));
        EXPECT_BITS(crossed(u, v), u.cross(v));
        EXPECT_BITS(crossed(u, v), after(u, [&](V& w) { w.postCross(v); }));
        EXPECT_BITS(crossed(u, v), after(v, [&](V& w) { w.preCross(u); }));
        EXPECT_BITS(crossed(u, v), after(V(), [&](V& w) { w.setCross(u, v); }));
        // The orthogonal direction is the product with the axis after the largest component.
        const V axis = each<V>([&](int i) { return T(i == (largest(v) + 1) % 3); });
        EXPECT_BITS(crossed(v, axis), v.getOrthogonal());
        EXPECT_BITS(crossed(v, axis), after(u, [&](V& w) { w.setOrthogonal(v); }));
        EXPECT_BITS(crossed(v, axis), after(v, [&](V& w) { w.setOrthogonal(w); }));
    });
}

TYPED_TEST(Vector3Test, LargestComponentIsTheLaterOfEqualsAndIsCleanedWithinTheTolerance) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const T tol = T(0.125), more = above(tol), high = 1 + tol, low = 1 - tol;
    const T values[] = {0,     1,    -1,          tol, -tol,       more,
                        -more, high, above(high), low, below(low), kNaN<T>};
    for (int n = 0; n < 12 * 12 * 12; ++n) {
        const V v(values[n % 12], values[n / 12 % 12], values[n / 144]);
        const int k = largest(v);
        EXPECT_EQ(k, v.maxComponentIndex()) << v[0] << ", " << v[1] << ", " << v[2];
        bool clean = true;  // a NaN counts as within the tolerance
        for (int i = 0; i < 3; ++i) clean = clean && !(std::abs(std::abs(v[i]) - T(i == k)) > tol);
        const V axis = each<V>([&](int i) { return i != k ? T(0) : v[k] > 0 ? T(1) : T(-1); });
        V actual = v;
        EXPECT_EQ(clean, actual.makeCleanBase(tol)) << v[0] << ", " << v[1] << ", " << v[2];
        EXPECT_BITS(clean ? axis : v, actual);
    }
}

TYPED_TEST(Vector3Test, ProjectTakesTheDirectionAsGivenOrthogonalizeOfAnyLength) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const auto check = [](const V& a, const V& v, T) {
        const T k = 1 / dot(v, v), d = dot(a, v);
        const V rest = v == V() ? a : each<V>([&](int i) { return a[i] - k * (d * v[i]); });
        EXPECT_BITS(rest, after(a, [&](V& u) { u.orthogonalize(v); }));
        V parallel, aliased = v, perpendicular;
        for (V* const out : {&parallel, &aliased}) {
            a.project(out == &parallel ? v : aliased, out, &perpendicular);
            EXPECT_BITS(scaled(v, d), *out);
            EXPECT_BITS(a - scaled(v, d), perpendicular);
        }
    };
    forCorpus<V>(308, check);
    // What is not zero counts, even if its square is.
    const T tiny = std::numeric_limits<T>::denorm_min();
    for (const V& v : {V(0, -T(0), 0), V(0, 0, tiny)}) check(V(1, 2, 3), v, 0);
}

TYPED_TEST(Vector3Test, PlaneSpaceComparesTheSumOfXAndZWithY) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const auto check = [](const V& n, const V&, T) {
        const T x = n[0], y = n[1], z = n[2];
        const bool first = std::abs(x) + std::abs(z) > std::abs(y);
        const T k = 1 / std::sqrt(first ? x * x + z * z : y * y + z * z);
        const V expected = first ? V(z * k, 0, -x * k) : V(0, -z * k, y * k);
        V u, v;
        n.planeSpace(u, v);
        EXPECT_BITS(expected, u);
        EXPECT_BITS(crossed(n, expected), v);
    };
    for (const V& n : {V(1, 3, -2), V(-1, -3, 2), V(1, below(T(3)), 2), V()}) check(n, V(), 0);
    forCorpus<V>(310, check);
}

TYPED_TEST(Vector3Test, PlaneNormalTurnsFromTheFirstEdgeToTheSecond) {
    using T = TypeParam;
    using V = Vector3T<T>;
    Corpus<T> corpus(311);
    for (int n = 0; n < 500; ++n) {
        const V p[] = {corpus.vector(), corpus.vector(), corpus.vector()};
        const V c = crossed<T>(p[1] - p[0], p[2] - p[1]);
        for (int i = 0; i < 4; ++i) {  // the result may replace a point
            V q[] = {p[0], p[1], p[2], V()};
            EXPECT_TRUE(V::planeNormal(q[0], q[1], q[2], q[i]));
            EXPECT_BITS(scaled(c, 1 / std::sqrt(dot(c, c))), q[i]);
        }
    }
    // The tolerance is a widened float, below 1e-4 for double.
    const T tol = T(1e-4f);
    for (const T length : {T(0), below(tol), tol, above(tol), T(1e-4), kNaN<T>}) {
        V normal(7, 7, 7);
        EXPECT_EQ(length > tol, V::planeNormal(V(0, 0, 0), V(1, 0, 0), V(1, length, 0), normal));
        EXPECT_BITS(length > tol ? length * (1 / length) : length, normal[2]);
    }
}

TEST(ComputeAngleTest, FailsOnlyWhenBothProductsAreBelowTheTolerance) {
    using V = Vector3d;
    const auto check = [](const V& a, const V& b, double) {
        const V c = crossed(a, b);
        const double sine = std::sqrt(dot(c, c)), cosine = dot(a, b);
        const bool measured = !(sine < 1e-14 && std::abs(cosine) < 1e-14);
        double angle = 42;
        EXPECT_EQ(measured, Ky::KyComputeAngle(a, b, angle)) << sine << ", " << cosine;
        EXPECT_BITS(measured ? std::atan2(runtime(sine), runtime(cosine)) : 42, angle);
    };
    forCorpus<V>(312, check);
    for (const double x : {1e-14, below(1e-14), -1e-14, -below(1e-14), 0.0, kNaN<double>}) {
        check(V(x, 0, 0), V(1, 0, 0), 0);
        check(V(x, 0, 0), V(0, 1, 0), 0);
    }
}

}  // namespace
}  // namespace test
}  // namespace KyMath
