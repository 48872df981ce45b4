// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Transformation.h>

#include "internal/Libm.h"

#include <cmath>

namespace KyMath::Transformation {

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

/// Elements of a projection smaller than this in magnitude count as 0.
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

#define KY_INSTANTIATE(T)                                                        \
    template Matrix44T<T> createOrthographicT(T, T, T, T, T, T);                 \
    template bool getOrthographicT(const Matrix44T<T>&, T&, T&, T&, T&, T&, T&); \
    template Matrix44T<T> createFrustumT(T, T, T, T, T, T);                      \
    template bool getFrustumT(const Matrix44T<T>&, T&, T&, T&, T&, T&, T&);      \
    template Matrix44T<T> createPerspectiveT(T, T, T, T);                        \
    template bool isPerspectiveProjectionT(const Matrix44T<T>&);

KY_INSTANTIATE(float)
KY_INSTANTIATE(double)
#undef KY_INSTANTIATE

}  // namespace KyMath::Transformation
