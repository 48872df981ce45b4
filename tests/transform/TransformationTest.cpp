// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <array>

namespace KyMath {
namespace test {
namespace {

using namespace Transformation;

template <class T>
class TransformationTest : public ::testing::Test {};
TYPED_TEST_SUITE(TransformationTest, Scalars, );

TYPED_TEST(TransformationTest, RotationsTurnAboutZThenYThenX) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    const M x = createRotationT<T>(T(0.3), 0, 0), y = createRotationT<T>(0, T(0.5), 0);
    const M z = createRotationT<T>(0, 0, T(0.7)), xyz = M::multiply(x, M::multiply(y, z));
    EXPECT_TRUE(xyz.isEqual(createRotationT<T>(T(0.3), T(0.5), T(0.7)), 4 * kEps<T>));
    EXPECT_TRUE(x[1][2] > 0 && y[2][0] > 0 && z[0][1] > 0);  // right-handed
}

TYPED_TEST(TransformationTest, QuaternionsOfAnyLengthButZeroMakeRotations) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    using M = Matrix44T<T>;
    const M quarter(0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);  // about z
    EXPECT_TRUE(quarter.isEqual(createRotationT(Q(2, 0, 0, 2)), 2 * kEps<T>));
    ::testing::internal::CaptureStdout();
    const M none = createRotationT(Q(0, 0, 0, 0));
    EXPECT_EQ("", ::testing::internal::GetCapturedStdout());
    EXPECT_TRUE(std::isnan(none[0][0]) && none[3][3] == 1);
}

TYPED_TEST(TransformationTest, LookAtPutsXForwardAndZUpTiltedBeyondTheParallelThreshold) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    using V = Vector3T<T>;
    EXPECT_EQ(M(0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1),
              createObjectLookAtT(V(1, 2, 3), V(1, 7, 3), V(0, 0, 2) * T(0.25)));
    // Right, up and back of the camera, with the residues of cos(pi / 2).
    const T halfPi = T(1.5707963267948966);
    const M forward = createObjectLookAtT(V(1, 2, 3), V(1, 7, 3), V(0, 0, 1));
    EXPECT_BITS(M::multiply(forward, createRotationT(halfPi, -halfPi, T(0))),
                createCameraLookAtT(V(1, 2, 3), V(1, 7, 3), V(0, 0, 1)));
    // An up along the view is tilted in the component after its largest, here y; one across is not.
    const T limit = T(0.99999988079071045);
    for (const T u : {limit, above(limit), T(1), -limit, below(-limit)}) {
        const M m = createObjectLookAtT(V(), V(5, 0, 0), V(u, 0, T(0.125)));
        EXPECT_EQ(std::abs(u) > limit, m[2][1] != 0) << u;
    }
    // At the target there is no direction.
    EXPECT_EQ(createObjectLookAtT(V(1, 2, 3), V(1, 2, 3), V(0, 0, 1)),
              M(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 1));
}

// Left, right, bottom, top, near, far.
template <class T>
using Bounds = std::array<T, 6>;
template <class T>
constexpr Bounds<T> kUntouched = {{42, 43, 44, 45, 46, 47}};
template <class T>
using Reader = bool (*)(const Matrix44T<T>&, T&, T&, T&, T&, T&, T&);

template <class T>
Bounds<T> read(Reader<T> reader, const Matrix44T<T>& m) {
    Bounds<T> b = kUntouched<T>;
    const bool accepted = reader(m, b[0], b[1], b[2], b[3], b[4], b[5]);
    EXPECT_EQ(accepted, b != kUntouched<T>);
    return b;
}

TYPED_TEST(TransformationTest, ProjectionReadsRefuseAtTheirThresholds) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    const M ortho = createOrthographicT<T>(-2, 3, -1, 4, 1, 6);
    const M frustum = createFrustumT<T>(-2, 3, -1, 4, 1, 6);
    const auto refuses = [](Reader<T> reader, M m, int element, T value) {
        m[element / 4][element % 4] = value;
        return read<T>(reader, m) == kUntouched<T>;
    };
    const T tau = T(1e-14);
    for (const int e : {0, 5, 10}) {
        for (const T value : {T(0), below(tau), -below(tau), tau, -tau}) {
            const bool small = std::abs(value) < tau;
            EXPECT_EQ(small, refuses(getOrthographicT<T>, ortho, e, value)) << e << ": " << value;
            EXPECT_EQ(small, refuses(getFrustumT<T>, frustum, e, value)) << e << ": " << value;
        }
    }
    // Half steps of double on either side of tau from 1; for float one step is outside already.
    for (const int steps : {0, 1, 2, 90, 91, 92}) {
        const T distance = T(steps) * (kEps<T> / 2);
        for (const T one : {1 - distance, 1 + distance}) {
            const T off = std::abs(one - 1);
            EXPECT_EQ(off > tau, refuses(getOrthographicT<T>, ortho, 15, one)) << steps;
            EXPECT_EQ(off > tau, refuses(getFrustumT<T>, frustum, 11, -one)) << steps;
            EXPECT_EQ(off < tau, refuses(getFrustumT<T>, frustum, 10, -one)) << steps;
        }
    }
    EXPECT_TRUE(refuses(getOrthographicT<T>, frustum, 11, -1));
    EXPECT_TRUE(refuses(getFrustumT<T>, ortho, 11, 0));
    // A NaN is neither too small nor too far off.
    for (const int e : {0, 5, 10, 11, 15}) {
        EXPECT_FALSE(refuses(getOrthographicT<T>, ortho, e, kNaN<T>)) << e;
        EXPECT_FALSE(refuses(getFrustumT<T>, frustum, e, kNaN<T>)) << e;
    }
}

TYPED_TEST(TransformationTest, FrustumReadWritesInAFixedOrder) {
    using T = TypeParam;
    const Matrix44T<T> m = createFrustumT<T>(-2, 3, -1, 4, 1, 6);
    Bounds<T> expected = read(getFrustumT<T>, m);
    const std::size_t order[] = {5, 4, 2, 3, 0, 1};  // far, near, bottom, top, left, right
    for (std::size_t i = 0; i + 1 < 6; ++i) {        // two share a variable: the later one stays
        Bounds<T> b = kUntouched<T>;
        T* out[] = {&b[0], &b[1], &b[2], &b[3], &b[4], &b[5]};
        out[order[i]] = out[order[i + 1]];
        EXPECT_TRUE(getFrustumT(m, *out[0], *out[1], *out[2], *out[3], *out[4], *out[5]));
        EXPECT_BITS(expected[order[i + 1]], *out[order[i]]) << i;
    }
}

TYPED_TEST(TransformationTest, ReadsMayWriteOverTheirMatrix) {
    using T = TypeParam;
    for (const bool perspective : {false, true}) {
        const Reader<T> reader = perspective ? getFrustumT<T> : getOrthographicT<T>;
        Matrix44T<T> m =
            (perspective ? createFrustumT<T> : createOrthographicT<T>)(-2, 3, -1, 4, 1, 6);
        const Bounds<T> expected = read<T>(reader, m);
        EXPECT_TRUE(reader(m, m[3][2], m[0][0], m[2][2], m[1][1], m[2][0], m[2][1]));
        EXPECT_EQ(expected, (Bounds<T>{{m[3][2], m[0][0], m[2][2], m[1][1], m[2][0], m[2][1]}}));
    }
}

// The threshold of 1e-7 before the pole is passed within few steps of the sine.
TYPED_TEST(TransformationTest, TurnsJoinAtGimbalLock) {
    using T = TypeParam;
    const double lock = 1.5707962267948965;
    int locked[2] = {};
    for (int steps = 0; steps < 200; ++steps) {
        for (const T sign : {T(1), T(-1)}) {
            const T s = 1 - T(steps) * (kEps<T> / 2), y = std::asin(runtime(sign * s));
            Matrix44T<T> m = createRotationT(T(0.25), sign * T(1.25), T(0.5));
            m[2][0] = sign * s, m[2][1] = std::sqrt(1 - s * s), m[2][2] = 0;
            Vector3T<T> scale, angles, translation;
            T reflection;
            decomposeT(m, scale, angles, translation, reflection);
            if (scale[2] != 1) continue;
            const bool pole = !(static_cast<double>(std::abs(y)) < lock);
            EXPECT_BITS(y, angles[1]);
            EXPECT_EQ(pole, angles[2] == 0) << steps;
            ++locked[pole];
        }
    }
    EXPECT_TRUE(locked[0] > 0 && locked[1] > 0);
    // Both turns about x: the second one with the sign of the pole.
    for (const T sign : {T(1), T(-1)}) {
        const T pole = sign * std::asin(runtime(T(1)));
        const Matrix44T<T> m = createRotationT(T(0.25), pole, T(0.5));
        Vector3T<T> scale, angles, translation;
        T reflection;
        decomposeT(m, scale, angles, translation, reflection);
        EXPECT_TRUE(m.isEqual(composeT(scale, angles, translation, reflection), 8 * kEps<T>));
    }
}

// Deliberate: the argument of asin is not clamped.
TYPED_TEST(TransformationTest, PartsComeFromColumnsOfFourValues) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    using V = Vector3T<T>;
    M m(3, 0, 0, 4, 0, 2, 0, 0, 0, 0, 1, 0, 7, 8, 9, 1);  // the bottom row counts
    V scale, angles, translation;
    T sign;
    decomposeT(m, scale, angles, translation, sign);
    EXPECT_BITS(V(5, 2, 1), scale);
    EXPECT_BITS(V(7, 8, 9), translation);
    EXPECT_BITS(V(5, 2, 1), getScaleT(m));
    // A determinant of 0 or more has the sign 1.
    for (const T value : {T(0), -T(0), T(2), -std::numeric_limits<T>::denorm_min(), kNaN<T>}) {
        m = M();
        m[3][3] = value;
        decomposeT(m, scale, angles, translation, sign);
        EXPECT_EQ(value >= 0 ? 1 : -1, sign) << value;
    }
    m = M();
    m[2][0] = above(T(1));
    EXPECT_TRUE(std::isnan(getRotationT(m, false)[1]));
}

TYPED_TEST(TransformationTest, PartsAreReplacedAloneButAZeroColumnComposesAnew) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    using V = Vector3T<T>;
    // A reflection leaves -0 in row 3.
    EXPECT_BITS(
        M(-2, -T(0), -T(0), -T(0), T(0), -3, -T(0), -T(0), -T(0), T(0), -4, -T(0), 5, 6, 7, 1),
        composeT(V(2, 3, 4), V(), V(5, 6, 7), T(-1)));
    const M m(3, 0, 0, 4, 0, 0, 2, 0, 0, -2, 0, 0, 1, 8, 9, 5);
    const T fifth = 1 / T(5);
    EXPECT_BITS(M(3 * fifth * 2, 0, 0, 4 * fifth * 2, 0, 0, 3, 0, 0, -4, 0, 0, 1, 8, 9, 5),
                scaleToT(m, V(2, 3, 4)));
    const M turned = rotateToT(m, V());
    EXPECT_EQ(M(5, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 1, 8, 9, 1), turned);
    for (int c = 0; c < 3; ++c) {
        M zero = createScaleT<T>(2, 3, 4);
        zero[c][c] = 0, zero[3][0] = 7, zero[3][3] = 5;
        EXPECT_EQ(1, scaleToT(zero, V(2, 3, 4))(3, 3)) << c;
        zero[c][3] = 1;  // the bottom value alone gives the column its length
        EXPECT_EQ(5, scaleToT(zero, V(2, 3, 4))(3, 3)) << c;
        zero[c][3] = kNaN<T>;
        EXPECT_EQ(5, scaleToT(zero, V(2, 3, 4))(3, 3)) << c;
    }
}

TYPED_TEST(TransformationTest, PositionsAreDividedByWDirectionsFeelANonFiniteTranslation) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const Matrix44T<T> m(1, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, kInf<T>, 0, 2);
    EXPECT_BITS(V(T(5) / 7, kInf<T>, T(4) / 7), transformPositionT(m, V(5, 3, 4)));
    EXPECT_BITS(V(5, kNaN<T>, 4), transformDirectionT(m, V(5, 3, 4)));
    EXPECT_TRUE(std::isnan(transformPositionT(m, V(-2, 3, 0))[2]));
}

TYPED_TEST(TransformationTest, VelocitiesAreThoseOfTheWorldOverTheTime) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const auto at = [](T x, const V& angles) {
        return translateToT(createRotationT(angles[0], angles[1], angles[2]), V(x, 0, 0));
    };
    EXPECT_BITS(V(3 * (1 / T(7)), 0, 0), linearVelocityT(at(1, V()), at(4, V()), T(7)));
    const V still = angularVelocityT(at(1, V()), at(4, V()), T(2));
    EXPECT_BITS(V(0, 0, 0), still);
    EXPECT_BITS(V(kNaN<T>, kNaN<T>, kNaN<T>), angularVelocityT(at(1, V()), at(4, V()), T(0)));
    // The quaternion's difference stands for the angle: 2 sin(1/16) for a turn by 1/8.
    for (int i = 0; i < 3; ++i) {
        const V turn = after(V(), [&](V& v) { v[i] = T(0.125); });
        const V velocity = angularVelocityT(at(0, V()), at(0, turn), T(0.5));
        EXPECT_NEAR(4 * std::sin(T(0.0625)), velocity[i], 32 * kEps<T>);
        EXPECT_NEAR(velocity.norm(), velocity[i], kEps<T>);
    }
}

// Deliberate: three elements of the inverse take part, not all nine, and a NaN passes.
TYPED_TEST(TransformationTest, IsRotationAcceptsExactlyTheTolerance) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    const auto boundary = [](const M& m, T error) {
        EXPECT_TRUE(isRotation(m, error));
        EXPECT_FALSE(isRotation(m, below(error)));
    };
    for (int i = 0; i < 3; ++i) {  // the length of a column, the determinant
        M m;
        m[i][i] = T(1.25);
        boundary(m, T(0.25));
        m[i][i] = -1;
        boundary(m, 2);
    }
    for (const int i : {1, 2, 6}) {  // a shear, held against the inverse
        M m;
        m[i / 4][i % 4] = T(0x1p-5);
        boundary(m, T(0x1p-5));
        boundary(m.transpose(), T(0x1p-5));
    }
    EXPECT_TRUE(isRotation(createScaleT<T>(T(1.25), T(0.8), 1), T(0.25)));  // not so the diagonal
    EXPECT_TRUE(isRotation(each<M>([](int) { return kNaN<T>; }), T(1e-6)));
    EXPECT_FALSE(isRotation(M::kZero, T(100)));  // without an inverse, whatever the tolerance
}

}  // namespace
}  // namespace test
}  // namespace KyMath
