// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// == and areEqualTol are in ToleranceTest.cpp, with those of the other types.
#include "Support.h"

namespace KyMath::test {
namespace {

static_assert(
    kRefuses<Quaternionf, Vector3f, Vector4f, Matrix44f, int, std::nullptr_t, Quaterniond>);
static_assert(
    kRefuses<Quaterniond, Vector3d, Vector4d, Matrix44d, int, std::nullptr_t, Quaternionf>);
static_assert(kRefuses<Quaterniond, Ky::KyTransform>);
static_assert(!IsStreamable<Quaternionf>::value && !IsStreamable<Quaterniond>::value);

KY_SUITE(QuaternionTest);

// Deliberate: the constant is a half turn about z, the default the identity rotation.
KY_TEST(QuaternionTest, ConstantIdentityIsAHalfTurn) {
    EXPECT_BITS(Quat<T>(0, 0, 0, 1), Quat<T>::kIdentity);
    EXPECT_BITS(Quat<T>(1, 0, 0, 0), Quat<T>());
}

KY_TEST(QuaternionTest, DivisionByNothingSaysSo) {
    const T eps = Ky::KY_SMALL_REAL<T>::epsilon;
    const Quat<T> q(1, 2, 3, 4);
    for (const T s : {T(0), -T(0), eps, -eps, above(eps), below(-eps), kNaN<T>}) {
        const bool divides = !(std::abs(s) <= eps);
        const Quat<T> quotient(1 / s, 2 / s, 3 / s, 4 / s);
        const std::string said = divides ? "" : "QuaternionT<T>::attempt to divide by zero.";
        ::testing::internal::CaptureStdout();
        EXPECT_BITS(divides ? quotient : Quat<T>(), q / s) << s;
        expectInPlace(divides ? quotient : q, q, [s](Quat<T>& p) -> Quat<T>& { return p /= s; });
        EXPECT_EQ(said + said, ::testing::internal::GetCapturedStdout()) << s;
    }
}

KY_TEST(QuaternionTest, OperandsMayBeTheQuaternionItself) {
    using Q = Quat<T>;
    const Q q(2, 3, 5, 7), half(0, 0, T(0.6), T(0.8));
    EXPECT_BITS(Q(-79, 12, 20, 28), after(q, [](Q& p) { p *= p; }));
    EXPECT_BITS(Q(2, -3, -5, -7), after(q, [](Q& p) { p.setInverse(p); }));
    EXPECT_BITS(Q(4, 6, 10, 14), after(q, [](Q& p) { p *= p[0]; }));
    EXPECT_BITS(Q(1, 1.5, 2.5, 3.5), after(q, [](Q& p) { p /= p[0]; }));
    EXPECT_BITS(Q(7, 5, 3, 2), after(q, [](Q& p) { p.get(&p[3], &p[2], &p[1], &p[0]); }));
    Vec<T> axis;
    T angle;
    half.toAxisAngle(&axis, &angle);
    EXPECT_BITS(Q(angle, axis.z(), axis.y(), axis.x()),
                after(half, [](Q& p) { p.toAxisAngle(&p[3], &p[2], &p[1], &p[0]); }));
}

KY_TEST(QuaternionTest, TheLeftTurnComesLast) {
    using Q = Quat<T>;
    const Vec<T> x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
    const T a = T(0.3), b = T(0.5), c = T(0.7), bound = 16 * kEps<T>;
    const Q euler = after(Q(), [&](Q& q) { q.fromEulerXYZ(a, b, c); });
    const Q turned = after(Q(y, c), [&](Q& q) { q.finiteRotation(z * a, b); });
    EXPECT_LE((euler - Q(z, c) * Q(y, b) * Q(x, a)).norm(), bound);
    EXPECT_LE((turned - Q(z, a * b) * Q(y, c)).norm(), bound);
    EXPECT_LE((Q(y, c).slerp(Q(z, a) * Q(y, c), b) - turned).norm(), bound);
    Vec<T> angles;
    euler.toEulerXYZ(&angles);
    EXPECT_LE((angles - Vec<T>(a, b, c)).norm(), bound);
}

// Deliberate: what is compared is not the length.
KY_TEST(QuaternionTest, NormalizeComparesTheSquaredLength) {
    const auto normalized = [](Quat<T> q) { return after(q, [](Quat<T>& p) { p.normalize(); }); };
    const T eps = Ky::KY_SMALL_REAL<T>::epsilon, w = std::sqrt(eps) * T(0.99);
    for (const T square : {below(eps), eps, above(eps)}) {
        const Quat<T> q(w, 0, std::sqrt(square - w * w), 0);
        ASSERT_EQ(square, q.dot(q));
        EXPECT_BITS(square <= eps ? Quat<T>() : q * (1 / std::sqrt(square)), normalized(q));
    }
    EXPECT_BITS(Quat<T>(), normalized(Quat<T>(0, 0, 0, 0)));
    EXPECT_TRUE(std::isnan(normalized(Quat<T>(kNaN<T>, 0, 0, 0))[1]));
}

KY_TEST(QuaternionTest, OnlyTheConstructorNormalizesTheAxis) {
    T s, c;
    sinCos(T(0.5), s, c);
    const Vec<T> axis(3, 0, -4), unit = axis / T(5);
    EXPECT_BITS(Quat<T>(c, s * 3, 0, s * -4),
                after(Quat<T>(), [&](Quat<T>& q) { q.fromAxisAngle(axis, 1); }));
    EXPECT_BITS(Quat<T>(c, s * unit[0], 0, s * unit[2]), Quat<T>(axis, 1));
    EXPECT_BITS(Quat<T>(c, 0, 0, 0), Quat<T>(Vec<T>(), 1));
}

// Deliberate: without an axis, it is y.
KY_TEST(QuaternionTest, ToAxisAngleFallsBackToTheYAxis) {
    const T eps = Ky::KY_SMALL_REAL<T>::epsilon;
    Vec<T> axis;
    T angle;
    for (const T w : {T(0.5), T(1), above(T(1)), T(-1), kNaN<T>}) {
        for (const T z : {-eps, above(eps), T(-2)}) {
            const bool found = std::abs(z) > eps && !(w > 1);
            Quat<T>(w, 0, 0, z).toAxisAngle(&axis, &angle);
            EXPECT_EQ(found ? Vec<T>(0, 0, z < 0 ? -1 : 1) : Vec<T>(0, 1, 0), axis) << w << z;
            EXPECT_BITS(found ? 2 * std::acos(runtime(w)) : T(0), angle) << w;
        }
    }
    Quat<T>(0, 7, 4, 4).toAxisAngle(&axis, &angle);  // of length 9: truly divided
    EXPECT_BITS(Vec<T>(T(7) / 9, T(4) / 9, T(4) / 9), axis);
}

// Deliberate: the argument of asin is not clamped, and gives NaN past +-1.
KY_TEST(QuaternionTest, PitchIsNaNPastThePole) {
    Vec<T> angles;
    Quat<T>(T(0.75), 0, T(0.75), 0).toEulerXYZ(&angles);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(i == 1, std::isnan(angles[i])) << i;
}

KY_TEST(QuaternionTest, SlerpIsLinearWhenNearlyParallel) {
    using Q = Quat<T>;
    const T t = T(40.25);  // far out, arc and line part visibly
    for (const T sign : {T(1), T(-1)}) {
        for (const T x : {T(1e-4), T(1e-3)}) {  // 1 - cosine is 5e-9 and 5e-7
            const Q blend = Q().slerp(Q(std::sqrt(1 - x * x), x, 0, 0) * sign, t);
            EXPECT_EQ(x < T(5e-4), std::abs(blend.x() - x * t) <= 8 * kEps<T>) << x;
        }
        EXPECT_EQ(Q(1 + 2 * t, t, 0, 0), Q().slerp(Q(3, 1, 0, 0) * sign, t));  // as beyond 1
    }
}

KY_TEST(QuaternionTest, SlerpAcrossGoesToThePositiveSide) {
    for (const T w : {T(0), -T(0)}) EXPECT_GT(Quat<T>().slerp(Quat<T>(w, 1, 0, 0), T(0.5)).x(), 0);
}

KY_TEST(QuaternionTest, FromRotationClampsTheDotProduct) {
    const auto fromX = [](T x) {
        return after(Quat<T>(),
                     [&](Quat<T>& q) { q.fromRotation(Vec<T>(1, 0, 0), Vec<T>(x, 0, 0)); });
    };
    for (const T x : {T(1), T(4)}) EXPECT_BITS(Quat<T>(1, 0, 0, 0), fromX(x));
    EXPECT_EQ(Quat<T>(0, 0, 0, 1), fromX(-1));
}

}  // namespace
}  // namespace KyMath::test
