// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_QUATERNION_H
#define KYMATH_QUATERNION_H

#include <KyMath/Forward.h>
#include <KyMath/Vector3.h>

#include <cstddef>
#include <iosfwd>

namespace KyMath {

/// Quaternion q = w + xi + yj + zk, stored and passed w first: index 0 is w.
///
/// A unit q turns v into q v q*: active, right-handed, in radians. p * q applies q first, then p.
/// Lengths drift by rounding; only normalize() restores unit length.
template <class T>
class KY_API QuaternionT {
    static_assert(internal::IsScalar<T>::value, "KyMath: the scalar type must be float or double");

public:
    /// (w, x, y, z) = (0, 0, 0, 1), a half turn about z. The identity rotation is QuaternionT().
    static const QuaternionT kIdentity;

    /// @name Construction
    /// @{
    QuaternionT();  ///< (1, 0, 0, 0), the identity rotation
    QuaternionT(T w, T x, T y, T z);
    QuaternionT(const T* a);  ///< w, x, y, z = a[0], a[1], a[2], a[3]
    /// Rotation by angle (radians) about axis, which is normalised first; a zero axis stays zero.
    QuaternionT(const Vector3T<T>& axis, const T& angle);
    QuaternionT(const QuaternionT& q) = default;
    /// Not from a vector, which has another component order, nor from a matrix or rigid transform,
    /// whose first column it would take (see Transformation::getRotationAsQuaternionT and
    /// Ky::KyTransform::toQuaternion), nor from 0 or nullptr.
    template <class U, internal::If<internal::IsNoQuaternion<U>::value> = 0>
    QuaternionT(const U&) KY_DELETED("its values are not w, x, y, z");
    QuaternionT(int) KY_DELETED("0 would be read as a pointer");
    QuaternionT(std::nullptr_t) KY_DELETED("0 would be read as a pointer");
    template <class U>
    explicit QuaternionT(const QuaternionT<U>&) KY_DELETED("call toFloat() or toDouble()");
    /// @}

    /// @name Assignment
    /// @{
    QuaternionT& operator=(const QuaternionT& q);
    QuaternionT& operator=(const T* a);  ///< w, x, y, z = a[0], a[1], a[2], a[3]
    template <class U, internal::If<internal::IsNoQuaternion<U>::value> = 0>
    QuaternionT& operator=(const U&) KY_DELETED("its values are not w, x, y, z");
    QuaternionT& operator=(int) KY_DELETED("0 would be read as a pointer");
    QuaternionT& operator=(std::nullptr_t) KY_DELETED("0 would be read as a pointer");
    void set(T w, T x, T y, T z);
    /// @}

    /// @name Access
    /// @{
    void get(T* w, T* x, T* y, T* z) const;  ///< Writes all four; none may be null.
    void get(T* a) const;                    ///< a[0..3] = w, x, y, z: room for four
    void get(QuaternionT& q) const;          ///< q = *this
    template <class U, internal::If<internal::IsNoQuaternion<U>::value> = 0>
    void get(const U&) const KY_DELETED("it would write w, x, y, z over other values");
    T w() const;
    T x() const;
    T y() const;
    T z() const;
    T& operator[](int i);  ///< Component i, 0 being w; no range check.
    T& operator[](unsigned int i);
    T& operator[](long i);
    T& operator[](unsigned long i);
    const T& operator[](int i) const;
    const T& operator[](unsigned int i) const;
    const T& operator[](long i) const;
    const T& operator[](unsigned long i) const;
    operator T*();              ///< Pointer to w; x, y and z follow.
    operator const T*() const;  ///< Pointer to w; x, y and z follow.
    /// @}

    /// @name Comparison
    /// @{
    bool operator==(const QuaternionT& q) const;  ///< Exact, by component; false with any NaN.
    bool operator!=(const QuaternionT& q) const;  ///< Not ==; true with any NaN.
    bool operator<(const QuaternionT&) const KY_DELETED("it would compare addresses");
    bool operator>(const QuaternionT&) const KY_DELETED("it would compare addresses");
    bool operator<=(const QuaternionT&) const KY_DELETED("it would compare addresses");
    bool operator>=(const QuaternionT&) const KY_DELETED("it would compare addresses");
    /// Whether each pair of components is equal within tol by the mixed rule of Ky/Tolerance.h, all
    /// in T. q and -q, the same rotation, are not equal.
    static bool areEqualTol(const QuaternionT& a, const QuaternionT& b, T tol);
    /// @}

    /// @name Arithmetic, by component
    /// @{
    QuaternionT& operator+=(const QuaternionT& q);
    QuaternionT operator+(const QuaternionT& q) const;
    QuaternionT& operator-=(const QuaternionT& q);
    QuaternionT operator-(const QuaternionT& q) const;
    QuaternionT& operator*=(const T& s);
    QuaternionT operator*(const T& s) const;
    /// Divides each component by s. If |s| <= Ky::KY_SMALL_REAL<T>::epsilon, prints
    /// "QuaternionT<T>::attempt to divide by zero." to standard output, without a line end, and
    /// leaves the quaternion unchanged.
    QuaternionT& operator/=(const T& s);
    /// As operator/=, but returns the identity (1, 0, 0, 0) after the message.
    QuaternionT operator/(const T& s) const;
    T dot(const QuaternionT& q) const;  ///< w q.w + x q.x + y q.y + z q.z, left to right.
    T norm() const;                     ///< The length, sqrt(w^2 + x^2 + y^2 + z^2).
    /// @}

    /// @name Composition
    /// @{
    QuaternionT& operator*=(const QuaternionT& q);  ///< this = this q: q is applied first.
    QuaternionT operator*(const QuaternionT& q) const;
    void invert();                          ///< Negates x, y, z: the conjugate.
    void setInverse(const QuaternionT& q);  ///< this = the conjugate of q
    QuaternionT getInverse() const;         ///< The conjugate.
    /// @}

    /// @name Rotation of vectors
    /// With u = (x, y, z): (w^2 - u.u) v + 2 (u.v) u + 2w (u x v). A quaternion of length l also
    /// scales v by l^2.
    /// @{
    Vector3T<T> rotate(const Vector3T<T>& v) const;
    Vector3T<T> operator*(const Vector3T<T>& v) const;  ///< rotate(v)
    /// @}

    /// To unit length. With n = w^2 + x^2 + y^2 + z^2: nothing changes when n is exactly 1; the
    /// identity when n, the squared length, is at most Ky::KY_SMALL_REAL<T>::epsilon; otherwise
    /// every component is multiplied by 1 / sqrt(n), which gives zeros when n is infinite.
    void normalize();

    /// @name Axis and angle, in radians
    /// @{

    /// w = cos(angle / 2), (x, y, z) = sin(angle / 2) axis. The axis is not normalised: use the
    /// constructor for an axis of any length.
    void fromAxisAngle(T ax, T ay, T az, T angle);
    void fromAxisAngle(const Vector3T<T>& axis, const T& angle);

    /// With s = |(x, y, z)|: angle = 2 acos(w), in [0, 2 pi], axis = (x, y, z) / s. Angle 0 and
    /// axis (0, 1, 0) when s <= Ky::KY_SMALL_REAL<T>::epsilon or w > 1; a NaN angle when w < -1.
    /// No pointer may be null.
    void toAxisAngle(T* ax, T* ay, T* az, T* angle) const;
    void toAxisAngle(Vector3T<T>* axis, T* angle) const;
    /// @}

    /// @name Euler angles about the fixed axes x, then y, then z, in radians
    /// @{

    /// q = qz(rz) qy(ry) qx(rx): about x first, then y, then z.
    void fromEulerXYZ(T rx, T ry, T rz);

    /// The angles of fromEulerXYZ for a unit quaternion:
    ///
    ///     rz = atan2(2 (xy + wz), w^2 + x^2 - y^2 - z^2)
    ///     rx = atan2(2 (yz + wx), w^2 - x^2 - y^2 + z^2)
    ///     ry = asin(-2 (xz - wy))
    ///
    /// The argument of asin is not clamped: near a pitch of +-pi/2, rounding can push it beyond 1,
    /// which makes ry NaN. No pointer may be null.
    void toEulerXYZ(T* rx, T* ry, T* rz) const;
    void toEulerXYZ(Vector3T<T>* angles) const;  ///< x, y, z = rx, ry, rz
    /// @}

    /// Turns this orientation by the angular velocity omega (radians per unit of time, in the fixed
    /// frame) over dt: this = r this, with r = (cos(a/2), sin(a/2) u), a = |omega| dt and
    /// u = omega / (|omega| + 1e-14). A zero omega changes nothing. Not renormalised.
    void finiteRotation(const Vector3T<T>& omega, T dt);

    /// Spherical linear interpolation from this (t = 0) to q (t = 1) along the shorter arc:
    ///
    ///     (sin((1 - t) a) this + sin(t a) q) / sin(a),   cos(a) = |this . q|,
    ///
    /// with q negated if the dot product is negative. When 1 - cos(a) <= 1e-7, the linear blend
    /// (1 - t) this + t q. Not normalised; t is not clamped and extrapolates outside [0, 1].
    QuaternionT slerp(const QuaternionT& q, T t) const;

    /// Sets *this to the rotation that turns direction `from` into direction `to`, both assumed to
    /// be of unit length:
    ///
    ///     w = sqrt((1 + d) / 2),  (x, y, z) = sqrt((1 - d) / 2) axis,  d = from . to,
    ///
    /// with d clamped to [-1, 1] and axis = cross(from, to), normalised. When d is 1 or -1 by
    /// Ky::KY_ARE_EQUAL, axis is from.getOrthogonal(), which may be shorter than 1: equal
    /// directions give the identity, opposite ones a half turn that may need normalize().
    void fromRotation(const Vector3T<T>& from, const Vector3T<T>& to);

private:
    T v_[4];  // w, x, y, z
};

#ifdef KYMATH_INLINE
}  // namespace KyMath
#include <KyMath/inline/Quaternion.h>
namespace KyMath {
#endif

template <>
const QuaternionT<float> QuaternionT<float>::kIdentity;
template <>
const QuaternionT<double> QuaternionT<double>::kIdentity;
extern template class QuaternionT<float>;
extern template class QuaternionT<double>;

template <class T>
std::ostream& operator<<(std::ostream&, const QuaternionT<T>&) KY_DELETED("see KyMath/Format.h");

}  // namespace KyMath

#endif
