// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_BATCH_H
#define KYMATH_BATCH_H

#include <KyMath/BoundingBox.h>

#include <cstddef>

namespace KyMath {

/// One operation on whole arrays: each element gets the same bits as from the single call named, in
/// less time.
///
/// If count is 0, no pointer is used. A result may be written over the operand with the same index:
/// pass the same array with the same stride. Arrays must not overlap otherwise. Nothing is
/// allocated, and threads may share inputs.
///
/// A stride is the number of bytes from one element to the next, for elements that are members of
/// larger structures. It is a multiple of alignof(T), and at least the size of an element.
namespace Batch {

/// out[i] = Transformation::transformPositionT(m, in[i]): with division by w.
template <class T>
KY_API void transformPositions(const Matrix44T<T>& m, const Vector3T<T>* in, Vector3T<T>* out,
                               std::size_t count, std::size_t inStride = sizeof(Vector3T<T>),
                               std::size_t outStride = sizeof(Vector3T<T>));

/// out[i] = Transformation::transformDirectionT(m, in[i])
template <class T>
KY_API void transformDirections(const Matrix44T<T>& m, const Vector3T<T>* in, Vector3T<T>* out,
                                std::size_t count, std::size_t inStride = sizeof(Vector3T<T>),
                                std::size_t outStride = sizeof(Vector3T<T>));

/// out[i] = in[i] after its transform(m): a box that is not valid is copied unchanged.
template <class T>
KY_API void transformBoxes(const Matrix44T<T>& m, const BoundingBoxT<T>* in, BoundingBoxT<T>* out,
                           std::size_t count, std::size_t inStride = sizeof(BoundingBoxT<T>),
                           std::size_t outStride = sizeof(BoundingBoxT<T>));

/// out[i] = Matrix44T<T>::multiply(a[i], b[i])
template <class T>
KY_API void multiply(const Matrix44T<T>* a, const Matrix44T<T>* b, Matrix44T<T>* out,
                     std::size_t count);

/// out[i] = Matrix44T<T>::multiply(a, b[i]), with one a, which must not be an element of out.
template <class T>
KY_API void multiply(const Matrix44T<T>& a, const Matrix44T<T>* b, Matrix44T<T>* out,
                     std::size_t count);

/// out[i].compound(a[i], b[i]): a first, then b. Row 3 of each out[i] stays.
KY_API void compound(const Ky::KyTransform* a, const Ky::KyTransform* b, Ky::KyTransform* out,
                     std::size_t count);

/// sides[i] = plane.intersect(boxes[i]): 1, -1 or 0, meaningless for an empty box.
template <class T>
KY_API void classify(const PlaneT<T>& plane, const BoundingBoxT<T>* boxes, signed char* sides,
                     std::size_t count, std::size_t stride = sizeof(BoundingBoxT<T>));

/// visible[i] = region.contains(boxes[i]), as 1 or 0, under the mask on top of the region's stack.
/// The region does not change. An empty box is not culled: it gives 1.
KY_API void cull(const Polytope& region, const BoundingBoxT<double>* boxes, unsigned char* visible,
                 std::size_t count, std::size_t stride = sizeof(BoundingBoxT<double>));

/// Where each box lies, under the same mask: sides[i] is 1 if it is wholly inside all planes, -1 if
/// wholly outside any, and otherwise 0: then masks[i] is the planes that it straddles or touches,
/// what region.getCurrentMask() is after region.contains(boxes[i]). For other sides, masks[i] has
/// no meaning.
KY_API void cullWithMasks(const Polytope& region, const BoundingBoxT<double>* boxes,
                          signed char* sides, unsigned int* masks, std::size_t count,
                          std::size_t stride = sizeof(BoundingBoxT<double>));

/// The same for a hierarchy of nested boxes, with the results of the protocol that Polytope
/// describes: a box is tested only against the planes that the box above it straddles, and not at
/// all below a box that is inside or outside, whose side it takes.
///
/// The boxes are in depth-first order: each is followed by those below it, descendants[i] in
/// number: its children, their children and so on, 0 for a leaf. There may be several roots, one
/// behind the other. Every sides[i] is written, and masks[i] wherever sides[i] is 0.
///
/// If each box contains those below it, sides[i] >= 0 is what cull() gives for box i. If
/// descendants does not describe a hierarchy, the results have no meaning, but no memory beyond the
/// arrays is touched. Depth has no limit.
KY_API void cullTree(const Polytope& region, const BoundingBoxT<double>* boxes,
                     const unsigned int* descendants, signed char* sides, unsigned int* masks,
                     std::size_t count, std::size_t boxStride = sizeof(BoundingBoxT<double>),
                     std::size_t descendantStride = sizeof(unsigned int));

}  // namespace Batch
}  // namespace KyMath

#endif
