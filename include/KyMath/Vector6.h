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
    /// Not from shorter vectors or 0, which would be read past their end as pointers.
    template <class T>
    Vector6(const Vector2T<T>&, const Vector2T<T>&) = delete;
    Vector6(int, int) = delete;
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
KY_API std::ostream& operator<<(std::ostream& os, const Vector6& v);

}  // namespace KyMath

#endif
