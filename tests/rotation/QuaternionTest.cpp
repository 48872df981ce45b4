// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// == and areEqualTol are in ToleranceTest.cpp, with those of the other types.
#include "Support.h"

namespace KyMath {
namespace test {
namespace {

static_assert(
    kRefuses<Quaternionf, Vector3f, Vector4f, Matrix44f, int, std::nullptr_t, Quaterniond>);
static_assert(
    kRefuses<Quaterniond, Vector3d, Vector4d, Matrix44d, int, std::nullptr_t, Quaternionf>);
static_assert(kRefuses<Quaterniond, Ky::KyTransform>);
static_assert(!IsStreamable<Quaternionf>::value && !IsStreamable<Quaterniond>::value);

template <class T>
class QuaternionTest : public ::testing::Test {};
TYPED_TEST_SUITE(QuaternionTest, Scalars, );

// Deliberate: the constant is a half turn about z, the default the identity rotation.
TYPED_TEST(QuaternionTest, WComesFirstAndTheConstantIdentityHasNone) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    const Q q(1, 2, 3, 4);
    EXPECT_TRUE(q[0] == 1 && q.w() == 1 && q.x() == 2 && q.y() == 3 && q.z() == 4);
    EXPECT_BITS(Q(0, 0, 0, 1), Q::kIdentity);
    EXPECT_BITS(Q(1, 0, 0, 0), Q());
}

TYPED_TEST(QuaternionTest, DivisionByNothingSaysSoAndGivesTheIdentityOrNoChange) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    const T eps = Ky::KY_SMALL_REAL<T>::epsilon;
    const Q q(1, 2, 3, 4);
    for (const T s : {T(0), -T(0), eps, -eps, above(eps), below(-eps), kNaN<T>}) {
        const bool divides = !(std::abs(s) <= eps);
        const Q quotient(1 / s, 2 / s, 3 / s, 4 / s);
        const std::string said = divides ? "" : "QuaternionT<T>::attempt to divide by zero.";
        ::testing::internal::CaptureStdout();
        EXPECT_BITS(divides ? quotient : Q(), q / s) << s;
        expectInPlace(divides ? quotient : q, q, [s](Q& p) -> Q& { return p /= s; });
        EXPECT_EQ(said + said, ::testing::internal::GetCapturedStdout()) << s;
    }
}

TYPED_TEST(QuaternionTest, OperandsAndOutputsMayBeTheQuaternionItselfOrItsComponents) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    const Q q(2, 3, 5, 7);
    EXPECT_BITS(Q(-79, 12, 20, 28), after(q, [](Q& p) { p *= p; }));
    EXPECT_BITS(Q(2, -3, -5, -7), after(q, [](Q& p) { p.setInverse(p); }));
    EXPECT_BITS(Q(4, 6, 10, 14), after(q, [](Q& p) { p *= p[0]; }));
    EXPECT_BITS(Q(1, 1.5, 2.5, 3.5), after(q, [](Q& p) { p /= p[0]; }));
    EXPECT_BITS(Q(7, 5, 3, 2), after(q, [](Q& p) { p.get(&p[3], &p[2], &p[1], &p[0]); }));
    const Q half(0, 0, T(0.6), T(0.8));
    Q expected;
    half.toAxisAngle(&expected[3], &expected[2], &expected[1], &expected[0]);
    EXPECT_BITS(expected, after(half, [](Q& p) { p.toAxisAngle(&p[3], &p[2], &p[1], &p[0]); }));
}

TYPED_TEST(QuaternionTest, TurnsAreActiveAndTheLeftOneComesLast) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    using V = Vector3T<T>;
    const V x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
    const auto expectNear = [](const Q& p, const Q& q) { EXPECT_LE((p - q).norm(), 16 * kEps<T>); };
    const T a = T(0.3), b = T(0.5), c = T(0.7);
    EXPECT_EQ(y * 2, Q(1, 0, 0, 1).rotate(x));
    EXPECT_EQ(Q(0, 0, 0, 1), Q(0, 1, 0, 0) * Q(0, 0, 1, 0));
    expectNear(Q(z, c) * Q(y, b) * Q(x, a), after(Q(), [&](Q& q) { q.fromEulerXYZ(a, b, c); }));
    expectNear(Q(z, a * b) * Q(y, c), after(Q(y, c), [&](Q& q) { q.finiteRotation(z * a, b); }));
    expectNear(Q(z, a * b) * Q(y, c), Q(y, c).slerp(Q(z, a) * Q(y, c), b));
}

// Deliberate: what is compared is not the length.
TYPED_TEST(QuaternionTest, NormalizeComparesTheSquaredLengthWithTheTolerance) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    const auto normalized = [](Q q) { return after(q, [](Q& p) { p.normalize(); }); };
    const T eps = Ky::KY_SMALL_REAL<T>::epsilon, w = std::sqrt(eps) * T(0.99);
    for (const T square : {below(eps), eps, above(eps)}) {
        const Q q(w, 0, std::sqrt(square - w * w), 0);
        ASSERT_EQ(square, q.dot(q));
        EXPECT_BITS(square <= eps ? Q() : q * (1 / std::sqrt(square)), normalized(q));
    }
    EXPECT_BITS(Q(), normalized(Q(0, 0, 0, 0)));
    EXPECT_TRUE(std::isnan(normalized(Q(kNaN<T>, 0, 0, 0))[1]));
}

TYPED_TEST(QuaternionTest, AxisAngleTakesTheAxisAsGivenTheConstructorNormalizes) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    using V = Vector3T<T>;
    T s, c;
    sinCos(T(0.5), s, c);
    const auto of = [](const V& axis) {
        return after(Q(), [&](Q& q) { q.fromAxisAngle(axis, 1); });
    };
    EXPECT_BITS(Q(c, s * 3, 0, s * -4), of(V(3, 0, -4)));
    EXPECT_BITS(Q(c, s * (3 * (1 / T(5))), 0, s * (-4 * (1 / T(5)))), Q(V(3, 0, -4), 1));
    EXPECT_BITS(Q(c, 0, 0, 0), Q(V(), 1));
}

// Deliberate: without an axis, it is y.
TYPED_TEST(QuaternionTest, ToAxisAngleDividesTrulyOrFallsBackToTheYAxis) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    using V = Vector3T<T>;
    const T eps = Ky::KY_SMALL_REAL<T>::epsilon;
    for (const T w : {T(0.5), T(1), above(T(1)), T(-1), below(T(-1)), kNaN<T>}) {
        for (const T z : {T(0), -eps, above(eps), T(-2)}) {
            const bool found = std::abs(z) > eps && !(w > 1);
            V axis;
            T angle = 7;
            Q(w, 0, 0, z).toAxisAngle(&axis, &angle);
            EXPECT_BITS(found ? V(0, 0, z < 0 ? -1 : 1) : V(0, 1, 0), axis + V()) << w;
            EXPECT_BITS(found ? 2 * std::acos(runtime(w)) : T(0), angle) << w;
        }
    }
    V axis;
    T angle;
    Q(0, 7, 4, 4).toAxisAngle(&axis, &angle);  // of length 9
    EXPECT_BITS(V(T(7) / 9, T(4) / 9, T(4) / 9), axis);
}

// Deliberate: the argument of asin is not clamped, and gives NaN past +-1.
TYPED_TEST(QuaternionTest, ToEulerXYZIsNaNPastThePoleAndWritesZThenXThenY) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    T x, y, z;
    Q(T(0.75), 0, T(0.75), 0).toEulerXYZ(&x, &y, &z);
    EXPECT_TRUE(std::isnan(y) && !std::isnan(x) && !std::isnan(z));
    const Q q(T(0.5), T(0.1), T(-0.3), T(0.2));
    q.toEulerXYZ(&x, &y, &z);
    T a, b, c;
    q.toEulerXYZ(&a, &b, &a);
    q.toEulerXYZ(&c, &c, &b);
    EXPECT_BITS(Vector3T<T>(x, y, z), Vector3T<T>(a, c, b));
}

TYPED_TEST(QuaternionTest, FiniteRotationAlwaysAddsToTheLength) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    // An axis of length 1e-14 is halved; one of length 0 stays so.
    T s, c;
    sinCos(T(0.5), s, c);
    const T tiny = T(1e-14), dt = 1 / tiny;
    const auto of = [](T x, T time) {
        return after(Q(), [&](Q& q) { q.finiteRotation(Vector3T<T>(x, 0, 0), time); });
    };
    EXPECT_NEAR(s / 2, of(tiny, dt)[1], 4 * kEps<T>);
    EXPECT_BITS(Q(), of(0, 1));
}

TYPED_TEST(QuaternionTest, SlerpTakesTheShorterArcAndTheLineWhenNearlyParallel) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    // At 40.25, far out, arc and line part visibly.
    const T t = T(40.25);
    const auto onLine = [t](T sign, T w, T x) {
        return Q(1 - t + sign * w * t, sign * x * t, 0, 0);
    };
    // 1 - cosine in steps of kEps / 2 below 1: the last within 1e-7 and the first beyond it.
    const int last = static_cast<int>(2e-7 / static_cast<double>(kEps<T>));
    for (int steps = last - 1; steps <= last + 2; ++steps) {
        const T w = 1 - T(steps) * (kEps<T> / 2), x = std::sqrt(1 - w * w);
        for (const T sign : {T(1), T(-1)}) {
            const Q expected = onLine(1, w, x), actual = Q().slerp(Q(sign * w, sign * x, 0, 0), t);
            EXPECT_EQ(steps <= last, sameBits(expected[0], actual[0])) << steps;
        }
    }
    // The arc goes to the nearer of q and -q; beyond a cosine of 1 it is the line.
    EXPECT_EQ(onLine(1, 3, 1), Q().slerp(Q(3, 1, 0, 0), t));
    EXPECT_EQ(onLine(-1, -3, 1), Q().slerp(Q(-3, 1, 0, 0), t));
    EXPECT_GT(Q().slerp(Q(0, 1, 0, 0), T(0.5)).x(), 0);
    EXPECT_GT(Q().slerp(Q(-T(0), 1, 0, 0), T(0.5)).x(), 0);
    EXPECT_TRUE(std::isnan(Q().slerp(Q(kNaN<T>, 1, 0, 0), T(0.5)).w()));
}

TYPED_TEST(QuaternionTest, FromRotationWorksInDoubleFromTheDotProductOn) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    using V = Vector3T<T>;
    const auto of = [](const V& from, const V& to) {
        return after(Q(), [&](Q& q) { q.fromRotation(from, to); });
    };
    const V x(1, 0, 0);
    EXPECT_BITS(Q(1, 0, 0, 0), of(x, x));
    EXPECT_EQ(Q(0, 0, 0, 1), of(x, -x));
    EXPECT_BITS(Q(1, 0, 0, 0), of(x, V(4, 0, 0)));  // the dot product is clamped
    // On both sides of equality with 1 and -1: for double, 90 half steps count as equal. Any second
    // component tells the axis across both from one that is just across the first.
    for (const int steps : {0, 1, 2, 45, 46, 90, 91}) {
        const T d = 1 - T(steps) * (kEps<T> / 2), e = 1 + T(steps) * kEps<T>;
        const bool parallel = steps == 0 || (sizeof(T) == 8 && steps <= 90);
        EXPECT_EQ(parallel || d == 1, of(x, V(d, 0, T(0.01)))[2] == 0) << steps;
        EXPECT_EQ(parallel || d == 1, of(x, V(-d, 0, T(0.01)))[2] == 0) << steps;
        const bool beyond = steps == 0 || (sizeof(T) == 8 && steps <= 45);
        const Q past = of(x, V(e, 0, T(0.01))), half = of(x, V(-e, 0, T(0.01)));
        EXPECT_TRUE(past.w() == 1 && past[2] == 0) << steps;
        EXPECT_EQ(beyond, half[2] == 0 && half.w() == 0) << steps;
    }
}

}  // namespace
}  // namespace test
}  // namespace KyMath
