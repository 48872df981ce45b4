// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_SPAN_H
#define KYMATH_SPAN_H

/// @file
/// Views of values as std::span of their scalars, in the order of their memory. Needs C++20.
/// Nothing else includes this.
///
///     std::span<double, 3> s = spanOf(v);                   // writes through to v
///     glUniformMatrix4fv(place, 1, GL_FALSE, spanOf(m).data());
///
/// A plane has no span of its own, since writing its coefficients would leave its corner indices as
/// they are: spanOf(plane.getAsVector4()) reads them. From a span, make a vector by its data():
/// Vector3d(s.data()).
#if __cplusplus <= 201703L
#error "KyMath: <KyMath/Span.h> needs C++20"
#endif

#include <Ky/KyTransform.h>
#include <KyMath/BoundingBox.h>
#include <KyMath/Matrix.h>
#include <KyMath/Quaternion.h>
#include <KyMath/Vectors.h>

#include <span>

namespace KyMath {
namespace internal {

template <class T>
struct Scalars {
    using type = T;
};
/// The scalar type of what is scalars and nothing else.
template <class V>
struct ScalarOf {};
template <class T>
struct ScalarOf<Vector2T<T>> : Scalars<T> {};
template <class T>
struct ScalarOf<Vector3T<T>> : Scalars<T> {};
template <class T>
struct ScalarOf<Vector4T<T>> : Scalars<T> {};
template <>
struct ScalarOf<Vector6> : Scalars<double> {};
template <class T>
struct ScalarOf<QuaternionT<T>> : Scalars<T> {};
template <class T>
struct ScalarOf<Matrix44T<T>> : Scalars<T> {};
template <>
struct ScalarOf<Ky::KyTransform> : Scalars<double> {};
template <class T>
struct ScalarOf<BoundingBoxT<T>> : Scalars<T> {};

}  // namespace internal

/// @name The scalars of a vector, quaternion, matrix, rigid transform or box
/// @{
template <class V, class T = typename internal::ScalarOf<V>::type>
std::span<T, sizeof(V) / sizeof(T)> spanOf(V& v) {
    return std::span<T, sizeof(V) / sizeof(T)>(reinterpret_cast<T*>(&v), sizeof(V) / sizeof(T));
}
template <class V, class T = typename internal::ScalarOf<V>::type>
std::span<const T, sizeof(V) / sizeof(T)> spanOf(const V& v) {
    return std::span<const T, sizeof(V) / sizeof(T)>(reinterpret_cast<const T*>(&v),
                                                     sizeof(V) / sizeof(T));
}
template <class V, class T = typename internal::ScalarOf<V>::type>
void spanOf(const V&&) KY_DELETED("it would outlive the value");
/// @}

}  // namespace KyMath

#endif
