// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_VECTOR2_H
#define KYMATH_INLINE_VECTOR2_H

#include <KyMath/inline/Components.h>

#ifdef KYMATH_INLINE
#pragma GCC system_header
#endif

KY_EXACT_BEGIN
namespace KyMath {

template <class T>
KY_SMALL Vector2T<T>::Vector2T() : v_{0, 0} {}

template <class T>
KY_SMALL Vector2T<T>::Vector2T(T x, T y) : v_{x, y} {}

template <class T>
KY_SMALL Vector2T<T>::Vector2T(const T* p) : v_{p[0], p[1]} {}

template <class T>
KY_SMALL Vector2T<T>& Vector2T<T>::operator=(const Vector2T& v) {
    internal::copy(v_, v.v_);
    return *this;
}
template <class T>
KY_SMALL void Vector2T<T>::set(T x, T y) {
    v_[0] = x;
    v_[1] = y;
}

template <class T>
KY_SMALL T Vector2T<T>::x() const {
    return v_[0];
}
template <class T>
KY_SMALL T Vector2T<T>::y() const {
    return v_[1];
}
template <class T>
KY_SMALL T& Vector2T<T>::x() {
    return v_[0];
}
template <class T>
KY_SMALL T& Vector2T<T>::y() {
    return v_[1];
}

KY_DEFINE_SUBSCRIPTS(Vector2T)

template <class T>
KY_SMALL Vector2T<T>::operator T*() {
    return v_;
}
template <class T>
KY_SMALL Vector2T<T>::operator const T*() const {
    return v_;
}

#if KY_INLINE_ARITHMETIC

template <class T>
KY_SMALL bool Vector2T<T>::operator==(const Vector2T& v) const {
    return internal::equal(v_, v.v_);
}
template <class T>
KY_SMALL bool Vector2T<T>::operator!=(const Vector2T& v) const {
    return !(*this == v);
}
template <class T>
KY_SMALL bool Vector2T<T>::operator<(const Vector2T& v) const {
    return normSquare() < v.normSquare();
}
template <class T>
KY_SMALL bool Vector2T<T>::operator>(const Vector2T& v) const {
    return normSquare() > v.normSquare();
}

template <class T>
KY_SMALL Vector2T<T>& Vector2T<T>::operator/=(T s) {
    internal::scale(v_, 1 / s);
    return *this;
}
template <class T>
KY_SMALL Vector2T<T> Vector2T<T>::operator/(T s) const {
    const T r = 1 / s;
    return Vector2T(internal::times(v_[0], r), internal::times(v_[1], r));
}
template <class T>
KY_SMALL Vector2T<T>& Vector2T<T>::operator+=(const Vector2T& v) {
    internal::add(v_, v.v_);
    return *this;
}
template <class T>
KY_SMALL Vector2T<T> Vector2T<T>::operator+(const Vector2T& v) const {
    return Vector2T(v_[0] + v.v_[0], v_[1] + v.v_[1]);
}
template <class T>
KY_SMALL Vector2T<T>& Vector2T<T>::operator-=(const Vector2T& v) {
    internal::subtract(v_, v.v_);
    return *this;
}
template <class T>
KY_SMALL Vector2T<T> Vector2T<T>::operator-(const Vector2T& v) const {
    return Vector2T(v_[0] - v.v_[0], v_[1] - v.v_[1]);
}

template <class T>
KY_SMALL T Vector2T<T>::dot(const Vector2T& v) const {
    return internal::dot(v_, v.v_);
}
template <class T>
KY_SMALL T Vector2T<T>::cross(const Vector2T& v) const {
    return internal::times(v_[0], v.v_[1]) - internal::times(v_[1], v.v_[0]);
}
template <class T>
KY_SMALL T Vector2T<T>::normSquare() const {
    return internal::dot(v_, v_);
}
template <class T>
KY_SMALL T Vector2T<T>::normSquare() {
    return internal::dot(v_, v_);
}
template <class T>
KY_SMALL T Vector2T<T>::lengthSqr() const {
    return normSquare();
}
template <class T>
KY_SMALL T Vector2T<T>::norm() const {
    return internal::root(normSquare());
}
template <class T>
KY_SMALL T Vector2T<T>::length() const {
    return norm();
}

template <class T>
KY_SMALL void Vector2T<T>::normalize() {
    internal::normalize(v_);
}
template <class T>
KY_SMALL bool Vector2T<T>::normalize(T tol, T* length) {
    return internal::normalize(v_, tol, length);
}

#endif

}  // namespace KyMath
KY_EXACT_END

#endif
