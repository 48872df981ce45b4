// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KY_KYTRANSFORM_H
#define KY_KYTRANSFORM_H

#include <Ky/KyReal.h>
#include <KyMath/Forward.h>
#include <KyMath/Quaternion.h>
#include <KyMath/Vector3.h>

#include <iosfwd>

namespace Ky {

/// Rigid transform, p -> R p + t, as sixteen doubles in the memory order of Matrix44T<double>:
/// element (r, c) is value 4c + r. Columns 0, 1, 2 hold R (the images of the axes), column 3 holds
/// t, and row 3 (values 3, 7, 11, 15) is (0, 0, 0, 1) by convention; members that do not set it say
/// that it stays.
///
/// Compositions read only R and t of their operands, and the inverse of an operand is always the
/// rigid one (R^T, -R^T t). Only isValid() checks that R is a rotation.
class KY_API KyTransform {
public:
    static const KyTransform kIdentity;

    /// @name Construction
    /// @{
    KyTransform();  ///< The identity.
    /// In memory order: a0 to a3 are column 0, a12 to a15 column 3.
    KyTransform(double a0, double a1, double a2, double a3, double a4, double a5, double a6,
                double a7, double a8, double a9, double a10, double a11, double a12, double a13,
                double a14, double a15);
    KyTransform(const KyMath::Matrix44T<double>& m);  ///< Copies all sixteen values.
    /// Rotation by the angles, then translation to position.
    KyTransform(const KyMath::Vector3T<double>& position, const KyEulerAngles& angles);
    static KyTransform createIdentity();
    /// @}

    /// @name Setting all sixteen values, in memory order
    /// @{
    void set(const float* a);        ///< a[0..15], widened
    void set(const double* a);       ///< a[0..15]
    void set(const double (*a)[4]);  ///< a[0..3][0..3]: a[c] is column c.
    void set(const KyMath::Matrix44T<double>& m);
    /// @}

    /// @name Access: r is a row, c a column, both 0 to 3 and not checked
    /// @{
    double& operator()(unsigned long r, unsigned long c);
    double operator()(unsigned long r, unsigned long c) const;
    double* operator[](int c);  ///< Pointer to column c: t[c][r] is element (r, c).
    double* operator[](unsigned int c);
    double* operator[](long c);
    double* operator[](unsigned long c);
    const double* operator[](int c) const;
    const double* operator[](unsigned int c) const;
    const double* operator[](long c) const;
    const double* operator[](unsigned long c) const;
    operator double*();               ///< Pointer to the sixteen values, column by column.
    operator const double*() const;   ///< Pointer to the sixteen values, column by column.
    operator KyReal4*();              ///< The same as four columns.
    operator const KyReal4*() const;  ///< The same as four columns.
    KyMath::Matrix44T<double> toMatrix44() const;
    KyMath::Vector3T<double> getTranslation() const;
    void setTranslation(const KyMath::Vector3T<double>& t);  ///< Nothing else changes.
    /// @}

    /// @name Comparison
    /// @{
    bool operator==(const KyTransform& t) const;  ///< Exact, value by value; false with any NaN.
    bool operator!=(const KyTransform& t) const;  ///< Not ==; true with any NaN.
    /// Whether no value of R and t differs from the identity's by more than tol. Row 3 is ignored,
    /// and a NaN passes.
    bool isIdentity(double tol) const;
    /// Whether this is a rigid transform within 1e-7: row 3 is (0, 0, 0, 1), R^T R the identity and
    /// the determinant of R is 1 (so a reflection is not valid). t is ignored.
    bool isValid() const;
    /// @}

    /// @name Setting the rotation; the translation stays
    /// @{

    /// Sets columns x, y, z as given. Nothing else changes.
    void setRotation(const KyMath::Vector3T<double>& x, const KyMath::Vector3T<double>& y,
                     const KyMath::Vector3T<double>& z);

    /// The rotation of q, which may have any length except zero. Row 3 stays too.
    KyTransform& setRotation(const KyMath::QuaternionT<double>& q);
    KyTransform& makeRotationFromQuaternion(const KyMath::QuaternionT<double>& q);  ///< The same.

    /// A rotation whose x axis is dir, normalised:
    ///
    ///     y = (dir.z, 0, -dir.x) / sqrt(dir.z^2 + dir.x^2)   if |dir.x| > |dir.y|,
    ///     y = (0, -dir.z, dir.y) / sqrt(dir.z^2 + dir.y^2)   otherwise,      z = cross(x, y).
    ///
    /// Returns false if dir or the present column 1 is no longer than tol, or if they are nearly
    /// parallel: 1 - |dir . column 1| < tol. Then nothing has changed, except that column 1 may
    /// have been normalised. Row 3 stays.
    bool setRotation(KyMath::Vector3T<double> dir, double tol);

    /// Makes R orthonormal: column axis (0, 1 or 2, not checked) keeps its direction, and the next
    /// one is turned as little as needed. If the cross product of these two is no longer than the
    /// float 0.01, because they are nearly parallel or short, the third column takes the place of
    /// the second. Row 3 stays.
    void makeOrthonormal(int axis);

    /// Turns R by the angular velocity omega (radians per unit of time, in the fixed frame) over
    /// dt, by QuaternionT::finiteRotation. Row 3 stays.
    KyTransform& rotateSelf(const KyMath::Vector3T<double>& omega, double dt);
    /// @}

    /// @name Setting R and clearing the translation
    /// @{
    KyTransform& makeRotation(const KyMath::QuaternionT<double>& q);  ///< Row 3 (0, 0, 0, 1).
    /// setRotation(dir, tol); the translation is cleared only on success. Row 3 stays.
    bool makeRotation(KyMath::Vector3T<double> dir, double tol);
    /// The rotation that turns direction from into direction to, by QuaternionT::fromRotation.
    void makeFromRotatedVector(const KyMath::Vector3T<double>& from,
                               const KyMath::Vector3T<double>& to);
    /// The matrix b a^T in place of R: element (r, c) is b[r] a[c]. In general not a rotation.
    static KyTransform outerProduct3x3(const KyMath::Vector3T<double>& a,
                                       const KyMath::Vector3T<double>& b);
    /// @}

    /// Writes the unit quaternion of R, a rotation with any uniform scale: from the trace when it
    /// is positive (then w > 0), otherwise from the largest diagonal element, the lower index
    /// winning a tie. The result is not of unit length for other scales, not a meaningful rotation
    /// for a mirrored R, and NaN for zero.
    void toQuaternion(KyMath::QuaternionT<double>& q) const;

    /// @name Points and directions
    /// @{
    KyMath::Vector3T<double> transformPoint(const KyMath::Vector3T<double>& p) const;  ///< R p + t
    KyMath::Vector3T<double> transformDirection(const KyMath::Vector3T<double>& d) const;  ///< R d
    /// @}

    /// @name Compounding two transforms into this one
    /// These set R and t; row 3 stays. Either operand may be this transform.
    /// @{
    /// a first, then b: R_b R_a, R_b t_a + t_b.
    KyTransform& compound(const KyTransform& a, const KyTransform& b);
    /// a first, then the inverse of b: R_b^T R_a, R_b^T (t_a - t_b).
    KyTransform& compoundFirstThenInverseSecond(const KyTransform& a, const KyTransform& b);
    /// The inverse of a first, then b: R_b R_a^T, t_b - (R_b R_a^T) t_a.
    KyTransform& compoundInverseFirstThenSecond(const KyTransform& a, const KyTransform& b);
    /// @}

    /// @name Compounding in place
    /// Row 3 becomes (0, 0, 0, 1).
    /// @{
    KyTransform& postCompound(const KyTransform& o);             ///< This first, then o.
    KyTransform& postCompoundWithInverse(const KyTransform& o);  ///< This, then the inverse of o.
    KyTransform& preCompound(const KyTransform& o);              ///< o first, then this.
    KyTransform& preCompoundWithInverse(const KyTransform& o);   ///< The inverse of o, then this.
    /// @}

    /// @name Interpolation from a (s = 0) to b (s = 1)
    /// s is not clamped. Row 3 becomes (0, 0, 0, 1).
    /// @{
    /// R by QuaternionT::slerp of both rotations. The translation stays.
    KyTransform& interpolateRotation(const KyTransform& a, const KyTransform& b, double s);
    /// The same, with the translation s t_b + (1 - s) t_a.
    KyTransform& interpolate(const KyTransform& a, const KyTransform& b, double s);
    /// @}

private:
    double v_[16];  // element (r, c) at 4c + r
};

template <class U, KyMath::internal::If<KyMath::internal::IsTransform<U>::value> = 0>
std::ostream& operator<<(std::ostream&, const U&) KY_DELETED("see KyMath/Format.h");

}  // namespace Ky

#ifdef KYMATH_INLINE
#include <KyMath/inline/KyTransform.h>
#endif

#endif
