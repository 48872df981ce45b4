// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_HASH_H
#define KYMATH_HASH_H

/// @file
/// std::hash of every class with an exact ==: vectors, quaternions, matrices, rigid transforms and
/// planes as keys of std::unordered_map. Nothing else includes this.
///
/// What is equal has one hash, so 0 and -0 do. A value with a NaN equals nothing, not even itself:
/// as a key it is never found again. Hashes may change with any release: do not store them.
#include <Ky/KyTransform.h>
#include <KyMath/Matrix.h>
#include <KyMath/Plane.h>
#include <KyMath/Quaternion.h>
#include <KyMath/Vectors.h>

#include <cstdint>
#include <cstring>
#include <functional>

namespace KyMath {
namespace internal {

/// Spreads every bit over all of them: the finalizer of A. Appleby's MurmurHash3.
inline std::uint64_t spread(std::uint64_t h) {
    h = (h ^ (h >> 33)) * 0xff51afd7ed558ccd;
    h = (h ^ (h >> 33)) * 0xc4ceb9fe1a85ec53;
    return h ^ (h >> 33);
}

template <class T>
std::size_t hashOf(const T* values, int count) {
    std::uint64_t hash = 0x9e3779b97f4a7c15;
    for (int i = 0; i < count; ++i) {
        const double value = static_cast<double>(values[i]);
        std::uint64_t bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        if (bits << 1 == 0) bits = 0;  // -0, also where a client's flags ignore the sign of zeros
        hash = spread(hash ^ bits);
    }
    return hash;
}

}  // namespace internal
}  // namespace KyMath

namespace std {

template <class T>
struct hash<KyMath::Vector2T<T>> {
    size_t operator()(const KyMath::Vector2T<T>& v) const {
        return KyMath::internal::hashOf(&v[0], 2);
    }
};
template <class T>
struct hash<KyMath::Vector3T<T>> {
    size_t operator()(const KyMath::Vector3T<T>& v) const {
        return KyMath::internal::hashOf(&v[0], 3);
    }
};
template <class T>
struct hash<KyMath::Vector4T<T>> {
    size_t operator()(const KyMath::Vector4T<T>& v) const {
        return KyMath::internal::hashOf(&v[0], 4);
    }
};
template <class T>
struct hash<KyMath::QuaternionT<T>> {
    size_t operator()(const KyMath::QuaternionT<T>& q) const {
        return KyMath::internal::hashOf(&q[0], 4);
    }
};
template <class T>
struct hash<KyMath::Matrix44T<T>> {
    size_t operator()(const KyMath::Matrix44T<T>& m) const {
        return KyMath::internal::hashOf(m[0], 16);
    }
};
template <>
struct hash<Ky::KyTransform> {
    size_t operator()(const Ky::KyTransform& t) const {
        return KyMath::internal::hashOf(t[0], 16);
    }
};
template <class T>
struct hash<KyMath::PlaneT<T>> {
    size_t operator()(const KyMath::PlaneT<T>& p) const {
        return KyMath::internal::hashOf(&p.getAsVector4()[0], 4);
    }
};

}  // namespace std

#endif
