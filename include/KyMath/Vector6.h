// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_VECTOR6_H
#define KYMATH_VECTOR6_H

#include <KyMath/Vector3.h>

#include <iosfwd>

namespace KyMath {

/// Six doubles made of two 3-D halves, such as a force and a torque: components 0 to 2 are the
/// first half, 3 to 5 the second. There is no default constructor.
class KY_API Vector6 {
public:
    /// @name Construction and assignment
    /// @{
    Vector6(double a0, double a1, double a2, double a3, double a4, double a5);
    Vector6(const double* first, const double* second);  ///< first[0..2], then second[0..2]
    Vector6(const Vector6& v) = default;
    /// Neither from a shorter vector, 0 or nullptr, which would be read past their end as pointers,
    /// nor from a quaternion, matrix or rigid transform.
    template <class A, class B,
              internal::If<internal::IsNoVector3<A>::value || internal::IsNoVector3<B>::value> = 0>
    Vector6(const A&, const B&) KY_DELETED("each half is read as three values x, y, z");
    Vector6& operator=(const Vector6& v);
    void set(const Vector3T<double>& first, const Vector3T<double>& second);
    /// @}

    /// @name Access: no range check
    /// @{
    double& operator[](int i);
    const double& operator[](int i) const;
    /// @}

    /// @name Arithmetic, by component and in place
    /// @{
    void add(const Vector6& v);
    void sub(const Vector6& v);
    void scale(double s);
    /// @}

    double dot(const Vector6& v) const;  ///< 0 plus the six products, in index order.
    double norm() const;                 ///< sqrt of (0 plus the six squares, in index order)

private:
    double v_[6];
};

/// Writes the six components in the stream's own format, with one space between them and nothing
/// before or after: (1, 2, 3, 4, 5, 6) prints as 1 2 3 4 5 6.
KY_STREAMS KY_API std::ostream& operator<<(std::ostream& os, const Vector6& v);

}  // namespace KyMath

#ifdef KYMATH_INLINE
#include <KyMath/inline/Vector6.h>
#endif

#endif
