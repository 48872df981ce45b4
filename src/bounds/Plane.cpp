// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Plane.h>

#include <KyMath/BoundingBox.h>
#include <KyMath/Matrix.h>

#include "internal/Components.h"

#include <cmath>
#include <limits>

namespace KyMath {

// Deliberate: nothing is computed, so the lower corner is 0 and not 7. Pinned by
// PlaneTest.DefaultPlaneHasBothCornersZero.
template <class T>
PlaneT<T>::PlaneT() : upper_(0), lower_(0) {}

template <class T>
PlaneT<T>::PlaneT(const PlaneT& plane) {
    set(plane.v_);
}
template <class T>
PlaneT<T>::PlaneT(T a, T b, T c, T d) {
    set(a, b, c, d);
}
template <class T>
PlaneT<T>::PlaneT(const Vector4T<T>& v) {
    set(v);
}
template <class T>
PlaneT<T>::PlaneT(const Vector3T<T>& normal, const Vector3T<T>& point) {
    set(normal[0], normal[1], normal[2],
        -normal[0] * point[0] - normal[1] * point[1] - normal[2] * point[2]);
}
template <class T>
PlaneT<T>::PlaneT(const Vector3T<T>& p1, const Vector3T<T>& p2, const Vector3T<T>& p3) {
    const Vector3T<T> cross = (p2 - p1).cross(p3 - p2);
    const T length = cross.norm();
    // Compared with the double 1e-6 for both types.
    const Vector3T<T> n = double(length) > 1e-6 ? cross / length : Vector3T<T>();
    set(n[0], n[1], n[2], -(n * p2));
}

template <class T>
PlaneT<T>& PlaneT<T>::operator=(const PlaneT& plane) = default;

template <class T>
void PlaneT<T>::set(T a, T b, T c, T d) {
    v_.set(a, b, c, d);
    calculateUpperLowerBBCorners();
}
template <class T>
void PlaneT<T>::set(const Vector4T<T>& v) {
    set(v[0], v[1], v[2], v[3]);
}

template <class T>
const Vector4T<T>& PlaneT<T>::getAsVector4() const {
    return v_;
}
template <class T>
Vector3T<T> PlaneT<T>::getNormal() const {
    return v_.xyz();
}
template <class T>
unsigned int PlaneT<T>::upperBBCorner() const {
    return upper_;
}
template <class T>
unsigned int PlaneT<T>::lowerBBCorner() const {
    return lower_;
}

template <class T>
bool PlaneT<T>::operator==(const PlaneT& plane) const {
    return v_ == plane.v_;
}
template <class T>
bool PlaneT<T>::operator!=(const PlaneT& plane) const {
    return v_ != plane.v_;
}

template <class T>
T PlaneT<T>::distance(const Vector3T<T>& p) const {
    return v_[0] * p[0] + v_[1] * p[1] + v_[2] * p[2] + v_[3];
}
template <class T>
int PlaneT<T>::intersect(const BoundingBoxT<T>& box) const {
    // The lower corner first: the upper corner of an inverted box can be on the other side.
    if (distance(box.corner(lower_)) > 0) return 1;
    if (distance(box.corner(upper_)) < 0) return -1;
    return 0;
}
template <class T>
int PlaneT<T>::intersectBoundingSphere(const Vector3T<T>& center, T radius) const {
    const T d = distance(center);
    if (d > radius) return 1;
    if (-radius > d) return -1;
    return 0;
}

// Deliberate: the corner indices are not refreshed, even if scaling moves a coefficient past the
// epsilon that they depend on. Pinned by PlaneTest.MakeUnitLengthLeavesTheCorners.
template <class T>
void PlaneT<T>::makeUnitLength() {
    v_ *= 1 / v_.xyz().norm();
}
template <class T>
unsigned int PlaneT<T>::calculateUpperLowerBBCorners() {
    constexpr T kEpsilon = std::numeric_limits<T>::epsilon();
    unsigned int upper = 0;
    for (int i = 0; i < 3; ++i) {
        upper |= static_cast<unsigned int>(!(kEpsilon > v_[i])) << i;  // NaN also sets it
    }
    upper_ = upper;
    lower_ = ~upper & 7u;
    return lower_;
}
template <class T>
void PlaneT<T>::transform(const Matrix44T<T>& m) {
    set(Matrix44T<T>::multiplyWithVector(m, v_));
    makeUnitLength();
}
template <class T>
void PlaneT<T>::transformProvidingInverse(const Matrix44T<T>& m) {
    transform(m);
}

static_assert(internal::kIsPlain<PlaneT<float>, 4 * sizeof(float) + 8> &&
                  internal::kIsPlain<PlaneT<double>, 4 * sizeof(double) + 8>,
              "a plane is its coefficients and two indices");

template class PlaneT<float>;
template class PlaneT<double>;

}  // namespace KyMath
