// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_UNPACK_H
#define KYMATH_UNPACK_H

/// @file
/// Takes values apart. Nothing else includes this.
///
///     auto [x, y, z] = v;                     // copies
///     auto& [w, i, j, k] = q;                 // writes through to the quaternion
///     for (const auto& [min, max] : boxes)
///     std::get<0>(v), std::tuple_size<Vector3d>::value
///
/// Vectors give their components, quaternions w, x, y, z, boxes their minimum and maximum, spheres
/// centre and radius, planes a, b, c, d, which cannot be written. Lines and segments need no header
/// for this. The names x, y, z need C++17, std::get only C++11.
#include <KyMath/BoundingBox.h>
#include <KyMath/BoundingSphere.h>
#include <KyMath/Plane.h>
#include <KyMath/Quaternion.h>
#include <KyMath/Vectors.h>

#include <tuple>
#include <type_traits>
#include <utility>

namespace KyMath {
namespace internal {

template <std::size_t i>
using Index = std::integral_constant<std::size_t, i>;

/// The number of parts of V, and each of them, for V and const V.
template <class V>
struct Parts;
template <std::size_t n>
struct Components : Index<n> {
    template <class V, std::size_t i>
    static auto at(V& v, Index<i>) -> decltype(v[0]) {
        static_assert(i < n, "KyMath: there is no such component");
        return v[static_cast<int>(i)];
    }
};
template <class T>
struct Parts<Vector2T<T>> : Components<2> {};
template <class T>
struct Parts<Vector3T<T>> : Components<3> {};
template <class T>
struct Parts<Vector4T<T>> : Components<4> {};
template <>
struct Parts<Vector6> : Components<6> {};
template <class T>
struct Parts<QuaternionT<T>> : Components<4> {};
template <class T>
struct Parts<PlaneT<T>> : Index<4> {
    template <std::size_t i>
    static const T& at(const PlaneT<T>& p, Index<i> index) {
        return Components<4>::at(p.getAsVector4(), index);
    }
};
template <class T>
struct Parts<BoundingBoxT<T>> : Index<2> {
    template <class B>
    static auto at(B& b, Index<0>) -> decltype(b.getMin()) {
        return b.getMin();
    }
    template <class B>
    static auto at(B& b, Index<1>) -> decltype(b.getMax()) {
        return b.getMax();
    }
};
template <>
struct Parts<BoundingSphere> : Index<2> {
    template <class S>
    static auto at(S& s, Index<0>) -> decltype(s.center()) {
        return s.center();
    }
    template <class S>
    static auto at(S& s, Index<1>) -> decltype(s.radius()) {
        return s.radius();
    }
};

template <class V, std::size_t i>
using Part =
    decltype(Parts<typename std::remove_const<V>::type>::at(std::declval<V&>(), Index<i>()));

/// What std::move makes of it: a reference to a variable becomes one to a temporary.
template <class P>
struct Moved {
    using type = P;
};
template <class P>
struct Moved<P&> {
    using type = P&&;
};

}  // namespace internal

/// @name Part i of a vector, quaternion, box, sphere or plane
/// @{
template <std::size_t i, class V>
internal::Part<V, i> get(V& v) {
    return internal::Parts<typename std::remove_const<V>::type>::at(v, internal::Index<i>());
}
template <std::size_t i, class V>
typename internal::Moved<internal::Part<V, i>>::type get(V&& v) {
    return static_cast<typename internal::Moved<internal::Part<V, i>>::type>(get<i>(v));
}
/// @}

}  // namespace KyMath

namespace std {

using KyMath::get;

template <class T>
struct tuple_size<KyMath::Vector2T<T>> : KyMath::internal::Parts<KyMath::Vector2T<T>> {};
template <size_t i, class T>
struct tuple_element<i, KyMath::Vector2T<T>>
    : remove_reference<KyMath::internal::Part<KyMath::Vector2T<T>, i>> {};
template <class T>
struct tuple_size<KyMath::Vector3T<T>> : KyMath::internal::Parts<KyMath::Vector3T<T>> {};
template <size_t i, class T>
struct tuple_element<i, KyMath::Vector3T<T>>
    : remove_reference<KyMath::internal::Part<KyMath::Vector3T<T>, i>> {};
template <class T>
struct tuple_size<KyMath::Vector4T<T>> : KyMath::internal::Parts<KyMath::Vector4T<T>> {};
template <size_t i, class T>
struct tuple_element<i, KyMath::Vector4T<T>>
    : remove_reference<KyMath::internal::Part<KyMath::Vector4T<T>, i>> {};
template <>
struct tuple_size<KyMath::Vector6> : KyMath::internal::Parts<KyMath::Vector6> {};
template <size_t i>
struct tuple_element<i, KyMath::Vector6>
    : remove_reference<KyMath::internal::Part<KyMath::Vector6, i>> {};
template <class T>
struct tuple_size<KyMath::QuaternionT<T>> : KyMath::internal::Parts<KyMath::QuaternionT<T>> {};
template <size_t i, class T>
struct tuple_element<i, KyMath::QuaternionT<T>>
    : remove_reference<KyMath::internal::Part<KyMath::QuaternionT<T>, i>> {};
template <class T>
struct tuple_size<KyMath::PlaneT<T>> : KyMath::internal::Parts<KyMath::PlaneT<T>> {};
template <size_t i, class T>
struct tuple_element<i, KyMath::PlaneT<T>>
    : remove_reference<KyMath::internal::Part<KyMath::PlaneT<T>, i>> {};
template <class T>
struct tuple_size<KyMath::BoundingBoxT<T>> : KyMath::internal::Parts<KyMath::BoundingBoxT<T>> {};
template <size_t i, class T>
struct tuple_element<i, KyMath::BoundingBoxT<T>>
    : remove_reference<KyMath::internal::Part<KyMath::BoundingBoxT<T>, i>> {};
template <>
struct tuple_size<KyMath::BoundingSphere> : KyMath::internal::Parts<KyMath::BoundingSphere> {};
template <size_t i>
struct tuple_element<i, KyMath::BoundingSphere>
    : remove_reference<KyMath::internal::Part<KyMath::BoundingSphere, i>> {};

}  // namespace std

#endif
