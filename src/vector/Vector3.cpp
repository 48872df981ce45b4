// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Vector3.h>

#include "internal/Components.h"
#include "internal/Libm.h"

namespace KyMath {

template <>
KY_EARLY_CONSTANT const Vector3T<float> Vector3T<float>::kZero(0, 0, 0);
template <>
KY_EARLY_CONSTANT const Vector3T<double> Vector3T<double>::kZero(0, 0, 0);

template <class T>
Vector3T<T>::Vector3T() : v_{0, 0, 0} {}

template <class T>
Vector3T<T>::Vector3T(const T* p) : v_{p[0], p[1], p[2]} {}

template <class T>
Vector3T<T>::Vector3T(T x, T y, T z) : v_{x, y, z} {}

template <class T>
void Vector3T<T>::set(T x, T y, T z) {
    v_[0] = x;
    v_[1] = y;
    v_[2] = z;
}

template <class T>
void Vector3T<T>::set(double* out, const Vector3T& v) {
    for (int i = 0; i < 3; ++i) out[i] = double(v.v_[i]);
}

template <class T>
T Vector3T<T>::x() const {
    return v_[0];
}
template <class T>
T Vector3T<T>::y() const {
    return v_[1];
}
template <class T>
T Vector3T<T>::z() const {
    return v_[2];
}
template <class T>
T& Vector3T<T>::x() {
    return v_[0];
}
template <class T>
T& Vector3T<T>::y() {
    return v_[1];
}
template <class T>
T& Vector3T<T>::z() {
    return v_[2];
}

KY_DEFINE_SUBSCRIPTS(Vector3T)

template <class T>
Vector3T<T>::operator T*() {
    return v_;
}
template <class T>
Vector3T<T>::operator const T*() const {
    return v_;
}
template <class T>
Vector3T<T>* Vector3T<T>::cast(T* p) {
    return reinterpret_cast<Vector3T*>(p);
}
template <class T>
const Vector3T<T>* Vector3T<T>::constCast(const T* p) {
    return reinterpret_cast<const Vector3T*>(p);
}

template <class T>
bool Vector3T<T>::operator==(const Vector3T& v) const {
    return internal::equal(v_, v.v_);
}
template <class T>
bool Vector3T<T>::operator!=(const Vector3T& v) const {
    return !(*this == v);
}

// Deliberate: vectors are ordered by length, not by components. Different vectors of the same
// length are neither less nor greater than each other. Pinned by
// VectorFamilyTest.OrderingComparesSquaredLengths.
template <class T>
bool Vector3T<T>::operator<(const Vector3T& v) const {
    return normSquare() < v.normSquare();
}
template <class T>
bool Vector3T<T>::operator>(const Vector3T& v) const {
    return normSquare() > v.normSquare();
}

template <class T>
bool Vector3T<T>::areEqualTol(const Vector3T& a, const Vector3T& b, double tol) {
    return internal::areEqualTol(a.v_, b.v_, tol);
}
template <class T>
bool Vector3T<T>::isZero() const {
    return internal::isZero(v_);
}
template <class T>
bool Vector3T<T>::isFinite() const {
    return internal::isFinite(v_);
}

template <class T>
Vector3T<T>& Vector3T<T>::operator*=(T s) {
    internal::scale(v_, s);
    return *this;
}
template <class T>
Vector3T<T> Vector3T<T>::operator*(const T& s) const {
    return Vector3T(*this) *= s;
}
template <class T>
Vector3T<T>& Vector3T<T>::operator/=(T s) {
    return *this *= 1 / s;
}
template <class T>
Vector3T<T> Vector3T<T>::operator/(const T& s) const {
    return Vector3T(*this) /= s;
}
template <class T>
Vector3T<T>& Vector3T<T>::operator+=(const Vector3T& v) {
    internal::add(v_, v.v_);
    return *this;
}
template <class T>
Vector3T<T> Vector3T<T>::operator+(const Vector3T& v) const {
    return Vector3T(*this) += v;
}
template <class T>
Vector3T<T>& Vector3T<T>::operator-=(const Vector3T& v) {
    internal::subtract(v_, v.v_);
    return *this;
}
template <class T>
Vector3T<T> Vector3T<T>::operator-(const Vector3T& v) const {
    return Vector3T(*this) -= v;
}
template <class T>
Vector3T<T> Vector3T<T>::operator-() const {
    Vector3T r(*this);
    internal::negate(r.v_);
    return r;
}
template <class T>
void Vector3T<T>::multComp(const Vector3T& v) {
    internal::multiplyComponents(v_, v.v_);
}
template <class T>
Vector3T<T> Vector3T<T>::multComp(const Vector3T& a, const Vector3T& b) {
    Vector3T r(a);
    r.multComp(b);
    return r;
}
template <class T>
void Vector3T<T>::addMultiple(const T& s, const Vector3T& v) {
    *this += v * s;
}
template <class T>
void Vector3T<T>::setLinear(const T& a, const Vector3T& u, const T& b, const Vector3T& v) {
    *this = u * a + v * b;
}

template <class T>
T Vector3T<T>::operator*(const Vector3T& v) const {
    return internal::dot(v_, v.v_);
}
template <class T>
Vector3T<T> Vector3T<T>::cross(const Vector3T& v) const {
    const T* const a = v_;
    const T* const b = v.v_;
    return Vector3T(a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2],
                    a[0] * b[1] - a[1] * b[0]);
}
template <class T>
void Vector3T<T>::postCross(const Vector3T& v) {
    *this = cross(v);
}
template <class T>
void Vector3T<T>::preCross(const Vector3T& v) {
    *this = v.cross(*this);
}
template <class T>
void Vector3T<T>::setCross(const Vector3T& a, const Vector3T& b) {
    *this = a.cross(b);
}

template <class T>
T Vector3T<T>::normSquare() const {
    return internal::dot(v_, v_);
}
template <class T>
T Vector3T<T>::lengthSqr() const {
    return normSquare();
}
template <class T>
T Vector3T<T>::norm() const {
    return std::sqrt(normSquare());
}
template <class T>
T Vector3T<T>::length() const {
    return norm();
}
template <class T>
T Vector3T<T>::distanceSqr(const Vector3T& a, const Vector3T& b) {
    return (a - b).normSquare();
}
template <class T>
T Vector3T<T>::distance(const Vector3T& a, const Vector3T& b) {
    return (a - b).norm();
}

template <class T>
int Vector3T<T>::maxComponentIndex() const {
    const T x = std::abs(v_[0]);
    const T y = std::abs(v_[1]);
    const T z = std::abs(v_[2]);
    if (x > y) return x > z ? 0 : 2;
    return y > z ? 1 : 2;
}

template <class T>
void Vector3T<T>::normalize() {
    internal::normalize(v_);
}
template <class T>
bool Vector3T<T>::normalize(T tol, T* length) {
    return internal::normalize(v_, tol, length);
}

template <class T>
bool Vector3T<T>::makeCleanBase(T tol) {
    const int i = maxComponentIndex();
    const int j = (i + 1) % 3;
    const int k = (i + 2) % 3;
    // Each test fails on a strict excess: a NaN passes.
    if (std::abs(std::abs(v_[i]) - 1) > tol || std::abs(v_[j]) > tol || std::abs(v_[k]) > tol) {
        return false;
    }
    v_[i] = v_[i] > 0 ? T(1) : T(-1);
    v_[j] = 0;
    v_[k] = 0;
    return true;
}

template <class T>
void Vector3T<T>::setOrthogonal(const Vector3T& v) {
    Vector3T axis;
    axis.v_[(v.maxComponentIndex() + 1) % 3] = 1;
    *this = v.cross(axis);
}
template <class T>
Vector3T<T> Vector3T<T>::getOrthogonal() const {
    Vector3T r;
    r.setOrthogonal(*this);
    return r;
}

template <class T>
void Vector3T<T>::orthogonalize(const Vector3T& v) {
    if (v.isZero()) return;
    const T k = 1 / v.normSquare();
    const T d = *this * v;
    for (int i = 0; i < 3; ++i) v_[i] = v_[i] - k * (d * v.v_[i]);
}

template <class T>
void Vector3T<T>::project(const Vector3T& dir, Vector3T* parallel, Vector3T* perpendicular) const {
    *parallel = dir;
    *parallel *= *this * *parallel;
    *perpendicular = *this - *parallel;
}

template <class T>
void Vector3T<T>::planeSpace(Vector3T& u, Vector3T& v) const {
    const T x = v_[0];
    const T y = v_[1];
    const T z = v_[2];
    // Deliberate: the sum of two magnitudes decides, not the largest component. Pinned by
    // Vector3Test.PlaneSpaceComparesXPlusZWithY.
    if (std::abs(x) + std::abs(z) > std::abs(y)) {
        const T k = 1 / std::sqrt(x * x + z * z);
        u.set(z * k, 0, -x * k);
    } else {
        const T k = 1 / std::sqrt(y * y + z * z);
        u.set(0, -z * k, y * k);
    }
    v = cross(u);
}

template <class T>
bool Vector3T<T>::planeNormal(const Vector3T& a, const Vector3T& b, const Vector3T& c,
                              Vector3T& normal) {
    // Deliberate: for double this is the float literal widened, 9.9999997473787516e-05, not the
    // double 1e-4: a cross product whose length lies between the two is still normalised. Pinned by
    // Vector3Test.PlaneNormalToleranceIsAWidenedFloat.
    constexpr T kTolerance = T(1e-4f);
    static_assert(double(kTolerance) < 1e-4, "the comment above describes this value");
    normal = (b - a).cross(c - b);
    T length;
    return normal.normalize(kTolerance, &length);
}

template <class T>
void Vector3T<T>::print(const char*) const {}

static_assert(internal::kArePlain<Vector3T, 3> && std::is_trivially_copyable_v<Vector3T<double>>,
              "a vector is its three values");

template class Vector3T<float>;
template class Vector3T<double>;

}  // namespace KyMath

namespace Ky {

bool KyComputeAngle(const KyMath::Vector3T<double>& a, const KyMath::Vector3T<double>& b,
                    double& angle) {
    const double sine = a.cross(b).norm();
    const double cosine = a * b;
    if (sine < 1e-14 && std::abs(cosine) < 1e-14) return false;
    angle = KyMath::internal::atan2(sine, cosine);
    return true;
}

}  // namespace Ky
