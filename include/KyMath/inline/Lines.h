// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_LINES_H
#define KYMATH_INLINE_LINES_H

#include <KyMath/inline/Components.h>

#ifdef KYMATH_INLINE
#pragma GCC system_header
#endif

KY_EXACT_BEGIN
namespace KyMath {

KY_SMALL_PLAIN Line3::Line3() {}
KY_SMALL_PLAIN Line3::Line3(const Vector3T<double>& first, const Vector3T<double>& second)
    : p1(first), p2(second) {}

KY_SMALL_PLAIN Segment3::Segment3() {}
KY_SMALL_PLAIN Segment3::Segment3(const Vector3T<double>& first, const Vector3T<double>& second)
    : Line3(first, second) {}

#if KY_INLINE_ARITHMETIC

namespace internal {

/// Divisors (squared lengths and products of them) must exceed this.
KY_HELPER constexpr double lineTolerance() {
    return 1e-7;
}

}  // namespace internal

KY_SMALL_PLAIN bool Line3::isValid() const {
    return p1 != p2;
}
KY_SMALL_PLAIN bool Line3::isParallel(const Line3& line) const {
    return internal::lineTolerance() >
           internal::magnitude((p2 - p1).cross(line.p2 - line.p1).normSquare());
}

KY_SMALL_PLAIN double Line3::closestPointFactor(const Vector3T<double>& q) const {
    const Vector3T<double> d = p2 - p1;
    const double square = d.normSquare();
    if (!(internal::magnitude(square) > internal::lineTolerance())) return 0;
    return d * (q - p1) / square;
}

#endif

}  // namespace KyMath
KY_EXACT_END

#endif
