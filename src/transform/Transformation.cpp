// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Transformation.h>
#include <KyMath/inline/Transformation.h>

#include "internal/LibmArrays.h"
#include "lanes/Lanes.h"
#include "rotation/RotationToQuaternion.h"
#include "transform/RotationArrays.h"

#include <cmath>

namespace KyMath::Transformation {

template <class T>
Matrix44T<T> createScaleT(T x, T y, T z) {
    const double block[3][3] = {{double(x), 0, 0}, {0, double(y), 0}, {0, 0, double(z)}};
    return Matrix44T<T>(block);
}
template <class T>
Matrix44T<T> createScaleT(const Vector3T<T>& s) {
    return createScaleT(s.x(), s.y(), s.z());
}

template <class T>
Matrix44T<T> createTranslationT(T x, T y, T z) {
    return Matrix44T<T>(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1);
}
template <class T>
Matrix44T<T> createTranslationT(const Vector3T<T>& v) {
    return createTranslationT(v.x(), v.y(), v.z());
}

namespace {

/// The rotation of angles with these sines and cosines.
template <class T>
Matrix44T<T> rotationOf(T sx, T cx, T sy, T cy, T sz, T cz) {
    return Matrix44T<T>(cy * cz, sx * sy * cz + cx * sz, sx * sz - cx * sy * cz, 0,   //
                        -cy * sz, cx * cz - sx * sy * sz, sx * cz + cx * sy * sz, 0,  //
                        sy, -sx * cy, cx * cy, 0,                                     //
                        0, 0, 0, 1);
}

}  // namespace

template <class T>
Matrix44T<T> createRotationT(T x, T y, T z) {
    const auto [sz, cz] = internal::sinCos(z);
    const auto [sy, cy] = internal::sinCos(y);
    const auto [sx, cx] = internal::sinCos(x);
    return rotationOf(sx, cx, sy, cy, sz, cz);
}

namespace {

// Each component divided by the norm: a pair of doubles takes as long as one, four floats longer.
inline Quaternionf unitOf(const Quaternionf& q) {
    const float norm = q.norm();
    return Quaternionf(q.w() / norm, q.x() / norm, q.y() / norm, q.z() / norm);
}
inline Quaterniond unitOf(const Quaterniond& q) {
    const auto unit = internal::load(static_cast<const double*>(q)) / q.norm();
    return Quaterniond(unit[0], unit[1], unit[2], unit[3]);
}

}  // namespace

template <class T>
Matrix44T<T> createRotationT(const QuaternionT<T>& q) {
    const QuaternionT<T> unit = unitOf(q);
    const T w = unit.w(), x = unit.x(), y = unit.y(), z = unit.z();
    // The doubled sum is subtracted from 1 in double; the result is rounded to T.
    const auto diagonal = [](T sum) { return T(1.0 - double(2 * sum)); };
    return Matrix44T<T>(diagonal(y * y + z * z), 2 * (x * y + z * w), 2 * (x * z - y * w), 0,  //
                        2 * (x * y - z * w), diagonal(x * x + z * z), 2 * (y * z + x * w), 0,  //
                        2 * (x * z + y * w), 2 * (y * z - x * w), diagonal(x * x + y * y), 0,  //
                        0, 0, 0, 1);
}

template <class T>
Matrix44T<T> createRotationT(const Vector3T<T>& axis, T angle) {
    return createRotationT(QuaternionT<T>(axis, angle));
}

namespace {

/// The matrix with columns (a, 0), (b, 0), (c, 0), (d, 1).
template <class T>
Matrix44T<T> frame(const Vector3T<T>& a, const Vector3T<T>& b, const Vector3T<T>& c,
                   const Vector3T<T>& d) {
    return Matrix44T<T>(Vector4T<T>(a, 0), Vector4T<T>(b, 0), Vector4T<T>(c, 0), Vector4T<T>(d, 1));
}

}  // namespace

template <class T>
Matrix44T<T> createRotationFromAxesT(const Vector3T<T>& a, const Vector3T<T>& b,
                                     const Vector3T<T>& c) {
    return frame(a, b, c, Vector3T<T>());
}

template <class T>
Matrix44T<T> createRotationFromOuterProductT(const Vector3T<T>& a, const Vector3T<T>& b) {
    return createRotationFromAxesT(a * b.x(), a * b.y(), a * b.z());
}

template <class T>
Matrix44T<T> createObjectLookAtT(const Vector3T<T>& position, const Vector3T<T>& target,
                                 const Vector3T<T>& up) {
    Vector3T<T> forward = target - position;
    forward.normalize();
    Vector3T<T> tilted = up;
    // 1 - 2^-23, two floats below 1, for double as well.
    if (std::abs(forward * up) > T(0.99999988079071045)) {
        tilted[(up.maxComponentIndex() + 1) % 3] += T(0.1);
    }
    Vector3T<T> side = forward.cross(tilted);
    side.normalize();
    Vector3T<T> above = side.cross(forward);
    above.normalize();
    return frame(forward, -side, above, position);
}

template <class T>
Matrix44T<T> createCameraLookAtT(const Vector3T<T>& position, const Vector3T<T>& target,
                                 const Vector3T<T>& up) {
    constexpr T kHalfPi = T(1.5707963267948966);
    return Matrix44T<T>::multiply(createObjectLookAtT(position, target, up),
                                  createRotationT(kHalfPi, -kHalfPi, T(0)));
}

template <class T>
Vector3T<T> getScaleT(const Matrix44T<T>& m) {
    return Vector3T<T>(m.column(0).length(), m.column(1).length(), m.column(2).length());
}

namespace {

/// Normalises columns 0, 1, 2 (four values each) and returns their former lengths. A zero column
/// stays zero.
template <class T>
Vector3T<T> normalizeColumns(Matrix44T<T>& m) {
    Vector3T<T> lengths;
    for (int c = 0; c < 3; ++c) {
        Vector4T<T> column(m[c]);
        lengths[c] = column.length();
        column.normalize();
        for (int r = 0; r < 4; ++r) m[c][r] = column[r];
    }
    return lengths;
}

/// The angles of a matrix whose columns 0, 1, 2 are of unit length.
template <class T>
Vector3T<T> anglesOf(const Matrix44T<T>& n) {
    const T y = internal::asin(n(0, 2));
    const T x = internal::atan2(-n(1, 2), n(2, 2));
    const T z = internal::atan2(-n(0, 1), n(0, 0));
    return Vector3T<T>(x, y, z);
}

}  // namespace

template <class T>
Vector3T<T> getRotationT(const Matrix44T<T>& m, bool normalize) {
    if (!normalize) return anglesOf(m);
    Matrix44T<T> n(m);
    normalizeColumns(n);
    return anglesOf(n);
}

namespace {

template <class T>
QuaternionT<T> quaternionOf(const T* m) {
    T squares = m[0] * m[0];  // row by row
    for (int i = 1; i < 9; ++i) squares += m[i % 3 * 4 + i / 3] * m[i % 3 * 4 + i / 3];
    return internal::rotationToQuaternion(m, squares);
}

}  // namespace

template <class T>
QuaternionT<T> getRotationAsQuaternionT(const Matrix44T<T>& m, bool removeScale) {
    if (!removeScale) return quaternionOf<T>(m);
    Matrix44T<T> a(m);
    setScaleT(a, Vector3T<T>(1, 1, 1));
    return quaternionOf<T>(a);
}

template <class T>
void decomposeT(const Matrix44T<T>& m, Vector3T<T>& scale, Vector3T<T>& rotation,
                Vector3T<T>& translation, T& sign) {
    // From pi/2 - 1e-7 on, the x and z angles turn about the same axis: z becomes 0.
    constexpr double kGimbalLock = 1.5707962267948965;

    Matrix44T<T> n(m);
    sign = m.determinant() >= 0 ? T(1) : T(-1);
    translation = getTranslationT(n);
    scale = normalizeColumns(n);

    rotation = anglesOf(n);
    if (const T y = rotation.y(); !(double(std::abs(y)) < kGimbalLock)) {
        const T k = y >= 0 ? T(-1) : T(1);
        rotation.set(internal::atan2(n(2, 1), k * n(2, 0)), y, 0);
    }
}

namespace {

/// Multiplies columns 0, 1, 2 (four values each) by the factors.
template <class T>
void scaleColumns(Matrix44T<T>& m, const Vector3T<T>& factors) {
    for (int c = 0; c < 3; ++c) {
        for (int r = 0; r < 4; ++r) m[c][r] *= factors[c];
    }
}

}  // namespace

template <class T>
Matrix44T<T> composeT(const Vector3T<T>& scale, const Vector3T<T>& rotation,
                      const Vector3T<T>& translation, T sign) {
    Matrix44T<T> m = createRotationT(rotation.x(), rotation.y(), rotation.z());
    setTranslationT(m, translation);
    scaleColumns(m, scale * sign);
    return m;
}

template <class T>
Matrix44T<T> translateToT(const Matrix44T<T>& m, const Vector3T<T>& t) {
    Matrix44T<T> r(m);
    setTranslationT(r, t);
    return r;
}

template <class T>
void setRotationT(Matrix44T<T>& m, const Vector3T<T>& rotation) {
    m = rotateToT(m, rotation);
}

template <class T>
Matrix44T<T> rotateToT(const Matrix44T<T>& m, const Vector3T<T>& rotation) {
    Vector3T<T> scale, former, translation;
    T sign;
    decomposeT(m, scale, former, translation, sign);
    return composeT(scale, rotation, translation, sign);
}

template <class T>
void setScaleT(Matrix44T<T>& m, const Vector3T<T>& scale) {
    const Vector3T<T> lengths = normalizeColumns(m);
    if (lengths[0] != 0 && lengths[1] != 0 && lengths[2] != 0) {
        scaleColumns(m, scale);
        return;
    }
    Vector3T<T> former, rotation, translation;
    T sign;
    decomposeT(m, former, rotation, translation, sign);
    m = composeT(scale, rotation, translation, sign);
}

template <class T>
Matrix44T<T> scaleToT(const Matrix44T<T>& m, const Vector3T<T>& scale) {
    Matrix44T<T> r(m);
    setScaleT(r, scale);
    return r;
}

template <class T>
Vector3T<T> transformPositionT(const Matrix44T<T>& m, const Vector3T<T>& p) {
    constexpr T kOne = 1;
    internal::Lanes<T> h = internal::times4(internal::loadColumns<T>(m), p, kOne);
    h /= internal::Lanes<T>{h[3], h[3], h[3], kOne};  // not 0 / 0 where w is 0
    return Vector3T<T>(h[0], h[1], h[2]);
}

template <class T>
Vector3T<T> transformDirectionT(const Matrix44T<T>& m, const Vector3T<T>& d) {
    constexpr T kZero = 0;
    const internal::Lanes<T> h = internal::times4(internal::loadColumns<T>(m), d, kZero);
    return Vector3T<T>(h[0], h[1], h[2]);
}

template <class T>
Vector3T<T> linearVelocityT(const Matrix44T<T>& m0, const Matrix44T<T>& m1, T dt) {
    return (getTranslationT(m1) - getTranslationT(m0)) / dt;
}

template <class T>
Vector3T<T> angularVelocityT(const Matrix44T<T>& m0, const Matrix44T<T>& m1, T dt) {
    const QuaternionT<T> q = getRotationAsQuaternionT(m0, true);
    const QuaternionT<T> d = getRotationAsQuaternionT(m1, true) - q;
    // Each sum starts from 0, so that none is -0.
    const T x = 0 - q.x() * d.w() + q.w() * d.x() - q.z() * d.y() + q.y() * d.z();
    const T y = 0 - q.y() * d.w() + q.z() * d.x() + q.w() * d.y() - q.x() * d.z();
    const T z = 0 - q.z() * d.w() - q.y() * d.x() + q.x() * d.y() + q.w() * d.z();
    return Vector3T<T>(2 * x, 2 * y, 2 * z) / dt;
}

template <class T>
bool isRotation(const Matrix44T<T>& m, T tol) {
    // Each test fails on a strict excess: a NaN passes them all.
    for (unsigned long c = 0; c < 3; ++c) {
        if (std::abs(1 - m.column(c).length()) > tol) return false;
    }
    if (std::abs(1 - m.determinant()) > tol) return false;

    const T c00 = m(1, 1) * m(2, 2) - m(1, 2) * m(2, 1);
    const T c10 = m(1, 2) * m(2, 0) - m(1, 0) * m(2, 2);
    const T c20 = m(1, 0) * m(2, 1) - m(1, 1) * m(2, 0);
    const T det = m(0, 0) * c00 + m(0, 1) * c10 + m(0, 2) * c20;
    if (det == 0) return false;

    // Deliberate: three elements of the inverse are compared with the transpose, not all nine.
    // Pinned by TransformationTest.IsRotationAcceptsExactlyTheTolerance.
    const T k = 1 / det;
    const T i01 = (m(0, 2) * m(2, 1) - m(0, 1) * m(2, 2)) * k;
    const T i02 = (m(0, 1) * m(1, 2) - m(0, 2) * m(1, 1)) * k;
    const T i12 = (m(0, 2) * m(1, 0) - m(0, 0) * m(1, 2)) * k;
    return !(std::abs(i01 - m(1, 0)) > tol || std::abs(i02 - m(2, 0)) > tol ||
             std::abs(i12 - m(2, 1)) > tol);
}

#define KY_INSTANTIATE(T)                                                                          \
    template Matrix44T<T> createScaleT(T, T, T);                                                   \
    template Matrix44T<T> createScaleT(const Vector3T<T>&);                                        \
    template Matrix44T<T> createTranslationT(T, T, T);                                             \
    template Matrix44T<T> createTranslationT(const Vector3T<T>&);                                  \
    template Matrix44T<T> createRotationT(T, T, T);                                                \
    template Matrix44T<T> createRotationT(const QuaternionT<T>&);                                  \
    template Matrix44T<T> createRotationT(const Vector3T<T>&, T);                                  \
    template Matrix44T<T> createRotationFromAxesT(const Vector3T<T>&, const Vector3T<T>&,          \
                                                  const Vector3T<T>&);                             \
    template Matrix44T<T> createRotationFromOuterProductT(const Vector3T<T>&, const Vector3T<T>&); \
    template Matrix44T<T> createObjectLookAtT(const Vector3T<T>&, const Vector3T<T>&,              \
                                              const Vector3T<T>&);                                 \
    template Matrix44T<T> createCameraLookAtT(const Vector3T<T>&, const Vector3T<T>&,              \
                                              const Vector3T<T>&);                                 \
    template Vector3T<T> getTranslationT(const Matrix44T<T>&);                                     \
    template Vector3T<T> getScaleT(const Matrix44T<T>&);                                           \
    template Vector3T<T> getRotationT(const Matrix44T<T>&, bool);                                  \
    template QuaternionT<T> getRotationAsQuaternionT(const Matrix44T<T>&, bool);                   \
    template void decomposeT(const Matrix44T<T>&, Vector3T<T>&, Vector3T<T>&, Vector3T<T>&, T&);   \
    template Matrix44T<T> composeT(const Vector3T<T>&, const Vector3T<T>&, const Vector3T<T>&, T); \
    template void setTranslationT(Matrix44T<T>&, const Vector3T<T>&);                              \
    template Matrix44T<T> translateToT(const Matrix44T<T>&, const Vector3T<T>&);                   \
    template void setRotationT(Matrix44T<T>&, const Vector3T<T>&);                                 \
    template Matrix44T<T> rotateToT(const Matrix44T<T>&, const Vector3T<T>&);                      \
    template void setScaleT(Matrix44T<T>&, const Vector3T<T>&);                                    \
    template Matrix44T<T> scaleToT(const Matrix44T<T>&, const Vector3T<T>&);                       \
    template Vector3T<T> transformPositionT(const Matrix44T<T>&, const Vector3T<T>&);              \
    template Vector3T<T> transformDirectionT(const Matrix44T<T>&, const Vector3T<T>&);             \
    template Vector3T<T> linearVelocityT(const Matrix44T<T>&, const Matrix44T<T>&, T);             \
    template Vector3T<T> angularVelocityT(const Matrix44T<T>&, const Matrix44T<T>&, T);            \
    template bool isRotation(const Matrix44T<T>&, T);

KY_INSTANTIATE(float)
KY_INSTANTIATE(double)
#undef KY_INSTANTIATE

}  // namespace KyMath::Transformation

#ifdef KY_LOCKSTEP

namespace KyMath::internal {

template <class T>
void createRotations(Strided<const Vector3T<T>> in, Strided<Matrix44T<T>> out, std::size_t count) {
    inBlocks(count, [&](std::size_t begin, std::size_t n) {
        Block<T> s[3], c[3];
        for (std::size_t i = 0; i < n; ++i) {
            const Vector3T<T>& angles = *at(in, begin + i);
            for (int k = 0; k < 3; ++k) s[k][i] = angles[k];
        }
        for (int k = 0; k < 3; ++k) sinCos(s[k], c[k], n);
        for (std::size_t i = 0; i < n; ++i) {
            *at(out, begin + i) =
                Transformation::rotationOf(s[0][i], c[0][i], s[1][i], c[1][i], s[2][i], c[2][i]);
        }
    });
}

template <class T>
void getRotations(Strided<const Matrix44T<T>> in, bool normalize, Strided<Vector3T<T>> out,
                  std::size_t count) {
    inBlocks(count, [&](std::size_t begin, std::size_t n) {
        Block<T> x, xOver, y, z, zOver;
        for (std::size_t i = 0; i < n; ++i) {
            Matrix44T<T> m(*at(in, begin + i));
            if (normalize) Transformation::normalizeColumns(m);
            y[i] = m(0, 2);
            x[i] = -m(1, 2);
            xOver[i] = m(2, 2);
            z[i] = -m(0, 1);
            zOver[i] = m(0, 0);
        }
        asin(y, n);
        atan2(x, xOver, n);
        atan2(z, zOver, n);
        for (std::size_t i = 0; i < n; ++i) at(out, begin + i)->set(x[i], y[i], z[i]);
    });
}

#define KY_INSTANTIATE(T)                                                                          \
    template void createRotations(Strided<const Vector3T<T>>, Strided<Matrix44T<T>>, std::size_t); \
    template void getRotations(Strided<const Matrix44T<T>>, bool, Strided<Vector3T<T>>,            \
                               std::size_t);
KY_INSTANTIATE(float)
KY_INSTANTIATE(double)
#undef KY_INSTANTIATE

}  // namespace KyMath::internal

#endif
