// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_PLANE_H
#define KYMATH_PLANE_H

#include <KyMath/Forward.h>
#include <KyMath/Vector3.h>
#include <KyMath/Vector4.h>

namespace KyMath {

/// Oriented plane a x + b y + c z + d = 0 with normal (a, b, c); the left side of the equation is
/// above 0 on the positive side. The normal need not be of unit length, but should not be tiny.
///
/// A plane caches which corner of a box (numbered as in BoundingBoxT::corner) lies furthest along
/// its normal, the upper one, and furthest against it, the lower one, so that a box is classified
/// by two evaluations. set(), the transforms, and all constructors except the default one refresh
/// the cache; plain assignment copies it. A positive component of the normal below the machine
/// epsilon of T counts as negative there, and intersect() can be wrong for boxes that straddle the
/// plane: normalise such a normal (a cross product of short edges, say) before making a plane of
/// it. makeUnitLength() alone does not help, as it does not refresh the cache.
template <class T>
class KY_API PlaneT {
    static_assert(internal::IsScalar<T>::value, "KyMath: the scalar type must be float or double");

public:
    /// @name Construction
    /// @{
    PlaneT();                     ///< All coefficients and both corner indices 0.
    PlaneT(const PlaneT& plane);  ///< set() with the other's coefficients.
    PlaneT(T a, T b, T c, T d);
    PlaneT(const Vector4T<T>& v);  ///< (a, b, c, d) = v
    /// Through point, with the normal as given: d = -normal . point.
    PlaneT(const Vector3T<T>& normal, const Vector3T<T>& point);
    /// Through three points, with unit normal (p2 - p1) x (p3 - p2) / length: they run
    /// counter-clockwise seen from the positive side. If that length is at most 1e-6 the normal is
    /// (0, 0, 0). d = -normal . p2.
    PlaneT(const Vector3T<T>& p1, const Vector3T<T>& p2, const Vector3T<T>& p3);
    template <class U>
    explicit PlaneT(const PlaneT<U>&) KY_DELETED("call toFloat() or toDouble()");
    /// @}

    /// @name Assignment
    /// @{
    /// Copies coefficients and corner indices as they are.
    PlaneT& operator=(const PlaneT& plane);
    void set(T a, T b, T c, T d);
    void set(const Vector4T<T>& v);
    /// @}

    /// @name Access
    /// @{
    const Vector4T<T>& getAsVector4() const;  ///< (a, b, c, d)
    Vector3T<T> getNormal() const;            ///< (a, b, c)
    unsigned int upperBBCorner() const;       ///< The cached index of the upper corner, 0 to 7.
    unsigned int lowerBBCorner() const;       ///< The cached index of the lower corner, 0 to 7.
    /// @}

    /// @name Comparison of the coefficients, exact
    /// @{
    bool operator==(const PlaneT& plane) const;  ///< False with any NaN.
    bool operator!=(const PlaneT& plane) const;  ///< True with any NaN.
    /// @}

    /// @name Classification
    /// @{

    /// a p.x + b p.y + c p.z + d: the signed distance of p when the normal is of unit length.
    T distance(const Vector3T<T>& p) const;

    /// 1 if the whole box lies strictly on the positive side, -1 if strictly on the negative side,
    /// 0 if it straddles or touches the plane. The answer for an empty box is meaningless.
    int intersect(const BoundingBoxT<T>& box) const;

    /// The same for a sphere; one that touches the plane gives 0. Assumes a normal of unit length.
    int intersectBoundingSphere(const Vector3T<T>& center, T radius) const;
    /// @}

    /// @name Editing
    /// @{

    /// Multiplies all four coefficients by 1 / |(a, b, c)|: infinite or NaN for a zero normal. The
    /// corner indices stay.
    void makeUnitLength();

    /// Refreshes the corner indices and returns the lower one. The upper corner takes the maximum
    /// on an axis unless the coefficient is below the machine epsilon of T, the lower one the
    /// opposite.
    unsigned int calculateUpperLowerBBCorners();

    /// (a, b, c, d) = m (a, b, c, d), refreshes the corner indices, then makeUnitLength(). m is the
    /// matrix that maps plane coefficients: for points moved by p' = A p, the transposed inverse of
    /// A, which is not formed here.
    void transform(const Matrix44T<T>& m);
    void transformProvidingInverse(const Matrix44T<T>& m);  ///< The same as transform().
    /// @}

private:
    Vector4T<T> v_;  // a, b, c, d
    unsigned int upper_;
    unsigned int lower_;
};

#ifdef KYMATH_INLINE
}  // namespace KyMath
#include <KyMath/inline/Plane.h>
namespace KyMath {
#endif

extern template class PlaneT<float>;
extern template class PlaneT<double>;

}  // namespace KyMath

#endif
