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

template <class T>
constexpr T kHalfPi = T(1.5707963267948966);

// Rounding of a few operations on values of about 1, libm among them.
template <class T>
constexpr T kRounding = 16 * kEps<T>;

template <class T>
void expectNear(const Vector3T<T>& expected, const Vector3T<T>& actual, T bound) {
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(expected[i], actual[i], bound) << i;
}

template <class T>
Vector3T<T> anglesOf(Corpus<T>& corpus) {
    return corpus.vector() * T(0.3);
}

template <class T>
Matrix44T<T> withZeroColumn(Matrix44T<T> m, int c) {
    for (int r = 0; r < 4; ++r) m[c][r] = 0;
    return m;
}

TYPED_TEST(TransformationTest, ScaleAndTranslationKeepEveryValue) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    Corpus<T> corpus(501);
    for (int n = 0; n < 300; ++n) {
        const auto v = corpus.template anyOf<Vector3T<T>>();
        const M scale(v[0], 0, 0, 0, 0, v[1], 0, 0, 0, 0, v[2], 0, 0, 0, 0, 1);
        const M translation(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, v[0], v[1], v[2], 1);
        EXPECT_BITS(scale, createScaleT(v[0], v[1], v[2]));
        EXPECT_BITS(scale, createScaleT(v));
        EXPECT_BITS(translation, createTranslationT(v[0], v[1], v[2]));
        EXPECT_BITS(translation, createTranslationT(v));
    }
}

TYPED_TEST(TransformationTest, RotationFromAnglesTurnsAboutZThenYThenX) {
    using T = TypeParam;
    Corpus<T> corpus(502);
    for (int n = 0; n < 500; ++n) {
        const T x = corpus.any(), y = corpus.any(), z = corpus.any();
        T sx, cx, sy, cy, sz, cz;
        sinCos(z, sz, cz);
        sinCos(y, sy, cy);
        sinCos(x, sx, cx);
        const Matrix44T<T> expected(
            cy * cz, sx * sy * cz + cx * sz, sx * sz - cx * sy * cz, 0,   // x axis
            -cy * sz, cx * cz - sx * sy * sz, sx * cz + cx * sy * sz, 0,  // y axis
            sy, -sx * cy, cx * cy, 0, 0, 0, 0, 1);
        EXPECT_BITS(expected, createRotationT(x, y, z));
    }
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

TYPED_TEST(TransformationTest, RotationFromAQuaternionDividesByItsLength) {
    using T = TypeParam;
    using Q = QuaternionT<T>;
    Corpus<T> corpus(503);
    for (int n = 0; n < 500; ++n) {
        const Q q = n % 4 == 0   ? corpus.template anyOf<Q>()
                    : n % 4 == 1 ? corpus.unitQuaternion()
                                 : corpus.unitQuaternion() * corpus.plain();
        EXPECT_BITS(rotationOf(q), createRotationT(q));
        const Vector3T<T> axis = corpus.vector();
        const T angle = corpus.plain();
        EXPECT_BITS(rotationOf(Q(axis, angle)), createRotationT(axis, angle));
    }
    ::testing::internal::CaptureStdout();
    const Matrix44T<T> m = createRotationT(Q(0, 0, 0, 0));
    EXPECT_EQ("", ::testing::internal::GetCapturedStdout());
    EXPECT_BITS(kNaN<T>, m(0, 0));
    EXPECT_BITS(kNaN<T>, m(2, 1));
    EXPECT_BITS(T(1), m(3, 3));
}

TYPED_TEST(TransformationTest, AxesAndOuterProductFillTheBlockAsGiven) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    using V = Vector3T<T>;
    const V a(1, 2, 3), b(5, 7, 11), c(13, 17, 19);
    EXPECT_BITS(M(1, 2, 3, 0, 5, 7, 11, 0, 13, 17, 19, 0, 0, 0, 0, 1),
                createRotationFromAxesT(a, b, c));
    EXPECT_BITS(M(5, 10, 15, 0, 7, 14, 21, 0, 11, 22, 33, 0, 0, 0, 0, 1),
                createRotationFromOuterProductT(a, b));
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

TYPED_TEST(TransformationTest, LookAtPutsXForwardAndZUp) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const Matrix44T<T> r = createRotationT(kHalfPi<T>, -kHalfPi<T>, T(0));
    Corpus<T> corpus(504);
    for (int n = 0; n < 500; ++n) {
        const V position = corpus.vector(), target = corpus.vector();
        V up = corpus.vector();
        if (n % 2 == 0) up.normalize();
        const Matrix44T<T> expected = lookAt(position, target, up);
        EXPECT_BITS(expected, createObjectLookAtT(position, target, up));
        // Right, up and back of the camera, with the residues of cos(pi / 2).
        EXPECT_BITS(Matrix44T<T>::multiply(expected, r), createCameraLookAtT(position, target, up));
    }
    EXPECT_TRUE(createObjectLookAtT(V(0, 0, 0), V(1, 0, 0), V(0, 0, 1)) == Matrix44T<T>::kIdentity);
}

TYPED_TEST(TransformationTest, LookAtTiltsAnUpBeyondTheParallelThreshold) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const T limit = T(0.99999988079071045);
    for (int i = 0; i < 3; ++i) {
        for (const T u : {limit, above(limit), T(1), -limit, below(-limit), T(7)}) {
            V target, up, none;
            target[i] = 5;
            up[i] = u;
            up[(i + 2) % 3] = T(0.5);
            const Matrix44T<T> m = createObjectLookAtT(none, target, up);
            EXPECT_BITS(lookAt(none, target, up), m);
            // The tilt is along the axis after the largest of up, and shows in the left axis.
            EXPECT_EQ(std::abs(u) > limit, m.column(1)[(i + 2) % 3] != 0) << i << ": " << u;
            up[(i + 2) % 3] = 0;
            EXPECT_BITS(lookAt(none, target, up), createObjectLookAtT(none, target, up));
        }
    }
    EXPECT_BITS(lookAt(V(1, 2, 3), V(1, 2, 3), V(0, 0, 1)),
                createObjectLookAtT(V(1, 2, 3), V(1, 2, 3), V(0, 0, 1)));
}

// Left, right, bottom, top, near, far.
template <class T>
using Bounds = std::array<T, 6>;
template <class T>
constexpr Bounds<T> kUntouched = {{42, 43, 44, 45, 46, 47}};

template <class T>
using Reader = bool (*)(const Matrix44T<T>&, T&, T&, T&, T&, T&, T&);

template <class T>
bool read(Reader<T> reader, const Matrix44T<T>& m, Bounds<T>& b) {
    return reader(m, b[0], b[1], b[2], b[3], b[4], b[5]);
}

template <class T>
Bounds<T> readOrthographic(const Matrix44T<T>& m) {
    const T x = m(0, 0), y = m(1, 1), z = m(2, 2), tx = m(0, 3), ty = m(1, 3), tz = m(2, 3);
    return {{(-tx - 1) / x, (1 - tx) / x, (-ty - 1) / y, (1 - ty) / y, (tz - 1) / z, (1 + tz) / z}};
}

template <class T>
Bounds<T> readFrustum(const Matrix44T<T>& m) {
    const T zFar = m(2, 3) / m(2, 2), zNear = zFar * m(2, 2) / (m(2, 2) + 1);
    const T h = 2 * zNear / m(1, 1), g = 2 * zNear / m(0, 0), x = m(0, 2), y = m(1, 2);
    return {{(g * x - g) / 2, (g + g * x) / 2, (h * y - h) / 2, (h * y + h) / 2, zNear, zFar}};
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
        Bounds<T> x = kUntouched<T>, y = kUntouched<T>;
        EXPECT_TRUE(read<T>(getOrthographicT, ortho, x));
        EXPECT_TRUE(x == readOrthographic(ortho));
        EXPECT_TRUE(read<T>(getFrustumT, frustum, x));
        EXPECT_TRUE(x == readFrustum(frustum));
        EXPECT_FALSE(read<T>(getFrustumT, ortho, y));
        EXPECT_FALSE(read<T>(getOrthographicT, frustum, y));
        EXPECT_TRUE(y == kUntouched<T>);
        EXPECT_TRUE(isPerspectiveProjectionT(frustum));

        const T fovY = corpus.plain(), aspect = corpus.plain();
        const double h = std::tan(runtime(static_cast<double>(fovY) * 0.5));
        const double a = static_cast<double>(aspect), near = static_cast<double>(n);
        EXPECT_BITS(createFrustumT(static_cast<T>(-h * a * near), static_cast<T>(h * a * near),
                                   static_cast<T>(-h * near), static_cast<T>(h * near), n, f),
                    createPerspectiveT(fovY, aspect, n, f));
    }
}

TYPED_TEST(TransformationTest, ProjectionsReadBackAsTheyWereMade) {
    using T = TypeParam;
    const Bounds<T> ortho = {{-2, 2, -1, 1, T(0.5), 10}}, perspective = {{-2, 2, -1, 1, 1, 100}};
    Bounds<T> b = kUntouched<T>;
    EXPECT_TRUE(read<T>(getOrthographicT, createOrthographicT<T>(-2, 2, -1, 1, T(0.5), 10), b));
    for (std::size_t i = 0; i < 6; ++i) EXPECT_NEAR(ortho[i], b[i], 10 * kRounding<T>);
    // zNear / (zFar - zNear) is small: reading it back costs digits.
    EXPECT_TRUE(read<T>(getFrustumT, createPerspectiveT<T>(kHalfPi<T>, 2, 1, 100), b));
    for (std::size_t i = 0; i < 6; ++i) EXPECT_NEAR(perspective[i], b[i], 100 * kRounding<T>);
    // Depth is reversed: 1 at the near plane, 0 at the far one.
    const Matrix44T<T> m = createFrustumT<T>(-1, 1, -1, 1, 1, 3);
    EXPECT_BITS(T(1), transformPositionT(m, Vector3T<T>(0, 0, -1)).z());
    EXPECT_BITS(T(0), transformPositionT(m, Vector3T<T>(0, 0, -3)).z());
}

TYPED_TEST(TransformationTest, ProjectionReadsRefuseAtTheirThresholds) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    const T tau = T(1e-14);
    // The distances from 1, in half steps of T, on either side of tau.
    const T inside = T(sizeof(T) == 8 ? 90 : 0) * (kEps<T> / 2);
    const T outside = T(sizeof(T) == 8 ? 91 : 1) * (kEps<T> / 2);
    const T outsideAbove = T(sizeof(T) == 8 ? 92 : 2) * (kEps<T> / 2);
    const M ortho = createOrthographicT<T>(-2, 3, -1, 4, 1, 6);
    const M frustum = createFrustumT<T>(-2, 3, -1, 4, 1, 6);
    struct Case {
        int row, column;
        T value;
        bool accepted;
    };
    const auto check = [](Reader<T> reader, M m, const Case& c) {
        m[c.column][c.row] = c.value;
        Bounds<T> b = kUntouched<T>;
        EXPECT_EQ(c.accepted, read<T>(reader, m, b)) << c.row << c.column << ": " << c.value;
        EXPECT_EQ(!c.accepted, b == kUntouched<T>) << c.row << c.column << ": " << c.value;
    };
    for (const Reader<T> reader : {Reader<T>(getOrthographicT), Reader<T>(getFrustumT)}) {
        const M& m = reader == Reader<T>(getOrthographicT) ? ortho : frustum;
        for (int i = 0; i < 3; ++i) {
            check(reader, m, {i, i, tau, true});
            check(reader, m, {i, i, -tau, true});
            check(reader, m, {i, i, below(tau), false});
            check(reader, m, {i, i, -below(tau), false});
            check(reader, m, {i, i, 0, false});
            check(reader, m, {i, i, kNaN<T>, true});
        }
    }
    for (const T sign : {T(1), T(-1)}) {  // m(3,3) near 1, m(3,2) near -1
        const auto read = sign > 0 ? Reader<T>(getOrthographicT) : Reader<T>(getFrustumT);
        const M& m = sign > 0 ? ortho : frustum;
        const int column = sign > 0 ? 3 : 2;
        check(read, m, {3, column, sign * (1 - inside), true});
        check(read, m, {3, column, sign * (1 + inside), true});
        check(read, m, {3, column, sign * (1 - outside), false});
        check(read, m, {3, column, sign * (1 + outsideAbove), false});
        check(read, m, {3, column, -sign, false});
        check(read, m, {3, column, kNaN<T>, true});
    }
    check(getOrthographicT, ortho, {2, 2, -1, true});
    check(getFrustumT, frustum, {2, 2, -1 + inside, false});
    check(getFrustumT, frustum, {2, 2, -1 - inside, false});
    check(getFrustumT, frustum, {2, 2, -1 + outside, true});
    check(getFrustumT, frustum, {2, 2, -1 - outsideAbove, true});
}

TYPED_TEST(TransformationTest, FrustumReadWritesInAFixedOrder) {
    using T = TypeParam;
    const Matrix44T<T> m = createFrustumT<T>(-2, 3, -1, 4, 1, 6);
    const Bounds<T> expected = readFrustum(m);
    const std::size_t order[] = {5, 4, 2, 3, 0, 1};  // far, near, bottom, top, left, right
    for (std::size_t i = 0; i + 1 < 6; ++i) {        // two share a variable: the later one stays
        Bounds<T> b = kUntouched<T>;
        T* out[] = {&b[0], &b[1], &b[2], &b[3], &b[4], &b[5]};
        out[order[i]] = out[order[i + 1]];
        EXPECT_TRUE(getFrustumT(m, *out[0], *out[1], *out[2], *out[3], *out[4], *out[5]));
        EXPECT_BITS(expected[order[i + 1]], *out[order[i]]) << i;
    }
}

TYPED_TEST(TransformationTest, PerspectiveIsAnyNonZeroInRowThreeColumnTwo) {
    using T = TypeParam;
    Matrix44T<T> m;
    for (const T value : {T(0), -T(0), std::numeric_limits<T>::denorm_min(), T(-1), kNaN<T>}) {
        m(3, 2) = value;
        EXPECT_EQ(!(value == 0), isPerspectiveProjectionT(m)) << value;
    }
    m = Matrix44T<T>(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0, 13, 14, 15, 16);
    EXPECT_FALSE(isPerspectiveProjectionT(m));
}

TYPED_TEST(TransformationTest, TranslationIsReadAndReplacedAlone) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    const M m(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
    const M moved(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, -1, -2, -3, 16);
    EXPECT_BITS(Vector3T<T>(13, 14, 15), getTranslationT(m));
    EXPECT_BITS(moved, translateToT(m, Vector3T<T>(-1, -2, -3)));
    M copy = m;
    setTranslationT(copy, Vector3T<T>(-1, -2, -3));
    EXPECT_BITS(moved, copy);
}

// A matrix taken apart, step by step.
template <class T>
struct Parts {
    Vector3T<T> scale, rotation, translation;
    T sign;
    Vector4T<T> axes[3];  // columns 0, 1, 2, normalised

    explicit Parts(const Matrix44T<T>& m) : sign(m.determinant() >= 0 ? T(1) : T(-1)) {
        for (int c = 0; c < 3; ++c) {
            axes[c] = Vector4T<T>(m[c]);
            scale[c] = axes[c].norm();
            axes[c].normalize();
            translation[c] = m[3][c];
        }
        rotation = angles();
        if (!(std::abs(static_cast<double>(rotation[1])) < 1.5707962267948965)) {
            const T k = rotation[1] >= 0 ? T(-1) : T(1);
            rotation[0] = std::atan2(runtime(axes[1][2]), runtime(k * axes[0][2]));
            rotation[2] = 0;
        }
    }
    Vector3T<T> angles() const {
        return Vector3T<T>(std::atan2(runtime(-axes[2][1]), runtime(axes[2][2])),
                           std::asin(runtime(axes[2][0])),
                           std::atan2(runtime(-axes[1][0]), runtime(axes[0][0])));
    }
    bool gimbalLocked() const {
        return rotation[2] == 0;
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
}

TYPED_TEST(TransformationTest, AnglesAndScaleComeFromColumnsOfFourValues) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    Corpus<T> corpus(506);
    for (int n = 0; n < 500; ++n) {
        const Vector3T<T> v = anglesOf(corpus);
        const M m = n == 0 ? M() : n % 2 == 0 ? corpus.matrix() : createRotationT(v[0], v[1], v[2]);
        const Parts<T> parts(m);
        EXPECT_BITS(parts.scale, getScaleT(m));
        EXPECT_BITS(parts.angles(), getRotationT(m, true));
        EXPECT_BITS(Vector3T<T>(std::atan2(runtime(-m(1, 2)), runtime(m(2, 2))),
                                std::asin(runtime(m(0, 2))),
                                std::atan2(runtime(-m(0, 1)), runtime(m(0, 0)))),
                    getRotationT(m, false));
        expectDecomposed(m);
    }
    for (int c = 0; c < 4; ++c) {
        const M m = withZeroColumn(corpus.matrix(), c);
        EXPECT_BITS(Parts<T>(m).scale, getScaleT(m));
        EXPECT_BITS(Parts<T>(m).angles(), getRotationT(m, true));
        expectDecomposed(m);
    }
}

// Deliberate: the argument of asin is not clamped.
TYPED_TEST(TransformationTest, AnglesBeyondThePoleAreNaN) {
    using T = TypeParam;
    Matrix44T<T> m;
    m(0, 2) = above(T(1));
    EXPECT_BITS(kNaN<T>, getRotationT(m, false).y());
}

TEST(TransformationPoleTest, RotationReadHasNoSpecialCaseAtThePole) {
    // cos(pi / 2) is tiny but not 0, so all three angles survive.
    const Matrix44d m = createRotationT(0.3, kHalfPi<double>, 0.2);
    expectNear(Vector3d(0.3, kHalfPi<double>, 0.2), getRotationT(m, false), kRounding<double>);
}

TYPED_TEST(TransformationTest, DecomposeJoinsTheTurnsAtGimbalLock) {
    using T = TypeParam;
    // z = (s, sqrt(1 - s^2), 0) passes the threshold of 1e-7 before the pole within these steps.
    bool locked[2] = {false, false};
    Corpus<T> corpus(507);
    for (int step = 0; step < 100; ++step) {
        const T s = 1 - T(step) * (kEps<T> / 2);
        for (const T sign : {T(1), T(-1)}) {
            Matrix44T<T> m = corpus.matrix();
            m[2][0] = sign * s;
            m[2][1] = std::sqrt(1 - s * s);
            m[2][2] = m[2][3] = 0;
            locked[Parts<T>(m).gimbalLocked()] = true;
            expectDecomposed(m);
        }
    }
    EXPECT_TRUE(locked[0] && locked[1]);
    for (const T y : {kHalfPi<T>, -kHalfPi<T>}) {
        Vector3T<T> scale, rotation, translation;
        T sign;
        decomposeT(createRotationT(T(0.3), y, T(0.2)), scale, rotation, translation, sign);
        expectNear(Vector3T<T>(y > 0 ? T(0.5) : T(0.1), y, 0), rotation, kRounding<T>);
        EXPECT_BITS(T(0), rotation.z());
    }
    Matrix44T<T> nan = corpus.matrix();  // takes part as a lock, with the sign of a negative y
    nan[2][0] = kNaN<T>;
    expectDecomposed(nan);
}

TYPED_TEST(TransformationTest, DecomposeSignsANonNegativeDeterminantWithOne) {
    using T = TypeParam;
    const auto signOf = [](T m33) {
        Matrix44T<T> m;
        m(3, 3) = m33;
        Vector3T<T> scale, rotation, translation;
        T sign = 7;
        decomposeT(m, scale, rotation, translation, sign);
        return sign;
    };
    EXPECT_BITS(T(1), signOf(2));
    EXPECT_BITS(T(1), signOf(0));
    EXPECT_BITS(T(-1), signOf(-std::numeric_limits<T>::denorm_min()));
    EXPECT_BITS(T(-1), signOf(kNaN<T>));
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

TYPED_TEST(TransformationTest, ComposeScalesAllFourValuesOfAColumn) {
    using T = TypeParam;
    using V = Vector3T<T>;
    Corpus<T> corpus(508);
    for (int n = 0; n < 300; ++n) {
        const V scale = corpus.vector(), rotation = anglesOf(corpus), t = corpus.vector();
        const T sign = n % 3 == 0 ? corpus.plain() : n % 3 == 1 ? T(1) : T(-1);
        EXPECT_BITS(composed(scale, rotation, t, sign), composeT(scale, rotation, t, sign));

        const Matrix44T<T> m = n % 2 == 0 ? corpus.matrix() : composed(scale, rotation, t, sign);
        const Parts<T> parts(m);
        const V turned = anglesOf(corpus);
        const Matrix44T<T> expected = composed(parts.scale, turned, parts.translation, parts.sign);
        EXPECT_BITS(expected, rotateToT(m, turned));
        Matrix44T<T> copy = m;
        setRotationT(copy, turned);
        EXPECT_BITS(expected, copy);
    }
}

TYPED_TEST(TransformationTest, DecomposeUndoesCompose) {
    using T = TypeParam;
    using V = Vector3T<T>;
    const V scale(2, 3, 4), angles(T(0.1), T(0.2), T(0.3)), t(5, 6, 7);
    V s, r, u;
    T sign;
    decomposeT(composeT(scale, angles, t, T(1)), s, r, u, sign);
    expectNear(scale, s, kRounding<T>);
    expectNear(angles, r, kRounding<T>);
    EXPECT_BITS(t, u);
    EXPECT_BITS(T(1), sign);
}

template <class T>
Matrix44T<T> rescaled(Matrix44T<T> m, const Vector3T<T>& scale) {
    const Parts<T> parts(m);
    for (int c = 0; c < 3; ++c) {
        for (int r = 0; r < 4; ++r) m[c][r] = parts.axes[c][r];
    }
    if (parts.scale[0] == 0 || parts.scale[1] == 0 || parts.scale[2] == 0) {
        const Parts<T> unit(m);
        return composed(scale, unit.rotation, unit.translation, unit.sign);
    }
    for (int c = 0; c < 3; ++c) {
        for (int r = 0; r < 4; ++r) m[c][r] *= scale[c];
    }
    return m;
}

TYPED_TEST(TransformationTest, SetScaleComposesAnewWhenAColumnHasNoLength) {
    using T = TypeParam;
    Corpus<T> corpus(509);
    for (int n = 0; n < 400; ++n) {
        const Vector3T<T> scale = corpus.vector();
        Matrix44T<T> m = n % 2 == 0 ? corpus.matrix() : withZeroColumn(corpus.matrix(), n / 2 % 4);
        if (n % 16 == 1) m[0][3] = 5;  // the bottom value alone gives column 0 its length
        EXPECT_BITS(rescaled(m, scale), scaleToT(m, scale));
        Matrix44T<T> copy = m;
        setScaleT(copy, scale);
        EXPECT_BITS(rescaled(m, scale), copy);
    }
    Matrix44T<T> nan = corpus.matrix();  // a NaN is a length
    nan[0][0] = kNaN<T>;
    const Vector3T<T> scale(2, 3, 4);
    const Matrix44T<T> expected = rescaled(nan, scale), actual = scaleToT(nan, scale);
    for (int c = 1; c < 4; ++c) {
        EXPECT_BITS(Vector4T<T>(expected[c]), Vector4T<T>(actual[c]));
    }
}

// The quaternion of a 3x3 block, step by step.
template <class T>
QuaternionT<T> quaternionOf(const Matrix44T<T>& a) {
    T sum = 0;
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c) sum += a[c][r] * a[c][r];
    }
    const T k = std::sqrt(3 / sum), trace = a[0][0] + a[1][1] + a[2][2];
    QuaternionT<T> q;
    if (trace > 0) {
        const T r = std::sqrt(k * trace + 1), f = k / (2 * r);
        q.set(r / 2, (a[1][2] - a[2][1]) * f, (a[2][0] - a[0][2]) * f, (a[0][1] - a[1][0]) * f);
        return q;
    }
    int i = a[1][1] > a[0][0] ? 1 : 0;
    if (a[2][2] > a[i][i]) i = 2;
    const int j = (i + 1) % 3, n = (i + 2) % 3;
    const T r = std::sqrt((a[i][i] - a[j][j] - a[n][n]) * k + 1), f = k / (2 * r);
    q[0] = (a[j][n] - a[n][j]) * f;
    q[i + 1] = r / 2;
    q[j + 1] = (a[i][j] + a[j][i]) * f;
    q[n + 1] = (a[i][n] + a[n][i]) * f;
    return q;
}

TYPED_TEST(TransformationTest, QuaternionComesFromTheTraceOrTheLargestDiagonal) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    using Q = QuaternionT<T>;
    Corpus<T> corpus(510);
    for (int n = 0; n < 600; ++n) {
        const M m = n % 2 == 0 ? corpus.matrix() : createRotationT(corpus.unitQuaternion());
        EXPECT_BITS(quaternionOf(m), getRotationAsQuaternionT(m, false));
        const M unscaled = rescaled(m, Vector3T<T>(1, 1, 1));
        EXPECT_BITS(quaternionOf(unscaled), getRotationAsQuaternionT(m, true));
    }
    // Ties of the diagonal go to the lower index; a trace of 0 is not positive.
    const T diagonals[][3] = {{0, 0, 0},  {-1, -1, -1}, {-2, -1, -1}, {-1, -2, -1}, {1, -1, 0},
                              {-1, 0, 1}, {0, 1, -1},   {1, 1, -2},   {-2, 1, 1},   {1, -2, 1}};
    for (const auto& d : diagonals) {
        const M m(d[0], 2, 3, 0, 5, d[1], 7, 0, 11, 13, d[2], 0, 0, 0, 0, 1);
        EXPECT_BITS(quaternionOf(m), getRotationAsQuaternionT(m, false)) << d[0] << d[1] << d[2];
    }
    EXPECT_TRUE(getRotationAsQuaternionT(createScaleT<T>(2, 2, 2), false) == Q());
    EXPECT_TRUE(getRotationAsQuaternionT(createScaleT<T>(1, -1, -1), false) == Q(0, 1, 0, 0));
    EXPECT_TRUE(getRotationAsQuaternionT(createScaleT<T>(-1, 1, -1), false) == Q(0, 0, 1, 0));
    EXPECT_TRUE(getRotationAsQuaternionT(createScaleT<T>(-1, -1, 1), false) == Q(0, 0, 0, 1));
    EXPECT_LT(getRotationAsQuaternionT(createRotationT(Vector3T<T>(1, 0, 0), T(4)), false).w(), 0);
}

TYPED_TEST(TransformationTest, PositionsAreDividedByWDirectionsFeelANonFiniteTranslation) {
    using T = TypeParam;
    using V = Vector3T<T>;
    Corpus<T> corpus(511);
    for (int n = 0; n < 500; ++n) {
        const bool plain = n % 2 == 0;
        const auto m = plain ? corpus.matrix() : corpus.template anyOf<Matrix44T<T>>();
        const V p = n % 4 < 2 ? corpus.vector() : corpus.template anyOf<V>();
        const T w = m(3, 0) * p[0] + m(3, 1) * p[1] + m(3, 2) * p[2] + m(3, 3);
        V position, direction;
        for (int r = 0; r < 3; ++r) {
            const T sum = m[0][r] * p[0] + m[1][r] * p[1] + m[2][r] * p[2];
            position[r] = (sum + m[3][r]) / w;
            direction[r] = sum + 0 * m[3][r];
        }
        EXPECT_BITS(position, transformPositionT(m, p));
        EXPECT_BITS(direction, transformDirectionT(m, p));
    }
    const Matrix44T<T> m = createTranslationT<T>(kInf<T>, 1, kNaN<T>);
    EXPECT_BITS(V(kNaN<T>, 2, kNaN<T>), transformDirectionT(m, V(1, 2, 3)));
}

TYPED_TEST(TransformationTest, VelocitiesAreDifferencesTimesOneReciprocal) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    using V = Vector3T<T>;
    Corpus<T> corpus(512);
    for (int n = 0; n < 500; ++n) {
        const bool rotations = n % 2 == 0;
        const M m0 = rotations ? createRotationT(corpus.unitQuaternion()) : corpus.matrix();
        const M m1 = n % 8 == 0  ? m0
                     : rotations ? createRotationT(corpus.unitQuaternion())
                                 : corpus.matrix();
        const T dt = corpus.any(), r = 1 / dt;
        const V delta = getTranslationT(m1) - getTranslationT(m0);
        EXPECT_BITS(V(r * delta[0], r * delta[1], r * delta[2]), linearVelocityT(m0, m1, dt));

        const auto q = getRotationAsQuaternionT(m0, true);
        const auto d = getRotationAsQuaternionT(m1, true) - q;
        const T w = q[0], x = q[1], y = q[2], z = q[3];
        const T ox = 0 - x * d[0] + w * d[1] - z * d[2] + y * d[3];
        const T oy = 0 - y * d[0] + z * d[1] + w * d[2] - x * d[3];
        const T oz = 0 - z * d[0] - y * d[1] + x * d[2] + w * d[3];
        EXPECT_BITS(V(r * (2 * ox), r * (2 * oy), r * (2 * oz)), angularVelocityT(m0, m1, dt));
    }
    // (1 - cos(0.01 / 2)) and the like cost a relative 1e-5.
    const V omega = angularVelocityT(M(), createRotationT<T>(0, 0, T(0.01)), T(0.01));
    expectNear(V(0, 0, 1), omega, T(1e-4));
}

TYPED_TEST(TransformationTest, IsRotationAcceptsExactlyTheTolerance) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    const T tol = T(0.25);
    const auto with = [](M m, int row, int column, T value) {
        m[column][row] = value;
        return m;
    };
    for (int i = 0; i < 3; ++i) {  // the length of column i, the others keeping the determinant
        const int next = (i + 1) % 3;
        const auto lengths = [&](T length, T other) {
            return with(with(M(), i, i, length), next, next, other);
        };
        EXPECT_TRUE(isRotation(lengths(T(1.25), T(0.8)), tol)) << i;
        EXPECT_FALSE(isRotation(lengths(above(T(1.25)), T(0.8)), tol)) << i;
        EXPECT_TRUE(isRotation(lengths(T(0.75), T(1.25)), tol)) << i;
        EXPECT_FALSE(isRotation(lengths(below(T(0.75)), T(1.25)), tol)) << i;
        EXPECT_FALSE(isRotation(with(M(), 3, i, 1), tol)) << i;  // the bottom value takes part
    }
    // The determinant is that of all four columns.
    EXPECT_TRUE(isRotation(with(M(), 3, 3, T(1.25)), tol));
    EXPECT_FALSE(isRotation(with(M(), 3, 3, above(T(1.25))), tol));
    EXPECT_TRUE(isRotation(with(M(), 3, 3, T(0.75)), tol));
    EXPECT_FALSE(isRotation(with(M(), 3, 3, below(T(0.75))), tol));
    // Each sheared element shows in the inverse.
    const int pairs[][2] = {{0, 1}, {0, 2}, {1, 2}, {1, 0}, {2, 0}, {2, 1}};
    for (const auto& p : pairs) {
        for (const T sign : {T(1), T(-1)}) {
            EXPECT_TRUE(isRotation(with(M(), p[0], p[1], sign * tol), tol)) << p[0] << p[1];
            EXPECT_FALSE(isRotation(with(M(), p[0], p[1], sign * above(tol)), tol)) << p[0] << p[1];
        }
    }
    EXPECT_TRUE(isRotation(createScaleT<T>(-1, -1, 1), T(1e-6)));
    EXPECT_FALSE(isRotation(createScaleT<T>(-1, 1, 1), T(1e-6)));
    // A block without an inverse fails whatever the tolerance.
    EXPECT_FALSE(isRotation(M::kZero, T(100)));
    EXPECT_TRUE(isRotation(createScaleT<T>(T(0.5), T(0.5), T(0.5)), T(100)));
}

TYPED_TEST(TransformationTest, IsRotationComparesThreeElementsOfTheInverse) {
    using T = TypeParam;
    Corpus<T> corpus(513);
    int counts[2] = {0, 0};
    for (int n = 0; n < 4000; ++n) {
        Matrix44T<T> m = createRotationT(corpus.unitQuaternion());
        for (int c = 0; c < 3; ++c) {
            for (int r = 0; r < 3; ++r) m[c][r] += corpus.plain() * T(0.04);
        }
        const T tol = std::abs(corpus.plain()) * T(0.08);
        const auto a = [&m](int r, int c) { return m[c][r]; };
        const T det = a(0, 0) * (a(1, 1) * a(2, 2) - a(1, 2) * a(2, 1)) -
                      a(0, 1) * (a(1, 0) * a(2, 2) - a(1, 2) * a(2, 0)) +
                      a(0, 2) * (a(1, 0) * a(2, 1) - a(1, 1) * a(2, 0));
        const T inverse01 = (a(0, 2) * a(2, 1) - a(0, 1) * a(2, 2)) / det;
        const T inverse02 = (a(0, 1) * a(1, 2) - a(0, 2) * a(1, 1)) / det;
        const T inverse12 = (a(0, 2) * a(1, 0) - a(0, 0) * a(1, 2)) / det;
        const Vector3T<T> lengths = getScaleT(m);
        const T errors[] = {1 - lengths[0],      1 - lengths[1],      1 - lengths[2],     1 - det,
                            inverse01 - a(1, 0), inverse02 - a(2, 0), inverse12 - a(2, 1)};
        T error = 0;
        for (const T e : errors) error = std::max(error, std::abs(e));
        EXPECT_EQ(error <= tol, isRotation(m, tol)) << n;
        ++counts[error <= tol];
    }
    EXPECT_GT(counts[0], 400);
    EXPECT_GT(counts[1], 400);
}

// Deliberate: a test fails only when a difference is greater than the tolerance.
TYPED_TEST(TransformationTest, IsRotationAcceptsNaN) {
    using T = TypeParam;
    EXPECT_TRUE(isRotation(each<Matrix44T<T>>([](int) { return kNaN<T>; }), T(1e-6)));
}

}  // namespace
}  // namespace test
}  // namespace KyMath
