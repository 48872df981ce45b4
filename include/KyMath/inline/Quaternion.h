// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_QUATERNION_H
#define KYMATH_INLINE_QUATERNION_H

#include <KyMath/inline/Components.h>

#ifdef KYMATH_INLINE
#pragma GCC system_header
#endif

KY_EXACT_BEGIN
namespace KyMath {
namespace internal {

// Four floats fill a register and are always stored whole: a register that is read right after its
// parts were stored one by one has to wait for them. Doubles would fill two, and are faster one by
// one.

KY_HELPER constexpr unsigned long pieceSize(const float*) {
    return Register<float>::count;
}
KY_HELPER constexpr unsigned long pieceSize(const double*) {
    return 1;
}

/// One double, read and written as the values of a register are.
template <class T>
struct One {
    T& values;
};

/// What is computed at once of a quaternion, from p on.
KY_HELPER Register<float>& piece(float* p) {
    return at(p);
}
KY_HELPER const Register<float>& piece(const float* p) {
    return at(p);
}
KY_HELPER One<double> piece(double* p) {
    return {*p};
}
KY_HELPER One<const double> piece(const double* p) {
    return {*p};
}

KY_HELPER void setQuaternion(float* q, float w, float x, float y, float z) {
    at(q).values = Register<float>::Values{w, x, y, z};
}
KY_HELPER void setQuaternion(double* q, double w, double x, double y, double z) {
    q[0] = w;
    q[1] = x;
    q[2] = y;
    q[3] = z;
}
template <class T>
KY_HELPER void copyQuaternion(T* q, const T* a) {
    KY_UNROLL
    for (unsigned long i = 0; i < 4; i += pieceSize(q)) piece(q + i).values = piece(a + i).values;
}

}  // namespace internal

template <class T>
KY_SMALL QuaternionT<T>::QuaternionT() {
    internal::setQuaternion(v_, 1, 0, 0, 0);
}

template <class T>
KY_SMALL QuaternionT<T>::QuaternionT(T w, T x, T y, T z) {
    internal::setQuaternion(v_, w, x, y, z);
}

template <class T>
KY_SMALL QuaternionT<T>::QuaternionT(const T* a) {
    internal::copyQuaternion(v_, a);
}

template <class T>
KY_SMALL QuaternionT<T>& QuaternionT<T>::operator=(const QuaternionT& q) {
    internal::copyQuaternion(v_, q.v_);
    return *this;
}
template <class T>
KY_SMALL QuaternionT<T>& QuaternionT<T>::operator=(const T* a) {
    internal::copyQuaternion(v_, a);
    return *this;
}
template <class T>
KY_SMALL void QuaternionT<T>::set(T w, T x, T y, T z) {
    internal::setQuaternion(v_, w, x, y, z);
}

template <class T>
KY_SMALL void QuaternionT<T>::get(T* w, T* x, T* y, T* z) const {
    const QuaternionT q(*this);  // the outputs may be this quaternion's own components
    *w = q.v_[0];
    *x = q.v_[1];
    *y = q.v_[2];
    *z = q.v_[3];
}
template <class T>
KY_SMALL void QuaternionT<T>::get(T* a) const {
    KY_UNROLL
    for (int i = 0; i < 4; ++i) a[i] = v_[i];
}
template <class T>
KY_SMALL void QuaternionT<T>::get(QuaternionT& q) const {
    q = *this;
}
template <class T>
KY_SMALL T QuaternionT<T>::w() const {
    return v_[0];
}
template <class T>
KY_SMALL T QuaternionT<T>::x() const {
    return v_[1];
}
template <class T>
KY_SMALL T QuaternionT<T>::y() const {
    return v_[2];
}
template <class T>
KY_SMALL T QuaternionT<T>::z() const {
    return v_[3];
}

KY_DEFINE_SUBSCRIPTS(QuaternionT)

template <class T>
KY_SMALL QuaternionT<T>::operator T*() {
    return v_;
}
template <class T>
KY_SMALL QuaternionT<T>::operator const T*() const {
    return v_;
}

#if KY_INLINE_ARITHMETIC

template <class T>
KY_SMALL bool QuaternionT<T>::operator==(const QuaternionT& q) const {
    return internal::equal(v_, q.v_);
}
template <class T>
KY_SMALL bool QuaternionT<T>::operator!=(const QuaternionT& q) const {
    return !(*this == q);
}

template <class T>
KY_SMALL QuaternionT<T>& QuaternionT<T>::operator+=(const QuaternionT& q) {
    KY_UNROLL
    for (unsigned long i = 0; i < 4; i += internal::pieceSize(v_)) {
        internal::piece(v_ + i).values += internal::piece(q.v_ + i).values;
    }
    return *this;
}
template <class T>
KY_SMALL QuaternionT<T> QuaternionT<T>::operator+(const QuaternionT& q) const {
    return QuaternionT(*this) += q;
}
template <class T>
KY_SMALL QuaternionT<T>& QuaternionT<T>::operator-=(const QuaternionT& q) {
    KY_UNROLL
    for (unsigned long i = 0; i < 4; i += internal::pieceSize(v_)) {
        internal::piece(v_ + i).values -= internal::piece(q.v_ + i).values;
    }
    return *this;
}
template <class T>
KY_SMALL QuaternionT<T> QuaternionT<T>::operator-(const QuaternionT& q) const {
    return QuaternionT(*this) -= q;
}
template <class T>
KY_SMALL QuaternionT<T>& QuaternionT<T>::operator*=(const T& s) {
    const T factor = s;  // may be one of the components
    KY_UNROLL
    for (unsigned long i = 0; i < 4; i += internal::pieceSize(v_)) {
        auto&& piece = internal::piece(v_ + i);
        piece.values = internal::times(piece.values, factor);
    }
    return *this;
}
template <class T>
KY_SMALL QuaternionT<T> QuaternionT<T>::operator*(const T& s) const {
    return QuaternionT(*this) *= s;
}
template <class T>
KY_SMALL T QuaternionT<T>::dot(const QuaternionT& q) const {
    return internal::dot(v_, q.v_);
}
template <class T>
KY_SMALL T QuaternionT<T>::norm() const {
    return internal::root(internal::dot(v_, v_));
}
#ifdef KYMATH_INLINE  // the library has a kernel

namespace internal {

/// q = a b, a sum of four products. q may be either of them.
KY_HELPER void multiplyQuaternions(float* q, const float* left, const float* right) {
    typedef Register<float>::Values Floats;
    typedef int Bits __attribute__((vector_size(16)));
    const Floats a = at(left).values;
    const Floats b = at(right).values;
    const Floats second = Floats{a[1], a[1], a[2], a[3]} * Floats{b[1], b[0], b[0], b[0]};
    const Floats third = Floats{a[2], a[2], a[3], a[1]} * Floats{b[2], b[3], b[1], b[2]};
    const Floats fourth = Floats{a[3], a[3], a[1], a[2]} * Floats{b[3], b[2], b[3], b[1]};
    const Bits minusFirst = {-__INT_MAX__ - 1, 0, 0, 0};  // x - y is x + -y
    at(q).values = a[0] * b + (Floats)((Bits)second ^ minusFirst) +
                   (Floats)((Bits)third ^ minusFirst) - fourth;
}
KY_HELPER void multiplyQuaternions(double* q, const double* a, const double* b) {
    const double w = times(a[0], b[0]) - times(a[1], b[1]) - times(a[2], b[2]) - times(a[3], b[3]);
    const double x = times(a[0], b[1]) + times(a[1], b[0]) + times(a[2], b[3]) - times(a[3], b[2]);
    const double y = times(a[0], b[2]) + times(a[2], b[0]) + times(a[3], b[1]) - times(a[1], b[3]);
    const double z = times(a[0], b[3]) + times(a[3], b[0]) + times(a[1], b[2]) - times(a[2], b[1]);
    setQuaternion(q, w, x, y, z);
}

}  // namespace internal

template <class T>
KY_SMALL QuaternionT<T> QuaternionT<T>::operator*(const QuaternionT& q) const {
    QuaternionT product;
    internal::multiplyQuaternions(product.v_, v_, q.v_);
    return product;
}
template <class T>
KY_SMALL QuaternionT<T>& QuaternionT<T>::operator*=(const QuaternionT& q) {
    internal::multiplyQuaternions(v_, v_, q.v_);
    return *this;
}

#endif

template <class T>
KY_SMALL void QuaternionT<T>::invert() {
    set(v_[0], -v_[1], -v_[2], -v_[3]);
}
template <class T>
KY_SMALL void QuaternionT<T>::setInverse(const QuaternionT& q) {
    *this = q;
    invert();
}
template <class T>
KY_SMALL QuaternionT<T> QuaternionT<T>::getInverse() const {
    QuaternionT q(*this);
    q.invert();
    return q;
}

template <class T>
KY_SMALL Vector3T<T> QuaternionT<T>::rotate(const Vector3T<T>& v) const {
    const T w = v_[0];
    const Vector3T<T> u(v_ + 1);
    const T a = internal::times(w, w) - u * u;
    const T b = 2 * (u * v);
    const T c = 2 * w;
    const Vector3T<T> n = u.cross(v);
    return v * a + u * b + n * c;
}
template <class T>
KY_SMALL Vector3T<T> QuaternionT<T>::operator*(const Vector3T<T>& v) const {
    return rotate(v);
}

template <class T>
KY_SMALL void QuaternionT<T>::normalize() {
    const T square = internal::dot(v_, v_);
    if (square == 1) return;
    // Deliberate: the squared length, not the length, is compared with the threshold. Pinned by
    // QuaternionTest.NormalizeComparesTheSquaredLength.
    if (internal::magnitude(square) <= internal::smallReal<T>()) {
        *this = QuaternionT();
    } else {
        *this *= 1 / internal::root(square);
    }
}

#endif

}  // namespace KyMath
KY_EXACT_END

#endif
