// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_BOUNDINGSPHERE_H
#define KYMATH_BOUNDINGSPHERE_H

#include <KyMath/Forward.h>
#include <KyMath/Vector3.h>

namespace KyMath {

/// Sphere in double. It is valid() if its radius is at least 0, otherwise empty: the first thing
/// merged into an empty sphere replaces it, and merging an empty sphere or box changes nothing.
/// A grown sphere holds what was merged into it, up to rounding. An infinite point makes the centre
/// NaN.
///
/// expandBy() may move the centre to stay tight; expandRadiusBy() keeps the centre of a valid
/// sphere.
class KY_API BoundingSphere {
public:
    /// @name Construction and setting
    /// @{
    BoundingSphere();  ///< Empty: centre (0, 0, 0), radius -1.
    BoundingSphere(const Vector3T<double>& center, double radius);
    void init();  ///< Makes it the empty sphere of the default constructor.
    void set(const Vector3T<double>& center, double radius);
    /// @}

    /// @name Access
    /// @{
    const Vector3T<double>& center() const;
    Vector3T<double>& center();
    double radius() const;
    double& radius();
    bool valid() const;  ///< radius >= 0; false for a NaN.
    /// @}

    /// @name Growing with a moving centre
    /// @{

    /// To the smallest sphere that holds this one and p. Nothing changes if p is inside or on it.
    void expandBy(const Vector3T<double>& p);
    /// To the smallest sphere that holds both; the larger one if it holds the other.
    void expandBy(const BoundingSphere& s);
    /// To the sphere around the box that holds b and, for each corner of b, the point of this
    /// sphere that faces away from that corner. It holds b; it is not the smallest such sphere, and
    /// need not hold the whole of the old one.
    void expandBy(const BoundingBoxT<double>& b);
    /// @}

    /// @name Growing about a fixed centre
    /// @{
    void expandRadiusBy(const Vector3T<double>& p);
    void expandRadiusBy(const BoundingSphere& s);
    void expandRadiusBy(const BoundingBoxT<double>& b);
    /// @}

private:
    Vector3T<double> center_;
    double radius_;
};

}  // namespace KyMath

#ifdef KYMATH_INLINE
#include <KyMath/inline/BoundingSphere.h>
#endif

#endif
