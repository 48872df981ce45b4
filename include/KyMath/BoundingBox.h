// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_BOUNDINGBOX_H
#define KYMATH_BOUNDINGBOX_H

#include <KyMath/Forward.h>
#include <KyMath/Vector3.h>

namespace KyMath {

/// Axis-aligned box: a minimum and a maximum corner, which are never swapped.
///
/// The empty box has the largest finite T as its minimum and the negation as its maximum, so that
/// whatever is merged into it first replaces both. A box is valid when no minimum exceeds its
/// maximum; a single point is a valid box. Before you measure, hit-test or cull a box that may be
/// empty, test valid(): nothing else checks it.
template <class T>
class KY_API BoundingBoxT {
    static_assert(internal::IsScalar<T>::value, "KyMath: the scalar type must be float or double");

public:
    /// @name Construction and setting
    /// Values are stored as given, even where min > max.
    /// @{
    BoundingBoxT();  ///< The empty box.
    BoundingBoxT(T xMin, T yMin, T zMin, T xMax, T yMax, T zMax);
    BoundingBoxT(const Vector3T<T>& min, const Vector3T<T>& max);
    template <class U>
    explicit BoundingBoxT(const BoundingBoxT<U>&) KY_DELETED("call toFloat() or toDouble()");
    void init();  ///< Makes it the empty box.
    void set(T xMin, T yMin, T zMin, T xMax, T yMax, T zMax);
    void set(const Vector3T<T>& min, const Vector3T<T>& max);
    /// @}

    /// @name Access
    /// @{
    Vector3T<T>& getMin();
    Vector3T<T>& getMax();
    const Vector3T<T>& getMin() const;
    const Vector3T<T>& getMax() const;
    T& xMin();
    T& yMin();
    T& zMin();
    T& xMax();
    T& yMax();
    T& zMax();
    T xMin() const;
    T yMin() const;
    T zMin() const;
    T xMax() const;
    T yMax() const;
    T zMax() const;
    /// Bit 0 of i chooses the maximum x over the minimum, bit 1 y, bit 2 z; higher bits are
    /// ignored.
    Vector3T<T> corner(unsigned int i) const;
    /// @}

    /// @name Measures
    /// The empty box has centre 0, size -infinity, and infinity as both radii.
    /// @{
    bool valid() const;             ///< max >= min on every axis; false with any NaN.
    Vector3T<T> center() const;     ///< (min + max) 0.5
    Vector3T<T> getBBSize() const;  ///< max - min
    T radius() const;   ///< Half the diagonal: sqrt(0.25 |max - min|^2), the root in double.
    T radius2() const;  ///< 0.25 |max - min|^2
    /// @}

    /// @name Growing
    /// Per axis: min becomes the smaller, max the larger value. A NaN changes nothing.
    /// @{
    void expandBy(T x, T y, T z);         ///< To hold the point.
    void expandBy(const Vector3T<T>& p);  ///< To hold the point.
    /// To hold the box of centre +- radius, formed in double. Do not merge an empty sphere
    /// (negative radius): its validity is not checked.
    void expandBy(const BoundingSphere& s);
    BoundingBoxT& operator+=(const BoundingBoxT& b);  ///< To hold b. The empty box changes nothing.
    BoundingBoxT operator+(const BoundingBoxT& b) const;
    BoundingBoxT& operator+=(const BoundingSphere& s);  ///< expandBy(s)
    BoundingBoxT operator+(const BoundingSphere& s) const;
    /// @}

    /// @name Queries: boundaries are inside
    /// @{
    bool contains(const Vector3T<T>& p) const;  ///< min <= p <= max on every axis.
    /// Whether the boxes share at least a point: a common face, edge or corner is enough.
    /// Unspecified for NaN.
    bool intersects(const BoundingBoxT& b) const;
    /// The common box: the larger minima and the smaller maxima. Not valid() if the boxes are
    /// apart, and then not the empty box either: merging it can change another box.
    BoundingBoxT intersect(const BoundingBoxT& b) const;
    /// Whether the infinite line origin + t direction, t of either sign, passes through the box, by
    /// the slab method. Strict: a line that only grazes an edge or a corner does not, and a box
    /// without extent on some axis is never hit. The empty box is hit by every line, and a box with
    /// min > max as if its corners were sorted. Unspecified for a line within the plane of a face
    /// and for NaN. The reciprocal of a zero component of direction is taken as the largest finite
    /// T. Rays::intersect (Rays.h) also tells where, and counts what this leaves out.
    bool intersect(const Vector3T<T>& origin, const Vector3T<T>& direction) const;
    static bool isBetween(T value, T low, T high);  ///< low <= value <= high
    /// @}

    /// @name Transformation
    /// By centre and half-extents. A box that is not valid() does not change.
    /// @{

    /// The box around this box transformed by m: half-extents |M| e, M being the upper-left 3x3
    /// block taken by magnitude; the centre goes through m with division by w. For an affine m the
    /// result holds every transformed point up to rounding: some lie outside by a few last bits.
    void transform(const Matrix44T<T>& m);
    /// The same through the inverse of a rigid m: half-extents |M|^T e, centre through
    /// m.inverse_orthogonal(). It does not undo scale or shear.
    void inverseTransform(const Matrix44T<T>& m);
    /// @}

private:
    Vector3T<T> min_;
    Vector3T<T> max_;
};

#ifdef KYMATH_INLINE
}  // namespace KyMath
#include <KyMath/inline/BoundingBox.h>
namespace KyMath {
#endif

extern template class BoundingBoxT<float>;
extern template class BoundingBoxT<double>;

}  // namespace KyMath

#endif
