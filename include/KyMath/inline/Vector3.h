// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_VECTOR3_H
#define KYMATH_INLINE_VECTOR3_H

#include <KyMath/inline/Components.h>

#ifdef KYMATH_INLINE
#pragma GCC system_header
#endif

KY_EXACT_BEGIN
namespace KyMath {

template <class T>
KY_SMALL Vector3T<T>::Vector3T() : v_{0, 0, 0} {}

template <class T>
KY_SMALL Vector3T<T>::Vector3T(const T* p) : v_{p[0], p[1], p[2]} {}

template <class T>
KY_SMALL Vector3T<T>::Vector3T(T x, T y, T z) : v_{x, y, z} {}

template <class T>
KY_SMALL void Vector3T<T>::set(T x, T y, T z) {
    v_[0] = x;
    v_[1] = y;
    v_[2] = z;
}

template <class T>
KY_SMALL void Vector3T<T>::set(double* out, const Vector3T& v) {
    KY_UNROLL
    for (int i = 0; i < 3; ++i) out[i] = double(v.v_[i]);
}

template <class T>
KY_SMALL T Vector3T<T>::x() const {
    return v_[0];
}
template <class T>
KY_SMALL T Vector3T<T>::y() const {
    return v_[1];
}
template <class T>
KY_SMALL T Vector3T<T>::z() const {
    return v_[2];
}
template <class T>
KY_SMALL T& Vector3T<T>::x() {
    return v_[0];
}
template <class T>
KY_SMALL T& Vector3T<T>::y() {
    return v_[1];
}
template <class T>
KY_SMALL T& Vector3T<T>::z() {
    return v_[2];
}

KY_DEFINE_SUBSCRIPTS(Vector3T)

template <class T>
KY_SMALL Vector3T<T>::operator T*() {
    return v_;
}
template <class T>
KY_SMALL Vector3T<T>::operator const T*() const {
    return v_;
}
template <class T>
KY_SMALL Vector3T<T>* Vector3T<T>::cast(T* p) {
    return reinterpret_cast<Vector3T*>(p);
}
template <class T>
KY_SMALL const Vector3T<T>* Vector3T<T>::constCast(const T* p) {
    return reinterpret_cast<const Vector3T*>(p);
}

#if KY_INLINE_ARITHMETIC

// Sums and products are made of their values, not of a copy: a compiler copies by wide loads, which
// stall where the values have just been stored one by one.

template <class T>
KY_SMALL bool Vector3T<T>::operator==(const Vector3T& v) const {
    return internal::equal(v_, v.v_);
}
template <class T>
KY_SMALL bool Vector3T<T>::operator!=(const Vector3T& v) const {
    return !(*this == v);
}

// Deliberate: vectors are ordered by length, not by components. Different vectors of the same
// length are neither less nor greater than each other. Pinned by
// VectorFamilyTest.OrderingComparesSquaredLengths.
template <class T>
KY_SMALL bool Vector3T<T>::operator<(const Vector3T& v) const {
    return normSquare() < v.normSquare();
}
template <class T>
KY_SMALL bool Vector3T<T>::operator>(const Vector3T& v) const {
    return normSquare() > v.normSquare();
}
template <class T>
KY_SMALL bool Vector3T<T>::isZero() const {
    return internal::isZero(v_);
}
template <class T>
KY_SMALL bool Vector3T<T>::isFinite() const {
    return internal::isFinite(v_);
}

template <class T>
KY_SMALL Vector3T<T>& Vector3T<T>::operator*=(T s) {
    internal::scale(v_, s);
    return *this;
}
template <class T>
KY_SMALL Vector3T<T> Vector3T<T>::operator*(const T& s) const {
    using internal::times;
    return Vector3T(times(v_[0], s), times(v_[1], s), times(v_[2], s));
}
template <class T>
KY_SMALL Vector3T<T>& Vector3T<T>::operator/=(T s) {
    return *this *= 1 / s;
}
template <class T>
KY_SMALL Vector3T<T> Vector3T<T>::operator/(const T& s) const {
    return *this * (1 / s);
}
template <class T>
KY_SMALL Vector3T<T>& Vector3T<T>::operator+=(const Vector3T& v) {
    internal::add(v_, v.v_);
    return *this;
}
template <class T>
KY_SMALL Vector3T<T> Vector3T<T>::operator+(const Vector3T& v) const {
    return Vector3T(v_[0] + v.v_[0], v_[1] + v.v_[1], v_[2] + v.v_[2]);
}
template <class T>
KY_SMALL Vector3T<T>& Vector3T<T>::operator-=(const Vector3T& v) {
    internal::subtract(v_, v.v_);
    return *this;
}
template <class T>
KY_SMALL Vector3T<T> Vector3T<T>::operator-(const Vector3T& v) const {
    return Vector3T(v_[0] - v.v_[0], v_[1] - v.v_[1], v_[2] - v.v_[2]);
}
template <class T>
KY_SMALL Vector3T<T> Vector3T<T>::operator-() const {
    return Vector3T(-v_[0], -v_[1], -v_[2]);
}
template <class T>
KY_SMALL void Vector3T<T>::multComp(const Vector3T& v) {
    internal::multiplyComponents(v_, v.v_);
}
template <class T>
KY_SMALL Vector3T<T> Vector3T<T>::multComp(const Vector3T& a, const Vector3T& b) {
    using internal::times;
    return Vector3T(times(a.v_[0], b.v_[0]), times(a.v_[1], b.v_[1]), times(a.v_[2], b.v_[2]));
}
template <class T>
KY_SMALL void Vector3T<T>::addMultiple(const T& s, const Vector3T& v) {
    *this += v * s;
}
template <class T>
KY_SMALL void Vector3T<T>::setLinear(const T& a, const Vector3T& u, const T& b, const Vector3T& v) {
    *this = u * a + v * b;
}

template <class T>
KY_SMALL T Vector3T<T>::operator*(const Vector3T& v) const {
    return internal::dot(v_, v.v_);
}
template <class T>
KY_SMALL Vector3T<T> Vector3T<T>::cross(const Vector3T& v) const {
    using internal::times;
    // Braces evaluate in order, which GCC pairs better.
    const T* const a = v_;
    const T* const b = v.v_;
    return Vector3T{times(a[1], b[2]) - times(a[2], b[1]), times(a[2], b[0]) - times(a[0], b[2]),
                    times(a[0], b[1]) - times(a[1], b[0])};
}
template <class T>
KY_SMALL void Vector3T<T>::postCross(const Vector3T& v) {
    *this = cross(v);
}
template <class T>
KY_SMALL void Vector3T<T>::preCross(const Vector3T& v) {
    *this = v.cross(*this);
}
template <class T>
KY_SMALL void Vector3T<T>::setCross(const Vector3T& a, const Vector3T& b) {
    *this = a.cross(b);
}

template <class T>
KY_SMALL T Vector3T<T>::normSquare() const {
    return internal::dot(v_, v_);
}
template <class T>
KY_SMALL T Vector3T<T>::lengthSqr() const {
    return normSquare();
}
template <class T>
KY_SMALL T Vector3T<T>::norm() const {
    return internal::root(normSquare());
}
template <class T>
KY_SMALL T Vector3T<T>::length() const {
    return norm();
}
template <class T>
KY_SMALL T Vector3T<T>::distanceSqr(const Vector3T& a, const Vector3T& b) {
    return (a - b).normSquare();
}
template <class T>
KY_SMALL T Vector3T<T>::distance(const Vector3T& a, const Vector3T& b) {
    return (a - b).norm();
}

template <class T>
KY_SMALL int Vector3T<T>::maxComponentIndex() const {
    const T x = internal::magnitude(v_[0]);
    const T y = internal::magnitude(v_[1]);
    const T z = internal::magnitude(v_[2]);
    if (x > y) return x > z ? 0 : 2;
    return y > z ? 1 : 2;
}

template <class T>
KY_SMALL void Vector3T<T>::normalize() {
    internal::normalize(v_);
}
template <class T>
KY_SMALL bool Vector3T<T>::normalize(T tol, T* length) {
    return internal::normalize(v_, tol, length);
}

template <class T>
KY_SMALL void Vector3T<T>::orthogonalize(const Vector3T& v) {
    if (v.isZero()) return;
    const T k = 1 / v.normSquare();
    *this -= v * (*this * v) * k;
}

template <class T>
KY_SMALL void Vector3T<T>::project(const Vector3T& dir, Vector3T* parallel,
                                   Vector3T* perpendicular) const {
    *parallel = dir;
    *parallel *= *this * *parallel;
    *perpendicular = *this - *parallel;
}

#endif

}  // namespace KyMath
KY_EXACT_END

#endif
