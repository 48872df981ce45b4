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
/// Conversions follow K. Shoemake, "Euler Angle Conversion", Graphics Gems IV, 1994, with an
/// additional bit that negates all angles.
class KY_API KyEulerAngles {
public:
    /// A name lists the axes of a0, a1, a2. As matrices on column vectors, a static order (s) is
    /// the product in that sequence and a rotating one (r) in the reverse:
    ///
    ///     eXYZs: R = Rx(a0) Ry(a1) Rz(a2)        eXYZr: R = Rz(a2) Ry(a1) Rx(a0)
    ///
    /// Other libraries call the former intrinsic rotations, about axes that turn with the object,
    /// and the latter extrinsic rotations, about fixed axes.
    ///
    /// The bits: 0 is the frame (0 static, 1 rotating). 1 is repetition (1 if the first axis is
    /// also the third). 3 and 4 are the axis of a0 in a static and of a2 in a rotating order (0 x,
    /// 1 y, 2 z, 3 also x); 2 is 0 if the axis next to it follows it in the cycle x, y, z. 5
    /// negates all angles. Higher bits have no effect, but are stored, printed and compared.
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
        eNegated = 32  ///< Negates all angles: eXYZs | eNegated.
    };

    /// The order of angles that are constructed without one, eXYZs unless assigned. Assign it
    /// before starting threads that construct angles.
    static eEulerOrder defaultEulerOrder;

    /// @name Construction and setting
    /// @{
    KyEulerAngles();  ///< (0, 0, 0) in defaultEulerOrder
    KyEulerAngles(double a0, double a1, double a2, eEulerOrder order = defaultEulerOrder);
    explicit KyEulerAngles(const KyMath::Vector3T<double>& angles,
                           eEulerOrder order = defaultEulerOrder);
    void set(double a0, double a1, double a2, eEulerOrder order);
    void setOrder(eEulerOrder order);  ///< Keeps the angles, and so changes the rotation.
    /// @}

    /// @name Access
    /// @{
    double& operator[](int i);  ///< Angle i, 0 to 2, not checked.
    const double& operator[](int i) const;
    KyMath::Vector3T<double> angles() const;
    eEulerOrder order() const;
    /// @}

    /// @name Conversion
    /// m is the memory of a matrix: m[c][r] is the element in row r of column c.
    /// @{

    /// Writes the nine entries of the rotation; m[0..2][3] and m[3] stay as they are.
    void toMatrix44(double (*m)[4]) const;
    template <class M, KyMath::internal::If<KyMath::internal::IsFloatMatrix<M>::value> = 0>
    void toMatrix44(const M&) const KY_DELETED("a matrix of doubles is needed");

    /// Sets the order, and the angles from the nine entries of a rotation. A uniform scale does not
    /// matter unless it is small, since the threshold below does not scale; any other scale, or a
    /// mirror, gives the angles of some other rotation.
    ///
    /// a0 and a2 lie in [-pi, pi]. With three different axes, a1 lies in [-pi/2, pi/2]. With a
    /// repeated axis it lies in [-pi, 0] for eXYX, eYZY, eZXZ and in [0, pi] for eXZX, eYXY, eZYZ,
    /// or the other way round with eNegated. At either end of the range of a1 (within 2^-19), only
    /// the sum or difference of a0 and a2 is determined: a2 of a static order, a0 of a rotating
    /// one, is then a zero.
    void fromMatrix44(const double (*m)[4], eEulerOrder order);
    template <class M, KyMath::internal::If<KyMath::internal::IsFloatMatrix<M>::value> = 0>
    void fromMatrix44(const M&, eEulerOrder) KY_DELETED("a matrix of doubles is needed");

    /// Converts angles from one order to another, keeping the rotation. Equal orders return the
    /// angles unchanged.
    static KyMath::Vector3T<double> getEulerAngles(const KyMath::Vector3T<double>& angles,
                                                   eEulerOrder from, eEulerOrder to);
    /// @}

    /// @name Comparison within tol, by the mixed rule of Ky/Tolerance.h
    /// @{

    /// Whether all bits of the orders are equal, and the angles are. Angles are not wrapped: 0 is
    /// not 2 pi.
    static bool areEqualTolAndSameOrder(const KyEulerAngles& a, const KyEulerAngles& b, double tol);

    /// The same for equal orders; for others, whether the entries of both rotations are equal.
    static bool areEqualTol(const KyEulerAngles& a, const KyEulerAngles& b, double tol);
    /// @}

private:
    double a_[3];
    eEulerOrder order_;
};

/// An order together with the bit eNegated.
constexpr KyEulerAngles::eEulerOrder operator|(KyEulerAngles::eEulerOrder a,
                                               KyEulerAngles::eEulerOrder b) {
    return KyEulerAngles::eEulerOrder(int(a) | int(b));
}

/// Writes [a0 a1 a2 order: n] with precision 17 and no line end, n being the order as a number. The
/// stream's precision is restored; its other flags apply.
KY_STREAMS KY_API std::ostream& operator<<(std::ostream& os, const KyEulerAngles& e);

}  // namespace Ky

#endif
