// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_VECTOR4_H
#define KYMATH_VECTOR4_H

#include <KyMath/Vector3.h>

#include <array>
#include <cstddef>
#include <iosfwd>

namespace KyMath {

/// Four values (x, y, z, w) of T and nothing else: a homogeneous point, a matrix row or column, the
/// coefficients of a plane. Every operation treats w like the other components.
///
/// No member checks an index or a pointer; degenerate input follows IEEE arithmetic.
template <class T>
class KY_API Vector4T {
    static_assert(internal::IsScalar<T>::value, "KyMath: the scalar type must be float or double");

public:
    /// @name Construction
    /// @{
    Vector4T();  ///< (0, 0, 0, 0)
    Vector4T(const Vector4T& v);
    Vector4T(const T* p);                               ///< (p[0], p[1], p[2], p[3])
    KY_CONTAINERS Vector4T(const std::array<T, 4>& a);  ///< (a[0], a[1], a[2], a[3])
    Vector4T(T x, T y, T z, T w);
    Vector4T(const Vector3T<T>& v, T w);  ///< (v.x, v.y, v.z, w)
    /// Not from a shorter vector, 0 or nullptr, which would be read past their end as pointers, nor
    /// from a quaternion, which begins with w, a matrix or a rigid transform.
    template <class U>
    Vector4T(const Vector2T<U>&) KY_DELETED("it would read past the end");
    template <class U>
    Vector4T(const Vector3T<U>&) KY_DELETED("it would read past the end");
    template <class U>
    Vector4T(const QuaternionT<U>&) KY_DELETED("a quaternion begins with w");
    template <class U, internal::If<internal::IsMatrix<U>::value> = 0>
    Vector4T(const U&) KY_DELETED("it would take column 0");
    Vector4T(int) KY_DELETED("0 would be read as a pointer");
    Vector4T(std::nullptr_t) KY_DELETED("0 would be read as a pointer");
    template <class U>
    explicit Vector4T(const Vector4T<U>&) KY_DELETED("call toFloat() or toDouble()");
    /// @}

    /// @name Assignment
    /// @{
    Vector4T& operator=(const Vector4T& v);
    Vector4T& operator=(const T* p);  ///< (p[0], p[1], p[2], p[3])
    template <class U>
    Vector4T& operator=(const Vector2T<U>&) KY_DELETED("it would read past the end");
    template <class U>
    Vector4T& operator=(const Vector3T<U>&) KY_DELETED("it would read past the end");
    template <class U>
    Vector4T& operator=(const QuaternionT<U>&) KY_DELETED("a quaternion begins with w");
    template <class U, internal::If<internal::IsMatrix<U>::value> = 0>
    Vector4T& operator=(const U&) KY_DELETED("it would take column 0");
    Vector4T& operator=(int) KY_DELETED("0 would be read as a pointer");
    Vector4T& operator=(std::nullptr_t) KY_DELETED("0 would be read as a pointer");
    void set(T x, T y, T z, T w);
    void set(const Vector4T& v);
    /// @}

    /// @name Access: index 0 is x
    /// @{
    T x() const;
    T y() const;
    T z() const;
    T w() const;
    T& x();
    T& y();
    T& z();
    T& w();
    T& operator[](int i);
    T& operator[](unsigned int i);
    T& operator[](long i);
    T& operator[](unsigned long i);
    const T& operator[](int i) const;
    const T& operator[](unsigned int i) const;
    const T& operator[](long i) const;
    const T& operator[](unsigned long i) const;
    operator T*();              ///< Pointer to x; y, z and w follow.
    operator const T*() const;  ///< Pointer to x; y, z and w follow.
    Vector3T<T> xyz() const;    ///< (x, y, z): w is dropped, nothing is divided by it.
    /// @}

    /// @name Comparison
    /// @{
    bool operator==(const Vector4T& v) const;  ///< Exact, by component; false with any NaN.
    bool operator!=(const Vector4T& v) const;  ///< Not ==; true with any NaN.
    bool operator<(const Vector4T& v) const;   ///< normSquare() < v.normSquare(): shorter than v
    bool operator>(const Vector4T& v) const;   ///< normSquare() > v.normSquare(): longer than v
    bool operator<=(const Vector4T&) const KY_DELETED("it would compare addresses");
    bool operator>=(const Vector4T&) const KY_DELETED("it would compare addresses");
    /// Whether each pair of components is equal within tol, by the rule of Vector3T::areEqualTol.
    static bool areEqualTol(const Vector4T& a, const Vector4T& b, double tol);
    bool isZero() const;    ///< All components equal 0 (either sign) exactly.
    bool isFinite() const;  ///< No component is infinite or NaN.
    /// @}

    /// @name Arithmetic, by component
    /// @{
    Vector4T& operator*=(T s);
    Vector4T operator*(const T& s) const;
    Vector4T& operator/=(T s);             ///< Multiplies by r = 1 / s, formed once.
    Vector4T operator/(const T& s) const;  ///< This times r = 1 / s, formed once.
    Vector4T& operator+=(const Vector4T& v);
    Vector4T operator+(const Vector4T& v) const;
    Vector4T& operator-=(const Vector4T& v);
    Vector4T operator-(const Vector4T& v) const;
    Vector4T operator-() const;  ///< Flips each sign: 0 gives -0.
    /// @}

    /// @name Products and lengths
    /// @{
    T operator*(const Vector4T& v) const;  ///< x v.x + y v.y + z v.z + w v.w, left to right.
    T dot(const Vector4T& v) const;        ///< *this * v
    T normSquare() const;                  ///< x^2 + y^2 + z^2 + w^2
    T lengthSqr() const;                   ///< normSquare()
    T norm() const;                        ///< sqrt(x^2 + y^2 + z^2 + w^2)
    T length() const;                      ///< norm()
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
    /// @}

private:
    T v_[4];  // x, y, z, w
};

#ifdef KYMATH_INLINE
}  // namespace KyMath
#include <KyMath/inline/Vector4.h>
namespace KyMath {
#endif

extern template class Vector4T<float>;
extern template class Vector4T<double>;

template <class T>
std::ostream& operator<<(std::ostream&, const Vector4T<T>&) KY_DELETED("see KyMath/Format.h");

}  // namespace KyMath

#endif
