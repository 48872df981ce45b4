// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Batch.h>

#include <Ky/KyTransform.h>
#include <KyMath/BoundingBox.h>
#include <KyMath/Frustum.h>
#include <KyMath/Matrix.h>
#include <KyMath/Plane.h>
#include <KyMath/Polytope.h>
#include <KyMath/Quaternion.h>
#include <KyMath/inline/Components.h>

#include "lanes/Kernels.h"

namespace KyMath::Batch {

namespace {

/// Views an array of V as its values of type T.
template <class T, class V>
internal::Strided<const T> valuesOf(const V* elements, std::size_t stride) {
    return {reinterpret_cast<const T*>(elements), stride};
}
template <class T, class V>
internal::Strided<T> valuesOf(V* elements, std::size_t stride) {
    return {reinterpret_cast<T*>(elements), stride};
}

template <class T>
internal::CullPlane<T> cullPlaneOf(const PlaneT<T>& plane) {
    internal::CullPlane<T> p;
    for (int i = 0; i < 4; ++i) p.v[i] = plane.getAsVector4()[i];
    for (std::size_t i = 0; i < 3; ++i) {
        p.upper[i] = i + (plane.upperBBCorner() >> i & 1) * 3;
        p.lower[i] = i + (plane.lowerBBCorner() >> i & 1) * 3;
    }
    return p;
}

}  // namespace

template <class T>
void dot(const Vector3T<T>* a, const Vector3T<T>* b, T* out, std::size_t count, std::size_t aStride,
         std::size_t bStride, std::size_t outStride) {
    KY_WIDE_KERNEL(
        dots<T>(valuesOf<T>(a, aStride), valuesOf<T>(b, bStride), {out, outStride}, count));
}
template <class T>
void cross(const Vector3T<T>* a, const Vector3T<T>* b, Vector3T<T>* out, std::size_t count,
           std::size_t aStride, std::size_t bStride, std::size_t outStride) {
    KY_WIDE_KERNEL(crosses<T>(valuesOf<T>(a, aStride), valuesOf<T>(b, bStride),
                              valuesOf<T>(out, outStride), count));
}
template <class T>
void norm(const Vector3T<T>* in, T* out, std::size_t count, std::size_t inStride,
          std::size_t outStride) {
    KY_WIDE_KERNEL(norms<T>(valuesOf<T>(in, inStride), {out, outStride}, count));
}
template <class T>
void normalize(const Vector3T<T>* in, Vector3T<T>* out, std::size_t count, std::size_t inStride,
               std::size_t outStride) {
    KY_WIDE_KERNEL(normalized<T>(valuesOf<T>(in, inStride), valuesOf<T>(out, outStride), count));
}

template <class T>
void multiply(const QuaternionT<T>* a, const QuaternionT<T>* b, QuaternionT<T>* out,
              std::size_t count, std::size_t aStride, std::size_t bStride, std::size_t outStride) {
    KY_WIDE_KERNEL(quaternionProducts<T>(valuesOf<T>(a, aStride), valuesOf<T>(b, bStride),
                                         valuesOf<T>(out, outStride), count));
}
template <class T>
void rotate(const QuaternionT<T>* q, const Vector3T<T>* in, Vector3T<T>* out, std::size_t count,
            std::size_t qStride, std::size_t inStride, std::size_t outStride) {
    KY_WIDE_KERNEL(rotatedByEach<T>(valuesOf<T>(q, qStride), valuesOf<T>(in, inStride),
                                    valuesOf<T>(out, outStride), count));
}
template <class T>
void normalize(const QuaternionT<T>* in, QuaternionT<T>* out, std::size_t count,
               std::size_t inStride, std::size_t outStride) {
    KY_WIDE_KERNEL(
        normalizedQuaternions<T>(valuesOf<T>(in, inStride), valuesOf<T>(out, outStride), count));
}

void transformPoints(const Ky::KyTransform& m, const Vector3T<double>* in, Vector3T<double>* out,
                     std::size_t count, std::size_t inStride, std::size_t outStride) {
    KY_WIDE_KERNEL(transformRigidPoints(m, valuesOf<double>(in, inStride),
                                        valuesOf<double>(out, outStride), count));
}
void transformDirections(const Ky::KyTransform& m, const Vector3T<double>* in,
                         Vector3T<double>* out, std::size_t count, std::size_t inStride,
                         std::size_t outStride) {
    KY_WIDE_KERNEL(transformRigidDirections(m, valuesOf<double>(in, inStride),
                                            valuesOf<double>(out, outStride), count));
}

template <class T>
void transformPositions(const Matrix44T<T>& m, const Vector3T<T>* in, Vector3T<T>* out,
                        std::size_t count, std::size_t inStride, std::size_t outStride) {
    KY_WIDE_KERNEL(
        transformPositions<T>(m, valuesOf<T>(in, inStride), valuesOf<T>(out, outStride), count));
}
template <class T>
void transformDirections(const Matrix44T<T>& m, const Vector3T<T>* in, Vector3T<T>* out,
                         std::size_t count, std::size_t inStride, std::size_t outStride) {
    KY_WIDE_KERNEL(
        transformDirections<T>(m, valuesOf<T>(in, inStride), valuesOf<T>(out, outStride), count));
}
template <class T>
void transformBoxes(const Matrix44T<T>& m, const BoundingBoxT<T>* in, BoundingBoxT<T>* out,
                    std::size_t count, std::size_t inStride, std::size_t outStride) {
    KY_WIDE_KERNEL(
        transformBoxes<T>(m, valuesOf<T>(in, inStride), valuesOf<T>(out, outStride), count));
}

template <class T>
void multiply(const Matrix44T<T>* a, const Matrix44T<T>* b, Matrix44T<T>* out, std::size_t count) {
    KY_WIDE_KERNEL(matrixProducts<T>(valuesOf<T>(a, sizeof *a), valuesOf<T>(b, sizeof *b),
                                     valuesOf<T>(out, sizeof *out), count));
}
template <class T>
void multiply(const Matrix44T<T>& a, const Matrix44T<T>* b, Matrix44T<T>* out, std::size_t count) {
    KY_WIDE_KERNEL(matrixProducts<T>(valuesOf<T>(&a, 0), valuesOf<T>(b, sizeof *b),
                                     valuesOf<T>(out, sizeof *out), count));
}
template <class T>
void inverse(const Matrix44T<T>* in, Matrix44T<T>* out, std::size_t count, std::size_t inStride,
             std::size_t outStride) {
    KY_WIDE_KERNEL(inverses<T>(valuesOf<T>(in, inStride), valuesOf<T>(out, outStride), count));
}
void compound(const Ky::KyTransform* a, const Ky::KyTransform* b, Ky::KyTransform* out,
              std::size_t count) {
    KY_KERNEL(compounds(valuesOf<double>(a, sizeof *a), valuesOf<double>(b, sizeof *b),
                        valuesOf<double>(out, sizeof *out), count));
}

template <class T>
void classify(const PlaneT<T>& plane, const BoundingBoxT<T>* boxes, signed char* sides,
              std::size_t count, std::size_t stride) {
    KY_KERNEL(classify<T>(cullPlaneOf(plane), valuesOf<T>(boxes, stride), sides, count));
}

namespace {

/// The planes of a region that its mask can name, and the mask on top of its stack.
struct CullPlanes {
    internal::CullPlane<double> planes[internal::maskBits()];
    unsigned int mask;

    explicit CullPlanes(const Polytope& region) : mask(region.getMaskStack().back()) {
        const std::size_t count = internal::maskedPlanes(region.getPlanes().size());
        for (std::size_t i = 0; i < count; ++i) planes[i] = cullPlaneOf(region.getPlanes()[i]);
        if (count < internal::maskBits()) mask &= (1u << count) - 1;
    }
};

}  // namespace

void cull(const Polytope& region, const BoundingBoxT<double>* boxes, unsigned char* visible,
          std::size_t count, std::size_t stride) {
    const CullPlanes tested(region);
    KY_WIDE_KERNEL(
        cull<double>(tested.planes, tested.mask, valuesOf<double>(boxes, stride), visible, count));
}
void cull(const Frustum& frustum, const BoundingBoxT<float>* boxes, unsigned char* visible,
          std::size_t count, std::size_t stride) {
    internal::CullPlane<float> planes[6];
    for (unsigned int i = 0; i < 6; ++i) planes[i] = cullPlaneOf(frustum.getPlane(i));
    KY_WIDE_KERNEL(cull<float>(planes, 63, valuesOf<float>(boxes, stride), visible, count));
}
void cullWithMasks(const Polytope& region, const BoundingBoxT<double>* boxes, signed char* sides,
                   unsigned int* masks, std::size_t count, std::size_t stride) {
    const CullPlanes tested(region);
    KY_WIDE_KERNEL(cullWithMasks(tested.planes, tested.mask, valuesOf<double>(boxes, stride), sides,
                                 masks, count));
}
void cullTree(const Polytope& region, const BoundingBoxT<double>* boxes,
              const unsigned int* descendants, signed char* sides, unsigned int* masks,
              std::size_t count, std::size_t boxStride, std::size_t descendantStride) {
    const CullPlanes tested(region);
    KY_KERNEL(cullTree(tested.planes, tested.mask, valuesOf<double>(boxes, boxStride),
                       {descendants, descendantStride}, sides, masks, count));
}

#define KY_INSTANTIATE(T)                                                                         \
    template void dot(const Vector3T<T>*, const Vector3T<T>*, T*, std::size_t, std::size_t,       \
                      std::size_t, std::size_t);                                                  \
    template void cross(const Vector3T<T>*, const Vector3T<T>*, Vector3T<T>*, std::size_t,        \
                        std::size_t, std::size_t, std::size_t);                                   \
    template void norm(const Vector3T<T>*, T*, std::size_t, std::size_t, std::size_t);            \
    template void normalize(const Vector3T<T>*, Vector3T<T>*, std::size_t, std::size_t,           \
                            std::size_t);                                                         \
    template void multiply(const QuaternionT<T>*, const QuaternionT<T>*, QuaternionT<T>*,         \
                           std::size_t, std::size_t, std::size_t, std::size_t);                   \
    template void rotate(const QuaternionT<T>*, const Vector3T<T>*, Vector3T<T>*, std::size_t,    \
                         std::size_t, std::size_t, std::size_t);                                  \
    template void normalize(const QuaternionT<T>*, QuaternionT<T>*, std::size_t, std::size_t,     \
                            std::size_t);                                                         \
    template void inverse(const Matrix44T<T>*, Matrix44T<T>*, std::size_t, std::size_t,           \
                          std::size_t);                                                           \
    template void transformPositions(const Matrix44T<T>&, const Vector3T<T>*, Vector3T<T>*,       \
                                     std::size_t, std::size_t, std::size_t);                      \
    template void transformDirections(const Matrix44T<T>&, const Vector3T<T>*, Vector3T<T>*,      \
                                      std::size_t, std::size_t, std::size_t);                     \
    template void transformBoxes(const Matrix44T<T>&, const BoundingBoxT<T>*, BoundingBoxT<T>*,   \
                                 std::size_t, std::size_t, std::size_t);                          \
    template void multiply(const Matrix44T<T>*, const Matrix44T<T>*, Matrix44T<T>*, std::size_t); \
    template void multiply(const Matrix44T<T>&, const Matrix44T<T>*, Matrix44T<T>*, std::size_t); \
    template void classify(const PlaneT<T>&, const BoundingBoxT<T>*, signed char*, std::size_t,   \
                           std::size_t);

KY_INSTANTIATE(float)
KY_INSTANTIATE(double)
#undef KY_INSTANTIATE

}  // namespace KyMath::Batch
