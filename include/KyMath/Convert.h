// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_CONVERT_H
#define KYMATH_CONVERT_H

#include <Ky/KyTransform.h>
#include <KyMath/BoundingBox.h>
#include <KyMath/Frustum.h>
#include <KyMath/Matrix.h>
#include <KyMath/Plane.h>
#include <KyMath/Polytope.h>
#include <KyMath/Quaternion.h>
#include <KyMath/Vectors.h>

namespace KyMath {

/// @name To float
/// Each value is rounded to the nearest float; values too large become infinite. A box may lose
/// points within half a unit in the last place, a rotation is one up to rounding, and the corner
/// indices of a plane are fresh.
/// @{
KY_API Vector2T<float> toFloat(const Vector2T<double>& v);
KY_API Vector3T<float> toFloat(const Vector3T<double>& v);
KY_API Vector4T<float> toFloat(const Vector4T<double>& v);
KY_API QuaternionT<float> toFloat(const QuaternionT<double>& q);
KY_API Matrix44T<float> toFloat(const Matrix44T<double>& m);
KY_API Matrix44T<float> toFloat(const Ky::KyTransform& t);  ///< All sixteen values.
KY_API BoundingBoxT<float> toFloat(const BoundingBoxT<double>& b);
KY_API PlaneT<float> toFloat(const PlaneT<double>& p);
/// @}

/// @name To double
/// Exact. The corner indices of a plane are fresh: a small coefficient may count for double only.
/// @{
KY_API Vector2T<double> toDouble(const Vector2T<float>& v);
KY_API Vector3T<double> toDouble(const Vector3T<float>& v);
KY_API Vector4T<double> toDouble(const Vector4T<float>& v);
KY_API QuaternionT<double> toDouble(const QuaternionT<float>& q);
KY_API Matrix44T<double> toDouble(const Matrix44T<float>& m);
KY_API BoundingBoxT<double> toDouble(const BoundingBoxT<float>& b);
KY_API PlaneT<double> toDouble(const PlaneT<float>& p);
/// @}

/// @name Between classes
/// @{

/// The rotation of q, of any length except zero, then translation to position.
KY_API Ky::KyTransform toTransform(const Vector3T<double>& position, const QuaternionT<double>& q);

/// The unit quaternion of t, as KyTransform::toQuaternion writes it.
KY_API QuaternionT<double> toQuaternion(const Ky::KyTransform& t);

/// The inverse of a rigid transform: R^T, -(R^T t), row 3 (0, 0, 0, 1).
KY_API Ky::KyTransform inverseOf(const Ky::KyTransform& t);

/// The six planes of a frustum in their order, each converted exactly: the region that it views.
KY_CONTAINERS KY_API Polytope toPolytope(const Frustum& f);
/// @}

}  // namespace KyMath

#endif
