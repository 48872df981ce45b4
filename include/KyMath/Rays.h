// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_RAYS_H
#define KYMATH_RAYS_H

#include <KyMath/BoundingBox.h>

#include <cstddef>

namespace KyMath {

/// Where a line meets a box, a sphere, a plane or a triangle.
///
/// The line is infinite: its points are origin + t direction, for every t. For a ray ignore t below
/// 0, for a segment from p to q pass (p, q - p) and ignore t outside [0, 1]. The direction may have
/// any length: t counts in directions.
///
/// All functions return whether the line meets the shape, touching included. If it does not, or if
/// a number is NaN, they return false and write nothing. Outputs must not be null, and must not be
/// parts of the inputs. Nothing is compared with a tolerance: results that depend on the last bit,
/// such as whether a line along an edge meets the shape, may go either way.
namespace Rays {

/// The part of the line in the box: from *tNear to *tFar, tNear <= tFar. tNear is negative where
/// the origin is in the box. With r = 1 / direction, by component, a face at x = b is met at t = (b
/// - origin.x) r.x.
///
/// A line along the faces of an axis, for which r is infinite, is never bounded by them: it meets
/// the box if the origin lies between or on them. If it does for all three axes, the result is
/// -infinity to infinity. A flat box can be met; an empty one cannot.
///
/// BoundingBoxT::intersect(origin, direction) is stricter: it needs a part of positive length.
template <class T>
KY_API bool intersect(const Vector3T<T>& origin, const Vector3T<T>& direction,
                      const BoundingBoxT<T>& box, T* tNear, T* tFar);

/// The part of the line in the sphere, tNear <= tFar:
///
///     t = m -+ sqrt((r^2 - |p|^2) / a),  a = direction . direction,  m = -(f . direction) / a,
///     f = origin - center,  p = f + m direction
///
/// False for an empty sphere and for a direction too short to square.
KY_API bool intersect(const Vector3T<double>& origin, const Vector3T<double>& direction,
                      const BoundingSphere& sphere, double* tNear, double* tFar);

/// t = -distance(origin) / (normal . direction). False for a line parallel to the plane, also for
/// one in it, and where t overflows. The normal may have any length.
template <class T>
KY_API bool intersect(const Vector3T<T>& origin, const Vector3T<T>& direction,
                      const PlaneT<T>& plane, T* t);

/// The triangle a, b, c, from either side, by T. Moeller and B. Trumbore, "Fast, Minimum Storage
/// Ray/Triangle Intersection", Journal of Graphics Tools 2, 1997: the line meets it at *t, at the
/// point (1 - u - v) a + u b + v c, with u >= 0, v >= 0 and u + v <= 1.
///
/// False for a line parallel to the triangle, also for one in it, and for a triangle without area.
/// A line through an edge that two triangles share may miss both by rounding.
template <class T>
KY_API bool intersect(const Vector3T<T>& origin, const Vector3T<T>& direction, const Vector3T<T>& a,
                      const Vector3T<T>& b, const Vector3T<T>& c, T* t, T* u, T* v);

/// @name Arrays
/// The bits of the single calls. A miss is written as an empty part: tNear infinity and tFar
/// -infinity, or t infinity; so the smallest tNear or t belongs to the first hit of a line, if
/// those below 0 are left out. If count is 0, no pointer is used. A stride is the number of bytes
/// from one element to the next, as in Batch.
/// @{

/// One line and many boxes.
template <class T>
KY_API void intersectBoxes(const Vector3T<T>& origin, const Vector3T<T>& direction,
                           const BoundingBoxT<T>* boxes, T* tNear, T* tFar, std::size_t count,
                           std::size_t stride = sizeof(BoundingBoxT<T>));

/// Many lines and one box.
template <class T>
KY_API void intersectBox(const Vector3T<T>* origins, const Vector3T<T>* directions,
                         const BoundingBoxT<T>& box, T* tNear, T* tFar, std::size_t count,
                         std::size_t stride = sizeof(Vector3T<T>));

/// One line and many triangles: triangle i is corners[3 i], corners[3 i + 1], corners[3 i + 2].
template <class T>
KY_API void intersectTriangles(const Vector3T<T>& origin, const Vector3T<T>& direction,
                               const Vector3T<T>* corners, T* t, std::size_t count);

/// Many lines and one triangle.
template <class T>
KY_API void intersectTriangle(const Vector3T<T>* origins, const Vector3T<T>* directions,
                              const Vector3T<T>& a, const Vector3T<T>& b, const Vector3T<T>& c,
                              T* t, std::size_t count, std::size_t stride = sizeof(Vector3T<T>));
/// @}

}  // namespace Rays
}  // namespace KyMath

#endif
