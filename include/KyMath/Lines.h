// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_LINES_H
#define KYMATH_LINES_H

#include <KyMath/Forward.h>
#include <KyMath/Vector3.h>

#include <iosfwd>

namespace KyMath {

/// Infinite line through p1 and p2. Its points are (1 - t) p1 + t p2; the factor t is 0 at p1 and 1
/// at p2.
///
/// All thresholds are 1e-7 and absolute: they do not scale with the lengths involved. Outputs may
/// be null where a comment says so, and may be arguments or points of a line.
class KY_API Line3 {
public:
    Vector3T<double> p1;  ///< Factor 0.
    Vector3T<double> p2;  ///< Factor 1.

    Line3();  ///< Both points (0, 0, 0).
    Line3(const Vector3T<double>& first, const Vector3T<double>& second);

    bool isValid() const;  ///< p1 != p2; true with any NaN.
    /// Whether |c|^2 < 1e-7, c being the cross product of the two differences p2 - p1.
    bool isParallel(const Line3& line) const;

    /// @name Factor of the closest point on this line
    /// @{
    /// 0 for a line with |p2 - p1|^2 <= 1e-7, which counts as a point.
    double closestPointFactor(const Vector3T<double>& q) const;
    /// Of the point closest to another line; 0 if the lines are nearly parallel: |a c - b^2| <=
    /// 1e-7, with a, c the squared lengths and b the dot product.
    double closestPointFactor(const Line3& line) const;
    /// @}

    /// @name Closest point on this line
    /// @{
    Vector3T<double> closestPointTo(const Vector3T<double>& q) const;
    Vector3T<double> closestPointTo(const Line3& line) const;
    /// @}

    /// @name Distance
    /// @{
    /// The closest point on this line goes to *closest unless that is null.
    double distanceTo(const Vector3T<double>& q, Vector3T<double>* closest) const;
    /// The same for another line; for parallel lines, the distance of line.p1.
    double distanceTo(const Line3& line, Vector3T<double>* closest) const;

    /// The gap between this line and a sphere, negative when the line enters it.
    ///
    /// | gap                    | *count | points                                                 |
    /// |------------------------|--------|--------------------------------------------------------|
    /// | above 0                | 0      | [0]: the closest point on the line                     |
    /// | within 1e-7 of 0       | 1      | [0]: the closest point on the line, where they touch   |
    /// | below, or NaN          | 2      | [0]: where the line leaves the sphere, [1]: enters it  |
    ///
    /// A gap above 0 counts as a miss, however small it is. count and points may be null; otherwise
    /// points must have room for two. With p1 = p2, both points are the closest point.
    double distanceTo(const Vector3T<double>& center, double radius, int* count,
                      Vector3T<double>* points);
    /// @}
};

/// The piece of a line between p1 and p2, factors 0 to 1.
///
/// Hides the overloads of Line3 for lines and spheres, which would take the segment as infinite: if
/// that is what you want, call them as `segment.Line3::distanceTo(line, &closest)`.
class KY_API Segment3 : public Line3 {
public:
    Segment3();  ///< Both points (0, 0, 0).
    Segment3(const Vector3T<double>& first, const Vector3T<double>& second);

    /// @name Factor of the closest point
    /// @{
    /// As for the infinite line: not clamped to [0, 1].
    double closestPointFactor(const Vector3T<double>& q) const;
    /// As for the infinite lines, clamped to [0, 1].
    double closestPointFactor(const Segment3& segment) const;
    template <class L, internal::If<internal::IsLine<L>::value> = 0>
    double closestPointFactor(const L&) const KY_DELETED("the segment would count as infinite");
    /// @}

    /// @name Closest point on this segment
    /// @{
    Vector3T<double> closestPointTo(const Vector3T<double>& q) const;
    Vector3T<double> closestPointTo(const Segment3& segment) const;
    template <class L, internal::If<internal::IsLine<L>::value> = 0>
    Vector3T<double> closestPointTo(const L&) const KY_DELETED("it would count as infinite");
    /// @}

    /// @name Distance
    /// The closest point on this segment goes to *closest unless that is null.
    /// @{
    double distanceTo(const Vector3T<double>& q, Vector3T<double>* closest) const;

    /// Between two segments. The factors of the closest points of the infinite lines are clamped
    /// separately: exact if neither is clamped, otherwise an upper bound.
    ///
    /// Parallel segments, and those that count as points: between the ends that face each other if
    /// one lies wholly beyond the other, otherwise the distance of segment.p1 from this one, even
    /// where another of its points is closer. Swapping the segments can then change the result.
    double distanceTo(const Segment3& segment, Vector3T<double>* closest) const;

    template <class L, internal::If<internal::IsLine<L>::value> = 0>
    double distanceTo(const L&, Vector3T<double>*) const KY_DELETED("it would count as infinite");
    template <class V, class P>
    double distanceTo(const V&, double, int*, P) const KY_DELETED("it would count as infinite");
    /// @}
};

/// Writes p1:x y z p2:x y z in the stream's own format, without a line end.
KY_STREAMS KY_API std::ostream& operator<<(std::ostream& os, const Line3& line);

}  // namespace KyMath

#ifdef KYMATH_INLINE
#include <KyMath/inline/Lines.h>
#endif

#endif
