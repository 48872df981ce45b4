// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Batch.h>

#include <KyMath/BoundingBox.h>
#include <KyMath/Matrix.h>
#include <KyMath/Plane.h>
#include <KyMath/Quaternion.h>
#include <KyMath/Transformation.h>

#include "lanes/Kernels.h"
#include "rotation/Slerps.h"
#include "transform/RotationArrays.h"

#include <new>

// Array calls that are loops over single calls, at least for the last elements; with SLEEF, those
// with trigonometry take several elements at once.

namespace KyMath::Batch {

namespace {

using internal::Strided;

/// out[i] = op(in[i]...)
template <class Op, class Out, class... In>
void each(std::size_t count, Op op, Strided<Out> out, Strided<In>... in) {
    for (std::size_t i = 0; i < count; ++i) *at(out, i) = op(*at(in, i)...);
}
template <class T, class V>
Strided<T> valuesOf(V* elements, std::size_t stride) {
    return {reinterpret_cast<T*>(elements), stride};
}
/// Elements i, i + 1 and so on.
template <class V>
Strided<V> from(std::size_t i, V* elements, std::size_t stride) {
    return {at(Strided<V>{elements, stride}, i), stride};
}

}  // namespace

template <class T>
void planeNormals(const Vector3T<T>* a, const Vector3T<T>* b, const Vector3T<T>* c,
                  Vector3T<T>* normals, std::size_t count, std::size_t aStride, std::size_t bStride,
                  std::size_t cStride, std::size_t normalStride) {
    using V = Vector3T<T>;
    const auto normalOf = [](const V& p, const V& q, const V& r) {
        V normal;
        V::planeNormal(p, q, r, normal);
        return normal;
    };
    each(count, normalOf, Strided<V>{normals, normalStride}, Strided<const V>{a, aStride},
         Strided<const V>{b, bStride}, Strided<const V>{c, cStride});
}

template <class T>
void slerp(const QuaternionT<T>* a, const QuaternionT<T>* b, const T* t, QuaternionT<T>* out,
           std::size_t count, std::size_t aStride, std::size_t bStride, std::size_t tStride,
           std::size_t outStride) {
#ifdef KY_LOCKSTEP
    internal::slerps<T>({a, aStride}, {b, bStride}, {t, tStride}, {out, outStride}, count);
#else
    using Q = QuaternionT<T>;
    each(
        count, [](const Q& p, const Q& q, T s) { return p.slerp(q, s); },
        Strided<Q>{out, outStride}, Strided<const Q>{a, aStride}, Strided<const Q>{b, bStride},
        Strided<const T>{t, tStride});
#endif
}
template <class T>
void createRotations(const QuaternionT<T>* in, Matrix44T<T>* out, std::size_t count,
                     std::size_t inStride, std::size_t outStride) {
    using Q = QuaternionT<T>;
    const std::size_t done = KY_WIDE_KERNEL(
        rotationMatrices<T>(valuesOf<const T>(in, inStride), valuesOf<T>(out, outStride), count));
    each(
        count - done, [](const Q& q) { return Transformation::createRotationT(q); },
        from(done, out, outStride), from(done, in, inStride));
}
template <class T>
void createRotations(const Vector3T<T>* in, Matrix44T<T>* out, std::size_t count,
                     std::size_t inStride, std::size_t outStride) {
#ifdef KY_LOCKSTEP
    internal::createRotations<T>({in, inStride}, {out, outStride}, count);
#else
    // Made in place: a copy would wait for what has just been stored.
    for (std::size_t i = 0; i < count; ++i) {
        const Vector3T<T> v = *at(Strided<const Vector3T<T>>{in, inStride}, i);
        ::new (static_cast<void*>(at(Strided<Matrix44T<T>>{out, outStride}, i)))
            Matrix44T<T>(Transformation::createRotationT(v.x(), v.y(), v.z()));
    }
#endif
}
template <class T>
void getRotationsAsQuaternions(const Matrix44T<T>* in, bool removeScale, QuaternionT<T>* out,
                               std::size_t count, std::size_t inStride, std::size_t outStride) {
    using M = Matrix44T<T>;
    const auto rotation = [=](const M& m) {
        return Transformation::getRotationAsQuaternionT(m, removeScale);
    };
    std::size_t done = 0;
    // In lanes all cases cost, which two lanes would not make up for.
    if (!removeScale && (sizeof(T) == sizeof(float) || internal::hasAvx2)) {
        done = KY_WIDE_KERNEL(rotationQuaternions<T>(valuesOf<const T>(in, inStride),
                                                     valuesOf<T>(out, outStride), count));
    }
    each(count - done, rotation, from(done, out, outStride), from(done, in, inStride));
}
template <class T>
void getRotations(const Matrix44T<T>* in, bool normalize, Vector3T<T>* out, std::size_t count,
                  std::size_t inStride, std::size_t outStride) {
#ifdef KY_LOCKSTEP
    internal::getRotations<T>({in, inStride}, normalize, {out, outStride}, count);
#else
    using M = Matrix44T<T>;
    each(
        count, [=](const M& m) { return Transformation::getRotationT(m, normalize); },
        Strided<Vector3T<T>>{out, outStride}, Strided<const M>{in, inStride});
#endif
}

template <class T>
void expandBy(BoundingBoxT<T>& box, const Vector3T<T>* points, std::size_t count,
              std::size_t stride) {
    BoundingBoxT<T> grown(box);
    const Strided<const Vector3T<T>> in = {points, stride};
    for (std::size_t i = 0; i < count; ++i) {
        const Vector3T<T>& p = *at(in, i);
        grown.expandBy(p.x(), p.y(), p.z());
    }
    box = grown;
}
template <class T>
void classify(const PlaneT<T>& plane, const Vector3T<T>* centers, const T* radii,
              signed char* sides, std::size_t count, std::size_t centerStride,
              std::size_t radiusStride) {
    using V = Vector3T<T>;
    const auto side = [&](const V& center, T radius) {
        return static_cast<signed char>(plane.intersectBoundingSphere(center, radius));
    };
    each(count, side, Strided<signed char>{sides, 1}, Strided<const V>{centers, centerStride},
         Strided<const T>{radii, radiusStride});
}

#define KY_INSTANTIATE(T)                                                                         \
    template void planeNormals(const Vector3T<T>*, const Vector3T<T>*, const Vector3T<T>*,        \
                               Vector3T<T>*, std::size_t, std::size_t, std::size_t, std::size_t,  \
                               std::size_t);                                                      \
    template void slerp(const QuaternionT<T>*, const QuaternionT<T>*, const T*, QuaternionT<T>*,  \
                        std::size_t, std::size_t, std::size_t, std::size_t, std::size_t);         \
    template void createRotations(const QuaternionT<T>*, Matrix44T<T>*, std::size_t, std::size_t, \
                                  std::size_t);                                                   \
    template void createRotations(const Vector3T<T>*, Matrix44T<T>*, std::size_t, std::size_t,    \
                                  std::size_t);                                                   \
    template void getRotationsAsQuaternions(const Matrix44T<T>*, bool, QuaternionT<T>*,           \
                                            std::size_t, std::size_t, std::size_t);               \
    template void getRotations(const Matrix44T<T>*, bool, Vector3T<T>*, std::size_t, std::size_t, \
                               std::size_t);                                                      \
    template void expandBy(BoundingBoxT<T>&, const Vector3T<T>*, std::size_t, std::size_t);       \
    template void classify(const PlaneT<T>&, const Vector3T<T>*, const T*, signed char*,          \
                           std::size_t, std::size_t, std::size_t);

KY_INSTANTIATE(float)
KY_INSTANTIATE(double)
#undef KY_INSTANTIATE

}  // namespace KyMath::Batch
