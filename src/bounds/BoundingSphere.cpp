// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/BoundingSphere.h>
#include <KyMath/inline/BoundingSphere.h>

#include <KyMath/BoundingBox.h>

#include "internal/Components.h"

namespace KyMath {

void BoundingSphere::expandBy(const Vector3T<double>& p) {
    if (!valid()) {
        set(p, 0);
        return;
    }
    const Vector3T<double> d = p - center_;
    const double distance = d.norm();
    if (distance > radius_) {
        const double half = (distance - radius_) * 0.5;
        radius_ += half;
        center_ += d * (half / distance);
    }
}

void BoundingSphere::expandBy(const BoundingSphere& s) {
    if (!s.valid()) return;
    if (!valid()) {
        *this = s;
        return;
    }
    const double distance = Vector3T<double>::distance(center_, s.center_);
    if (radius_ >= s.radius_ + distance) return;
    if (s.radius_ >= radius_ + distance) {
        *this = s;
        return;
    }
    const double radius = (s.radius_ + (radius_ + distance)) * 0.5;
    center_ += (s.center_ - center_) * ((radius - radius_) / distance);
    radius_ = radius;
}

// Deliberate: eight points of the old sphere represent it, each opposite a corner of b. The result
// can even be smaller than the old sphere. Pinned by BoundingSphereTest.MayShrinkWhenGrownByABox.
void BoundingSphere::expandBy(const BoundingBoxT<double>& b) {
    if (!b.valid()) return;
    BoundingBoxT<double> box(b);
    if (valid()) {
        for (unsigned int i = 0; i < 8; ++i) {
            Vector3T<double> direction = b.corner(i) - center_;
            direction.normalize();
            const Vector3T<double> q = center_ + direction * -radius_;
            box.expandBy(q.x(), q.y(), q.z());
        }
    }
    set(box.center(), box.radius());
}

void BoundingSphere::expandRadiusBy(const Vector3T<double>& p) {
    if (!valid()) {
        set(p, 0);
        return;
    }
    const double distance = Vector3T<double>::distance(p, center_);
    if (distance > radius_) radius_ = distance;
}

void BoundingSphere::expandRadiusBy(const BoundingSphere& s) {
    if (!s.valid()) return;
    if (!valid()) {
        *this = s;
        return;
    }
    const double reach = Vector3T<double>::distance(s.center_, center_) + s.radius_;
    if (reach > radius_) radius_ = reach;
}

void BoundingSphere::expandRadiusBy(const BoundingBoxT<double>& b) {
    if (!b.valid()) return;
    if (!valid()) {
        set(b.center(), b.radius());
        return;
    }
    for (unsigned int i = 0; i < 8; ++i) expandRadiusBy(b.corner(i));
}

static_assert(internal::kIsPlain<BoundingSphere, 4 * sizeof(double)> &&
                  std::is_trivially_copyable_v<BoundingSphere>,
              "a sphere is its centre and radius");

}  // namespace KyMath
