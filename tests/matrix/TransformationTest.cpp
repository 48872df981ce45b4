// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <algorithm>
#include <array>

namespace KyMath {
namespace test {
namespace {

using namespace Transformation;

template <class T>
class TransformationTest : public ::testing::Test {};
TYPED_TEST_SUITE(TransformationTest, Scalars, );

TYPED_TEST(TransformationTest, ScaleTranslationAndAxesKeepEveryValue) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    using V = Vector3T<T>;
    forCorpus<V>(501, [](const V& a, const V& b, T) {
        const M scale(a[0], 0, 0, 0, 0, a[1], 0, 0, 0, 0, a[2], 0, 0, 0, 0, 1);
        const M translation(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, a[0], a[1], a[2], 1);
        EXPECT_BITS(scale, createScaleT(a[0], a[1], a[2]));
        EXPECT_BITS(scale, createScaleT(a));
        EXPECT_BITS(translation, createTranslationT(a[0], a[1], a[2]));
        EXPECT_BITS(translation, createTranslationT(a));
        const auto axes = [](const V& x, const V& y, const V& z) {
            return M(x[0], x[1], x[2], 0, y[0], y[1], y[2], 0, z[0], z[1], z[2], 0, 0, 0, 0, 1);
        };
        EXPECT_BITS(axes(a, b, a - b), createRotationFromAxesT(a, b, a - b));
        EXPECT_BITS(axes(scaled(a, b[0]), scaled(a, b[1]), scaled(a, b[2])),
                    createRotationFromOuterProductT(a, b));
    });
}

template <class T>
Matrix44T<T> rotationOf(const QuaternionT<T>& q) {
    const T n = q.norm(), w = q[0] / n, x = q[1] / n, y = q[2] / n, z = q[3] / n;
    const auto diagonal = [](T a, T b) {
        return static_cast<T>(1.0 - static_cast<double>(2 * (a * a + b * b)));
    };
    return Matrix44T<T>(diagonal(y, z), 2 * (x * y + z * w), 2 * (x * z - y * w), 0,  //
                        2 * (x * y - z * w), diagonal(x, z), 2 * (y * z + x * w), 0,  //
                        2 * (x * z + y * w), 2 * (y * z - x * w), diagonal(x, y), 0, 0, 0, 0, 1);
}

TYPED_TEST(TransformationTest, RotationsTurnAboutZThenYThenXOrAsAQuaternionOfAnyLength) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    const auto check = [](const Q& q, const Q& angles, T angle) {
        T sx, cx, sy, cy, sz, cz;
        sinCos(angles[0], sx, cx);
        sinCos(angles[1], sy, cy);
        sinCos(angles[2], sz, cz);
        const Matrix44T<T> expected(
            cy * cz, sx * sy * cz + cx * sz, sx * sz - cx * sy * cz, 0,   // x axis
            -cy * sz, cx * cz - sx * sy * sz, sx * cz + cx * sy * sz, 0,  // y axis
            sy, -sx * cy, cx * cy, 0, 0, 0, 0, 1);
        EXPECT_BITS(expected, createRotationT(angles[0], angles[1], angles[2]));
        EXPECT_BITS(rotationOf(q), createRotationT(q));
        const Vector3T<T> axis(q[1], q[2], q[3]);
        EXPECT_BITS(rotationOf(Q(axis, angle)), createRotationT(axis, angle));
    };
    forCorpus<Q>(502, check);
    ::testing::internal::CaptureStdout();
    check(Q(0, 0, 0, 0), Q(), 1);
    EXPECT_EQ("", ::testing::internal::GetCapturedStdout());
}

template <class T>
Matrix44T<T> lookAt(const Vector3T<T>& position, const Vector3T<T>& target, const Vector3T<T>& up) {
    Vector3T<T> f = target - position, u = up;
    f.normalize();
    if (std::abs(f * up) > T(0.99999988079071045)) u[(up.maxComponentIndex() + 1) % 3] += T(0.1);
    Vector3T<T> s = f.cross(u);
    s.normalize();
    Vector3T<T> w = s.cross(f);
    w.normalize();
    return Matrix44T<T>(f[0], f[1], f[2], 0, -s[0], -s[1], -s[2], 0, w[0], w[1], w[2], 0,
                        position[0], position[1], position[2], 1);
}

TYPED_TEST(TransformationTest, LookAtPutsXForwardAndZUpTiltedBeyondTheParallelThreshold) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const auto check = [](const V& position, const V& target, const V& up) {
        const Matrix44T<T> expected = lookAt(position, target, up);
        EXPECT_BITS(expected, createObjectLookAtT(position, target, up));
        // Right, up and back of the camera, with the residues of cos(pi / 2).
        const T halfPi = T(1.5707963267948966);
        const Matrix44T<T> r = createRotationT(halfPi, -halfPi, T(0));
        EXPECT_BITS(Matrix44T<T>::multiply(expected, r), createCameraLookAtT(position, target, up));
    };
    Corpus<T> corpus(504);
    for (int n = 0; n < 500; ++n) {
        const V position = corpus.vector(), target = corpus.vector(), up = corpus.vector();
        check(position, target, up * T(0.125));
        check(position, position, up);
    }
    const T limit = T(0.99999988079071045);
    for (const T u : {limit, above(limit), T(1), -limit, below(-limit), T(7)}) {
        for (int i = 0; i < 9; ++i) {
            V target, up;
            target[i % 3] = 5;
            up[(i + 2) % 3] = T(i / 3) / 2;
            up[i % 3] = u;
            check(V(), target, up);
        }
    }
}

// Left, right, bottom, top, near, far.
template <class T>
using Bounds = std::array<T, 6>;
template <class T>
constexpr Bounds<T> kUntouched = {{42, 43, 44, 45, 46, 47}};

template <class T>
void expectReads(const Matrix44T<T>& m) {
    const auto small = [](T e) { return std::abs(e) < T(1e-14); };
    const auto beyond = [](T e) { return std::abs(e) > T(1e-14); };
    const T x = m(0, 0), y = m(1, 1), z = m(2, 2), tx = m(0, 3), ty = m(1, 3), tz = m(2, 3);
    const T p = m(0, 2), q = m(1, 2), zFar = tz / z, zNear = zFar * z / (z + 1);
    const T h = 2 * zNear / y, g = 2 * zNear / x;
    const auto check = [&](auto reader, bool accepted, const Bounds<T>& expected) {
        Bounds<T> b = kUntouched<T>;
        EXPECT_EQ(accepted, reader(m, b[0], b[1], b[2], b[3], b[4], b[5]));
        const auto* const values = accepted ? expected.data() : kUntouched<T>.data();
        for (std::size_t i = 0; i < 6; ++i) EXPECT_BITS(values[i], b[i]);
    };
    const bool flat = small(x) || small(y) || small(z);
    check(getOrthographicT<T>, !(flat || beyond(m(3, 3) - 1)),
          {{(-tx - 1) / x, (1 - tx) / x, (-ty - 1) / y, (1 - ty) / y, (tz - 1) / z, (1 + tz) / z}});
    check(getFrustumT<T>, !(flat || small(z + 1) || beyond(1 + m(3, 2))),
          {{(g * p - g) / 2, (g + g * p) / 2, (h * q - h) / 2, (h * q + h) / 2, zNear, zFar}});
    EXPECT_EQ(m(3, 2) != 0, isPerspectiveProjectionT(m));
}

TYPED_TEST(TransformationTest, ProjectionsAndTheirReadsFollowTheirFormulas) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    Corpus<T> corpus(505);
    for (int i = 0; i < 500; ++i) {
        const T l = corpus.plain(), r = corpus.plain(), b = corpus.plain(), t = corpus.plain();
        const T n = corpus.plain(), f = corpus.plain();
        const M ortho(2 / (r - l), 0, 0, 0, 0, 2 / (t - b), 0, 0, 0, 0, 2 / (f - n), 0,
                      -(r + l) / (r - l), -(t + b) / (t - b), (f + n) / (f - n), 1);
        EXPECT_BITS(ortho, createOrthographicT(l, r, b, t, n, f));
        const M frustum(2 * n / (r - l), 0, 0, 0, 0, 2 * n / (t - b), 0, 0, (r + l) / (r - l),
                        (t + b) / (t - b), n / (f - n), -1, 0, 0, f * n / (f - n), 0);
        EXPECT_BITS(frustum, createFrustumT(l, r, b, t, n, f));
        expectReads(ortho);
        expectReads(frustum);

        const T fovY = corpus.plain(), aspect = corpus.plain();
        const double h = std::tan(runtime(static_cast<double>(fovY) * 0.5));
        const double a = static_cast<double>(aspect), near = static_cast<double>(n);
        EXPECT_BITS(createFrustumT(static_cast<T>(-h * a * near), static_cast<T>(h * a * near),
                                   static_cast<T>(-h * near), static_cast<T>(h * near), n, f),
                    createPerspectiveT(fovY, aspect, n, f));
    }
}

TYPED_TEST(TransformationTest, ProjectionReadsRefuseAtTheirThresholds) {
    using T = TypeParam;
    const T tau = T(1e-14), tiny = std::numeric_limits<T>::denorm_min();
    const auto check = [](T value) {
        for (const int e : {0, 5, 10, 11, 15}) {
            const auto set = [&](Matrix44T<T>& m) { m[e / 4][e % 4] = value; };
            expectReads(after(createOrthographicT<T>(-2, 3, -1, 4, 1, 6), set));
            expectReads(after(createFrustumT<T>(-2, 3, -1, 4, 1, 6), set));
        }
    };
    for (const T value : {T(0), tiny, tau, -tau, below(tau), -below(tau), kNaN<T>}) check(value);
    // Half steps of double on either side of tau from 1; for float one step is outside already.
    for (const int steps : {0, 1, 2, 90, 91, 92}) {
        const T distance = T(steps) * (kEps<T> / 2);
        for (const T x : {1 - distance, 1 + distance, -1 - distance, -1 + distance}) check(x);
    }
}

TYPED_TEST(TransformationTest, FrustumReadWritesInAFixedOrder) {
    using T = TypeParam;
    const Matrix44T<T> m = createFrustumT<T>(-2, 3, -1, 4, 1, 6);
    Bounds<T> expected;
    getFrustumT(m, expected[0], expected[1], expected[2], expected[3], expected[4], expected[5]);
    const std::size_t order[] = {5, 4, 2, 3, 0, 1};  // far, near, bottom, top, left, right
    for (std::size_t i = 0; i + 1 < 6; ++i) {        // two share a variable: the later one stays
        Bounds<T> b = kUntouched<T>;
        T* out[] = {&b[0], &b[1], &b[2], &b[3], &b[4], &b[5]};
        out[order[i]] = out[order[i + 1]];
        EXPECT_TRUE(getFrustumT(m, *out[0], *out[1], *out[2], *out[3], *out[4], *out[5]));
        EXPECT_BITS(expected[order[i + 1]], *out[order[i]]) << i;
    }
}

// A matrix taken apart, step by step.
template <class T>
struct Parts {
    Vector3T<T> scale, angles, rotation, translation;  // rotation: angles, but for gimbal lock
    T sign;
    Matrix44T<T> unit;  // columns 0, 1, 2 normalised

    explicit Parts(const Matrix44T<T>& m) : sign(m.determinant() >= 0 ? T(1) : T(-1)), unit(m) {
        for (int c = 0; c < 3; ++c) {
            Vector4T<T> axis(m[c]);
            scale[c] = axis.norm();
            axis.normalize();
            for (int r = 0; r < 4; ++r) unit[c][r] = axis[r];
            translation[c] = m[3][c];
        }
        rotation = angles = anglesOf(unit);
        if (!(std::abs(static_cast<double>(rotation[1])) < 1.5707962267948965)) {
            const T k = rotation[1] >= 0 ? T(-1) : T(1);
            rotation[0] = std::atan2(runtime(unit[1][2]), runtime(k * unit[0][2]));
            rotation[2] = 0;
        }
    }
    // Deliberate: the argument of asin is not clamped.
    static Vector3T<T> anglesOf(const Matrix44T<T>& m) {
        return Vector3T<T>(std::atan2(runtime(-m[2][1]), runtime(m[2][2])),
                           std::asin(runtime(m[2][0])),
                           std::atan2(runtime(-m[1][0]), runtime(m[0][0])));
    }
};

template <class T>
void expectDecomposed(const Matrix44T<T>& m) {
    const Parts<T> expected(m);
    Vector3T<T> scale, rotation, translation;
    T sign = 7;
    decomposeT(m, scale, rotation, translation, sign);
    EXPECT_BITS(expected.scale, scale);
    EXPECT_BITS(expected.rotation, rotation);
    EXPECT_BITS(expected.translation, translation);
    EXPECT_BITS(expected.sign, sign);
    EXPECT_BITS(expected.scale, getScaleT(m));
    EXPECT_BITS(expected.translation, getTranslationT(m));
    EXPECT_BITS(expected.angles, getRotationT(m, true));
    EXPECT_BITS(expected.anglesOf(m), getRotationT(m, false));
}

TYPED_TEST(TransformationTest, PartsComeFromColumnsOfFourValuesAndJoinTheTurnsAtGimbalLock) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    Corpus<T> corpus(506);
    for (int n = 0; n < 500; ++n) {
        const Vector3T<T> v = corpus.vector() * T(0.3);
        const M m = n % 2 == 0 ? corpus.matrix() : createRotationT(v[0], v[1], v[2]);
        expectDecomposed(m);
        // z = (s, sqrt(1 - s^2), 0) passes the threshold of 1e-7 before the pole within few steps.
        const T s = 1 - T(n / 4) * (kEps<T> / 2);
        expectDecomposed(after(m, [&](M& x) {
            x[2][0] = n % 4 < 2 ? s : -s;
            x[2][1] = std::sqrt(1 - s * s);
            x[2][2] = x[2][3] = 0;
        }));
    }
    // A determinant of 0 or more has the sign 1, a NaN locks.
    for (const T value : {T(0), -std::numeric_limits<T>::denorm_min(), T(2), kNaN<T>}) {
        expectDecomposed(after(M(), [&](M& m) { m[3][3] = value; }));
        expectDecomposed(after(corpus.matrix(), [&](M& m) { m[2][0] = value; }));
    }
}

template <class T>
Matrix44T<T> composed(const Vector3T<T>& scale, const Vector3T<T>& rotation,
                      const Vector3T<T>& translation, T sign) {
    Matrix44T<T> m = createRotationT(rotation[0], rotation[1], rotation[2]);
    for (int c = 0; c < 3; ++c) {
        for (int r = 0; r < 4; ++r) m[c][r] *= sign * scale[c];  // -0 in row 3 for a reflection
        m[3][c] = translation[c];
    }
    return m;
}

template <class T>
Matrix44T<T> rescaled(const Matrix44T<T>& m, const Vector3T<T>& scale) {
    const Parts<T> parts(m), again(parts.unit);
    if (parts.scale[0] * parts.scale[1] * parts.scale[2] == 0) {
        return composed(scale, again.rotation, again.translation, again.sign);
    }
    return each<Matrix44T<T>>(
        [&](int i) { return i < 12 ? parts.unit[i / 4][i % 4] * scale[i / 4] : m[3][i % 4]; });
}

TYPED_TEST(TransformationTest, PartsAreReplacedAloneButAZeroColumnComposesAnew) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    using V = Vector3T<T>;
    Corpus<T> corpus(508);
    for (int n = 0; n < 400; ++n) {
        const V scale = corpus.vector(), angles = corpus.vector(), t = corpus.vector();
        const T sign = n % 3 == 0 ? corpus.plain() : n % 3 == 1 ? T(1) : T(-1);
        EXPECT_BITS(composed(scale, angles, t, sign), composeT(scale, angles, t, sign));

        M m = n % 4 == 0 ? composed(scale, angles, t, sign) : corpus.matrix();
        if (n % 4 == 1) std::fill_n(m[n / 4 % 4], 4, T(0));
        if (n % 32 == 5) m[1][3] = 5;        // the bottom value alone gives column 1 its length
        if (n % 16 == 6) m[0][0] = kNaN<T>;  // a NaN is a length
        const V v = corpus.vector();
        const auto translate = [&](M& x) { x[3][0] = v[0], x[3][1] = v[1], x[3][2] = v[2]; };
        EXPECT_BITS(after(m, translate), translateToT(m, v));
        EXPECT_BITS(after(m, translate), after(m, [&](M& x) { setTranslationT(x, v); }));
        EXPECT_BITS(rescaled(m, v), scaleToT(m, v));
        EXPECT_BITS(rescaled(m, v), after(m, [&](M& x) { setScaleT(x, v); }));
        const Parts<T> parts(m);
        const M turned = composed(parts.scale, v, parts.translation, parts.sign);
        EXPECT_BITS(turned, rotateToT(m, v));
        EXPECT_BITS(turned, after(m, [&](M& x) { setRotationT(x, v); }));
    }
}

// The quaternion of a 3x3 block, step by step.
template <class T>
QuaternionT<T> quaternionOf(const Matrix44T<T>& a) {
    T sum = 0;
    for (int i = 0; i < 9; ++i) sum += a[i % 3][i / 3] * a[i % 3][i / 3];
    const T k = std::sqrt(3 / sum), trace = a[0][0] + a[1][1] + a[2][2];
    if (trace > 0) {
        const T r = std::sqrt(k * trace + 1), f = k / (2 * r);
        return QuaternionT<T>(r / 2, (a[1][2] - a[2][1]) * f, (a[2][0] - a[0][2]) * f,
                              (a[0][1] - a[1][0]) * f);
    }
    int i = a[1][1] > a[0][0] ? 1 : 0;
    if (a[2][2] > a[i][i]) i = 2;
    const int j = (i + 1) % 3, n = (i + 2) % 3;
    const T r = std::sqrt((a[i][i] - a[j][j] - a[n][n]) * k + 1), f = k / (2 * r);
    QuaternionT<T> q((a[j][n] - a[n][j]) * f, 0, 0, 0);
    q[i + 1] = r / 2;
    q[j + 1] = (a[i][j] + a[j][i]) * f;
    q[n + 1] = (a[i][n] + a[n][i]) * f;
    return q;
}

TYPED_TEST(TransformationTest, QuaternionComesFromTheTraceOrTheLargestDiagonal) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    Corpus<T> corpus(510);
    for (int n = 0; n < 600; ++n) {
        M m = n % 2 == 0 ? corpus.matrix() : createRotationT(corpus.unitQuaternion());
        EXPECT_BITS(quaternionOf(m), getRotationAsQuaternionT(m, false));
        const M unscaled = rescaled(m, Vector3T<T>(1, 1, 1));
        EXPECT_BITS(quaternionOf(unscaled), getRotationAsQuaternionT(m, true));
        // Ties of the diagonal go to the lower index; a trace of 0 is not positive.
        m[0][0] = T(n % 5 - 2), m[1][1] = T(n / 5 % 5 - 2), m[2][2] = T(n / 25 % 5 - 2);
        EXPECT_BITS(quaternionOf(m), getRotationAsQuaternionT(m, false)) << n;
    }
}

TYPED_TEST(TransformationTest, PositionsAreDividedByWDirectionsFeelANonFiniteTranslation) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    forCorpus<M>(511, [](const M& m, const M& other, T) {
        const Vector3T<T> p(other[0]);
        const T w = m(3, 0) * p[0] + m(3, 1) * p[1] + m(3, 2) * p[2] + m(3, 3);
        const auto sum = [&](int r) { return m[0][r] * p[0] + m[1][r] * p[1] + m[2][r] * p[2]; };
        const auto position = each<Vector3T<T>>([&](int r) { return (sum(r) + m[3][r]) / w; });
        const auto direction = each<Vector3T<T>>([&](int r) { return sum(r) + 0 * m[3][r]; });
        EXPECT_BITS(position, transformPositionT(m, p));
        EXPECT_BITS(direction, transformDirectionT(m, p));
    });
}

TYPED_TEST(TransformationTest, VelocitiesAreDifferencesTimesOneReciprocal) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    using V = Vector3T<T>;
    Corpus<T> corpus(512);
    for (int n = 0; n < 500; ++n) {
        const M m0 = n % 2 == 0 ? corpus.matrix() : createRotationT(corpus.unitQuaternion());
        const M m1 = n % 8 == 0 ? m0 : createRotationT(corpus.unitQuaternion());
        const T dt = corpus.any();
        const V delta = getTranslationT(m1) - getTranslationT(m0);
        EXPECT_BITS(scaled(delta, 1 / dt), linearVelocityT(m0, m1, dt));

        const auto q = getRotationAsQuaternionT(m0, true);
        const auto d = getRotationAsQuaternionT(m1, true) - q;
        const T w = q[0], x = q[1], y = q[2], z = q[3];
        const V half(0 - x * d[0] + w * d[1] - z * d[2] + y * d[3],
                     0 - y * d[0] + z * d[1] + w * d[2] - x * d[3],
                     0 - z * d[0] - y * d[1] + x * d[2] + w * d[3]);
        EXPECT_BITS(scaled(scaled(half, 2), 1 / dt), angularVelocityT(m0, m1, dt));
    }
}

// The largest error that isRotation() holds against its tolerance.
template <class T>
T rotationError(const Matrix44T<T>& m) {
    const auto a = [&m](int r, int c) { return m[c][r]; };
    const T k = 1 / (a(0, 0) * (a(1, 1) * a(2, 2) - a(1, 2) * a(2, 1)) +
                     a(0, 1) * (a(1, 2) * a(2, 0) - a(1, 0) * a(2, 2)) +
                     a(0, 2) * (a(1, 0) * a(2, 1) - a(1, 1) * a(2, 0)));
    const T inverse01 = (a(0, 2) * a(2, 1) - a(0, 1) * a(2, 2)) * k;
    const T inverse02 = (a(0, 1) * a(1, 2) - a(0, 2) * a(1, 1)) * k;
    const T inverse12 = (a(0, 2) * a(1, 0) - a(0, 0) * a(1, 2)) * k;
    const Vector3T<T> lengths = getScaleT(m);
    return std::max({T(0), std::abs(1 - lengths[0]), std::abs(1 - lengths[1]),
                     std::abs(1 - lengths[2]), std::abs(1 - m.determinant()),
                     std::abs(inverse01 - a(1, 0)), std::abs(inverse02 - a(2, 0)),
                     std::abs(inverse12 - a(2, 1))});
}

// Deliberate: three elements of the inverse take part, not all nine, and a NaN passes.
TYPED_TEST(TransformationTest, IsRotationAcceptsExactlyTheTolerance) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    Corpus<T> corpus(513);
    for (int n = 0; n < 4000; ++n) {
        const T noise = T(n % 2 == 0 ? 0.04 : 0.004);
        M m = createRotationT(corpus.unitQuaternion());
        for (int i = 0; i < 16; ++i) m[i / 4][i % 4] += corpus.plain() * noise;
        const T error = rotationError(m);
        EXPECT_TRUE(isRotation(m, error)) << n;
        EXPECT_FALSE(isRotation(m, below(error))) << n;
    }
    EXPECT_TRUE(isRotation(each<M>([](int) { return kNaN<T>; }), T(1e-6)));
    EXPECT_FALSE(isRotation(M::kZero, T(100)));  // without an inverse, whatever the tolerance
}

}  // namespace
}  // namespace test
}  // namespace KyMath
