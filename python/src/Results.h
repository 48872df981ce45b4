// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// Functions that C++ gives their results through pointers and references, as functions that return
// them. Where a bool says whether there is a result, it is optional.
#ifndef KYMATH_PYTHON_RESULTS_H
#define KYMATH_PYTHON_RESULTS_H

#include "Values.h"

namespace KyMath::python {

template <class T>
concept Scalar = std::is_floating_point_v<T>;

template <Scalar T>
std::tuple<Vector3T<T>, Vector3T<T>> project(const Vector3T<T>& v, const Vector3T<T>& dir) {
    std::tuple<Vector3T<T>, Vector3T<T>> parts;
    v.project(dir, &std::get<0>(parts), &std::get<1>(parts));
    return parts;
}
template <Scalar T>
std::tuple<Vector3T<T>, Vector3T<T>> planeSpace(const Vector3T<T>& n) {
    std::tuple<Vector3T<T>, Vector3T<T>> axes;
    n.planeSpace(std::get<0>(axes), std::get<1>(axes));
    return axes;
}
template <Scalar T>
std::optional<Vector3T<T>> planeNormal(const Vector3T<T>& a, const Vector3T<T>& b,
                                       const Vector3T<T>& c) {
    Vector3T<T> normal;
    return Vector3T<T>::planeNormal(a, b, c, normal) ? std::optional(normal) : std::nullopt;
}
inline std::optional<double> computeAngle(const Vector3d& a, const Vector3d& b) {
    double angle;
    return Ky::KyComputeAngle(a, b, angle) ? std::optional(angle) : std::nullopt;
}

template <Scalar T>
std::tuple<Vector3T<T>, T> toAxisAngle(const QuaternionT<T>& q) {
    std::tuple<Vector3T<T>, T> rotation;
    q.toAxisAngle(&std::get<0>(rotation), &std::get<1>(rotation));
    return rotation;
}
template <Scalar T>
QuaternionT<T> fromAxisAngle(const Vector3T<T>& axis, T angle) {
    QuaternionT<T> q;
    q.fromAxisAngle(axis, angle);
    return q;
}
template <Scalar T>
QuaternionT<T> fromEulerXYZ(T rx, T ry, T rz) {
    QuaternionT<T> q;
    q.fromEulerXYZ(rx, ry, rz);
    return q;
}
template <Scalar T>
QuaternionT<T> fromRotation(const Vector3T<T>& from, const Vector3T<T>& to) {
    QuaternionT<T> q;
    q.fromRotation(from, to);
    return q;
}
template <Scalar T>
Vector3T<T> toEulerXYZ(const QuaternionT<T>& q) {
    Vector3T<T> angles;
    q.toEulerXYZ(&angles);
    return angles;
}
inline Quaterniond toQuaternion(const KyTransform& t) {
    Quaterniond q;
    t.toQuaternion(q);
    return q;
}

template <auto kMember>
KyTransform compound(const KyTransform& a, const KyTransform& b) {
    KyTransform t;
    (t.*kMember)(a, b);
    return t;
}
template <auto kMember>
KyTransform interpolate(const KyTransform& a, const KyTransform& b, double s) {
    KyTransform t;
    (t.*kMember)(a, b, s);
    return t;
}
inline Matrix44d toMatrix44(const KyEulerAngles& angles) {
    Matrix44d m;
    angles.toMatrix44(m);
    return m;
}
inline KyEulerAngles anglesOf(const Matrix44d& m, KyEulerAngles::eEulerOrder order) {
    KyEulerAngles angles;
    angles.fromMatrix44(m, order);
    return angles;
}

/// The six bounds of a projection, left to far.
template <Scalar T>
using Six = std::tuple<T, T, T, T, T, T>;

template <auto kRead, Scalar T>
std::optional<Six<T>> readBounds(const Matrix44T<T>& m) {
    Six<T> bounds;
    const auto read = [&](auto&... bound) { return kRead(m, bound...); };
    return std::apply(read, bounds) ? std::optional(bounds) : std::nullopt;
}

template <Scalar T>
std::tuple<Vector3T<T>, Vector3T<T>, Vector3T<T>, T> decompose(const Matrix44T<T>& m) {
    Vector3T<T> scale, rotation, translation;
    T sign;
    Transformation::decomposeT(m, scale, rotation, translation, sign);
    return {scale, rotation, translation, sign};
}

inline std::tuple<Vector3f, Vector3f> worldSpaceSegment(const Matrix44f& m, const Vector3f& p) {
    std::tuple<Vector3f, Vector3f> ends;
    getWorldSpaceSegment(m, p, std::get<0>(ends), std::get<1>(ends));
    return ends;
}

/// The distance, and the closest point on the line.
template <class L, class To>
std::tuple<double, Vector3d> distanceTo(const L& line, const To& to) {
    Vector3d closest;
    const double distance = line.distanceTo(to, &closest);
    return {distance, closest};
}

/// Where a line meets a shape: kCount numbers, or nothing.
template <Scalar T, std::size_t kCount, class... Shape>
auto meet(const Vector3T<T>& origin, const Vector3T<T>& direction, const Shape&... shape) {
    std::array<T, kCount> at{};
    const bool hit = std::apply(
        [&](auto&... t) { return Rays::intersect(origin, direction, shape..., &t...); }, at);
    const auto numbers = [&] {
        if constexpr (kCount == 1) {
            return at[0];
        } else {
            return std::apply([](auto... t) { return std::tuple(t...); }, at);
        }
    }();
    return hit ? std::optional(numbers) : std::nullopt;
}
template <Scalar T>
constexpr auto kMeetBox = meet<T, 2, BoundingBoxT<T>>;
template <Scalar T>
constexpr auto kMeetPlane = meet<T, 1, PlaneT<T>>;
template <Scalar T>
constexpr auto kMeetTriangle = meet<T, 3, Vector3T<T>, Vector3T<T>, Vector3T<T>>;

}  // namespace KyMath::python

#endif
