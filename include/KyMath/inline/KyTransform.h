// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_KYTRANSFORM_H
#define KYMATH_INLINE_KYTRANSFORM_H

#include <KyMath/inline/Components.h>

#ifdef KYMATH_INLINE
#pragma GCC system_header
#endif

KY_EXACT_BEGIN
namespace Ky {

KY_SMALL_PLAIN KyTransform::KyTransform() : v_{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1} {}

KY_SMALL_PLAIN KyTransform::KyTransform(double a0, double a1, double a2, double a3, double a4,
                                        double a5, double a6, double a7, double a8, double a9,
                                        double a10, double a11, double a12, double a13, double a14,
                                        double a15)
    : v_{a0, a1, a2, a3, a4, a5, a6, a7, a8, a9, a10, a11, a12, a13, a14, a15} {}

KY_SMALL_PLAIN void KyTransform::set(const float* a) {
    for (int i = 0; i < 16; ++i) v_[i] = double(a[i]);
}
KY_SMALL_PLAIN void KyTransform::set(const double* a) {
    KyMath::internal::copy(v_, a);
}
KY_SMALL_PLAIN void KyTransform::set(const double (*a)[4]) {
    for (int c = 0; c < 4; ++c) {
        for (int r = 0; r < 4; ++r) v_[4 * c + r] = a[c][r];
    }
}

KY_SMALL_PLAIN double& KyTransform::operator()(unsigned long r, unsigned long c) {
    return v_[4 * c + r];
}
KY_SMALL_PLAIN double KyTransform::operator()(unsigned long r, unsigned long c) const {
    return v_[4 * c + r];
}

KY_DEFINE_COLUMN_SUBSCRIPTS(KY_SMALL_PLAIN, KyTransform, double)

KY_SMALL_PLAIN KyTransform::operator double*() {
    return v_;
}
KY_SMALL_PLAIN KyTransform::operator const double*() const {
    return v_;
}
KY_SMALL_PLAIN KyTransform::operator KyReal4*() {
    return reinterpret_cast<KyReal4*>(v_);
}
KY_SMALL_PLAIN KyTransform::operator const KyReal4*() const {
    return reinterpret_cast<const KyReal4*>(v_);
}
KY_SMALL_PLAIN KyMath::Vector3T<double> KyTransform::getTranslation() const {
    return KyMath::Vector3T<double>(v_ + 12);
}
KY_SMALL_PLAIN void KyTransform::setTranslation(const KyMath::Vector3T<double>& t) {
    KyMath::Vector3T<double>::set(v_ + 12, t);
}

#if KY_INLINE_ARITHMETIC

KY_SMALL_PLAIN bool KyTransform::operator==(const KyTransform& t) const {
    return KyMath::internal::equal(v_, t.v_);
}
KY_SMALL_PLAIN bool KyTransform::operator!=(const KyTransform& t) const {
    return !(*this == t);
}

KY_SMALL_PLAIN KyMath::Vector3T<double> KyTransform::transformPoint(
    const KyMath::Vector3T<double>& p) const {
    return transformDirection(p) + getTranslation();
}
KY_SMALL_PLAIN KyMath::Vector3T<double> KyTransform::transformDirection(
    const KyMath::Vector3T<double>& d) const {
    using KyMath::internal::times;
    const double* const m = v_;
    const double x = d[0], y = d[1], z = d[2];
    return KyMath::Vector3T<double>(times(m[0], x) + times(m[4], y) + times(m[8], z),
                                    times(m[1], x) + times(m[5], y) + times(m[9], z),
                                    times(m[2], x) + times(m[6], y) + times(m[10], z));
}

#endif

}  // namespace Ky
KY_EXACT_END

#endif
