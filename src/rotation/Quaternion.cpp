// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Quaternion.h>
#include <KyMath/inline/Quaternion.h>

#include <Ky/Tolerance.h>

#include "internal/Components.h"
#include "internal/LibmArrays.h"
#include "rotation/QuaternionProduct.h"
#include "rotation/Slerps.h"

#include <algorithm>
#include <cstdio>

namespace KyMath {

// Deliberate: the scalar part comes first, so this is a half turn about z and not the identity
// rotation. The library itself never uses it. Pinned by QuaternionTest.ConstantIdentityIsAHalfTurn.
template <>
KY_EARLY_CONSTANT const QuaternionT<float> QuaternionT<float>::kIdentity(0, 0, 0, 1);
template <>
KY_EARLY_CONSTANT const QuaternionT<double> QuaternionT<double>::kIdentity(0, 0, 0, 1);

template <class T>
QuaternionT<T>::QuaternionT(const Vector3T<T>& axis, const T& angle) {
    Vector3T<T> unit(axis);
    unit.normalize();
    fromAxisAngle(unit, angle);
}

template <class T>
bool QuaternionT<T>::areEqualTol(const QuaternionT& a, const QuaternionT& b, T tol) {
    return internal::areEqualTol(a.v_, b.v_, tol);
}

namespace {

/// Whether s can be divided by. If not, prints a message on standard output.
template <class T>
bool isDivisor(T s) {
    if (std::abs(s) <= Ky::KY_SMALL_REAL<T>::epsilon) {
        std::printf("QuaternionT<T>::attempt to divide by zero.");
        return false;
    }
    return true;
}

}  // namespace

template <class T>
QuaternionT<T>& QuaternionT<T>::operator/=(const T& s) {
    if (isDivisor(s)) *this = QuaternionT(v_[0] / s, v_[1] / s, v_[2] / s, v_[3] / s);
    return *this;
}
template <class T>
QuaternionT<T> QuaternionT<T>::operator/(const T& s) const {
    if (!isDivisor(s)) return QuaternionT();
    return QuaternionT(v_[0] / s, v_[1] / s, v_[2] / s, v_[3] / s);
}

namespace {

// For floats, calling a kernel would take longer than the product itself.
void assignProduct(float* q, const float* a, const float* b) {
    internal::quaternionProduct(q, a, b);
}
void assignProduct(double* q, const double* a, const double* b) {
    KY_KERNEL(quaternionProduct(q, a, b));
}

}  // namespace

template <class T>
QuaternionT<T>& QuaternionT<T>::operator*=(const QuaternionT& q) {
    assignProduct(v_, v_, q.v_);
    return *this;
}
template <class T>
QuaternionT<T> QuaternionT<T>::operator*(const QuaternionT& q) const {
    QuaternionT product(*this);
    assignProduct(product.v_, v_, q.v_);
    return product;
}

template <class T>
void QuaternionT<T>::fromAxisAngle(T ax, T ay, T az, T angle) {
    const auto half = internal::sinCos(angle * T(0.5));
    set(half.c, half.s * ax, half.s * ay, half.s * az);
}
template <class T>
void QuaternionT<T>::fromAxisAngle(const Vector3T<T>& axis, const T& angle) {
    fromAxisAngle(axis.x(), axis.y(), axis.z(), angle);
}

template <class T>
void QuaternionT<T>::toAxisAngle(T* ax, T* ay, T* az, T* angle) const {
    const QuaternionT q(*this);  // the outputs may be this quaternion's own components
    const T s = Vector3T<T>(q.v_ + 1).norm();
    if (s <= Ky::KY_SMALL_REAL<T>::epsilon || q.v_[0] > 1) {
        *ax = 0;
        *ay = 1;
        *az = 0;
        *angle = 0;
        return;
    }
    *ax = q.v_[1] / s;
    *ay = q.v_[2] / s;
    *az = q.v_[3] / s;
    *angle = 2 * internal::acos(q.v_[0]);
}
template <class T>
void QuaternionT<T>::toAxisAngle(Vector3T<T>* axis, T* angle) const {
    toAxisAngle(&axis->x(), &axis->y(), &axis->z(), angle);
}

template <class T>
void QuaternionT<T>::fromEulerXYZ(T rx, T ry, T rz) {
    const auto x = internal::sinCos(rx * T(0.5));
    const auto y = internal::sinCos(ry * T(0.5));
    const auto z = internal::sinCos(rz * T(0.5));
    set(x.c * y.c * z.c + x.s * y.s * z.s,  //
        x.s * y.c * z.c - x.c * y.s * z.s,  //
        x.c * y.s * z.c + x.s * y.c * z.s,  //
        x.c * y.c * z.s - x.s * y.s * z.c);
}

template <class T>
void QuaternionT<T>::toEulerXYZ(T* rx, T* ry, T* rz) const {
    const T w = v_[0];
    const T x = v_[1];
    const T y = v_[2];
    const T z = v_[3];
    *rz = internal::atan2(2 * (x * y + w * z), w * w + x * x - y * y - z * z);
    *rx = internal::atan2(2 * (y * z + w * x), w * w - x * x - y * y + z * z);
    // Deliberate: the argument is not clamped; rounding can carry it past +-1. Pinned by
    // QuaternionTest.PitchIsNaNPastThePole.
    *ry = internal::asin(-2 * (x * z - w * y));
}
template <class T>
void QuaternionT<T>::toEulerXYZ(Vector3T<T>* angles) const {
    toEulerXYZ(&angles->x(), &angles->y(), &angles->z());
}

template <class T>
void QuaternionT<T>::finiteRotation(const Vector3T<T>& omega, T dt) {
    const T length = omega.norm();
    // 1e-14 is always added: a zero omega gives a zero axis instead of a division by zero.
    const Vector3T<T> u = omega * (1 / (length + T(1e-14)));
    const auto half = internal::sinCos(length * dt * T(0.5));
    const T w = v_[0];
    const Vector3T<T> v(v_ + 1);
    const Vector3T<T> r = v * half.c + u * (half.s * w) + u.cross(v) * half.s;
    set(half.c * w - half.s * (u * v), r.x(), r.y(), r.z());
}

template <class T>
QuaternionT<T> QuaternionT<T>::slerp(const QuaternionT& q, T t) const {
    QuaternionT end(q);
    T cosine = dot(q);
    if (cosine < 0) {
        cosine = -cosine;
        end *= T(-1);
    }
    T a = 1 - t;
    T b = t;
    if (1 - cosine > T(1e-7)) {
        const T omega = internal::acos(cosine);
        const T k = 1 / internal::sin(omega);
        a = internal::sin(a * omega) * k;
        b = internal::sin(b * omega) * k;
    }
    return *this * a + end * b;
}

template <class T>
void QuaternionT<T>::fromRotation(const Vector3T<T>& from, const Vector3T<T>& to) {
    const double d = double(from * to);  // the dot product in T, double from here on
    const double m = 0.5 * std::min(std::max(d, -1.0), 1.0);
    Vector3T<T> axis;
    // The first test decides nearly always, and does not divide.
    if (!(std::abs(std::abs(d) - 1) > Ky::KY_SMALL_REAL<double>::epsilon) &&
        (Ky::KY_ARE_EQUAL(d, 1.0) || Ky::KY_ARE_EQUAL(d, -1.0))) {
        axis.setOrthogonal(from);
    } else {
        axis = from.cross(to);
        axis.normalize();
    }
    axis *= std::sqrt(T(0.5 - m));  // rounded to T before the roots
    set(std::sqrt(T(0.5 + m)), axis.x(), axis.y(), axis.z());
}

static_assert(internal::kArePlain<QuaternionT, 4>, "a quaternion is its four values");

template class QuaternionT<float>;
template class QuaternionT<double>;

#ifdef KY_LOCKSTEP

namespace internal {

template <class T>
void slerps(Strided<const QuaternionT<T>> a, Strided<const QuaternionT<T>> b, Strided<const T> t,
            Strided<QuaternionT<T>> out, std::size_t count) {
    inBlocks(count, [&](std::size_t begin, std::size_t n) {
        bool opposite[kBlock], curved[kBlock];
        Block<T> angle, sine, from, to;
        for (std::size_t i = 0; i < n; ++i) {
            const T cosine = at(a, begin + i)->dot(*at(b, begin + i));
            opposite[i] = cosine < 0;
            const T c = opposite[i] ? -cosine : cosine;
            curved[i] = 1 - c > T(1e-7);
            angle[i] = curved[i] ? c : T(0.5);
        }
        acos(angle, n);
        for (std::size_t i = 0; i < n; ++i) {
            const T s = curved[i] ? *at(t, begin + i) : T(0);
            sine[i] = angle[i];
            from[i] = (1 - s) * angle[i];
            to[i] = s * angle[i];
        }
        for (Block<T>* const x : {&sine, &from, &to}) sin(*x, n);
        for (std::size_t i = 0; i < n; ++i) {
            const T s = *at(t, begin + i), k = 1 / sine[i];
            QuaternionT<T> end(*at(b, begin + i));
            if (opposite[i]) end *= T(-1);
            *at(out, begin + i) = *at(a, begin + i) * (curved[i] ? from[i] * k : 1 - s) +
                                  end * (curved[i] ? to[i] * k : s);
        }
    });
}

template void slerps(Strided<const QuaternionT<float>>, Strided<const QuaternionT<float>>,
                     Strided<const float>, Strided<QuaternionT<float>>, std::size_t);
template void slerps(Strided<const QuaternionT<double>>, Strided<const QuaternionT<double>>,
                     Strided<const double>, Strided<QuaternionT<double>>, std::size_t);

}  // namespace internal

#endif

}  // namespace KyMath
