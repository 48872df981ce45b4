// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_MATRIX_H
#define KYMATH_INLINE_MATRIX_H

#include <KyMath/inline/Components.h>

#ifdef KYMATH_INLINE
#pragma GCC system_header
#endif

KY_EXACT_BEGIN
namespace KyMath {

template <class T>
KY_SMALL Matrix44T<T>::Matrix44T() : v_{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1} {}

template <class T>
KY_SMALL Matrix44T<T>::Matrix44T(T a0, T a1, T a2, T a3, T a4, T a5, T a6, T a7, T a8, T a9, T a10,
                                 T a11, T a12, T a13, T a14, T a15)
    : v_{a0, a1, a2, a3, a4, a5, a6, a7, a8, a9, a10, a11, a12, a13, a14, a15} {}

template <class T>
KY_SMALL Matrix44T<T>::Matrix44T(const T* p) {
    internal::assign(v_, *reinterpret_cast<const T(*)[16]>(p));
}

template <class T>
KY_SMALL Matrix44T<T>::Matrix44T(const T (*p)[4]) {
    for (int c = 0; c < 4; ++c) {
        for (int r = 0; r < 4; ++r) v_[4 * c + r] = p[c][r];
    }
}

template <class T>
KY_SMALL Matrix44T<T>::Matrix44T(const Vector4T<T>& c0, const Vector4T<T>& c1,
                                 const Vector4T<T>& c2, const Vector4T<T>& c3)
    : v_{c0[0], c0[1], c0[2], c0[3], c1[0], c1[1], c1[2], c1[3],
         c2[0], c2[1], c2[2], c2[3], c3[0], c3[1], c3[2], c3[3]} {}

template <class T>
KY_SMALL Matrix44T<T>::Matrix44T(const Matrix44T& m) {
    internal::assign(v_, m.v_);
}

template <class T>
KY_SMALL Matrix44T<T>& Matrix44T<T>::operator=(const Matrix44T& m) {
    internal::assign(v_, m.v_);
    return *this;
}

template <class T>
KY_SMALL T& Matrix44T<T>::operator()(unsigned long r, unsigned long c) {
    return v_[4 * c + r];
}
template <class T>
KY_SMALL T Matrix44T<T>::operator()(unsigned long r, unsigned long c) const {
    return v_[4 * c + r];
}

KY_DEFINE_COLUMN_SUBSCRIPTS(template <class T> KY_SMALL, Matrix44T<T>, T)

template <class T>
KY_SMALL Vector4T<T> Matrix44T<T>::row(unsigned long r) const {
    return Vector4T<T>(v_[r], v_[r + 4], v_[r + 8], v_[r + 12]);
}
template <class T>
KY_SMALL T* Matrix44T<T>::column(unsigned long c) {
    return v_ + 4 * c;
}
template <class T>
KY_SMALL Vector4T<T> Matrix44T<T>::column(unsigned long c) const {
    return Vector4T<T>(v_ + 4 * c);
}
template <class T>
KY_SMALL Matrix44T<T>::operator T*() {
    return v_;
}
template <class T>
KY_SMALL Matrix44T<T>::operator const T*() const {
    return v_;
}

#if KY_INLINE_ARITHMETIC

namespace internal {

/// p = m (x, y, z, w), by columns: each value sums its own row, in order.
template <class T>
KY_HELPER void timesVector(T (&p)[4], const T (&m)[16], T x, T y, T z, T w) {
    KY_UNROLL
    for (unsigned long i = 0; i < 4; i += Register<T>::count) {
        at(p + i).values = at(m + i).values * x + at(m + i + 4).values * y +
                           at(m + i + 8).values * z + at(m + i + 12).values * w;
    }
}

}  // namespace internal

template <class T>
KY_SMALL bool Matrix44T<T>::operator==(const Matrix44T& m) const {
    return internal::equal(v_, m.v_);
}
template <class T>
KY_SMALL bool Matrix44T<T>::operator!=(const Matrix44T& m) const {
    return !(*this == m);
}
template <class T>
KY_SMALL Matrix44T<T> Matrix44T<T>::multiply(const Matrix44T& m, T s) {
    return Matrix44T(m) *= s;
}
template <class T>
KY_SMALL Matrix44T<T> Matrix44T<T>::divide(const Matrix44T& m, T s) {
    return Matrix44T(m) /= s;
}
template <class T>
KY_SMALL Vector4T<T> Matrix44T<T>::multiplyWithVector(const Matrix44T& m, const Vector4T<T>& v) {
    T p[4];
    internal::timesVector(p, m.v_, v[0], v[1], v[2], v[3]);
    return Vector4T<T>(p);
}
template <class T>
KY_SMALL Matrix44T<T>& Matrix44T<T>::operator*=(T s) {
    internal::scale(v_, s);
    return *this;
}
template <class T>
KY_SMALL Matrix44T<T>& Matrix44T<T>::operator/=(T s) {
    return *this *= 1 / s;
}

#endif

}  // namespace KyMath
KY_EXACT_END

#endif
