// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// What vectors of three and four components share (VectorFamilyTest), and the three-component one.
// Their == and areEqualTol are in ToleranceTest.cpp.
#include "Support.h"

namespace KyMath {
namespace test {
namespace {

template <class V>
ScalarOf<V> dot(const V& a, const V& b) {
    ScalarOf<V> sum = a[0] * b[0];
    for (int i = 1; i < kCount<V>; ++i) sum = sum + a[i] * b[i];
    return sum;
}

template <class V>
V scaled(const V& v, ScalarOf<V> s) {
    return each<V>([&](int i) { return v[i] * s; });
}

template <class V>
class VectorFamilyTest : public ::testing::Test {};
using Vectors = ::testing::Types<Vector3f, Vector3d, Vector4f, Vector4d>;
TYPED_TEST_SUITE(VectorFamilyTest, Vectors, );

TYPED_TEST(VectorFamilyTest, EveryAccessFindsTheSameComponent) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    const T numbers[] = {1, 2, 3, 4};
    V v(numbers);
    const V& k = v;
    EXPECT_TRUE(V().isZero());
    EXPECT_EQ(static_cast<const void*>(&v), static_cast<T*>(v));
    for (int i = 0; i < kCount<V>; ++i) {
        EXPECT_BITS(numbers[i], k[i]);
        const T* const component = static_cast<const T*>(k) + i;
        const auto check = [&](auto index) {
            EXPECT_EQ(component, &v[index]);
            EXPECT_EQ(component, &k[index]);
        };
        check(i), check(static_cast<unsigned>(i)), check(static_cast<long>(i));
        check(static_cast<std::size_t>(i));
    }
    EXPECT_TRUE(k.x() == 1 && k.y() == 2 && k.z() == 3);
    v.x() = 7, v.y() = 8, v.z() = 9;
    EXPECT_TRUE(k[0] == 7 && k[1] == 8 && k[2] == 9);
}

TYPED_TEST(VectorFamilyTest, OrderingComparesSquaredLengths) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    const T tiny = std::numeric_limits<T>::denorm_min();
    const struct {
        T a, b[2];
        bool less, greater;
    } cases[] = {{1, {0, 2}, true, false},
                 {-3, {0, 2}, false, true},
                 {1, {-2, 0}, true, false},
                 {1, {0, 1}, false, false},
                 {1, {1, std::sqrt(kEps<T>)}, true, false},  // although the lengths round alike
                 {1, {1, kNaN<T>}, false, false},
                 {0, {0, tiny}, false, false},            // both squares are 0
                 {kMax<T>, {kInf<T>, 0}, false, false}};  // both are infinite
    for (const auto& c : cases) {
        V a, b;
        a[0] = c.a;
        b[0] = c.b[0], b[kCount<V> - 1] = c.b[1];
        EXPECT_TRUE((a < b) == c.less && (b > a) == c.less) << c.a << ", " << c.b[1];
        EXPECT_TRUE((a > b) == c.greater && (b < a) == c.greater) << c.a << ", " << c.b[1];
    }
}

TYPED_TEST(VectorFamilyTest, ZeroAndFiniteLookAtEveryComponent) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    const struct {
        T value;
        bool zero, finite;
    } cases[] = {{0, true, true},         {-T(0), true, true},
                 {-1, false, true},       {std::numeric_limits<T>::denorm_min(), false, true},
                 {kMax<T>, false, true},  {-kMax<T>, false, true},
                 {kInf<T>, false, false}, {-kInf<T>, false, false},
                 {kNaN<T>, false, false}};
    for (int i = 0; i < kCount<V>; ++i) {
        for (const auto& c : cases) {
            V v;
            v[i] = c.value;
            EXPECT_TRUE(v.isZero() == c.zero && v.isFinite() == c.finite) << i << ": " << c.value;
        }
    }
}

TYPED_TEST(VectorFamilyTest, ArithmeticIsByComponentAndDividesByOneReciprocal) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    Corpus<T> corpus(301);
    for (int n = 0; n < 500; ++n) {
        const V a = corpus.template anyOf<V>(), b = corpus.template anyOf<V>();
        const T s = corpus.any();
        const V sum = each<V>([&](int i) { return a[i] + b[i]; });
        const V difference = each<V>([&](int i) { return a[i] - b[i]; });
        EXPECT_BITS(sum, a + b);
        EXPECT_BITS(difference, a - b);
        EXPECT_BITS(scaled(a, s), a * s);
        EXPECT_BITS(scaled(a, 1 / s), a / s);
        EXPECT_BITS(each<V>([&](int i) { return -a[i]; }), -a);
        expectInPlace(sum, a, [&](V& v) -> V& { return v += b; });
        expectInPlace(difference, a, [&](V& v) -> V& { return v -= b; });
        expectInPlace(scaled(a, s), a, [&](V& v) -> V& { return v *= s; });
        expectInPlace(scaled(a, 1 / s), a, [&](V& v) -> V& { return v /= s; });
    }
}

TYPED_TEST(VectorFamilyTest, DotAndLengthsSumInIndexOrder) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    Corpus<T> corpus(302);
    for (int n = 0; n < 1000; ++n) {
        const V a = corpus.template anyOf<V>(), b = corpus.template anyOf<V>();
        EXPECT_BITS(dot(a, b), a * b);
        EXPECT_BITS(dot(a, a), a.normSquare());
        EXPECT_BITS(dot(a, a), a.lengthSqr());
        EXPECT_BITS(std::sqrt(dot(a, a)), a.norm());
        EXPECT_BITS(std::sqrt(dot(a, a)), a.length());
    }
}

TYPED_TEST(VectorFamilyTest, NormalizeScalesWhateverHasAPositiveSquare) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    const auto check = [](const V& a) {
        V v = a;
        v.normalize();
        EXPECT_BITS(dot(a, a) > 0 ? scaled(a, 1 / std::sqrt(dot(a, a))) : a, v);
    };
    const T root = std::sqrt(std::numeric_limits<T>::min());
    for (const T small : {T(0), root * kEps<T>, root}) {  // the first two have a square of 0
        V v;
        v[kCount<V> - 1] = small;
        check(v);
    }
    Corpus<T> corpus(303);
    for (int n = 0; n < 500; ++n) check(corpus.template anyOf<V>());
}

TYPED_TEST(VectorFamilyTest, NormalizeWithToleranceWantsALongerVector) {
    using V = TypeParam;
    using T = ScalarOf<V>;
    const auto check = [](const V& a, T tol) {
        const T length = std::sqrt(dot(a, a));
        V v = a;
        T written = 42;
        EXPECT_EQ(length > tol, v.normalize(tol, &written)) << length << ", " << tol;
        EXPECT_BITS(length > tol ? length : T(0), written);
        EXPECT_BITS(length > tol ? scaled(a, 1 / length) : a, v);
    };
    V five;
    five[1] = 3, five[kCount<V> - 1] = -4;
    for (const T tol : {T(5), below(T(5)), above(T(5)), T(-1), kNaN<T>}) check(five, tol);
    for (const T tol : {T(0), T(-1)}) check(V(), tol);
    Corpus<T> corpus(304);
    for (int n = 0; n < 500; ++n) check(corpus.template anyOf<V>(), std::abs(corpus.plain()));
}

template <class T>
class Vector3Test : public ::testing::Test {};
TYPED_TEST_SUITE(Vector3Test, Scalars, );

template <class T>
Vector3T<T> crossed(const Vector3T<T>& a, const Vector3T<T>& b) {
    return Vector3T<T>(a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2],
                       a[0] * b[1] - a[1] * b[0]);
}

// Index of the largest magnitude; whoever is not greater loses to the later one.
template <class T>
int largest(const Vector3T<T>& v) {
    const int first = std::abs(v[0]) > std::abs(v[1]) ? 0 : 1;
    return std::abs(v[first]) > std::abs(v[2]) ? first : 2;
}

TYPED_TEST(Vector3Test, IsThreeBareScalarsAndRefusesNullAndStreams) {
    using T = TypeParam;
    using V = Vector3T<T>;
    static_assert(sizeof(V) == 3 * sizeof(T), "");
    static_assert(std::is_trivially_copyable<V>::value, "");
    static_assert(kRefuses<V, int, std::nullptr_t>, "");
    static_assert(kRefuses<Vector3d, Vector3f> && kRefuses<Vector3f, Vector3d>, "");
    static_assert(!IsStreamable<V>::value, "");
}

TYPED_TEST(Vector3Test, ConstructorsSettersAndCastsAgree) {
    using T = TypeParam;
    using V = Vector3T<T>;
    EXPECT_BITS(V(0, 0, 0), V::kZero);
    V v;
    v.set(1, T(0.1), 3);
    EXPECT_BITS(V(1, T(0.1), 3), v);
    double wide[3];
    V::set(wide, v);
    for (int i = 0; i < 3; ++i) EXPECT_BITS(static_cast<double>(v[i]), wide[i]);
    T array[] = {4, 5, 6};
    EXPECT_EQ(static_cast<void*>(array), V::cast(array));
    EXPECT_EQ(static_cast<const void*>(array), V::constCast(array));
}

TYPED_TEST(Vector3Test, PrintPrintsNothing) {
    ::testing::internal::CaptureStdout();
    Vector3T<TypeParam>(1, 2, 3).print("label");
    EXPECT_EQ("", ::testing::internal::GetCapturedStdout());
}

TYPED_TEST(Vector3Test, CombinationsAreByComponent) {
    using T = TypeParam;
    using V = Vector3T<T>;
    Corpus<T> corpus(305);
    for (int n = 0; n < 500; ++n) {
        const V u = corpus.template anyOf<V>(), v = corpus.template anyOf<V>();
        const T a = corpus.any(), b = corpus.any();
        const V product = each<V>([&](int i) { return u[i] * v[i]; });
        EXPECT_BITS(product, V::multComp(u, v));
        V w = u;
        w.multComp(v);
        EXPECT_BITS(product, w);
        w = u;
        w.addMultiple(a, v);
        EXPECT_BITS(each<V>([&](int i) { return u[i] + a * v[i]; }), w);
        w.setLinear(a, u, b, v);
        EXPECT_BITS(each<V>([&](int i) { return a * u[i] + b * v[i]; }), w);
        EXPECT_BITS(dot<V>(u - v, u - v), V::distanceSqr(u, v));
        EXPECT_BITS(std::sqrt(dot<V>(u - v, u - v)), V::distance(u, v));
    }
}

TYPED_TEST(Vector3Test, AllCrossProductsAreRightHanded) {
    using T = TypeParam;
    using V = Vector3T<T>;
    Corpus<T> corpus(306);
    for (int n = 0; n < 500; ++n) {
        const V a = corpus.template anyOf<V>(), b = corpus.template anyOf<V>();
        EXPECT_BITS(crossed(a, b), a.cross(b));
        V v = a;
        v.postCross(b);
        EXPECT_BITS(crossed(a, b), v);
        v = b;
        v.preCross(a);
        EXPECT_BITS(crossed(a, b), v);
        v.setCross(a, b);
        EXPECT_BITS(crossed(a, b), v);
    }
}

TYPED_TEST(Vector3Test, MaxComponentIndexGivesTiesAndNaNToTheLaterIndex) {
    using T = TypeParam;
    using V = Vector3T<T>;
    EXPECT_EQ(1, V(-2, 2, 1).maxComponentIndex());
    EXPECT_EQ(2, V(2, 1, -2).maxComponentIndex());
    const T values[] = {0, -1, 1, -2, 2, kNaN<T>, kInf<T>, -kInf<T>};
    for (const T x : values) {
        for (const T y : values) {
            for (const T z : values) {
                EXPECT_EQ(largest(V(x, y, z)), V(x, y, z).maxComponentIndex()) << x << y << z;
            }
        }
    }
}

TYPED_TEST(Vector3Test, MakeCleanBaseAcceptsExactlyTheTolerance) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const T tol = T(0.125);
    const struct {
        T axis, next, last;
        bool clean;
    } cases[] = {
        {1, 0, 0, true},           {1 + tol, 0, 0, true},         {above(1 + tol), 0, 0, false},
        {1 - tol, 0, 0, true},     {below(1 - tol), 0, 0, false}, {1, tol, -tol, true},
        {1, -tol, tol, true},      {1, above(tol), 0, false},     {1, -above(tol), 0, false},
        {1, 0, above(tol), false}, {1, tol, -above(tol), false}};
    for (int i = 0; i < 6; ++i) {
        for (const auto& c : cases) {
            const T sign = i < 3 ? T(1) : T(-1);
            V v, axis;
            v[i % 3] = sign * c.axis, v[(i + 1) % 3] = c.next, v[(i + 2) % 3] = c.last;
            axis[i % 3] = sign;
            const V expected = c.clean ? axis : v;
            EXPECT_EQ(c.clean, v.makeCleanBase(tol)) << i << ": " << c.axis << c.next << c.last;
            EXPECT_BITS(expected, v);
        }
    }
}

TYPED_TEST(Vector3Test, MakeCleanBaseTakesNaNAsWithinTolerance) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const T nan = kNaN<T>;
    const V cases[][2] = {{V(nan, 0, 1), V(0, 0, 1)},
                          {V(0, nan, -1), V(0, 0, -1)},
                          {V(nan, 1, 0), V(0, 1, 0)},
                          {V(nan, nan, nan), V(0, 0, -1)}};
    for (const auto& c : cases) {
        V v = c[0];
        EXPECT_TRUE(v.makeCleanBase(T(0.125)));
        EXPECT_BITS(c[1], v);
    }
    V v(1, nan, 0);  // the last component counts as the largest here
    EXPECT_FALSE(v.makeCleanBase(T(0.125)));
    EXPECT_BITS(V(1, nan, 0), v);
}

TYPED_TEST(Vector3Test, OrthogonalIsTheCrossProductWithTheAxisAfterTheLargest) {
    using T = TypeParam;
    using V = Vector3T<T>;
    Corpus<T> corpus(307);
    for (int n = 0; n < 500; ++n) {
        const V v = corpus.template anyOf<V>();
        V axis, u, same = v;
        axis[(largest(v) + 1) % 3] = 1;
        EXPECT_BITS(crossed(v, axis), v.getOrthogonal());
        u.setOrthogonal(v);
        EXPECT_BITS(crossed(v, axis), u);
        same.setOrthogonal(same);
        EXPECT_BITS(crossed(v, axis), same);
    }
}

TYPED_TEST(Vector3Test, OrthogonalizeRemovesTheComponentAlongAVectorOfAnyLength) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const auto check = [](const V& a, const V& v) {
        const T k = 1 / dot(v, v), d = dot(a, v);
        V actual = a;
        actual.orthogonalize(v);
        EXPECT_BITS(v == V() ? a : each<V>([&](int i) { return a[i] - k * (d * v[i]); }), actual);
    };
    Corpus<T> corpus(308);
    for (int n = 0; n < 500; ++n) {
        check(corpus.vector(), n % 2 == 0 ? corpus.vector() : corpus.template anyOf<V>());
    }
    check(V(1, 2, 3), V(0, -T(0), 0));  // zeros of both signs change nothing
    for (int i = 0; i < 3; ++i) {       // what is not zero counts, even if its square is
        V v;
        v[i] = std::numeric_limits<T>::denorm_min();
        check(V(1, 2, 3), v);
    }
}

TYPED_TEST(Vector3Test, ProjectSplitsAlongTheDirectionAsGiven) {
    using T = TypeParam;
    using V = Vector3T<T>;
    Corpus<T> corpus(309);
    for (int n = 0; n < 500; ++n) {
        const V a = corpus.template anyOf<V>(), direction = corpus.template anyOf<V>();
        const V along = scaled(direction, dot(a, direction));
        V parallel, perpendicular, aliased = direction;
        a.project(direction, &parallel, &perpendicular);
        EXPECT_BITS(along, parallel);
        EXPECT_BITS(a - along, perpendicular);
        a.project(aliased, &aliased, &perpendicular);
        EXPECT_BITS(along, aliased);
        EXPECT_BITS(a - along, perpendicular);
    }
}

TYPED_TEST(Vector3Test, PlaneSpaceComparesTheSumOfXAndZWithY) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const auto check = [](const V& n) {
        const T x = n[0], y = n[1], z = n[2];
        const bool first = std::abs(x) + std::abs(z) > std::abs(y);
        const T k = 1 / std::sqrt(first ? x * x + z * z : y * y + z * z);
        const V expected = first ? V(z * k, 0, -x * k) : V(0, -z * k, y * k);
        V u, v;
        n.planeSpace(u, v);
        EXPECT_BITS(expected, u);
        EXPECT_BITS(crossed(n, expected), v);
    };
    const T three = 3;
    for (const V& n : {V(1, three, -2), V(-1, -three, 2), V(1, below(three), 2), V(2, 3, -2),
                       V(-2, 3, 2), V(0, 1, 0), V(0, 0, 0), V(kNaN<T>, 1, 1)}) {
        check(n);
    }
    Corpus<T> corpus(310);
    for (int n = 0; n < 500; ++n) check(corpus.template anyOf<V>());
}

TYPED_TEST(Vector3Test, PlaneNormalTurnsFromTheFirstEdgeToTheSecond) {
    using T = TypeParam;
    using V = Vector3T<T>;
    V normal(7, 7, 7);
    EXPECT_FALSE(V::planeNormal(V(1, 2, 3), V(2, 4, 6), V(4, 8, 12), normal));
    EXPECT_BITS(V(0, 0, 0), normal);
    EXPECT_FALSE(V::planeNormal(V(0, 0, kNaN<T>), V(1, 0, 0), V(0, 1, 0), normal));
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
}

TYPED_TEST(Vector3Test, PlaneNormalToleranceIsAWidenedFloat) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const T tol = T(1e-4f);
    for (const T length : {below(tol), tol, above(tol), T(1e-4)}) {  // 1e-4 is above for double
        V normal;
        EXPECT_EQ(length > tol, V::planeNormal(V(0, 0, 0), V(1, 0, 0), V(1, length, 0), normal));
        EXPECT_BITS(length > tol ? length * (1 / length) : length, normal[2]);
    }
}

TEST(ComputeAngleTest, MeasuresTheUnsignedAngleWhateverTheLengths) {
    Corpus<double> corpus(312);
    for (int n = 0; n < 500; ++n) {
        const Vector3d a = corpus.vector(), b = corpus.vector(), c = crossed(a, b);
        double angle = -1;
        EXPECT_TRUE(Ky::KyComputeAngle(a, b, angle));
        EXPECT_BITS(std::atan2(runtime(std::sqrt(dot(c, c))), runtime(dot(a, b))), angle);
    }
}

TEST(ComputeAngleTest, FailsOnlyWhenBothProductsAreBelowTheTolerance) {
    using V = Vector3d;
    const double tol = 1e-14, less = below(tol), pi = std::atan2(runtime(0.0), -1.0);
    const struct {
        V a, b;
        bool measured;
        double angle;
    } cases[] = {{V(tol, 0, 0), V(0, 1, 0), true, pi / 2},
                 {V(less, 0, 0), V(0, 1, 0), false, 42},
                 {V(tol, 0, 0), V(1, 0, 0), true, 0},
                 {V(less, 0, 0), V(1, 0, 0), false, 42},
                 {V(-tol, 0, 0), V(1, 0, 0), true, pi},
                 {V(-less, 0, 0), V(1, 0, 0), false, 42},
                 {V(0, 0, 0), V(1, 2, 3), false, 42},
                 {V(kNaN<double>, 0, 0), V(1, 2, 3), true, kNaN<double>}};
    for (const auto& c : cases) {
        double angle = 42;
        EXPECT_EQ(c.measured, Ky::KyComputeAngle(c.a, c.b, angle));
        EXPECT_BITS(c.angle, angle);
    }
}

}  // namespace
}  // namespace test
}  // namespace KyMath
