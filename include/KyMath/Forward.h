// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_FORWARD_H
#define KYMATH_FORWARD_H

#include <Ky/Export.h>

/// Rigid transforms, Euler angles and tolerances.
namespace Ky {

class KY_API KyTransform;
class KY_API KyEulerAngles;

}  // namespace Ky

/// The geometry library: vectors, matrices, rotations, bounding volumes.
namespace KyMath {

template <class T>
class KY_API Vector2T;
template <class T>
class KY_API Vector3T;
template <class T>
class KY_API Vector4T;
class KY_API Vector6;
template <class T>
class KY_API Matrix44T;
template <class T>
class KY_API QuaternionT;
template <class T>
class KY_API BoundingBoxT;
class KY_API BoundingSphere;
template <class T>
class KY_API PlaneT;
class KY_API Polytope;
class KY_API Frustum;
class KY_API Line3;
class KY_API Segment3;

/// @name Short names: f for float, d for double
/// @{
using Vector2f = Vector2T<float>;
using Vector2d = Vector2T<double>;
using Vector3f = Vector3T<float>;
using Vector3d = Vector3T<double>;
using Vector4f = Vector4T<float>;
using Vector4d = Vector4T<double>;
using Matrix44f = Matrix44T<float>;
using Matrix44d = Matrix44T<double>;
using Quaternionf = QuaternionT<float>;
using Quaterniond = QuaternionT<double>;
using BoundingBoxf = BoundingBoxT<float>;
using BoundingBoxd = BoundingBoxT<double>;
using Planef = PlaneT<float>;
using Planed = PlaneT<double>;
/// @}

namespace internal {

/// True for the two scalar types that the library is built for.
template <class T>
struct IsScalar {
    static constexpr bool value = false;
};
template <>
struct IsScalar<float> {
    static constexpr bool value = true;
};
template <>
struct IsScalar<double> {
    static constexpr bool value = true;
};

/// Defined for the types that convert to a pointer, as quaternions do, but are something else.
template <class U>
struct NotAQuaternion {};
template <class T>
struct NotAQuaternion<Vector2T<T>> {
    using type = int;
};
template <class T>
struct NotAQuaternion<Vector3T<T>> {
    using type = int;
};
template <class T>
struct NotAQuaternion<Vector4T<T>> {
    using type = int;
};
template <class T>
struct NotAQuaternion<Matrix44T<T>> {
    using type = int;
};
template <>
struct NotAQuaternion<Ky::KyTransform> {
    using type = int;
};

}  // namespace internal

}  // namespace KyMath

#endif
