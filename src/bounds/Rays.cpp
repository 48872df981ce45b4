// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Rays.h>

#include <KyMath/BoundingSphere.h>
#include <KyMath/Plane.h>
#include <KyMath/Vector3.h>

#include "lanes/Kernels.h"

#include <cmath>
#include <limits>

namespace KyMath::Rays {

namespace {

template <class T>
constexpr T kInfinity = std::numeric_limits<T>::infinity();

/// The largest magnitude whose reciprocal overflows. Dividing by less would raise an exception.
template <class T>
constexpr T kNoReciprocal = T(0.25) * std::numeric_limits<T>::min();

/// A line prepared for tests against boxes.
template <class T>
struct Slabs {
    Slabs(const Vector3T<T>& from, const Vector3T<T>& direction) : origin(from) {
        for (int i = 0; i < 3; ++i) {
            along[i] = std::abs(direction[i]) <= kNoReciprocal<T>;
            reciprocal[i] = along[i] ? 0 : 1 / direction[i];
        }
    }

    bool meets(const BoundingBoxT<T>& box, T* tNear, T* tFar) const {
        T near = -kInfinity<T>;
        T far = kInfinity<T>;
        for (int i = 0; i < 3; ++i) {
            const T low = box.getMin()[i];
            const T high = box.getMax()[i];
            if (along[i]) {
                if (!(low <= origin[i] && origin[i] <= high)) return false;
                continue;
            }
            const T r = reciprocal[i];
            const T in = ((r < 0 ? high : low) - origin[i]) * r;
            const T out = ((r < 0 ? low : high) - origin[i]) * r;
            if (!(in <= out)) return false;  // empty, or NaN
            if (in > near) near = in;
            if (out < far) far = out;
        }
        if (near > far) return false;
        *tNear = near;
        *tFar = far;
        return true;
    }

    Vector3T<T> origin;
    T reciprocal[3];
    bool along[3];
};

}  // namespace

template <class T>
bool intersect(const Vector3T<T>& origin, const Vector3T<T>& direction, const BoundingBoxT<T>& box,
               T* tNear, T* tFar) {
    return Slabs<T>(origin, direction).meets(box, tNear, tFar);
}

bool intersect(const Vector3d& origin, const Vector3d& direction, const BoundingSphere& sphere,
               double* tNear, double* tFar) {
    const double square = direction.normSquare();
    if (!sphere.valid() || !(square > 0)) return false;
    const Vector3d f = origin - sphere.center();
    const double middle = -(f * direction) / square;
    const double r = sphere.radius();
    const double half = r * r - (f + direction * middle).normSquare();
    if (!(half >= 0)) return false;
    const double t = std::sqrt(half / square);
    *tNear = middle - t;
    *tFar = middle + t;
    return true;
}

template <class T>
bool intersect(const Vector3T<T>& origin, const Vector3T<T>& direction, const PlaneT<T>& plane,
               T* t) {
    const T slope = plane.getNormal() * direction;
    if (slope == 0) return false;
    const T met = -plane.distance(origin) / slope;
    if (!std::isfinite(met)) return false;
    *t = met;
    return true;
}

template <class T>
bool intersect(const Vector3T<T>& origin, const Vector3T<T>& direction, const Vector3T<T>& a,
               const Vector3T<T>& b, const Vector3T<T>& c, T* t, T* u, T* v) {
    const Vector3T<T> ab = b - a;
    const Vector3T<T> ac = c - a;
    const Vector3T<T> p = direction.cross(ac);
    const T det = ab * p;
    if (det == 0) return false;
    const T k = 1 / det;
    const Vector3T<T> s = origin - a;
    const T weightB = s * p * k;
    if (!(weightB >= 0 && weightB <= 1)) return false;
    const Vector3T<T> q = s.cross(ab);
    const T weightC = direction * q * k;
    if (!(weightC >= 0 && weightB + weightC <= 1)) return false;
    const T met = ac * q * k;
    if (!std::isfinite(met)) return false;
    *t = met;
    *u = weightB;
    *v = weightC;
    return true;
}

template <class T>
void intersectBoxes(const Vector3T<T>& origin, const Vector3T<T>& direction,
                    const BoundingBoxT<T>* boxes, T* tNear, T* tFar, std::size_t count,
                    std::size_t stride) {
    const Slabs<T> line(origin, direction);
    const internal::Strided<const BoundingBoxT<T>> all = {boxes, stride};
    for (std::size_t i = 0; i < count; ++i) {
        if (line.meets(*at(all, i), &tNear[i], &tFar[i])) continue;
        tNear[i] = kInfinity<T>;
        tFar[i] = -kInfinity<T>;
    }
}

template <class T>
void intersectBox(const Vector3T<T>* origins, const Vector3T<T>* directions,
                  const BoundingBoxT<T>& box, T* tNear, T* tFar, std::size_t count,
                  std::size_t stride) {
    const internal::Strided<const Vector3T<T>> from = {origins, stride};
    const internal::Strided<const Vector3T<T>> along = {directions, stride};
    for (std::size_t i = 0; i < count; ++i) {
        intersectBoxes(*at(from, i), *at(along, i), &box, &tNear[i], &tFar[i], 1, 0);
    }
}

template <class T>
void intersectTriangles(const Vector3T<T>& origin, const Vector3T<T>& direction,
                        const Vector3T<T>* corners, T* t, std::size_t count) {
    // Vectors are their values.
    KY_WIDE_KERNEL(
        meetTriangles<T>(origin, direction, reinterpret_cast<const T*>(corners), t, count));
}

template <class T>
void intersectTriangle(const Vector3T<T>* origins, const Vector3T<T>* directions,
                       const Vector3T<T>& a, const Vector3T<T>& b, const Vector3T<T>& c, T* t,
                       std::size_t count, std::size_t stride) {
    const T corners[] = {a[0], a[1], a[2], b[0], b[1], b[2], c[0], c[1], c[2]};
    KY_WIDE_KERNEL(meetTriangle<T>({reinterpret_cast<const T*>(origins), stride},
                                   {reinterpret_cast<const T*>(directions), stride}, corners, t,
                                   count));
}

#define KY_INSTANTIATE(T)                                                                          \
    template bool intersect(const Vector3T<T>&, const Vector3T<T>&, const BoundingBoxT<T>&, T*,    \
                            T*);                                                                   \
    template bool intersect(const Vector3T<T>&, const Vector3T<T>&, const PlaneT<T>&, T*);         \
    template bool intersect(const Vector3T<T>&, const Vector3T<T>&, const Vector3T<T>&,            \
                            const Vector3T<T>&, const Vector3T<T>&, T*, T*, T*);                   \
    template void intersectBoxes(const Vector3T<T>&, const Vector3T<T>&, const BoundingBoxT<T>*,   \
                                 T*, T*, std::size_t, std::size_t);                                \
    template void intersectBox(const Vector3T<T>*, const Vector3T<T>*, const BoundingBoxT<T>&, T*, \
                               T*, std::size_t, std::size_t);                                      \
    template void intersectTriangles(const Vector3T<T>&, const Vector3T<T>&, const Vector3T<T>*,   \
                                     T*, std::size_t);                                             \
    template void intersectTriangle(const Vector3T<T>*, const Vector3T<T>*, const Vector3T<T>&,    \
                                    const Vector3T<T>&, const Vector3T<T>&, T*, std::size_t,       \
                                    std::size_t);

KY_INSTANTIATE(float)
KY_INSTANTIATE(double)
#undef KY_INSTANTIATE

}  // namespace KyMath::Rays
