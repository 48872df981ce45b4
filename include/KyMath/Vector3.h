// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_VECTOR3_H
#define KYMATH_VECTOR3_H

#include <KyMath/Forward.h>

#include <cstddef>
#include <iosfwd>

namespace KyMath {

/// Point, direction or normal (x, y, z): three values of T and nothing else, so that an array of T
/// can be viewed as vectors and a vector as an array.
///
/// No member checks an index or a pointer; degenerate input follows IEEE arithmetic.
template <class T>
class KY_API Vector3T {
    static_assert(internal::IsScalar<T>::value, "KyMath: the scalar type must be float or double");

public:
    static const Vector3T kZero;  ///< (0, 0, 0)

    /// @name Construction
    /// @{
    Vector3T();            ///< (0, 0, 0)
    Vector3T(const T* p);  ///< (p[0], p[1], p[2])
    Vector3T(T x, T y, T z);
    /// Not from a shorter vector, 0 or nullptr, which would be read past their end as pointers, nor
    /// from a quaternion, which begins with w, a matrix or a rigid transform.
    template <class U>
    Vector3T(const Vector2T<U>&) KY_DELETED("it would read past the end");
    template <class U>
    Vector3T(const QuaternionT<U>&) KY_DELETED("a quaternion begins with w");
    template <class U, internal::If<internal::IsMatrix<U>::value> = 0>
    Vector3T(const U&) KY_DELETED("it would take column 0");
    Vector3T(int) KY_DELETED("0 would be read as a pointer");
    Vector3T(std::nullptr_t) KY_DELETED("0 would be read as a pointer");
    template <class U>
    explicit Vector3T(const Vector3T<U>&) KY_DELETED("call toFloat() or toDouble()");
    /// @}

    /// @name Assignment
    /// @{
    void set(T x, T y, T z);
    static void set(double* out, const Vector3T& v);  ///< out[0..2] = v, widened to double
    static void set(const Vector2T<double>&, const Vector3T&)
        KY_DELETED("it would write past the end");
    /// @}

    /// @name Access: index 0 is x
    /// @{
    T x() const;
    T y() const;
    T z() const;
    T& x();
    T& y();
    T& z();
    T& operator[](int i);
    T& operator[](unsigned int i);
    T& operator[](long i);
    T& operator[](unsigned long i);
    const T& operator[](int i) const;
    const T& operator[](unsigned int i) const;
    const T& operator[](long i) const;
    const T& operator[](unsigned long i) const;
    operator T*();                                 ///< Pointer to x; y and z follow.
    operator const T*() const;                     ///< Pointer to x; y and z follow.
    static Vector3T* cast(T* p);                   ///< Views p[0..2] as a vector, without a copy.
    static const Vector3T* constCast(const T* p);  ///< Views p[0..2] as a vector, without a copy.
    /// @}

    /// @name Comparison
    /// @{
    bool operator==(const Vector3T& v) const;  ///< Exact, by component; false with any NaN.
    bool operator!=(const Vector3T& v) const;  ///< Not ==; true with any NaN.
    bool operator<(const Vector3T& v) const;   ///< normSquare() < v.normSquare(): shorter than v
    bool operator>(const Vector3T& v) const;   ///< normSquare() > v.normSquare(): longer than v
    bool operator<=(const Vector3T&) const KY_DELETED("it would compare addresses");
    bool operator>=(const Vector3T&) const KY_DELETED("it would compare addresses");
    /// Whether each pair of components is equal within tol by the mixed rule of Ky/Tolerance.h,
    /// with differences formed in T, divided and compared in double.
    static bool areEqualTol(const Vector3T& a, const Vector3T& b, double tol);
    bool isZero() const;    ///< All components equal 0 (either sign) exactly.
    bool isFinite() const;  ///< No component is infinite or NaN.
    /// @}

    /// @name Arithmetic, by component
    /// @{
    Vector3T& operator*=(T s);
    Vector3T operator*(const T& s) const;
    Vector3T& operator/=(T s);             ///< Multiplies by r = 1 / s, formed once.
    Vector3T operator/(const T& s) const;  ///< This times r = 1 / s, formed once.
    Vector3T& operator+=(const Vector3T& v);
    Vector3T operator+(const Vector3T& v) const;
    Vector3T& operator-=(const Vector3T& v);
    Vector3T operator-(const Vector3T& v) const;
    Vector3T operator-() const;        ///< Flips each sign: 0 gives -0.
    void multComp(const Vector3T& v);  ///< this_i *= v_i
    static Vector3T multComp(const Vector3T& a, const Vector3T& b);  ///< a_i b_i
    void addMultiple(const T& s, const Vector3T& v);                 ///< this += s v
    /// this = a u + b v
    void setLinear(const T& a, const Vector3T& u, const T& b, const Vector3T& v);
    /// @}

    /// @name Products
    /// The cross product a x b is (a.y b.z - a.z b.y, a.z b.x - a.x b.z, a.x b.y - a.y b.x).
    /// @{
    T operator*(const Vector3T& v) const;     ///< Dot product x v.x + y v.y + z v.z, left to right.
    Vector3T cross(const Vector3T& v) const;  ///< this x v
    void postCross(const Vector3T& v);        ///< this = this x v
    void preCross(const Vector3T& v);         ///< this = v x this
    void setCross(const Vector3T& a, const Vector3T& b);  ///< this = a x b
    /// @}

    /// @name Lengths
    /// @{
    T normSquare() const;                                        ///< x^2 + y^2 + z^2
    T lengthSqr() const;                                         ///< normSquare()
    T norm() const;                                              ///< sqrt(x^2 + y^2 + z^2)
    T length() const;                                            ///< norm()
    static T distanceSqr(const Vector3T& a, const Vector3T& b);  ///< |a - b|^2
    static T distance(const Vector3T& a, const Vector3T& b);     ///< |a - b|
    /// Index of the component of largest magnitude. Ties, and comparisons with NaN, go to the later
    /// index.
    int maxComponentIndex() const;
    /// @}

    /// @name Normalisation
    /// @{

    /// Multiplies by 1 / length when the squared length is above 0. Otherwise (zero, too small to
    /// square, or NaN) nothing changes. If the length is too large to square (1.8e19 in float,
    /// 1.3e154 in double), the result is 0.
    void normalize();

    /// Writes the length to *length and, if it is above tol, multiplies by 1 / length and returns
    /// true; a length too large to square is written as infinity, and the vector becomes 0.
    /// Otherwise, also for NaN, writes 0 to *length, leaves the vector unchanged and returns false.
    /// length must not be null.
    bool normalize(T tol, T* length);

    /// Snaps a vector within tol of a signed coordinate axis to that axis: the largest component,
    /// if its magnitude is within tol of 1, becomes 1 or -1, and the others, if within tol of 0,
    /// become 0. Returns false and changes nothing if any of them is off by more than tol. A NaN
    /// component counts as within tol.
    bool makeCleanBase(T tol);
    /// @}

    /// @name Bases and projections
    /// @{

    /// this = v x e, e being the unit axis that follows v's largest component in cyclic order.
    /// Orthogonal to v, not of unit length; zero only for a zero v.
    void setOrthogonal(const Vector3T& v);
    Vector3T getOrthogonal() const;  ///< What setOrthogonal(*this) would set.

    /// Removes the component along v: this_i -= (1 / v.v) ((this.v) v_i). v may have any length;
    /// a zero v changes nothing.
    void orthogonalize(const Vector3T& v);

    /// Splits this vector along dir, which is assumed to be of unit length:
    /// *parallel = (this . dir) dir, *perpendicular = this - *parallel. Neither pointer may be
    /// null; parallel must not point to this vector.
    void project(const Vector3T& dir, Vector3T* parallel, Vector3T* perpendicular) const;

    /// Two vectors that span the plane perpendicular to this vector n = (x, y, z):
    ///
    ///     u = (z, 0, -x) / sqrt(x^2 + z^2)   if |x| + |z| > |y|,
    ///     u = (0, -z, y) / sqrt(y^2 + z^2)   otherwise,
    ///     v = n x u.
    ///
    /// u is of unit length, v as long as n; both hold NaN for a zero n. Neither may be n itself.
    void planeSpace(Vector3T& u, Vector3T& v) const;

    /// Unit normal of the triangle a, b, c, towards the side that sees it counter-clockwise:
    /// (b - a) x (c - b), normalised. If that product, twice the area, is no longer than the float
    /// 1e-4 (for double: that float widened, slightly below 1e-4), returns false with the product
    /// itself in normal, as for a triangle with edges of 1 cm, in metres. normal may be one of the
    /// points.
    static bool planeNormal(const Vector3T& a, const Vector3T& b, const Vector3T& c,
                            Vector3T& normal);
    /// @}

    void print(const char* label) const;  ///< Does nothing.

private:
    T v_[3];  // x, y, z
};

#ifdef KYMATH_INLINE
}  // namespace KyMath
#include <KyMath/inline/Vector3.h>
namespace KyMath {
#endif

template <>
const Vector3T<float> Vector3T<float>::kZero;
template <>
const Vector3T<double> Vector3T<double>::kZero;
extern template class Vector3T<float>;
extern template class Vector3T<double>;

template <class T>
std::ostream& operator<<(std::ostream&, const Vector3T<T>&) KY_DELETED("see KyMath/Format.h");

}  // namespace KyMath

namespace Ky {

/// Writes the unsigned angle between a and b, in radians in [0, pi], whatever their lengths:
/// atan2(|a x b|, a . b). Returns false and leaves angle unchanged if both |a x b| and |a . b| are
/// below 1e-14, as for a vector near zero.
KY_API bool KyComputeAngle(const KyMath::Vector3T<double>& a, const KyMath::Vector3T<double>& b,
                           double& angle);

}  // namespace Ky

#endif
