// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Matrix.h>
#include <KyMath/inline/Matrix.h>

#include "internal/Components.h"
#include "lanes/Kernels.h"
#include "lanes/Lanes.h"

#include <stdexcept>

namespace KyMath {

template <>
KY_EARLY_CONSTANT const Matrix44T<float> Matrix44T<float>::kZero(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                                                                 0, 0, 0, 0);
template <>
KY_EARLY_CONSTANT const Matrix44T<float> Matrix44T<float>::kIdentity(1, 0, 0, 0, 0, 1, 0, 0, 0, 0,
                                                                     1, 0, 0, 0, 0, 1);
template <>
KY_EARLY_CONSTANT const Matrix44T<double> Matrix44T<double>::kZero(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                                                                   0, 0, 0, 0, 0);
template <>
KY_EARLY_CONSTANT const Matrix44T<double> Matrix44T<double>::kIdentity(1, 0, 0, 0, 0, 1, 0, 0, 0, 0,
                                                                       1, 0, 0, 0, 0, 1);

template <class T>
Matrix44T<T>::Matrix44T(const double (*s)[3])
    : v_{T(s[0][0]), T(s[0][1]), T(s[0][2]), 0, T(s[1][0]), T(s[1][1]), T(s[1][2]), 0,
         T(s[2][0]), T(s[2][1]), T(s[2][2]), 0, 0,          0,          0,          1} {}

namespace {

Ky::KyReal4* columns(double (&v)[16]) {
    return reinterpret_cast<Ky::KyReal4*>(v);
}
const Ky::KyReal4* columns(const double (&v)[16]) {
    return reinterpret_cast<const Ky::KyReal4*>(v);
}
[[noreturn]] Ky::KyReal4* columns(float (&)[16]) {
    throw std::invalid_argument(
        "Matrix44T<float>::operator Ky::KyReal4*(): "
        "Cannot return an array of double as a pointer to float");
}
// Deliberate: the message of the const conversion names double and swaps the types. Both messages
// are part of the interface. Pinned by MatrixArrayViewTest.ThrowsCrossedMessagesForFloats.
[[noreturn]] const Ky::KyReal4* columns(const float (&)[16]) {
    throw std::invalid_argument(
        "Matrix44T<double>::operator Ky::KyReal4*(): "
        "Cannot return an array of float as a pointer to double");
}

}  // namespace

template <class T>
Matrix44T<T>::operator Ky::KyReal4*() {
    return columns(v_);
}
template <class T>
Matrix44T<T>::operator const Ky::KyReal4*() const {
    return columns(v_);
}

template <class T>
bool Matrix44T<T>::isEqual(const Matrix44T& m, T tol) const {
    return internal::areEqualTol(v_, m.v_, double(tol));
}
template <class T>
bool Matrix44T<T>::areEqualTol(const Matrix44T& a, const Matrix44T& b, double tol) {
    return a.isEqual(b, T(tol));
}
template <class T>
bool Matrix44T<T>::isFinite() const {
    return internal::isFinite(v_);
}

template <class T>
Matrix44T<T>::Matrix44T(Unset) {}

template <class T>
Matrix44T<T> Matrix44T<T>::multiply(const Matrix44T& a, const Matrix44T& b) {
    Matrix44T m{Unset()};
    KY_KERNEL(matrixProduct(m.v_, a.v_, b.v_));
    return m;
}
template <class T>
Matrix44T<T>& Matrix44T<T>::transpose() {
    const Matrix44T m(*this);
    for (int c = 0; c < 4; ++c) {
        for (int r = 0; r < 4; ++r) v_[4 * c + r] = m.v_[4 * r + c];
    }
    return *this;
}

template <class T>
T Matrix44T<T>::determinant3x3(unsigned long r0, unsigned long r1, unsigned long r2,
                               unsigned long c0, unsigned long c1, unsigned long c2) const {
    const Matrix44T& m = *this;
    return m(r0, c0) * m(r1, c1) * m(r2, c2) + m(r1, c0) * m(r2, c1) * m(r0, c2) +
           m(r2, c0) * m(r0, c1) * m(r1, c2) - m(r0, c2) * m(r1, c1) * m(r2, c0) -
           m(r2, c2) * m(r1, c0) * m(r0, c1) - m(r1, c2) * m(r0, c0) * m(r2, c1);
}

template <class T>
T Matrix44T<T>::determinant() const {
    return KY_KERNEL(determinant(v_));
}

template <class T>
Matrix44T<T> Matrix44T<T>::inverse() const {
    Matrix44T m{Unset()};
    KY_KERNEL(inverse(m.v_, v_));
    return m;
}
template <class T>
Matrix44T<T>& Matrix44T<T>::invert() {
    KY_KERNEL(inverse(v_, v_));
    return *this;
}

template <class T>
Matrix44T<T> Matrix44T<T>::inverse_orthogonal() const {
    Matrix44T m{Unset()};
    KY_KERNEL(inverseOrthogonal(m.v_, v_));
    return m;
}

// Deliberate: reads the bottom row where inverse_orthogonal() reads the translation, and the rows
// of R where it reads the columns. For an affine matrix the translation becomes 0 or -0. Pinned by
// MatrixTest.RigidInverseInPlaceReadsTheBottomRow.
template <class T>
Matrix44T<T>& Matrix44T<T>::invert_orthogonal() {
    const Matrix44T m(*this);
    *this = Matrix44T();
    for (unsigned long i = 0; i < 3; ++i) {
        for (unsigned long j = 0; j < 3; ++j) (*this)(i, j) = m(j, i);
        (*this)(i, 3) = -(m(i, 0) * m(3, 0) + m(i, 1) * m(3, 1) + m(i, 2) * m(3, 2));
    }
    return *this;
}

template <class T>
Matrix44T<T> Matrix44T<T>::inverse_affine() const {
    return inverse_orthogonal();
}
template <class T>
Matrix44T<T>& Matrix44T<T>::invert_affine() {
    return invert_orthogonal();
}

static_assert(internal::kArePlain<Matrix44T, 16>, "a matrix is its sixteen values");

template class Matrix44T<float>;
template class Matrix44T<double>;

}  // namespace KyMath
