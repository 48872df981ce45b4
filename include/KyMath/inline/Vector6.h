// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_VECTOR6_H
#define KYMATH_INLINE_VECTOR6_H

#include <KyMath/inline/Components.h>

#ifdef KYMATH_INLINE
#pragma GCC system_header
#endif

KY_EXACT_BEGIN
namespace KyMath {

KY_SMALL_PLAIN Vector6::Vector6(double a0, double a1, double a2, double a3, double a4, double a5)
    : v_{a0, a1, a2, a3, a4, a5} {}

KY_SMALL_PLAIN Vector6::Vector6(const double* first, const double* second)
    : v_{first[0], first[1], first[2], second[0], second[1], second[2]} {}

KY_SMALL_PLAIN Vector6& Vector6::operator=(const Vector6& v) {
    internal::copy(v_, v.v_);
    return *this;
}

KY_SMALL_PLAIN void Vector6::set(const Vector3T<double>& first, const Vector3T<double>& second) {
    *this = Vector6(first, second);
}

KY_SMALL_PLAIN double& Vector6::operator[](int i) {
    return v_[i];
}
KY_SMALL_PLAIN const double& Vector6::operator[](int i) const {
    return v_[i];
}

#if KY_INLINE_ARITHMETIC

KY_SMALL_PLAIN void Vector6::add(const Vector6& v) {
    internal::add(v_, v.v_);
}
KY_SMALL_PLAIN void Vector6::sub(const Vector6& v) {
    internal::subtract(v_, v.v_);
}
KY_SMALL_PLAIN void Vector6::scale(double s) {
    internal::scale(v_, s);
}

KY_SMALL_PLAIN double Vector6::dot(const Vector6& v) const {
    double sum = 0;  // part of the result: since 0 + -0 is 0, a dot product is never -0
    KY_UNROLL
    for (int i = 0; i < 6; ++i) sum += internal::times(v_[i], v.v_[i]);
    return sum;
}
KY_SMALL_PLAIN double Vector6::norm() const {
    return internal::root(dot(*this));
}

#endif

}  // namespace KyMath
KY_EXACT_END

#endif
