// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_FRUSTUM_H
#define KYMATH_FRUSTUM_H

#include <KyMath/Forward.h>
#include <KyMath/Matrix.h>
#include <KyMath/Plane.h>

namespace KyMath {

/// Viewing volume of a camera: six planes in world space, in float, that face inwards. A point is
/// inside unless it is on the negative side of a plane. Classify boxes and spheres with
/// PlaneT::intersect and PlaneT::intersectBoundingSphere of each plane.
class KY_API Frustum {
public:
    /// Index of each plane. In clip space (x, y, z, w): eLeft is x >= -w, eRight x <= w, eBottom
    /// y >= -w, eTop y <= w, eFar z <= w and eNear z >= 0 for a perspective projection, z >= -w for
    /// any other. With the library's projections, which reverse depth (Transformation.h), the plane
    /// named far is the one near the camera.
    enum ePlane { eLeft, eRight, eBottom, eTop, eFar, eNear };

    Frustum();  ///< Six planes with all coefficients 0.
    Frustum(const Frustum& f);
    Frustum& operator=(const Frustum& f);

    /// Rebuilds all six planes, of unit normal, from the view matrix (world to camera) and the
    /// projection. The projection counts as perspective when its element (3, 2) is exactly -1, and
    /// must then map depth to [0, 1], in either direction: with a perspective depth of [-1, 1], the
    /// plane at the near bound n lies at about 2 n, and anything nearer is culled.
    void setToWorldSpaceFrustum(const Matrix44T<float>& view, const Matrix44T<float>& projection);

    const PlaneT<float>& getPlane(unsigned int i) const;  ///< i is an ePlane, 0 to 5, not checked.

private:
    PlaneT<float> planes_[6];
};

}  // namespace KyMath

/// World-space points at a screen position: far is m (p.x, p.y, 1, 1), at device depth 1, and near
/// is m (p.x, p.y, 0, 1), at depth 0, each divided by its own w. m maps normalised device
/// coordinates to world space: the inverse of projection times view. p.z is ignored. A w of 0 gives
/// infinities or NaN. The outputs may be p.
///
/// With the library's projections, which reverse depth (Transformation.h), far is the end near the
/// camera. near is the other end of a perspective view, but only the middle of an orthographic one,
/// whose depth goes on to -1: its other end is near + (near - far).
KY_API void getWorldSpaceSegment(const KyMath::Matrix44T<float>& m,
                                 const KyMath::Vector3T<float>& p, KyMath::Vector3T<float>& far,
                                 KyMath::Vector3T<float>& near);

#endif
