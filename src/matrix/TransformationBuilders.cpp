// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Transformation.h>

#include "internal/Libm.h"

#include <cmath>

namespace KyMath {
namespace Transformation {

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

template <class T>
Matrix44T<T> createRotationT(T x, T y, T z) {
    const auto [sz, cz] = internal::sinCos(z);
    const auto [sy, cy] = internal::sinCos(y);
    const auto [sx, cx] = internal::sinCos(x);
    return Matrix44T<T>(cy * cz, sx * sy * cz + cx * sz, sx * sz - cx * sy * cz, 0,   //
                        -cy * sz, cx * cz - sx * sy * sz, sx * cz + cx * sy * sz, 0,  //
                        sy, -sx * cy, cx * cy, 0,                                     //
                        0, 0, 0, 1);
}

template <class T>
Matrix44T<T> createRotationT(const QuaternionT<T>& q) {
    const T norm = q.norm();
    const T w = q.w() / norm;
    const T x = q.x() / norm;
    const T y = q.y() / norm;
    const T z = q.z() / norm;
    // The diagonal takes its doubled sum from 1 in double, and is T again after that.
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

/// Columns a, b, c as directions, d as a position.
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
    // 1 - 2^-23, the float below 1 by two steps, for double as well.
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
Matrix44T<T> createOrthographicT(T left, T right, T bottom, T top, T zNear, T zFar) {
    Matrix44T<T> m;
    m(0, 0) = 2 / (right - left);
    m(1, 1) = 2 / (top - bottom);
    m(2, 2) = 2 / (zFar - zNear);
    m(0, 3) = -(right + left) / (right - left);
    m(1, 3) = -(top + bottom) / (top - bottom);
    m(2, 3) = (zFar + zNear) / (zFar - zNear);
    return m;
}

namespace {

/// Elements of a projection below this in magnitude count as 0.
template <class T>
constexpr T kProjectionTolerance = T(1e-14);

}  // namespace

template <class T>
bool getOrthographicT(const Matrix44T<T>& m, T& left, T& right, T& bottom, T& top, T& zNear,
                      T& zFar) {
    constexpr T kTolerance = kProjectionTolerance<T>;
    if (std::abs(m(3, 3) - 1) > kTolerance || std::abs(m(0, 0)) < kTolerance ||
        std::abs(m(1, 1)) < kTolerance || std::abs(m(2, 2)) < kTolerance) {
        return false;
    }
    const Matrix44T<T> p(m);  // the outputs may be elements of m
    left = (-p(0, 3) - 1) / p(0, 0);
    right = (1 - p(0, 3)) / p(0, 0);
    bottom = (-p(1, 3) - 1) / p(1, 1);
    top = (1 - p(1, 3)) / p(1, 1);
    zNear = (p(2, 3) - 1) / p(2, 2);
    zFar = (1 + p(2, 3)) / p(2, 2);
    return true;
}

template <class T>
Matrix44T<T> createFrustumT(T left, T right, T bottom, T top, T zNear, T zFar) {
    Matrix44T<T> m;
    m(0, 0) = 2 * zNear / (right - left);
    m(1, 1) = 2 * zNear / (top - bottom);
    m(0, 2) = (right + left) / (right - left);
    m(1, 2) = (top + bottom) / (top - bottom);
    m(2, 2) = zNear / (zFar - zNear);
    m(2, 3) = zFar * zNear / (zFar - zNear);
    m(3, 2) = -1;
    m(3, 3) = 0;
    return m;
}

template <class T>
bool getFrustumT(const Matrix44T<T>& m, T& left, T& right, T& bottom, T& top, T& zNear, T& zFar) {
    constexpr T kTolerance = kProjectionTolerance<T>;
    if (std::abs(1 + m(3, 2)) > kTolerance || std::abs(m(2, 2)) < kTolerance ||
        std::abs(m(2, 2) + 1) < kTolerance || std::abs(m(1, 1)) < kTolerance ||
        std::abs(m(0, 0)) < kTolerance) {
        return false;
    }
    const Matrix44T<T> p(m);  // the outputs may be elements of m
    const T farBound = p(2, 3) / p(2, 2);
    const T nearBound = farBound * p(2, 2) / (p(2, 2) + 1);
    const T height = 2 * nearBound / p(1, 1);
    const T width = 2 * nearBound / p(0, 0);
    zFar = farBound;
    zNear = nearBound;
    bottom = (height * p(1, 2) - height) / 2;
    top = (height * p(1, 2) + height) / 2;
    left = (width * p(0, 2) - width) / 2;
    right = (width + width * p(0, 2)) / 2;
    return true;
}

template <class T>
Matrix44T<T> createPerspectiveT(T fovY, T aspect, T zNear, T zFar) {
    // The bounds are formed in double for both types.
    const double h = internal::tan(double(fovY) * 0.5);
    const double height = h * double(zNear);
    const double width = h * double(aspect) * double(zNear);
    return createFrustumT(T(-width), T(width), T(-height), T(height), zNear, zFar);
}

template <class T>
bool isPerspectiveProjectionT(const Matrix44T<T>& m) {
    return m(3, 2) != 0;
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
    template Matrix44T<T> createOrthographicT(T, T, T, T, T, T);                                   \
    template bool getOrthographicT(const Matrix44T<T>&, T&, T&, T&, T&, T&, T&);                   \
    template Matrix44T<T> createFrustumT(T, T, T, T, T, T);                                        \
    template bool getFrustumT(const Matrix44T<T>&, T&, T&, T&, T&, T&, T&);                        \
    template Matrix44T<T> createPerspectiveT(T, T, T, T);                                          \
    template bool isPerspectiveProjectionT(const Matrix44T<T>&);

KY_INSTANTIATE(float)
KY_INSTANTIATE(double)
#undef KY_INSTANTIATE

}  // namespace Transformation
}  // namespace KyMath
