// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_BOUNDINGSPHERE_H
#define KYMATH_INLINE_BOUNDINGSPHERE_H

#include <KyMath/inline/Components.h>

#ifdef KYMATH_INLINE
#pragma GCC system_header
#endif

KY_EXACT_BEGIN
namespace KyMath {

KY_SMALL_PLAIN BoundingSphere::BoundingSphere() : radius_(-1) {}

KY_SMALL_PLAIN BoundingSphere::BoundingSphere(const Vector3T<double>& center, double radius)
    : center_(center), radius_(radius) {}

KY_SMALL_PLAIN void BoundingSphere::init() {
    *this = BoundingSphere();
}

KY_SMALL_PLAIN void BoundingSphere::set(const Vector3T<double>& center, double radius) {
    center_ = center;
    radius_ = radius;
}

KY_SMALL_PLAIN const Vector3T<double>& BoundingSphere::center() const {
    return center_;
}
KY_SMALL_PLAIN Vector3T<double>& BoundingSphere::center() {
    return center_;
}
KY_SMALL_PLAIN double BoundingSphere::radius() const {
    return radius_;
}
KY_SMALL_PLAIN double& BoundingSphere::radius() {
    return radius_;
}

#if KY_INLINE_ARITHMETIC

KY_SMALL_PLAIN bool BoundingSphere::valid() const {
    return radius_ >= 0;
}

#endif

}  // namespace KyMath
KY_EXACT_END

#endif
