// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Batch.h>

#include <Ky/KyTransform.h>
#include <KyMath/BoundingBox.h>
#include <KyMath/Matrix.h>
#include <KyMath/Plane.h>
#include <KyMath/Polytope.h>

#include "bounds/Mask.h"
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
    const Vector4T<T>& v = plane.getAsVector4();
    return {{v[0], v[1], v[2], v[3]}, plane.upperBBCorner(), plane.lowerBBCorner()};
}

}  // namespace

template <class T>
void transformPositions(const Matrix44T<T>& m, const Vector3T<T>* in, Vector3T<T>* out,
                        std::size_t count, std::size_t inStride, std::size_t outStride) {
    KY_KERNEL(
        transformPositions<T>(m, valuesOf<T>(in, inStride), valuesOf<T>(out, outStride), count));
}
template <class T>
void transformDirections(const Matrix44T<T>& m, const Vector3T<T>* in, Vector3T<T>* out,
                         std::size_t count, std::size_t inStride, std::size_t outStride) {
    KY_KERNEL(
        transformDirections<T>(m, valuesOf<T>(in, inStride), valuesOf<T>(out, outStride), count));
}
template <class T>
void transformBoxes(const Matrix44T<T>& m, const BoundingBoxT<T>* in, BoundingBoxT<T>* out,
                    std::size_t count, std::size_t inStride, std::size_t outStride) {
    KY_KERNEL(transformBoxes<T>(m, valuesOf<T>(in, inStride), valuesOf<T>(out, outStride), count));
}

template <class T>
void multiply(const Matrix44T<T>* a, const Matrix44T<T>* b, Matrix44T<T>* out, std::size_t count) {
    KY_KERNEL(matrixProducts<T>(valuesOf<T>(a, sizeof *a), valuesOf<T>(b, sizeof *b),
                                valuesOf<T>(out, sizeof *out), count));
}
template <class T>
void multiply(const Matrix44T<T>& a, const Matrix44T<T>* b, Matrix44T<T>* out, std::size_t count) {
    KY_KERNEL(matrixProducts<T>(valuesOf<T>(&a, 0), valuesOf<T>(b, sizeof *b),
                                valuesOf<T>(out, sizeof *out), count));
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
void cull(const Polytope& region, const BoundingBoxT<double>* boxes, unsigned char* visible,
          std::size_t count, std::size_t stride) {
    const unsigned int mask = region.getMaskStack().back();
    const std::vector<PlaneT<double>>& planes = region.getPlanes();
    internal::CullPlane<double> tested[internal::kMaskBits];
    std::size_t n = 0;
    for (std::size_t i = 0; i < internal::maskedPlanes(planes); ++i) {
        if (mask >> i & 1) tested[n++] = cullPlaneOf(planes[i]);
    }
    KY_KERNEL(cull(tested, n, valuesOf<double>(boxes, stride), visible, count));
}

#define KY_INSTANTIATE(T)                                                                         \
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
