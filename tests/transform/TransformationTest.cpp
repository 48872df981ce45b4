// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

namespace KyMath::test {
namespace {

using namespace Transformation;

/// What decomposeT() gives.
template <class T>
struct Parts {
    Vec<T> scale, angles, translation;
    T sign = 0;

    explicit Parts(const Mat<T>& m) {
        decomposeT(m, scale, angles, translation, sign);
    }
};

KY_SUITE(TransformationTest);

KY_TEST(TransformationTest, ZeroQuaternionGivesNaNSilently) {
    ::testing::internal::CaptureStdout();
    const Mat<T> none = createRotationT(Quat<T>(0, 0, 0, 0));
    EXPECT_EQ("", ::testing::internal::GetCapturedStdout());
    EXPECT_TRUE(std::isnan(none[0][0]));
    EXPECT_EQ(1, none[3][3]);
}

KY_TEST(TransformationTest, LookAtTiltsAnUpAlongTheView) {
    // In the component after its largest, here y.
    const T limit = T(0.99999988079071045);
    for (const T u : {limit, above(limit), T(1), -limit, below(-limit)}) {
        const Mat<T> m = createObjectLookAtT(Vec<T>(), Vec<T>(5, 0, 0), Vec<T>(u, 0, T(0.125)));
        EXPECT_EQ(std::abs(u) > limit, m[2][1] != 0) << u;
    }
    const Vec<T> here(1, 2, 3);
    EXPECT_EQ(createObjectLookAtT(here, here, Vec<T>(0, 0, 1)),
              Mat<T>(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 1));
}

// The threshold of 1e-7 before the pole is passed within few steps of the sine.
KY_TEST(TransformationTest, TurnsJoinAtGimbalLock) {
    bool seen[2] = {};
    for (int steps = 0; steps < 200; ++steps) {
        const T s = 1 - T(steps) * (kEps<T> / 2), y = std::asin(runtime(s));
        Mat<T> m = createRotationT(T(0.25), T(1.25), T(0.5));
        m[2][0] = s, m[2][1] = std::sqrt(1 - s * s), m[2][2] = 0;
        const Parts<T> parts(m);
        if (parts.scale[2] != 1) continue;
        const bool pole = !(static_cast<double>(y) < 1.5707962267948965);
        EXPECT_BITS(y, parts.angles[1]);
        EXPECT_EQ(pole, parts.angles[2] == 0) << steps;
        seen[pole] = true;
    }
    EXPECT_TRUE(seen[false]);
    EXPECT_TRUE(seen[true]);
}

KY_TEST(TransformationTest, ColumnLengthsCountTheBottomRow) {
    const Mat<T> m(3, 0, 0, 4, 0, 2, 0, 0, 0, 0, 1, 0, 7, 8, 9, 1);
    EXPECT_BITS(Vec<T>(5, 2, 1), Parts<T>(m).scale);
    EXPECT_BITS(Vec<T>(5, 2, 1), getScaleT(m));
    EXPECT_BITS(Vec<T>(7, 8, 9), Parts<T>(m).translation);
}

KY_TEST(TransformationTest, SignIsThatOfTheDeterminant) {
    for (const T value : {T(0), -T(0), T(2), -std::numeric_limits<T>::denorm_min(), kNaN<T>}) {
        const Mat<T> m = after(Mat<T>(), [value](Mat<T>& x) { x[3][3] = value; });
        EXPECT_EQ(value >= 0 ? 1 : -1, Parts<T>(m).sign) << value;
    }
}

// Deliberate: the argument of asin is not clamped.
KY_TEST(TransformationTest, RotationReadIsNaNPastThePole) {
    const Mat<T> m = after(Mat<T>(), [](Mat<T>& x) { x[2][0] = above(T(1)); });
    EXPECT_TRUE(std::isnan(getRotationT(m, false)[1]));
}

KY_TEST(TransformationTest, PartsAreReplacedAlone) {
    const Mat<T> m(3, 0, 0, 4, 0, 0, 2, 0, 0, -2, 0, 0, 1, 8, 9, 5);
    const T fifth = 1 / T(5);
    EXPECT_BITS(Mat<T>(3 * fifth * 2, 0, 0, 4 * fifth * 2, 0, 0, 3, 0, 0, -4, 0, 0, 1, 8, 9, 5),
                scaleToT(m, Vec<T>(2, 3, 4)));
    EXPECT_EQ(Mat<T>(5, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 1, 8, 9, 1), rotateToT(m, Vec<T>()));
}

KY_TEST(TransformationTest, ScalingAZeroColumnComposesAnew) {
    for (int c = 0; c < 3; ++c) {
        for (const T bottom : {T(0), T(1), kNaN<T>}) {  // what is not 0 gives the column a length
            Mat<T> zero = createScaleT<T>(2, 3, 4);
            zero[c][c] = 0, zero[c][3] = bottom, zero[3][0] = 7, zero[3][3] = 5;
            EXPECT_EQ(bottom == 0 ? 1 : 5, scaleToT(zero, Vec<T>(2, 3, 4))(3, 3)) << c;
        }
    }
}

KY_TEST(TransformationTest, DirectionsFeelAnInfiniteTranslation) {
    const Mat<T> m(1, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, kInf<T>, 0, 2);
    EXPECT_BITS(Vec<T>(5, kNaN<T>, 4), transformDirectionT(m, Vec<T>(5, 3, 4)));
    // Positions are divided by w, here 7 and 0, without a reciprocal.
    EXPECT_BITS(Vec<T>(T(5) / 7, kInf<T>, T(4) / 7), transformPositionT(m, Vec<T>(5, 3, 4)));
    EXPECT_TRUE(std::isnan(transformPositionT(m, Vec<T>(-2, 3, 0))[2]));
}

// The quaternion's difference stands for the angle: 2 sin(1/16) for a turn by 1/8.
KY_TEST(TransformationTest, AngularVelocityIsInTheFixedFrame) {
    const Mat<T> start = createRotationT<T>(0, 0, T(0.25));
    for (int i = 0; i < 3; ++i) {
        const Vec<T> turn = after(Vec<T>(), [&](Vec<T>& v) { v[i] = T(0.125); });
        const Mat<T> end = Mat<T>::multiply(createRotationT(turn[0], turn[1], turn[2]), start);
        const Vec<T> velocity = angularVelocityT(start, end, T(0.5));
        EXPECT_NEAR(4 * std::sin(T(0.0625)), velocity[i], 32 * kEps<T>);
        EXPECT_NEAR(velocity.norm(), velocity[i], 2 * kEps<T>);
    }
    EXPECT_BITS(Vec<T>(0, 0, 0), angularVelocityT(start, start, T(2)));
}

// Deliberate: three elements of the inverse take part, not all nine.
KY_TEST(TransformationTest, IsRotationAcceptsExactlyTheTolerance) {
    const auto boundary = [](int i, T value, T error) {
        Mat<T> m;
        static_cast<T*>(m)[i] = value;
        for (const Mat<T>& either : {m, m.transpose()}) {
            EXPECT_TRUE(isRotation(either, error)) << i;
            EXPECT_FALSE(isRotation(either, below(error))) << i;
        }
    };
    for (const int i : {0, 5, 10}) {
        boundary(i, T(1.25), T(0.25));  // the length of a column
        boundary(i, -1, 2);             // the determinant
    }
    for (const int i : {1, 2, 6}) boundary(i, T(0x1p-5), T(0x1p-5));  // a shear, by the inverse
    EXPECT_TRUE(isRotation(createScaleT<T>(T(1.25), T(0.8), 1), T(0.25)));
    EXPECT_TRUE(isRotation(createRotationT(T(0.3), T(0.5), T(0.7)), 8 * kEps<T>));
}

KY_TEST(TransformationTest, IsRotationLetsNaNPassNotZero) {
    EXPECT_TRUE(isRotation(each<Mat<T>>([](int) { return kNaN<T>; }), T(1e-6)));
    EXPECT_FALSE(isRotation(Mat<T>::kZero, T(100)));
}

}  // namespace
}  // namespace KyMath::test
