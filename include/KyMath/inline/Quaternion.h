// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_QUATERNION_H
#define KYMATH_INLINE_QUATERNION_H

#include <KyMath/inline/Components.h>

#ifdef KYMATH_INLINE
#pragma GCC system_header
#endif

KY_EXACT_BEGIN
namespace KyMath {

template <class T>
KY_SMALL QuaternionT<T>::QuaternionT() : v_{1, 0, 0, 0} {}

template <class T>
KY_SMALL QuaternionT<T>::QuaternionT(T w, T x, T y, T z) : v_{w, x, y, z} {}

template <class T>
KY_SMALL QuaternionT<T>::QuaternionT(const T* a) : v_{a[0], a[1], a[2], a[3]} {}

template <class T>
KY_SMALL QuaternionT<T>& QuaternionT<T>::operator=(const QuaternionT& q) {
    internal::copy(v_, q.v_);
    return *this;
}
template <class T>
KY_SMALL QuaternionT<T>& QuaternionT<T>::operator=(const T* a) {
    internal::copy(v_, a);
    return *this;
}
template <class T>
KY_SMALL void QuaternionT<T>::set(T w, T x, T y, T z) {
    v_[0] = w;
    v_[1] = x;
    v_[2] = y;
    v_[3] = z;
}

template <class T>
KY_SMALL void QuaternionT<T>::get(T* w, T* x, T* y, T* z) const {
    const QuaternionT q(*this);  // the outputs may be this quaternion's own components
    *w = q.v_[0];
    *x = q.v_[1];
    *y = q.v_[2];
    *z = q.v_[3];
}
template <class T>
KY_SMALL void QuaternionT<T>::get(T* a) const {
    KY_UNROLL
    for (int i = 0; i < 4; ++i) a[i] = v_[i];
}
template <class T>
KY_SMALL void QuaternionT<T>::get(QuaternionT& q) const {
    q = *this;
}
template <class T>
KY_SMALL T QuaternionT<T>::w() const {
    return v_[0];
}
template <class T>
KY_SMALL T QuaternionT<T>::x() const {
    return v_[1];
}
template <class T>
KY_SMALL T QuaternionT<T>::y() const {
    return v_[2];
}
template <class T>
KY_SMALL T QuaternionT<T>::z() const {
    return v_[3];
}

KY_DEFINE_SUBSCRIPTS(QuaternionT)

template <class T>
KY_SMALL QuaternionT<T>::operator T*() {
    return v_;
}
template <class T>
KY_SMALL QuaternionT<T>::operator const T*() const {
    return v_;
}

#if KY_INLINE_ARITHMETIC

template <class T>
KY_SMALL bool QuaternionT<T>::operator==(const QuaternionT& q) const {
    return internal::equal(v_, q.v_);
}
template <class T>
KY_SMALL bool QuaternionT<T>::operator!=(const QuaternionT& q) const {
    return !(*this == q);
}

template <class T>
KY_SMALL QuaternionT<T>& QuaternionT<T>::operator+=(const QuaternionT& q) {
    internal::add(v_, q.v_);
    return *this;
}
template <class T>
KY_SMALL QuaternionT<T> QuaternionT<T>::operator+(const QuaternionT& q) const {
    return QuaternionT(*this) += q;
}
template <class T>
KY_SMALL QuaternionT<T>& QuaternionT<T>::operator-=(const QuaternionT& q) {
    internal::subtract(v_, q.v_);
    return *this;
}
template <class T>
KY_SMALL QuaternionT<T> QuaternionT<T>::operator-(const QuaternionT& q) const {
    return QuaternionT(*this) -= q;
}
template <class T>
KY_SMALL QuaternionT<T>& QuaternionT<T>::operator*=(const T& s) {
    internal::scale(v_, T(s));  // a copy: s may be one of the components
    return *this;
}
template <class T>
KY_SMALL QuaternionT<T> QuaternionT<T>::operator*(const T& s) const {
    return QuaternionT(*this) *= s;
}
template <class T>
KY_SMALL T QuaternionT<T>::dot(const QuaternionT& q) const {
    return internal::dot(v_, q.v_);
}
template <class T>
KY_SMALL T QuaternionT<T>::norm() const {
    return internal::root(internal::dot(v_, v_));
}
#ifdef KYMATH_INLINE  // the library has a kernel

template <class T>
KY_SMALL QuaternionT<T> QuaternionT<T>::operator*(const QuaternionT& q) const {
    const T* const a = v_;
    const T* const b = q.v_;
    return QuaternionT(a[0] * b[0] - a[1] * b[1] - a[2] * b[2] - a[3] * b[3],
                       a[0] * b[1] + a[1] * b[0] + a[2] * b[3] - a[3] * b[2],
                       a[0] * b[2] + a[2] * b[0] + a[3] * b[1] - a[1] * b[3],
                       a[0] * b[3] + a[3] * b[0] + a[1] * b[2] - a[2] * b[1]);
}
template <class T>
KY_SMALL QuaternionT<T>& QuaternionT<T>::operator*=(const QuaternionT& q) {
    return *this = *this * q;
}

#endif

template <class T>
KY_SMALL void QuaternionT<T>::invert() {
    KY_UNROLL
    for (int i = 1; i < 4; ++i) v_[i] = -v_[i];
}
template <class T>
KY_SMALL void QuaternionT<T>::setInverse(const QuaternionT& q) {
    *this = q;
    invert();
}
template <class T>
KY_SMALL QuaternionT<T> QuaternionT<T>::getInverse() const {
    QuaternionT q(*this);
    q.invert();
    return q;
}

template <class T>
KY_SMALL Vector3T<T> QuaternionT<T>::rotate(const Vector3T<T>& v) const {
    const T w = v_[0];
    const Vector3T<T> u(v_ + 1);
    const T a = w * w - u * u;
    const T b = 2 * (u * v);
    const T c = 2 * w;
    const Vector3T<T> n = u.cross(v);
    return Vector3T<T>(v[0] * a + u[0] * b + n[0] * c, v[1] * a + u[1] * b + n[1] * c,
                       v[2] * a + u[2] * b + n[2] * c);
}
template <class T>
KY_SMALL Vector3T<T> QuaternionT<T>::operator*(const Vector3T<T>& v) const {
    return rotate(v);
}

template <class T>
KY_SMALL void QuaternionT<T>::normalize() {
    const T square = internal::dot(v_, v_);
    if (square == 1) return;
    // Deliberate: the squared length, not the length, is compared with the threshold. Pinned by
    // QuaternionTest.NormalizeComparesTheSquaredLength.
    if (internal::magnitude(square) <= internal::smallReal<T>()) {
        *this = QuaternionT();
    } else {
        internal::scale(v_, 1 / internal::root(square));
    }
}

#endif

}  // namespace KyMath
KY_EXACT_END

#endif
