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
/// larger structures. It is a multiple of the alignment of an element, and at least its size; for
/// an input it may be 0, so that one element serves for all.
namespace Batch {

/// @name Vectors
/// @{

/// out[i] = a[i] * b[i], the dot product
template <class T>
KY_API void dot(const Vector3T<T>* a, const Vector3T<T>* b, T* out, std::size_t count,
                std::size_t aStride = sizeof(Vector3T<T>),
                std::size_t bStride = sizeof(Vector3T<T>), std::size_t outStride = sizeof(T));

/// out[i] = a[i].cross(b[i])
template <class T>
KY_API void cross(const Vector3T<T>* a, const Vector3T<T>* b, Vector3T<T>* out, std::size_t count,
                  std::size_t aStride = sizeof(Vector3T<T>),
                  std::size_t bStride = sizeof(Vector3T<T>),
                  std::size_t outStride = sizeof(Vector3T<T>));

/// out[i] = in[i].norm()
template <class T>
KY_API void norm(const Vector3T<T>* in, T* out, std::size_t count,
                 std::size_t inStride = sizeof(Vector3T<T>), std::size_t outStride = sizeof(T));

/// out[i] = in[i] after its normalize(): zero stays zero.
template <class T>
KY_API void normalize(const Vector3T<T>* in, Vector3T<T>* out, std::size_t count,
                      std::size_t inStride = sizeof(Vector3T<T>),
                      std::size_t outStride = sizeof(Vector3T<T>));

/// normals[i] as by Vector3T<T>::planeNormal(a[i], b[i], c[i], normals[i]). The corners of
/// triangles next to each other have a stride of 3 * sizeof(Vector3T<T>).
template <class T>
KY_API void planeNormals(const Vector3T<T>* a, const Vector3T<T>* b, const Vector3T<T>* c,
                         Vector3T<T>* normals, std::size_t count,
                         std::size_t aStride = sizeof(Vector3T<T>),
                         std::size_t bStride = sizeof(Vector3T<T>),
                         std::size_t cStride = sizeof(Vector3T<T>),
                         std::size_t normalStride = sizeof(Vector3T<T>));

/// @}

/// @name Quaternions
/// @{

/// out[i] = a[i] * b[i]
template <class T>
KY_API void multiply(const QuaternionT<T>* a, const QuaternionT<T>* b, QuaternionT<T>* out,
                     std::size_t count, std::size_t aStride = sizeof(QuaternionT<T>),
                     std::size_t bStride = sizeof(QuaternionT<T>),
                     std::size_t outStride = sizeof(QuaternionT<T>));

/// out[i] = q[i].rotate(in[i])
template <class T>
KY_API void rotate(const QuaternionT<T>* q, const Vector3T<T>* in, Vector3T<T>* out,
                   std::size_t count, std::size_t qStride = sizeof(QuaternionT<T>),
                   std::size_t inStride = sizeof(Vector3T<T>),
                   std::size_t outStride = sizeof(Vector3T<T>));

/// out[i] = a[i].slerp(b[i], t[i])
template <class T>
KY_API void slerp(const QuaternionT<T>* a, const QuaternionT<T>* b, const T* t, QuaternionT<T>* out,
                  std::size_t count, std::size_t aStride = sizeof(QuaternionT<T>),
                  std::size_t bStride = sizeof(QuaternionT<T>), std::size_t tStride = sizeof(T),
                  std::size_t outStride = sizeof(QuaternionT<T>));

/// out[i] = in[i] after its normalize()
template <class T>
KY_API void normalize(const QuaternionT<T>* in, QuaternionT<T>* out, std::size_t count,
                      std::size_t inStride = sizeof(QuaternionT<T>),
                      std::size_t outStride = sizeof(QuaternionT<T>));

/// @}

/// @name Matrices
/// @{

/// out[i] = Transformation::createRotationT(in[i])
template <class T>
KY_API void createRotations(const QuaternionT<T>* in, Matrix44T<T>* out, std::size_t count,
                            std::size_t inStride = sizeof(QuaternionT<T>),
                            std::size_t outStride = sizeof(Matrix44T<T>));

/// out[i] = Transformation::createRotationT(x, y, z) of the angles in[i]
template <class T>
KY_API void createRotations(const Vector3T<T>* in, Matrix44T<T>* out, std::size_t count,
                            std::size_t inStride = sizeof(Vector3T<T>),
                            std::size_t outStride = sizeof(Matrix44T<T>));

/// out[i] = Transformation::getRotationAsQuaternionT(in[i], removeScale)
template <class T>
KY_API void getRotationsAsQuaternions(const Matrix44T<T>* in, bool removeScale, QuaternionT<T>* out,
                                      std::size_t count,
                                      std::size_t inStride = sizeof(Matrix44T<T>),
                                      std::size_t outStride = sizeof(QuaternionT<T>));

/// out[i] = Transformation::getRotationT(in[i], normalize)
template <class T>
KY_API void getRotations(const Matrix44T<T>* in, bool normalize, Vector3T<T>* out,
                         std::size_t count, std::size_t inStride = sizeof(Matrix44T<T>),
                         std::size_t outStride = sizeof(Vector3T<T>));

/// out[i] = in[i].inverse()
template <class T>
KY_API void inverse(const Matrix44T<T>* in, Matrix44T<T>* out, std::size_t count,
                    std::size_t inStride = sizeof(Matrix44T<T>),
                    std::size_t outStride = sizeof(Matrix44T<T>));

/// @}

/// @name Rigid transforms
/// @{

/// out[i] = m.transformPoint(in[i])
KY_API void transformPoints(const Ky::KyTransform& m, const Vector3T<double>* in,
                            Vector3T<double>* out, std::size_t count,
                            std::size_t inStride = sizeof(Vector3T<double>),
                            std::size_t outStride = sizeof(Vector3T<double>));

/// out[i] = m.transformDirection(in[i])
KY_API void transformDirections(const Ky::KyTransform& m, const Vector3T<double>* in,
                                Vector3T<double>* out, std::size_t count,
                                std::size_t inStride = sizeof(Vector3T<double>),
                                std::size_t outStride = sizeof(Vector3T<double>));

/// @}

/// @name Transforms of points and boxes, products
/// @{

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

/// @}

/// @name Boxes and spheres
/// @{

/// sides[i] = plane.intersect(boxes[i]): 1, -1 or 0, meaningless for an empty box.
template <class T>
KY_API void classify(const PlaneT<T>& plane, const BoundingBoxT<T>* boxes, signed char* sides,
                     std::size_t count, std::size_t stride = sizeof(BoundingBoxT<T>));

/// box.expandBy(points[i]) for each point
template <class T>
KY_API void expandBy(BoundingBoxT<T>& box, const Vector3T<T>* points, std::size_t count,
                     std::size_t stride = sizeof(Vector3T<T>));

/// sides[i] = plane.intersectBoundingSphere(centers[i], radii[i]): 1, -1 or 0.
template <class T>
KY_API void classify(const PlaneT<T>& plane, const Vector3T<T>* centers, const T* radii,
                     signed char* sides, std::size_t count,
                     std::size_t centerStride = sizeof(Vector3T<T>),
                     std::size_t radiusStride = sizeof(T));

/// visible[i] = region.contains(boxes[i]), as 1 or 0, under the mask on top of the region's stack.
/// The region does not change. An empty box is not culled: it gives 1.
KY_API void cull(const Polytope& region, const BoundingBoxT<double>* boxes, unsigned char* visible,
                 std::size_t count, std::size_t stride = sizeof(BoundingBoxT<double>));

/// visible[i] = 0 if frustum.getPlane(k).intersect(boxes[i]) is -1 for any plane, otherwise 1
KY_API void cull(const Frustum& frustum, const BoundingBoxT<float>* boxes, unsigned char* visible,
                 std::size_t count, std::size_t stride = sizeof(BoundingBoxT<float>));

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

/// @}

}  // namespace Batch
}  // namespace KyMath

#endif
