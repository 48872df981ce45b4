// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KY_KYEULERANGLES_H
#define KY_KYEULERANGLES_H

#include <Ky/KyReal.h>
#include <KyMath/Forward.h>
#include <KyMath/Vector3.h>

#include <iosfwd>

namespace Ky {

/// Rotation as three angles in radians and the order of the axes that they turn about.
///
/// Conversions follow K. Shoemake, "Euler Angle Conversion", Graphics Gems IV, 1994, with one more
/// bit that negates all angles.
class KY_API KyEulerAngles {
public:
    /// The order, as bits: 0 is the frame (0 static, 1 rotating), 1 repetition (the first axis is
    /// also the third), 2 parity (1 odd), 3 and 4 the inner axis (0 x, 1 y, 2 z, 3 also x), 5 the
    /// sign (1 negates all angles). Higher bits mean nothing but are stored, printed and compared.
    ///
    /// A name lists the axes of a0, a1, a2. As matrices on column vectors, a static order is the
    /// product in that sequence and a rotating one in the reverse:
    ///
    ///     eXYZs: R = Rx(a0) Ry(a1) Rz(a2)        eXYZr: R = Rz(a2) Ry(a1) Rx(a0)
    ///
    /// In the words of other libraries the former are intrinsic rotations, about axes that turn
    /// along, and the latter extrinsic ones, about fixed axes.
    enum eEulerOrder : int {
        eXYZs = 0,
        eZYXr = 1,
        eXYXs = 2,
        eXYXr = 3,
        eXZYs = 4,
        eYZXr = 5,
        eXZXs = 6,
        eXZXr = 7,
        eYZXs = 8,
        eXZYr = 9,
        eYZYs = 10,
        eYZYr = 11,
        eYXZs = 12,
        eZXYr = 13,
        eYXYs = 14,
        eYXYr = 15,
        eZXYs = 16,
        eYXZr = 17,
        eZXZs = 18,
        eZXZr = 19,
        eZYXs = 20,
        eXYZr = 21,
        eZYZs = 22,
        eZYZr = 23,
        eNegated = 32  ///< To be added to one of the others: all angles negated.
    };

    /// The order of angles that are made without one. A program may assign it, before it starts
    /// threads that read it; eXYZs until then.
    static eEulerOrder defaultEulerOrder;

    /// @name Construction and setting
    /// @{
    KyEulerAngles();  ///< (0, 0, 0) in defaultEulerOrder
    KyEulerAngles(double a0, double a1, double a2, eEulerOrder order = defaultEulerOrder);
    explicit KyEulerAngles(const KyMath::Vector3T<double>& angles,
                           eEulerOrder order = defaultEulerOrder);
    void set(double a0, double a1, double a2, eEulerOrder order);
    void setOrder(eEulerOrder order);  ///< The angles stay: another rotation, in general.
    /// @}

    /// @name Access
    /// @{
    double& operator[](int i);  ///< Angle i, 0 to 2; not checked.
    const double& operator[](int i) const;
    KyMath::Vector3T<double> angles() const;
    eEulerOrder order() const;
    /// @}

    /// @name Conversion
    /// m is the memory of a matrix: m[c][r] is the element in row r of column c.
    /// @{

    /// Writes the nine entries of the rotation; m[0..2][3] and m[3] stay as they are.
    void toMatrix44(double (*m)[4]) const;

    /// Sets the angles from the nine entries of a rotation, and the order. Where the first and the
    /// third axis coincide (within 2^-19), the first angle of the static sequence carries the whole
    /// turn and the third is a zero.
    void fromMatrix44(const double (*m)[4], eEulerOrder order);

    /// The rotation of angles in order from, as angles in order to. Equal orders return angles as
    /// they are.
    static KyMath::Vector3T<double> getEulerAngles(const KyMath::Vector3T<double>& angles,
                                                   eEulerOrder from, eEulerOrder to);
    /// @}

    /// @name Comparison within tol
    /// Two numbers are equal, with d = |p - q|, if d <= tol where |p| <= tol or |q| <= tol,
    /// otherwise if d / |p| <= tol and d / |q| <= tol. A NaN is equal to nothing.
    /// @{

    /// Equal orders, to the last bit, and equal angles. Angles are not wrapped: 0 is not 2 pi.
    static bool areEqualTolAndSameOrder(const KyEulerAngles& a, const KyEulerAngles& b, double tol);

    /// The same for equal orders; otherwise whether the entries of both rotations are equal.
    static bool areEqualTol(const KyEulerAngles& a, const KyEulerAngles& b, double tol);
    /// @}

private:
    double a_[3];
    eEulerOrder order_;
};

/// Writes [a0 a1 a2 order: n] with 17 digits and no line end, n being the order as a number. The
/// stream's precision is afterwards what it was.
KY_API std::ostream& operator<<(std::ostream& os, const KyEulerAngles& e);

}  // namespace Ky

#endif
