// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_PLANE_H
#define KYMATH_INLINE_PLANE_H

#include <KyMath/BoundingBox.h>
#include <KyMath/inline/Components.h>

#ifdef KYMATH_INLINE
#pragma GCC system_header
#endif

KY_EXACT_BEGIN
namespace KyMath {

// Deliberate: nothing is computed, so the lower corner is 0 and not 7. Pinned by
// PlaneTest.DefaultPlaneHasBothCornersZero.
template <class T>
KY_SMALL PlaneT<T>::PlaneT() : upper_(0), lower_(0) {}

template <class T>
KY_SMALL PlaneT<T>::PlaneT(const PlaneT& plane) {
    set(plane.v_);
}
template <class T>
KY_SMALL PlaneT<T>::PlaneT(T a, T b, T c, T d) {
    set(a, b, c, d);
}
template <class T>
KY_SMALL PlaneT<T>::PlaneT(const Vector4T<T>& v) {
    set(v);
}

template <class T>
KY_SMALL void PlaneT<T>::set(T a, T b, T c, T d) {
    v_.set(a, b, c, d);
    calculateUpperLowerBBCorners();
}
template <class T>
KY_SMALL void PlaneT<T>::set(const Vector4T<T>& v) {
    set(v[0], v[1], v[2], v[3]);
}

template <class T>
KY_SMALL const Vector4T<T>& PlaneT<T>::getAsVector4() const {
    return v_;
}
template <class T>
KY_SMALL Vector3T<T> PlaneT<T>::getNormal() const {
    return v_.xyz();
}
template <class T>
KY_SMALL unsigned int PlaneT<T>::upperBBCorner() const {
    return upper_;
}
template <class T>
KY_SMALL unsigned int PlaneT<T>::lowerBBCorner() const {
    return lower_;
}

#if KY_INLINE_ARITHMETIC

template <class T>
KY_SMALL PlaneT<T>::PlaneT(const Vector3T<T>& normal, const Vector3T<T>& point) {
    using internal::times;
    set(normal[0], normal[1], normal[2],
        times(-normal[0], point[0]) - times(normal[1], point[1]) - times(normal[2], point[2]));
}

template <class T>
KY_SMALL bool PlaneT<T>::operator==(const PlaneT& plane) const {
    return v_ == plane.v_;
}
template <class T>
KY_SMALL bool PlaneT<T>::operator!=(const PlaneT& plane) const {
    return v_ != plane.v_;
}

template <class T>
KY_SMALL T PlaneT<T>::distance(const Vector3T<T>& p) const {
    using internal::times;
    return times(v_[0], p[0]) + times(v_[1], p[1]) + times(v_[2], p[2]) + v_[3];
}
template <class T>
KY_SMALL int PlaneT<T>::intersect(const BoundingBoxT<T>& box) const {
    // The lower corner first: the upper corner of an inverted box can be on the other side.
    if (distance(box.corner(lower_)) > 0) return 1;
    if (distance(box.corner(upper_)) < 0) return -1;
    return 0;
}
template <class T>
KY_SMALL int PlaneT<T>::intersectBoundingSphere(const Vector3T<T>& center, T radius) const {
    const T d = distance(center);
    if (d > radius) return 1;
    if (-radius > d) return -1;
    return 0;
}

// Deliberate: the corner indices are not refreshed, even if scaling moves a coefficient past the
// epsilon that they depend on. Pinned by PlaneTest.MakeUnitLengthLeavesTheCorners.
template <class T>
KY_SMALL void PlaneT<T>::makeUnitLength() {
    v_ *= 1 / v_.xyz().norm();
}
template <class T>
KY_SMALL unsigned int PlaneT<T>::calculateUpperLowerBBCorners() {
    constexpr T kEpsilon = internal::epsilon<T>();
    unsigned int upper = 0;
    KY_UNROLL
    for (int i = 0; i < 3; ++i) {
        upper |= static_cast<unsigned int>(!(kEpsilon > v_[i])) << i;  // NaN also sets it
    }
    upper_ = upper;
    lower_ = ~upper & 7u;
    return lower_;
}

#endif

}  // namespace KyMath
KY_EXACT_END

#endif
