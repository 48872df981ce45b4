// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_MATRIX_H
#define KYMATH_MATRIX_H

#include <Ky/KyReal.h>
#include <KyMath/Forward.h>
#include <KyMath/Vector4.h>

#include <cstddef>
#include <iosfwd>

namespace KyMath {

/// 4x4 matrix in column-major order: sixteen values of T and nothing else, element (r, c) being
/// value 4c + r. Vectors are columns, multiplied on the right: m v. An affine matrix has its
/// translation in column 3 (values 12, 13, 14) and (0, 0, 0, 1) in row 3 (values 3, 7, 11, 15).
///
/// No member checks an index. Arithmetic follows IEEE rules and reports no error.
template <class T>
class KY_API Matrix44T {
    static_assert(internal::IsScalar<T>::value, "KyMath: the scalar type must be float or double");

public:
    static const Matrix44T kZero;      ///< All values 0.
    static const Matrix44T kIdentity;  ///< 1 on the diagonal, 0 elsewhere.

    /// @name Construction
    /// @{
    Matrix44T();  ///< The identity, not zero.
    /// a0 to a3 are column 0, a4 to a7 column 1, a8 to a11 column 2, a12 to a15 column 3.
    Matrix44T(T a0, T a1, T a2, T a3, T a4, T a5, T a6, T a7, T a8, T a9, T a10, T a11, T a12,
              T a13, T a14, T a15);
    Matrix44T(const T* p);       ///< p[0..15] in memory order: p[4c + r] is element (r, c).
    Matrix44T(const T (*p)[4]);  ///< p[0..3][0..3]: p[c] is column c.
    /// Columns c0, c1, c2, c3.
    Matrix44T(const Vector4T<T>& c0, const Vector4T<T>& c1, const Vector4T<T>& c2,
              const Vector4T<T>& c3);
    /// s[c] is column c of the upper-left 3x3 block, converted to T; the rest is the identity's.
    /// Takes doubles for both scalar types.
    Matrix44T(const double (*s)[3]);
    Matrix44T(const Matrix44T& m);
    /// Not from anything shorter, nor from the other scalar type.
    Matrix44T(int) KY_DELETED("0 would be read as a pointer");
    Matrix44T(std::nullptr_t) KY_DELETED("0 would be read as a pointer");
    template <class U>
    Matrix44T(const Vector2T<U>&) KY_DELETED("it would read past the end");
    template <class U>
    Matrix44T(const Vector3T<U>&) KY_DELETED("it would read past the end");
    template <class U>
    Matrix44T(const Vector4T<U>&) KY_DELETED("it would read past the end");
    template <class U>
    Matrix44T(const QuaternionT<U>&) KY_DELETED("it would read past the end");
    template <class U>
    Matrix44T(const Matrix44T<U>&) KY_DELETED("call toFloat() or toDouble()");
    /// @}

    Matrix44T& operator=(const Matrix44T& m);

    /// @name Access: r is a row, c a column, both 0 to 3
    /// @{
    T& operator()(unsigned long r, unsigned long c);
    T operator()(unsigned long r, unsigned long c) const;
    T* operator[](int c);  ///< Pointer to column c: m[c][r] is element (r, c).
    T* operator[](unsigned int c);
    T* operator[](long c);
    T* operator[](unsigned long c);
    const T* operator[](int c) const;
    const T* operator[](unsigned int c) const;
    const T* operator[](long c) const;
    const T* operator[](unsigned long c) const;
    Vector4T<T> row(unsigned long r) const;     ///< (m(r,0), m(r,1), m(r,2), m(r,3))
    T* column(unsigned long c);                 ///< Pointer to the four values of column c.
    Vector4T<T> column(unsigned long c) const;  ///< (m(0,c), m(1,c), m(2,c), m(3,c))
    operator T*();              ///< Pointer to the sixteen values, column by column.
    operator const T*() const;  ///< Pointer to the sixteen values, column by column.
    /// The storage viewed as four columns of double: view[c][r] is element (r, c).
    /// Matrix44T<float> has no such view and always throws std::invalid_argument.
    operator Ky::KyReal4*();
    operator const Ky::KyReal4*() const;
    /// @}

    /// @name Comparison
    /// @{
    bool operator==(const Matrix44T& m) const;  ///< Exact, value by value; false with any NaN.
    bool operator!=(const Matrix44T& m) const;  ///< Not ==; true with any NaN.
    /// Whether each pair of values is equal within tol by the mixed rule of Ky/Tolerance.h, with
    /// differences formed in T, divided and compared in double.
    bool isEqual(const Matrix44T& m, T tol) const;
    /// a.isEqual(b, T(tol))
    static bool areEqualTol(const Matrix44T& a, const Matrix44T& b, double tol);
    bool isFinite() const;  ///< No value is infinite or NaN.
    /// @}

    /// @name Arithmetic
    /// @{

    /// The product a b, which applies b first: element (r, c) is the sum of a(r,k) b(k,c) with k
    /// ascending. The result may be assigned to either operand.
    static Matrix44T multiply(const Matrix44T& a, const Matrix44T& b);
    static Matrix44T multiply(const Matrix44T& m, T s);  ///< Every value times s.
    static Matrix44T divide(const Matrix44T& m, T s);    ///< Every value times 1 / s, formed once.
    /// m v: component r is m(r,0) v.x + m(r,1) v.y + m(r,2) v.z + m(r,3) v.w. Nothing is divided
    /// by w.
    static Vector4T<T> multiplyWithVector(const Matrix44T& m, const Vector4T<T>& v);
    Matrix44T& operator*=(T s);  ///< Every value times s.
    Matrix44T& operator/=(T s);  ///< Every value times 1 / s, formed once.
    Matrix44T& transpose();      ///< In place.
    /// @}

    /// @name Determinants
    /// @{

    /// Determinant of the 3x3 matrix of rows r0, r1, r2 and columns c0, c1, c2, by the rule of
    /// Sarrus.
    T determinant3x3(unsigned long r0, unsigned long r1, unsigned long r2, unsigned long c0,
                     unsigned long c1, unsigned long c2) const;
    T determinant() const;  ///< Expanded along row 0.
    /// @}

    /// @name Inverses
    /// @{

    /// General inverse: the adjugate times 1 / det, with det expanded along column 0.
    ///
    /// When |det| is at most the machine epsilon of T, the matrix counts as singular, and the
    /// factor is 1e5 with the sign of det (plus for zero) instead of 1 / det; in double it is
    /// 99999.999999999985. Nothing reports this. Test determinant() first where it matters, with a
    /// margin: it is expanded along row 0, and cancellation in a nearly singular matrix can make
    /// the two differ by far more than epsilon. A uniform scale of s has the determinant s^3.
    Matrix44T inverse() const;
    Matrix44T& invert();  ///< *this = inverse()

    /// Inverse of a rigid transform (R, t): (R^T, -R^T t), row 3 (0, 0, 0, 1). Assumes that R is
    /// orthonormal and row 3 that of an affine matrix; neither is checked.
    Matrix44T inverse_orthogonal() const;

    /// Transposes R in place, as inverse_orthogonal() does, but takes the new translation from the
    /// bottom row u = (m(3,0), m(3,1), m(3,2)): t'_i = -(R_i . u), with R_i row i of the old R.
    /// Row 3 becomes (0, 0, 0, 1).
    ///
    /// For an affine matrix u is zero, and the translation is lost: to invert m in place, write
    /// m = m.inverse_orthogonal().
    Matrix44T& invert_orthogonal();

    Matrix44T inverse_affine() const;  ///< inverse_orthogonal(): scale or shear is not undone.
    Matrix44T& invert_affine();        ///< invert_orthogonal(), with the same loss.
    /// @}

private:
    struct Unset {};
    /// Leaves the values unset, for results that are then written as a whole. Not exported.
    __attribute__((visibility("hidden"))) explicit Matrix44T(Unset);

    T v_[16];  // element (r, c) at 4c + r
};

#ifdef KYMATH_INLINE
}  // namespace KyMath
#include <KyMath/inline/Matrix.h>
namespace KyMath {
#endif

template <>
const Matrix44T<float> Matrix44T<float>::kZero;
template <>
const Matrix44T<float> Matrix44T<float>::kIdentity;
template <>
const Matrix44T<double> Matrix44T<double>::kZero;
template <>
const Matrix44T<double> Matrix44T<double>::kIdentity;
extern template class Matrix44T<float>;
extern template class Matrix44T<double>;

template <class T>
std::ostream& operator<<(std::ostream&, const Matrix44T<T>&) KY_DELETED("see KyMath/Format.h");

}  // namespace KyMath

#endif
