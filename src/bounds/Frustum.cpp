// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Frustum.h>

#include <KyMath/Transformation.h>

#include "internal/Arithmetic.h"

namespace KyMath {

Frustum::Frustum() = default;
Frustum::Frustum(const Frustum& f) = default;
Frustum& Frustum::operator=(const Frustum& f) = default;

void Frustum::setToWorldSpaceFrustum(const Matrix44T<float>& view,
                                     const Matrix44T<float>& projection) {
    planes_[eLeft].set(1, 0, 0, 1);
    planes_[eRight].set(-1, 0, 0, 1);
    planes_[eBottom].set(0, 1, 0, 1);
    planes_[eTop].set(0, -1, 0, 1);
    planes_[eFar].set(0, 0, -1, 1);
    // Deliberate: this one element, compared exactly, tells a perspective projection, whose depth
    // starts at 0. Pinned by FrustumTest.
    planes_[eNear].set(0, 0, 1, projection(3, 2) == -1 ? 0.0f : 1.0f);

    // A plane maps from clip space to world space by the transpose of what maps points the other
    // way.
    Matrix44T<float> m = Matrix44T<float>::multiply(projection, view);
    m.transpose();
    for (PlaneT<float>& plane : planes_) plane.transformProvidingInverse(m);
}

const PlaneT<float>& Frustum::getPlane(unsigned int i) const {
    return planes_[i];
}

static_assert(sizeof(Frustum) == 6 * sizeof(PlaneT<float>), "a frustum is its six planes");

}  // namespace KyMath

void getWorldSpaceSegment(const KyMath::Matrix44T<float>& m, const KyMath::Vector3T<float>& p,
                          KyMath::Vector3T<float>& far, KyMath::Vector3T<float>& near) {
    using KyMath::Transformation::transformPositionT;
    const float x = p.x();  // copies: an output may be p
    const float y = p.y();
    far = transformPositionT(m, KyMath::Vector3f(x, y, 1));
    near = transformPositionT(m, KyMath::Vector3f(x, y, 0));
}
