// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// == and areEqualTol are in ToleranceTest.cpp, with those of the other types.
#include "Support.h"

namespace KyMath {
namespace test {
namespace {

template <class T>
class QuaternionTest : public ::testing::Test {};
TYPED_TEST_SUITE(QuaternionTest, Scalars, );

// The four sums in the order w, x, y, z.
template <class T>
T squares(const QuaternionT<T>& q) {
    return q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3];
}
template <class T>
T dot(const Vector3T<T>& a, const Vector3T<T>& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
template <class T>
Vector3T<T> crossed(const Vector3T<T>& a, const Vector3T<T>& b) {
    return Vector3T<T>(a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2],
                       a[0] * b[1] - a[1] * b[0]);
}

TYPED_TEST(QuaternionTest, IsFourBareScalarsAndRefusesVectorsNullAndStreams) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    static_assert(sizeof(Q) == 4 * sizeof(T) && std::is_standard_layout<Q>::value, "");
    static_assert(kRefuses<Q, Vector3T<T>, Vector4T<T>, int, std::nullptr_t>, "");
    static_assert(kRefuses<Quaterniond, Quaternionf> && kRefuses<Quaternionf, Quaterniond>, "");
    static_assert(!IsStreamable<Q>::value, "");
}

// Deliberate: the constant is a half turn about z, the default the identity rotation.
TYPED_TEST(QuaternionTest, ConstantIdentityIsAHalfTurnAboutZ) {
    using Q = QuaternionT<TypeParam>;
    EXPECT_BITS(Q(0, 0, 0, 1), Q::kIdentity);
    EXPECT_BITS(Q(1, 0, 0, 0), Q());
    EXPECT_TRUE(Q::kIdentity != Q());
}

TYPED_TEST(QuaternionTest, EveryAccessPutsWFirst) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    const T numbers[] = {1, 2, 3, 4};
    const Q k(1, 2, 3, 4);
    EXPECT_BITS(k, Q(numbers));
    EXPECT_TRUE(k.w() == 1 && k.x() == 2 && k.y() == 3 && k.z() == 4);
    T a[4], w, x, y, z;
    k.get(a);
    EXPECT_BITS(k, Q(a));
    k.get(&w, &x, &y, &z);
    EXPECT_BITS(k, Q(w, x, y, z));
    Q q;
    k.get(q);
    EXPECT_BITS(k, q);
    q.set(5, 6, 7, 8);
    EXPECT_BITS(Q(5, 6, 7, 8), q);
    expectInPlace(k, q, [&](Q& p) -> Q& { return p = k; });
    expectInPlace(k, q, [&](Q& p) -> Q& { return p = numbers; });
    expectInPlace(k, k, [](Q& p) -> Q& { return p = static_cast<const Q&>(p); });
    EXPECT_EQ(static_cast<void*>(&q), static_cast<T*>(q));
    const Q& c = q;
    for (int i = 0; i < 4; ++i) {
        const T* const component = static_cast<const T*>(c) + i;
        const auto check = [&](auto index) {
            EXPECT_EQ(component, &q[index]);
            EXPECT_EQ(component, &c[index]);
        };
        check(i), check(static_cast<unsigned>(i)), check(static_cast<long>(i));
        check(static_cast<std::size_t>(i));
    }
}

TYPED_TEST(QuaternionTest, ArithmeticIsByComponentWithTrueDivision) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    Corpus<T> corpus(101);
    for (int n = 0; n < 500; ++n) {
        const Q a = corpus.template anyOf<Q>(), b = corpus.template anyOf<Q>();
        const T s = corpus.plain();
        const Q sum = each<Q>([&](int i) { return a[i] + b[i]; });
        const Q difference = each<Q>([&](int i) { return a[i] - b[i]; });
        const Q product = each<Q>([&](int i) { return a[i] * s; });
        const Q quotient = each<Q>([&](int i) { return a[i] / s; });
        EXPECT_BITS(sum, a + b);
        EXPECT_BITS(difference, a - b);
        EXPECT_BITS(product, a * s);
        EXPECT_BITS(quotient, a / s);
        expectInPlace(sum, a, [&](Q& q) -> Q& { return q += b; });
        expectInPlace(difference, a, [&](Q& q) -> Q& { return q -= b; });
        expectInPlace(product, a, [&](Q& q) -> Q& { return q *= s; });
        expectInPlace(quotient, a, [&](Q& q) -> Q& { return q /= s; });
        EXPECT_BITS(a[0] * b[0] + a[1] * b[1] + a[2] * b[2] + a[3] * b[3], a.dot(b));
        EXPECT_BITS(std::sqrt(squares(a)), a.norm());
    }
}

TYPED_TEST(QuaternionTest, DivisionByNothingSaysSoAndGivesTheIdentityOrNoChange) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    const std::string message = "QuaternionT<T>::attempt to divide by zero.";
    const T eps = Ky::KY_SMALL_REAL<T>::epsilon;
    const Q q(1, 2, 3, 4);
    const struct {
        T s;
        bool divides;
    } cases[] = {{0, false},    {-T(0), false},      {eps, false},   {above(eps), true},
                 {-eps, false}, {below(-eps), true}, {kNaN<T>, true}};
    for (const auto& c : cases) {
        const Q quotient(1 / c.s, 2 / c.s, 3 / c.s, 4 / c.s);
        Q copy = q;
        ::testing::internal::CaptureStdout();
        const Q result = q / c.s;
        EXPECT_EQ(c.divides ? "" : message, ::testing::internal::GetCapturedStdout()) << c.s;
        EXPECT_BITS(c.divides ? quotient : Q(), result) << c.s;
        ::testing::internal::CaptureStdout();
        EXPECT_EQ(&copy, &(copy /= c.s));
        EXPECT_EQ(c.divides ? "" : message, ::testing::internal::GetCapturedStdout()) << c.s;
        EXPECT_BITS(c.divides ? quotient : q, copy) << c.s;
    }
}

TYPED_TEST(QuaternionTest, ProductAppliesTheRightOperandFirst) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    const auto product = [](const Q& a, const Q& b) {
        return Q(a[0] * b[0] - a[1] * b[1] - a[2] * b[2] - a[3] * b[3],
                 a[0] * b[1] + a[1] * b[0] + a[2] * b[3] - a[3] * b[2],
                 a[0] * b[2] + a[2] * b[0] + a[3] * b[1] - a[1] * b[3],
                 a[0] * b[3] + a[3] * b[0] + a[1] * b[2] - a[2] * b[1]);
    };
    const Q i(0, 1, 0, 0), j(0, 0, 1, 0);
    EXPECT_TRUE(i * j == Q(0, 0, 0, 1) && j * i == Q(0, 0, 0, -1));
    Corpus<T> corpus(102);
    for (int n = 0; n < 500; ++n) {
        const Q a = corpus.template anyOf<Q>(), b = corpus.template anyOf<Q>();
        EXPECT_BITS(product(a, b), a * b);
        expectInPlace(product(a, b), a, [&](Q& q) -> Q& { return q *= b; });
        expectInPlace(product(a, a), a, [](Q& q) -> Q& { return q *= q; });
    }
}

TYPED_TEST(QuaternionTest, InverseIsTheConjugateOfAnyLength) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    const Q q(-1, 2, -T(0), -3), conjugate(-1, -2, 0, 3);
    EXPECT_BITS(conjugate, q.getInverse());
    Q inverted = q, set, self = q;
    inverted.invert();
    EXPECT_BITS(conjugate, inverted);
    set.setInverse(q);
    EXPECT_BITS(conjugate, set);
    self.setInverse(self);
    EXPECT_BITS(conjugate, self);
}

TYPED_TEST(QuaternionTest, RotationIsActiveAndScalesByTheSquaredLength) {
    using T = TypeParam;
    using V = Vector3T<T>;
    Corpus<T> corpus(103);
    for (int n = 0; n < 500; ++n) {
        const bool plain = n % 2 == 0;
        const auto q = plain ? corpus.unitQuaternion() : corpus.template anyOf<QuaternionT<T>>();
        const V v = plain ? corpus.vector() : corpus.template anyOf<V>();
        const V u(q[1], q[2], q[3]), c = crossed(u, v);
        const T w = q[0];
        const V expected = each<V>([&](int i) {
            return (w * w - dot(u, u)) * v[i] + 2 * dot(u, v) * u[i] + 2 * w * c[i];
        });
        EXPECT_BITS(expected, q.rotate(v));
        EXPECT_BITS(expected, q * v);
    }
    EXPECT_TRUE(QuaternionT<T>(1, 0, 0, 1).rotate(V(1, 0, 0)) == V(0, 2, 0));
}

TYPED_TEST(QuaternionTest, NormalizeComparesTheSquaredLengthWithTheTolerance) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    const T eps = Ky::KY_SMALL_REAL<T>::epsilon;
    const auto check = [eps](const Q& q) {
        const T n = squares(q), r = 1 / std::sqrt(n);
        Q actual = q;
        actual.normalize();
        EXPECT_BITS(n <= eps ? Q() : each<Q>([&](int i) { return q[i] * r; }), actual) << n;
        return n;
    };
    Corpus<T> corpus(104);
    for (int n = 0; n < 500; ++n) check(corpus.template anyOf<Q>());
    check(Q(0, 0, 0, 0));
    // Squared lengths on both sides of the tolerance, and just on it.
    bool on = false, over = false;
    for (int k = 0; k < 64; ++k) {
        const T w = std::sqrt(eps) * (1 - T(k) / 128);
        T x = std::sqrt(std::abs(eps - w * w));
        for (int step = 0; step < 4; ++step, x = above(x)) {
            const T n = check(Q(w, 0, x, 0));
            on = on || n == eps;
            over = over || n == above(eps);
        }
    }
    EXPECT_TRUE(on && over);
}

TYPED_TEST(QuaternionTest, AxisAngleTakesTheAxisAsGivenTheConstructorNormalizes) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    using V = Vector3T<T>;
    Corpus<T> corpus(105);
    for (int n = 0; n < 500; ++n) {
        const V axis = corpus.vector();
        const T angle = corpus.any();
        T s, c;
        sinCos(angle * T(0.5), s, c);
        Q scalars, vector;
        scalars.fromAxisAngle(axis[0], axis[1], axis[2], angle);
        vector.fromAxisAngle(axis, angle);
        EXPECT_BITS(Q(c, s * axis[0], s * axis[1], s * axis[2]), scalars);
        EXPECT_BITS(scalars, vector);
        const T r = 1 / std::sqrt(dot(axis, axis));
        EXPECT_BITS(Q(c, s * (axis[0] * r), s * (axis[1] * r), s * (axis[2] * r)), Q(axis, angle));
    }
    T s, c;
    sinCos(T(1), s, c);
    EXPECT_BITS(Q(c, 0, 0, 0), Q(V(0, 0, 0), T(2)));
}

TYPED_TEST(QuaternionTest, ToAxisAngleDividesTrulyAndKeepsAnglesAbovePi) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    Corpus<T> corpus(106);
    for (int n = 0; n < 500; ++n) {
        const Q q = corpus.unitQuaternion();
        const T s = std::sqrt(q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
        const T expected = 2 * std::acos(runtime(q[0]));
        T x, y, z, angle;
        q.toAxisAngle(&x, &y, &z, &angle);
        EXPECT_BITS(Vector3T<T>(q[1] / s, q[2] / s, q[3] / s), Vector3T<T>(x, y, z));
        EXPECT_BITS(expected, angle);
        Vector3T<T> axis;
        q.toAxisAngle(&axis, &angle);
        EXPECT_BITS(Vector3T<T>(x, y, z), axis);
        EXPECT_BITS(expected, angle);
    }
}

// Deliberate: without an axis, it is y.
TYPED_TEST(QuaternionTest, ToAxisAngleFallsBackToTheYAxis) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const T eps = Ky::KY_SMALL_REAL<T>::epsilon, half = 2 * std::acos(runtime(T(0.5)));
    const struct {
        QuaternionT<T> q;
        V axis;
        T angle;
    } cases[] = {
        {{1, 0, 0, 0}, V(0, 1, 0), 0},
        {{-1, 0, 0, 0}, V(0, 1, 0), 0},
        {{T(1.5), 0, 0, 0}, V(0, 1, 0), 0},
        {{T(0.5), -eps, 0, 0}, V(0, 1, 0), 0},
        {{T(0.5), 0, 0, above(eps)}, V(0, 0, 1), half},
        {{1, 0, 0, 2}, V(0, 0, 1), 0},
        {{above(T(1)), 0, 0, 2}, V(0, 1, 0), 0},
        {{-1, 0, 0, 2}, V(0, 0, 1), 2 * std::acos(runtime(T(-1)))},
        {{below(T(-1)), 2, 0, 0}, V(1, 0, 0), kNaN<T>},
        {{kNaN<T>, 2, 0, 0}, V(1, 0, 0), kNaN<T>},
    };
    for (const auto& c : cases) {
        V axis(7, 7, 7);
        T angle = 7;
        c.q.toAxisAngle(&axis, &angle);
        EXPECT_BITS(c.axis, axis) << c.q[0];
        EXPECT_BITS(c.angle, angle) << c.q[0];
    }
}

TYPED_TEST(QuaternionTest, EulerAnglesTurnAboutTheFixedXThenYThenZ) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    Corpus<T> corpus(107);
    for (int n = 0; n < 500; ++n) {
        const T r[] = {corpus.any(), corpus.plain(), corpus.plain()};
        T sX, cX, sY, cY, sZ, cZ;
        sinCos(r[0] / 2, sX, cX);
        sinCos(r[1] / 2, sY, cY);
        sinCos(r[2] / 2, sZ, cZ);
        Q q;
        q.fromEulerXYZ(r[0], r[1], r[2]);
        EXPECT_BITS(Q(cX * cY * cZ + sX * sY * sZ, sX * cY * cZ - cX * sY * sZ,
                      cX * sY * cZ + sX * cY * sZ, cX * cY * sZ - sX * sY * cZ),
                    q);
    }
}

TYPED_TEST(QuaternionTest, ToEulerReadsAnyQuaternionByTheSameFormulas) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    Corpus<T> corpus(108);
    for (int n = 0; n < 500; ++n) {
        const Q q = n == 0       ? Q()
                    : n % 4 != 0 ? corpus.unitQuaternion()
                                 : corpus.template anyOf<Q>();
        const T w = q[0], x = q[1], y = q[2], z = q[3];
        const Vector3T<T> expected(
            std::atan2(runtime(2 * (y * z + w * x)), runtime(w * w - x * x - y * y + z * z)),
            std::asin(runtime(-2 * (x * z - w * y))),
            std::atan2(runtime(2 * (x * y + w * z)), runtime(w * w + x * x - y * y - z * z)));
        Vector3T<T> angles;
        q.toEulerXYZ(&angles);
        EXPECT_BITS(expected, angles);
        T a = 7, b = 7, c = 7;
        q.toEulerXYZ(&a, &b, &c);
        EXPECT_BITS(expected, Vector3T<T>(a, b, c));
        // z is written first, then x, then y.
        q.toEulerXYZ(&a, &b, &a);
        EXPECT_BITS(expected[0], a);
        q.toEulerXYZ(&a, &a, &c);
        EXPECT_BITS(expected[1], a);
    }
}

// Deliberate: the argument of asin is not clamped.
TYPED_TEST(QuaternionTest, ToEulerGivesANaNPitchBeyondThePole) {
    using T = TypeParam;
    T x, y, z;
    QuaternionT<T>(T(0.7072), 0, T(0.7072), 0).toEulerXYZ(&x, &y, &z);
    EXPECT_BITS(kNaN<T>, y);
    EXPECT_BITS(Vector3T<T>(0, 0, 0), Vector3T<T>(x, 0, z));
    QuaternionT<T>(1, 0, T(0.5), 0).toEulerXYZ(&x, &y, &z);
    EXPECT_BITS(std::asin(runtime(T(1))), y);
}

TYPED_TEST(QuaternionTest, FiniteRotationMultipliesFromTheLeft) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    using V = Vector3T<T>;
    const auto check = [](const Q& q, const V& omega, T dt) {
        const T length = std::sqrt(dot(omega, omega)), r = 1 / (length + T(1e-14));
        const V u(omega[0] * r, omega[1] * r, omega[2] * r), v(q[1], q[2], q[3]), x = crossed(u, v);
        T s, c;
        sinCos(length * dt / 2, s, c);
        Q expected(c * q[0] - s * dot(u, v), 0, 0, 0), actual = q;
        for (int i = 0; i < 3; ++i) expected[i + 1] = c * v[i] + s * q[0] * u[i] + s * x[i];
        actual.finiteRotation(omega, dt);
        EXPECT_BITS(expected, actual);
    };
    Corpus<T> corpus(109);
    for (int n = 0; n < 500; ++n) {
        const Q q = n % 2 == 0 ? corpus.unitQuaternion() : corpus.template anyOf<Q>();
        const V omega = corpus.vector();
        const T dt = corpus.plain();
        check(q, omega, dt);
        check(q, omega * T(1e-14), dt * T(1e14));  // where the added 1e-14 counts
        check(q, V(), dt);
    }
    Q q(1, 2, 3, 4);
    q.finiteRotation(V(), 5);
    EXPECT_BITS(Q(1, 2, 3, 4), q);
}

template <class T>
QuaternionT<T> interpolated(const QuaternionT<T>& p, QuaternionT<T> q, T t, T threshold = T(1e-7)) {
    T cosine = p[0] * q[0] + p[1] * q[1] + p[2] * q[2] + p[3] * q[3], a = 1 - t, b = t;
    if (cosine < 0) {
        cosine = -cosine;
        for (int i = 0; i < 4; ++i) q[i] = -q[i];
    }
    if (1 - cosine > threshold) {
        const T omega = std::acos(runtime(cosine)), k = 1 / std::sin(runtime(omega));
        a = std::sin(runtime((1 - t) * omega)) * k;
        b = std::sin(runtime(t * omega)) * k;
    }
    for (int i = 0; i < 4; ++i) q[i] = p[i] * a + q[i] * b;
    return q;
}

TYPED_TEST(QuaternionTest, SlerpTakesTheShorterArcAndExtrapolates) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    Corpus<T> corpus(110);
    for (int n = 0; n < 200; ++n) {
        const Q p = corpus.unitQuaternion(), q = corpus.unitQuaternion();
        for (const T t : {T(-0.5), T(0), T(0.3), T(1), T(2.5)}) {
            EXPECT_BITS(interpolated(p, q, t), p.slerp(q, t));
        }
        EXPECT_BITS(interpolated(p, Q(p * T(-1)), T(0.3)), p.slerp(p * T(-1), T(0.3)));
    }
    for (const T w : {T(0), -T(0), kNaN<T>, T(-3), T(3)}) {  // orthogonal, NaN, not of unit length
        const Q p, q(w, 1, 0, 0);
        EXPECT_BITS(interpolated(p, q, T(0.3)), p.slerp(q, T(0.3)));
    }
}

TYPED_TEST(QuaternionTest, SlerpIsLinearUpToTheThreshold) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    // 1 - cosine in steps of kEps / 2 below 1: the last within 1e-7 and the first beyond it.
    const int last = static_cast<int>(2e-7 / static_cast<double>(kEps<T>));
    const T t = T(40.25);  // far out, where arc and line part visibly
    for (const T sign : {T(1), T(-1)}) {
        for (int steps = last - 1; steps <= last + 2; ++steps) {
            const T cosine = sign * (1 - T(steps) * (kEps<T> / 2));
            const Q p, q(cosine, std::sqrt(1 - cosine * cosine), 0, 0);
            const Q result = p.slerp(q, t);
            EXPECT_BITS(interpolated(p, q, t), result) << steps;
            EXPECT_EQ(steps <= last, sameBits(q[1] * (sign * t), result.x())) << steps;
        }
    }
    const Q p(1, 2, 3, 4);
    EXPECT_BITS(Q(1, 2, 3, 4), p.slerp(p * T(-1), T(0.25)));
}

TYPED_TEST(QuaternionTest, FromRotationWorksInDoubleFromTheDotProductOn) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    using V = Vector3T<T>;
    const auto check = [](const V& from, const V& to) {
        const double d = static_cast<double>(dot(from, to));
        const double m = d > 1 ? 0.5 : d < -1 ? -0.5 : 0.5 * d;
        V axis = from.getOrthogonal();
        if (!Ky::KY_ARE_EQUAL(d, 1.0) && !Ky::KY_ARE_EQUAL(d, -1.0)) {
            axis = crossed(from, to);
            axis.normalize();
        }
        const T s = std::sqrt(static_cast<T>(0.5 - m)), w = std::sqrt(static_cast<T>(0.5 + m));
        Q q(7, 7, 7, 7);
        q.fromRotation(from, to);
        EXPECT_BITS(Q(w, axis[0] * s, axis[1] * s, axis[2] * s), q) << d;
    };
    Corpus<T> corpus(111);
    for (int n = 0; n < 300; ++n) {
        V from = corpus.vector(), to = corpus.vector();
        check(from * T(0.125), to * T(0.125));  // not of unit length: the dot product is clamped
        from.normalize();
        to.normalize();
        check(from, to);
        check(from, from);
        check(from, -from);
    }
    // On both sides of equality with 1 and -1: for double, 90 half steps count as equal.
    for (const int steps : {0, 1, 2, 45, 46, 90, 91}) {
        const T d = 1 - T(steps) * (kEps<T> / 2), e = 1 + T(steps) * kEps<T>;
        const T s = T(0.01);  // any second component tells the two axes apart
        check(V(1, 0, 0), V(d, 0, s));
        check(V(1, 0, 0), V(-d, 0, s));
        check(V(1, 0, 0), V(e, 0, s));
        check(V(1, 0, 0), V(-e, 0, s));
    }
}

TYPED_TEST(QuaternionTest, FromRotationOfParallelDirections) {
    using T = TypeParam;
    using V = Vector3T<T>;
    QuaternionT<T> q;
    q.fromRotation(V(0, 0, 1), V(0, 0, 1));
    EXPECT_TRUE(q == QuaternionT<T>());
    q.fromRotation(V(0, 0, 1), V(0, 0, -1));
    EXPECT_TRUE(q == QuaternionT<T>(0, 0, 1, 0));
}

}  // namespace
}  // namespace test
}  // namespace KyMath
