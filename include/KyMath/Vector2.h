// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_VECTOR2_H
#define KYMATH_VECTOR2_H

#include <KyMath/Forward.h>

#include <cstddef>
#include <iosfwd>

namespace KyMath {

/// Point or direction (x, y) in the plane: two values of T and nothing else. Counter-clockwise is
/// positive.
///
/// No member checks an index or a pointer; degenerate input follows IEEE arithmetic. There is no
/// unary minus and no multiplication by a scalar.
template <class T>
class KY_API Vector2T {
    static_assert(internal::IsScalar<T>::value, "KyMath: the scalar type must be float or double");

public:
    static const Vector2T kZero;  ///< (0, 0)

    /// @name Construction and assignment
    /// @{
    Vector2T();  ///< (0, 0)
    Vector2T(T x, T y);
    Vector2T(const T* p);  ///< (p[0], p[1])
    Vector2T(const Vector2T& v) = default;
    Vector2T& operator=(const Vector2T& v);
    void set(T x, T y);
    /// Not from 0 or nullptr, which would be read as a pointer, nor from a matrix or rigid
    /// transform.
    template <class U, internal::If<internal::IsMatrix<U>::value> = 0>
    Vector2T(const U&) KY_DELETED("it would take column 0");
    Vector2T(int) KY_DELETED("0 would be read as a pointer");
    Vector2T(std::nullptr_t) KY_DELETED("0 would be read as a pointer");
    template <class U>
    explicit Vector2T(const Vector2T<U>&) KY_DELETED("call toFloat() or toDouble()");
    /// @}

    /// @name Access: index 0 is x
    /// @{
    T x() const;
    T y() const;
    T& x();
    T& y();
    T& operator[](int i);
    T& operator[](unsigned int i);
    T& operator[](long i);
    T& operator[](unsigned long i);
    const T& operator[](int i) const;
    const T& operator[](unsigned int i) const;
    const T& operator[](long i) const;
    const T& operator[](unsigned long i) const;
    operator T*();              ///< Pointer to x; y follows.
    operator const T*() const;  ///< Pointer to x; y follows.
    /// @}

    /// @name Comparison
    /// @{
    bool operator==(const Vector2T& v) const;  ///< Exact, by component; false with any NaN.
    bool operator!=(const Vector2T& v) const;  ///< Not ==; true with any NaN.
    bool operator<(const Vector2T& v) const;   ///< normSquare() < v.normSquare(): shorter than v
    bool operator>(const Vector2T& v) const;   ///< normSquare() > v.normSquare(): longer than v
    bool operator<=(const Vector2T&) const KY_DELETED("it would compare addresses");
    bool operator>=(const Vector2T&) const KY_DELETED("it would compare addresses");
    /// Whether each pair of components is equal within tol, by the rule of Vector3T::areEqualTol.
    static bool areEqualTol(const Vector2T& a, const Vector2T& b, double tol);
    /// @}

    /// @name Arithmetic, by component
    /// @{
    Vector2T& operator/=(T s);      ///< Multiplies by r = 1 / s, formed once.
    Vector2T operator/(T s) const;  ///< This times r = 1 / s, formed once.
    Vector2T& operator+=(const Vector2T& v);
    Vector2T operator+(const Vector2T& v) const;
    Vector2T& operator-=(const Vector2T& v);
    Vector2T operator-(const Vector2T& v) const;
    /// @}

    /// @name Products and lengths
    /// @{
    T dot(const Vector2T& v) const;    ///< x v.x + y v.y
    T cross(const Vector2T& v) const;  ///< x v.y - y v.x: positive for v counter-clockwise of this.
    T normSquare() const;              ///< x^2 + y^2
    T normSquare();                    ///< x^2 + y^2
    T lengthSqr() const;               ///< normSquare()
    T norm() const;                    ///< sqrt(x^2 + y^2)
    T length() const;                  ///< norm()
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

    /// Turns counter-clockwise by angle (radians), in place: (x c - y s, x s + y c) with c = cos,
    /// s = sin. Nothing is snapped: cos of a quarter turn is not exactly 0.
    Vector2T& rotate(T angle);

private:
    T v_[2];  // x, y
};

#ifdef KYMATH_INLINE
}  // namespace KyMath
#include <KyMath/inline/Vector2.h>
namespace KyMath {
#endif

template <>
const Vector2T<float> Vector2T<float>::kZero;
template <>
const Vector2T<double> Vector2T<double>::kZero;
extern template class Vector2T<float>;
extern template class Vector2T<double>;

template <class T>
std::ostream& operator<<(std::ostream&, const Vector2T<T>&) KY_DELETED("see KyMath/Format.h");

}  // namespace KyMath

#endif
