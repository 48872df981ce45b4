// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_VECTOR4_H
#define KYMATH_INLINE_VECTOR4_H

#include <KyMath/inline/Components.h>

#ifdef KYMATH_INLINE
#pragma GCC system_header
#endif

KY_EXACT_BEGIN
namespace KyMath {

template <class T>
KY_SMALL Vector4T<T>::Vector4T() : v_{0, 0, 0, 0} {}

template <class T>
KY_SMALL Vector4T<T>::Vector4T(const Vector4T& v) {
    internal::copy(v_, v.v_);
}

template <class T>
KY_SMALL Vector4T<T>::Vector4T(const T* p) : v_{p[0], p[1], p[2], p[3]} {}

template <class T>
KY_SMALL Vector4T<T>::Vector4T(T x, T y, T z, T w) : v_{x, y, z, w} {}

template <class T>
KY_SMALL Vector4T<T>::Vector4T(const Vector3T<T>& v, T w) : v_{v.x(), v.y(), v.z(), w} {}

template <class T>
KY_SMALL Vector4T<T>& Vector4T<T>::operator=(const Vector4T& v) {
    internal::copy(v_, v.v_);
    return *this;
}
template <class T>
KY_SMALL Vector4T<T>& Vector4T<T>::operator=(const T* p) {
    internal::copy(v_, p);
    return *this;
}
template <class T>
KY_SMALL void Vector4T<T>::set(T x, T y, T z, T w) {
    v_[0] = x;
    v_[1] = y;
    v_[2] = z;
    v_[3] = w;
}
template <class T>
KY_SMALL void Vector4T<T>::set(const Vector4T& v) {
    *this = v;
}

template <class T>
KY_SMALL T Vector4T<T>::x() const {
    return v_[0];
}
template <class T>
KY_SMALL T Vector4T<T>::y() const {
    return v_[1];
}
template <class T>
KY_SMALL T Vector4T<T>::z() const {
    return v_[2];
}
template <class T>
KY_SMALL T Vector4T<T>::w() const {
    return v_[3];
}
template <class T>
KY_SMALL T& Vector4T<T>::x() {
    return v_[0];
}
template <class T>
KY_SMALL T& Vector4T<T>::y() {
    return v_[1];
}
template <class T>
KY_SMALL T& Vector4T<T>::z() {
    return v_[2];
}
template <class T>
KY_SMALL T& Vector4T<T>::w() {
    return v_[3];
}

KY_DEFINE_SUBSCRIPTS(Vector4T)

template <class T>
KY_SMALL Vector4T<T>::operator T*() {
    return v_;
}
template <class T>
KY_SMALL Vector4T<T>::operator const T*() const {
    return v_;
}
template <class T>
KY_SMALL Vector3T<T> Vector4T<T>::xyz() const {
    return Vector3T<T>(v_);
}

#if KY_INLINE_ARITHMETIC

template <class T>
KY_SMALL bool Vector4T<T>::operator==(const Vector4T& v) const {
    return internal::equal(v_, v.v_);
}
template <class T>
KY_SMALL bool Vector4T<T>::operator!=(const Vector4T& v) const {
    return !(*this == v);
}
template <class T>
KY_SMALL bool Vector4T<T>::operator<(const Vector4T& v) const {
    return normSquare() < v.normSquare();
}
template <class T>
KY_SMALL bool Vector4T<T>::operator>(const Vector4T& v) const {
    return normSquare() > v.normSquare();
}
template <class T>
KY_SMALL bool Vector4T<T>::isZero() const {
    return internal::isZero(v_);
}
template <class T>
KY_SMALL bool Vector4T<T>::isFinite() const {
    return internal::isFinite(v_);
}

template <class T>
KY_SMALL Vector4T<T>& Vector4T<T>::operator*=(T s) {
    internal::scale(v_, s);
    return *this;
}
template <class T>
KY_SMALL Vector4T<T> Vector4T<T>::operator*(const T& s) const {
    return Vector4T(*this) *= s;
}
template <class T>
KY_SMALL Vector4T<T>& Vector4T<T>::operator/=(T s) {
    return *this *= 1 / s;
}
template <class T>
KY_SMALL Vector4T<T> Vector4T<T>::operator/(const T& s) const {
    return Vector4T(*this) /= s;
}
template <class T>
KY_SMALL Vector4T<T>& Vector4T<T>::operator+=(const Vector4T& v) {
    internal::add(v_, v.v_);
    return *this;
}
template <class T>
KY_SMALL Vector4T<T> Vector4T<T>::operator+(const Vector4T& v) const {
    return Vector4T(*this) += v;
}
template <class T>
KY_SMALL Vector4T<T>& Vector4T<T>::operator-=(const Vector4T& v) {
    internal::subtract(v_, v.v_);
    return *this;
}
template <class T>
KY_SMALL Vector4T<T> Vector4T<T>::operator-(const Vector4T& v) const {
    return Vector4T(*this) -= v;
}
template <class T>
KY_SMALL Vector4T<T> Vector4T<T>::operator-() const {
    Vector4T r(*this);
    internal::negate(r.v_);
    return r;
}

template <class T>
KY_SMALL T Vector4T<T>::operator*(const Vector4T& v) const {
    return internal::dot(v_, v.v_);
}
template <class T>
KY_SMALL T Vector4T<T>::dot(const Vector4T& v) const {
    return internal::dot(v_, v.v_);
}
template <class T>
KY_SMALL T Vector4T<T>::normSquare() const {
    return internal::dot(v_, v_);
}
template <class T>
KY_SMALL T Vector4T<T>::lengthSqr() const {
    return normSquare();
}
template <class T>
KY_SMALL T Vector4T<T>::norm() const {
    return internal::root(normSquare());
}
template <class T>
KY_SMALL T Vector4T<T>::length() const {
    return norm();
}

template <class T>
KY_SMALL void Vector4T<T>::normalize() {
    internal::normalize(v_);
}
template <class T>
KY_SMALL bool Vector4T<T>::normalize(T tol, T* length) {
    return internal::normalize(v_, tol, length);
}

#endif

}  // namespace KyMath
KY_EXACT_END

#endif
