// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Frustum.h>

#include <KyMath/Transformation.h>

#include "internal/Components.h"

namespace KyMath {

namespace {

// The sides of clip space, with depth from -1 to 1, in the order of Frustum::ePlane.
constexpr float kClipSides[6][4] = {{1, 0, 0, 1},  {-1, 0, 0, 1}, {0, 1, 0, 1},
                                    {0, -1, 0, 1}, {0, 0, -1, 1}, {0, 0, 1, 1}};

}  // namespace

Frustum::Frustum() = default;
Frustum::Frustum(const Frustum& f) = default;
Frustum& Frustum::operator=(const Frustum& f) = default;

void Frustum::setToWorldSpaceFrustum(const Matrix44T<float>& view,
                                     const Matrix44T<float>& projection) {
    // The transpose of the matrix that maps points from world space to clip space maps planes back.
    Matrix44T<float> toWorld = Matrix44T<float>::multiply(projection, view);
    toWorld.transpose();
    // Deliberate: this one element, compared exactly, marks a perspective projection, whose depth
    // starts at 0. Pinned by FrustumTest.NearPlaneIsAtClipZeroForPerspectives.
    const bool perspective = projection(3, 2) == -1;
    for (unsigned int i = 0; i < 6; ++i) {
        Vector4T<float> side(kClipSides[i]);
        if (i == eNear && perspective) side.w() = 0;
        planes_[i].set(side);
        planes_[i].transform(toWorld);
    }
}

const PlaneT<float>& Frustum::getPlane(unsigned int i) const {
    return planes_[i];
}

static_assert(internal::kIsPlain<Frustum, 6 * sizeof(PlaneT<float>)>,
              "a frustum is its six planes");

}  // namespace KyMath

void getWorldSpaceSegment(const KyMath::Matrix44T<float>& m, const KyMath::Vector3T<float>& p,
                          KyMath::Vector3T<float>& far, KyMath::Vector3T<float>& near) {
    using KyMath::Transformation::transformPositionT;
    const float x = p.x();  // copies: an output may be p
    const float y = p.y();
    far = transformPositionT(m, KyMath::Vector3f(x, y, 1));
    near = transformPositionT(m, KyMath::Vector3f(x, y, 0));
}
