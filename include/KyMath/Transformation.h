// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_TRANSFORMATION_H
#define KYMATH_TRANSFORMATION_H

#include <KyMath/Forward.h>
#include <KyMath/Matrix.h>
#include <KyMath/Quaternion.h>
#include <KyMath/Vector3.h>

namespace KyMath {

/// Functions that build, read and edit transformation and projection matrices, for float and
/// double.
///
/// Column vectors, translation in column 3, angles in radians. Input is not checked: a zero extent
/// or a zero quaternion gives infinities or NaN.
///
/// The projections reverse depth: perspective depth is 1 at the near and 0 at the far bound, and
/// orthographic depth 1 and -1. Keep the greater depth, and clear to the far value.
namespace Transformation {

/// @name Scale and translation
/// @{
template <class T>
KY_API Matrix44T<T> createScaleT(T x, T y, T z);  ///< diag(x, y, z, 1)
template <class T>
KY_API Matrix44T<T> createScaleT(const Vector3T<T>& s);  ///< diag(s.x, s.y, s.z, 1)
template <class T>
KY_API Matrix44T<T> createTranslationT(T x, T y, T z);
template <class T>
KY_API Matrix44T<T> createTranslationT(const Vector3T<T>& v);
/// @}

/// @name Rotation
/// @{

/// Rx(x) Ry(y) Rz(z): turns a vector about the z axis first, then y, then x.
template <class T>
KY_API Matrix44T<T> createRotationT(T x, T y, T z);

/// The rotation of q divided by its length; NaN for a zero quaternion.
template <class T>
KY_API Matrix44T<T> createRotationT(const QuaternionT<T>& q);

/// Rotation by angle about axis, which may have any length; the identity for a zero axis.
template <class T>
KY_API Matrix44T<T> createRotationT(const Vector3T<T>& axis, T angle);

/// Columns a, b, c as given: the images of the x, y and z axes.
template <class T>
KY_API Matrix44T<T> createRotationFromAxesT(const Vector3T<T>& a, const Vector3T<T>& b,
                                            const Vector3T<T>& c);

/// The outer product a b^T as the upper-left 3x3 block: element (i, j) = a_i b_j. In general not a
/// rotation.
template <class T>
KY_API Matrix44T<T> createRotationFromOuterProductT(const Vector3T<T>& a, const Vector3T<T>& b);
/// @}

/// @name Frames that look at a point
/// @{

/// Frame at position with local x towards target, local z up and local y to the left:
///
///     f = target - position,  s = f x up,  w = s x f,  each normalised;  columns f, -s, w,
///     position.
///
/// up must be of unit length: it is not normalised. When |f . up| > 1 - 2^-23, up is replaced by a
/// copy with 0.1 added to the component that follows its largest one, so that looking straight up
/// or down works. A longer up can roll the frame of an oblique view; with a shorter one, looking
/// straight up leaves s and w zero. A target equal to position leaves f, s and w zero.
template <class T>
KY_API Matrix44T<T> createObjectLookAtT(const Vector3T<T>& position, const Vector3T<T>& target,
                                        const Vector3T<T>& up);

/// Camera-to-world transform of a camera at position that looks along its local -z towards target,
/// with local x to its right and local y up. The view matrix is its inverse. up must be of unit
/// length.
///
/// It is createObjectLookAtT(position, target, up) times createRotationT(pi/2, -pi/2, 0), whose
/// rounding residues stay in the result.
template <class T>
KY_API Matrix44T<T> createCameraLookAtT(const Vector3T<T>& position, const Vector3T<T>& target,
                                        const Vector3T<T>& up);
/// @}

/// @name Projections
/// @{

/// Scales and shifts [left, right], [bottom, top] to [-1, 1], and depth by
/// z' = (2 z + zFar + zNear) / (zFar - zNear): z = -zNear, in front of the camera, maps to 1, and
/// z = -zFar to -1.
template <class T>
KY_API Matrix44T<T> createOrthographicT(T left, T right, T bottom, T top, T zNear, T zFar);

/// Reads the six bounds back from a matrix of createOrthographicT. Returns false and writes nothing
/// when |m(3,3) - 1| exceeds 1e-14, or |m(0,0)|, |m(1,1)| or |m(2,2)| is below it. No other element
/// is checked, and a NaN passes.
template <class T>
KY_API bool getOrthographicT(const Matrix44T<T>& m, T& left, T& right, T& bottom, T& top, T& zNear,
                             T& zFar);

/// Perspective projection of the frustum whose near face at z = -zNear spans [left, right] and
/// [bottom, top]. After division by w, x and y lie in [-1, 1]; depth is 1 at z = -zNear and 0 at
/// z = -zFar. An infinite zFar gives NaN.
template <class T>
KY_API Matrix44T<T> createFrustumT(T left, T right, T bottom, T top, T zNear, T zFar);

/// Reads the six bounds back from a matrix of createFrustumT. Returns false and writes nothing when
/// |1 + m(3,2)| exceeds 1e-14, or |m(2,2)|, |m(2,2) + 1|, |m(1,1)| or |m(0,0)| is below it. A NaN
/// passes.
template <class T>
KY_API bool getFrustumT(const Matrix44T<T>& m, T& left, T& right, T& bottom, T& top, T& zNear,
                        T& zFar);

/// Symmetric frustum: fovY is the full vertical angle, aspect is width over height.
template <class T>
KY_API Matrix44T<T> createPerspectiveT(T fovY, T aspect, T zNear, T zFar);

/// m(3,2) != 0; true for a NaN.
template <class T>
KY_API bool isPerspectiveProjectionT(const Matrix44T<T>& m);
/// @}

/// @name Reading a transformation
/// The length of a column is that of its four values; in an affine matrix the fourth is 0.
/// @{

template <class T>
KY_API Vector3T<T> getTranslationT(const Matrix44T<T>& m);  ///< (m(0,3), m(1,3), m(2,3))

/// The lengths of columns 0, 1, 2: never negative, even for a reflection.
template <class T>
KY_API Vector3T<T> getScaleT(const Matrix44T<T>& m);

/// Angles (x, y, z) of createRotationT(x, y, z), read from m, or with normalize from a copy whose
/// columns are normalised: y = asin(m(0,2)), x = atan2(-m(1,2), m(2,2)), z = atan2(-m(0,1),
/// m(0,0)). y is NaN when |m(0,2)| > 1, and y = +-pi/2 is not treated specially, as it is by
/// decomposeT().
template <class T>
KY_API Vector3T<T> getRotationT(const Matrix44T<T>& m, bool normalize);

/// The rotation of m as a unit quaternion, with any uniform scale: from the trace when it is
/// positive (then w > 0), otherwise from the largest diagonal element, the lower index winning a
/// tie (then w may be negative). With removeScale the columns are normalised first, as by
/// setScaleT(). Without that, a scale that differs by axis gives a length other than 1. A mirrored
/// m gives no meaningful rotation (see decomposeT() for the sign). A zero m gives NaN, or the
/// identity with removeScale.
template <class T>
KY_API QuaternionT<T> getRotationAsQuaternionT(const Matrix44T<T>& m, bool removeScale);

/// Splits m into what composeT() joins.
///
/// sign is 1, or -1 when the determinant is below 0 or NaN. scale holds the column lengths.
/// rotation holds the angles (x, y, z) of createRotationT, read from the normalised columns; within
/// 1e-7 of y = +-pi/2 (and for a NaN y), z is 0 and x carries the whole turn. With sign -1, the
/// angles are read from the mirrored axes, and composeT() may give a different matrix.
template <class T>
KY_API void decomposeT(const Matrix44T<T>& m, Vector3T<T>& scale, Vector3T<T>& rotation,
                       Vector3T<T>& translation, T& sign);
/// @}

/// @name Joining and replacing parts
/// @{

/// Scale first, then rotation Rx Ry Rz, then translation: columns 0, 1, 2 of
/// createRotationT(rotation) times sign scale.x, sign scale.y, sign scale.z.
template <class T>
KY_API Matrix44T<T> composeT(const Vector3T<T>& scale, const Vector3T<T>& rotation,
                             const Vector3T<T>& translation, T sign);

template <class T>
KY_API void setTranslationT(Matrix44T<T>& m, const Vector3T<T>& t);  ///< Nothing else changes.
template <class T>
KY_API Matrix44T<T> translateToT(const Matrix44T<T>& m, const Vector3T<T>& t);  ///< On a copy.

/// Replaces the angles of m: decomposeT(), then composeT() with the new rotation.
template <class T>
KY_API void setRotationT(Matrix44T<T>& m, const Vector3T<T>& rotation);
template <class T>
KY_API Matrix44T<T> rotateToT(const Matrix44T<T>& m, const Vector3T<T>& rotation);  ///< On a copy.

/// Scales columns 0, 1, 2 (four values each) to the lengths scale.x, scale.y, scale.z. If one of
/// them is zero, m is decomposed and composed anew with the new scale instead: that column gets a
/// direction, and the others may turn.
template <class T>
KY_API void setScaleT(Matrix44T<T>& m, const Vector3T<T>& scale);
template <class T>
KY_API Matrix44T<T> scaleToT(const Matrix44T<T>& m, const Vector3T<T>& scale);  ///< On a copy.
/// @}

/// @name Points, directions, velocities
/// @{

/// m (p, 1) with each component divided by w. A w of 0 gives infinities or NaN.
template <class T>
KY_API Vector3T<T> transformPositionT(const Matrix44T<T>& m, const Vector3T<T>& p);

/// m (d, 0), without division. The products with 0 are formed: a translation that is not finite
/// gives NaN.
template <class T>
KY_API Vector3T<T> transformDirectionT(const Matrix44T<T>& m, const Vector3T<T>& d);

/// (translation of m1 - translation of m0) times 1 / dt.
template <class T>
KY_API Vector3T<T> linearVelocityT(const Matrix44T<T>& m0, const Matrix44T<T>& m1, T dt);

/// Angular velocity in radians per unit of time, in the fixed frame, by a finite difference: twice
/// the vector part of (q1 - q0) q0*, times 1 / dt. For rotations that differ little; if the signs
/// of q0 and q1 differ, the result is large and meaningless.
template <class T>
KY_API Vector3T<T> angularVelocityT(const Matrix44T<T>& m0, const Matrix44T<T>& m1, T dt);
/// @}

/// Whether m is a rotation within tol: columns 0, 1, 2 of unit length, determinant 1, and elements
/// (0,1), (0,2), (1,2) of the inverse of the 3x3 block equal to those of its transpose. False for
/// a 3x3 determinant of exactly 0. A NaN passes every test.
template <class T>
KY_API bool isRotation(const Matrix44T<T>& m, T tol);

}  // namespace Transformation
}  // namespace KyMath

#ifdef KYMATH_INLINE
#include <KyMath/inline/Transformation.h>
#endif

#endif
