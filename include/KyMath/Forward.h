// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_FORWARD_H
#define KYMATH_FORWARD_H

#include <Ky/Export.h>

#include <iosfwd>

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

/// Types that convert to a pointer: without deleted overloads, each would be accepted as any other.
/// Also lines and shapes, for which deleted overloads give a clearer message.
enum class Kind {
    other,
    null,
    vector2,
    vector,
    quaternion,
    matrix,
    floatMatrix,
    transform,
    line,
    shape
};
template <Kind k>
struct Is {
    static constexpr Kind kind = k;
};
template <class U>
struct KindOf : Is<Kind::other> {};
template <>
struct KindOf<int> : Is<Kind::null> {};
template <>
struct KindOf<long> : Is<Kind::null> {};
template <>
struct KindOf<long long> : Is<Kind::null> {};
template <>
struct KindOf<unsigned int> : Is<Kind::null> {};
template <>
struct KindOf<unsigned long> : Is<Kind::null> {};
template <>
struct KindOf<unsigned long long> : Is<Kind::null> {};
template <>
struct KindOf<std::nullptr_t> : Is<Kind::null> {};
template <class T>
struct KindOf<Vector2T<T>> : Is<Kind::vector2> {};
template <class T>
struct KindOf<Vector3T<T>> : Is<Kind::vector> {};
template <class T>
struct KindOf<Vector4T<T>> : Is<Kind::vector> {};
template <class T>
struct KindOf<QuaternionT<T>> : Is<Kind::quaternion> {};
template <class T>
struct KindOf<Matrix44T<T>> : Is<Kind::matrix> {};
template <>
struct KindOf<Matrix44T<float>> : Is<Kind::floatMatrix> {};
template <>
struct KindOf<Ky::KyTransform> : Is<Kind::transform> {};
template <>
struct KindOf<Line3> : Is<Kind::line> {};
template <class T>
struct KindOf<BoundingBoxT<T>> : Is<Kind::shape> {};
template <>
struct KindOf<BoundingSphere> : Is<Kind::shape> {};
template <class T>
struct KindOf<PlaneT<T>> : Is<Kind::shape> {};
template <>
struct KindOf<Polytope> : Is<Kind::shape> {};
template <>
struct KindOf<Frustum> : Is<Kind::shape> {};

/// Conditions of the deleted overloads.
template <class U>
struct IsFloatMatrix {
    static constexpr bool value = KindOf<U>::kind == Kind::floatMatrix;
};
template <class U>
struct IsMatrix {
    static constexpr bool value =
        KindOf<U>::kind >= Kind::matrix && KindOf<U>::kind <= Kind::transform;
};
template <class U>
struct IsNoQuaternion {
    static constexpr bool value =
        IsMatrix<U>::value || KindOf<U>::kind == Kind::vector2 || KindOf<U>::kind == Kind::vector;
};
template <class U>
struct IsNoVector3 {
    static constexpr bool value = KindOf<U>::kind != Kind::other && KindOf<U>::kind != Kind::vector;
};
template <class U>
struct IsLine {
    static constexpr bool value = KindOf<U>::kind == Kind::line;
};
template <class U>
struct IsTransform {
    static constexpr bool value = KindOf<U>::kind == Kind::transform;
};
template <class U>
struct IsVector {
    static constexpr bool value =
        KindOf<U>::kind >= Kind::vector2 && KindOf<U>::kind <= Kind::quaternion;
};
template <class U, class V>
struct AreUnlike {
    static constexpr bool value = IsVector<U>::value && IsVector<V>::value;
};
template <class U>
struct AreUnlike<U, U> {
    static constexpr bool value = false;
};
template <bool>
struct Enable {};
template <>
struct Enable<true> {
    using type = int;
};
template <bool condition>
using If = typename Enable<condition>::type;

/// Any shape converts to it, so that an operator << of a client's own is the better match.
struct Shape {
    template <class U, If<KindOf<U>::kind == Kind::shape> = 0>
    Shape(const U&);
};

}  // namespace internal

std::ostream& operator<<(std::ostream&, internal::Shape) KY_DELETED("see KyMath/Format.h");

/// @name Not between vectors of different types, or a vector and a quaternion
/// @{
template <class U, class V, internal::If<internal::AreUnlike<U, V>::value> = 0>
bool operator==(const U&, const V&) KY_DELETED("the types differ: it would compare addresses");
template <class U, class V, internal::If<internal::AreUnlike<U, V>::value> = 0>
bool operator!=(const U&, const V&) KY_DELETED("the types differ: it would compare addresses");
template <class U, class V, internal::If<internal::AreUnlike<U, V>::value> = 0>
bool operator<(const U&, const V&) KY_DELETED("the types differ: it would compare addresses");
template <class U, class V, internal::If<internal::AreUnlike<U, V>::value> = 0>
bool operator>(const U&, const V&) KY_DELETED("the types differ: it would compare addresses");
template <class U, class V, internal::If<internal::AreUnlike<U, V>::value> = 0>
bool operator<=(const U&, const V&) KY_DELETED("the types differ: it would compare addresses");
template <class U, class V, internal::If<internal::AreUnlike<U, V>::value> = 0>
bool operator>=(const U&, const V&) KY_DELETED("the types differ: it would compare addresses");
template <class U, class V, internal::If<internal::AreUnlike<U, V>::value> = 0>
void operator-(const U&, const V&) KY_DELETED("the types differ: it would subtract addresses");
/// @}

}  // namespace KyMath

#endif
