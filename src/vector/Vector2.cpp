// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Vector2.h>

#include "internal/Components.h"
#include "internal/Libm.h"

namespace KyMath {

template <>
KY_EARLY_CONSTANT const Vector2T<float> Vector2T<float>::kZero(0, 0);
template <>
KY_EARLY_CONSTANT const Vector2T<double> Vector2T<double>::kZero(0, 0);

template <class T>
Vector2T<T>::Vector2T() : v_{0, 0} {}

template <class T>
Vector2T<T>::Vector2T(T x, T y) : v_{x, y} {}

template <class T>
Vector2T<T>::Vector2T(const T* p) : v_{p[0], p[1]} {}

template <class T>
Vector2T<T>& Vector2T<T>::operator=(const Vector2T& v) {
    internal::copy(v_, v.v_);
    return *this;
}
template <class T>
void Vector2T<T>::set(T x, T y) {
    v_[0] = x;
    v_[1] = y;
}

template <class T>
T Vector2T<T>::x() const {
    return v_[0];
}
template <class T>
T Vector2T<T>::y() const {
    return v_[1];
}
template <class T>
T& Vector2T<T>::x() {
    return v_[0];
}
template <class T>
T& Vector2T<T>::y() {
    return v_[1];
}

KY_DEFINE_SUBSCRIPTS(Vector2T)

template <class T>
Vector2T<T>::operator T*() {
    return v_;
}
template <class T>
Vector2T<T>::operator const T*() const {
    return v_;
}

template <class T>
bool Vector2T<T>::operator==(const Vector2T& v) const {
    return internal::equal(v_, v.v_);
}
template <class T>
bool Vector2T<T>::operator!=(const Vector2T& v) const {
    return !(*this == v);
}
template <class T>
bool Vector2T<T>::operator<(const Vector2T& v) const {
    return normSquare() < v.normSquare();
}
template <class T>
bool Vector2T<T>::operator>(const Vector2T& v) const {
    return normSquare() > v.normSquare();
}
template <class T>
bool Vector2T<T>::areEqualTol(const Vector2T& a, const Vector2T& b, double tol) {
    return internal::areEqualTol(a.v_, b.v_, tol);
}

template <class T>
Vector2T<T>& Vector2T<T>::operator/=(T s) {
    internal::scale(v_, 1 / s);
    return *this;
}
template <class T>
Vector2T<T> Vector2T<T>::operator/(T s) const {
    return Vector2T(*this) /= s;
}
template <class T>
Vector2T<T>& Vector2T<T>::operator+=(const Vector2T& v) {
    internal::add(v_, v.v_);
    return *this;
}
template <class T>
Vector2T<T> Vector2T<T>::operator+(const Vector2T& v) const {
    return Vector2T(*this) += v;
}
template <class T>
Vector2T<T>& Vector2T<T>::operator-=(const Vector2T& v) {
    internal::subtract(v_, v.v_);
    return *this;
}
template <class T>
Vector2T<T> Vector2T<T>::operator-(const Vector2T& v) const {
    return Vector2T(*this) -= v;
}

template <class T>
T Vector2T<T>::dot(const Vector2T& v) const {
    return internal::dot(v_, v.v_);
}
template <class T>
T Vector2T<T>::cross(const Vector2T& v) const {
    return v_[0] * v.v_[1] - v_[1] * v.v_[0];
}
template <class T>
T Vector2T<T>::normSquare() const {
    return internal::dot(v_, v_);
}
template <class T>
T Vector2T<T>::normSquare() {
    return internal::dot(v_, v_);
}
template <class T>
T Vector2T<T>::lengthSqr() const {
    return normSquare();
}
template <class T>
T Vector2T<T>::norm() const {
    return std::sqrt(normSquare());
}
template <class T>
T Vector2T<T>::length() const {
    return norm();
}

template <class T>
void Vector2T<T>::normalize() {
    internal::normalize(v_);
}
template <class T>
bool Vector2T<T>::normalize(T tol, T* length) {
    return internal::normalize(v_, tol, length);
}

template <class T>
Vector2T<T>& Vector2T<T>::rotate(T angle) {
    const auto turn = internal::sinCos(angle);
    set(v_[0] * turn.c - v_[1] * turn.s, v_[0] * turn.s + v_[1] * turn.c);
    return *this;
}

static_assert(internal::kArePlain<Vector2T, 2>, "a vector is its two values");

template class Vector2T<float>;
template class Vector2T<double>;

}  // namespace KyMath
