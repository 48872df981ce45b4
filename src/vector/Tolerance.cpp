// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <Ky/Tolerance.h>

#include "internal/Components.h"

namespace Ky {

template <>
const float KY_SMALL_REAL<float>::epsilon = KyMath::internal::smallReal<float>();

// Deliberate: the float literal widened, 9.9999998245167004e-15, not the double 1e-14. A value of
// 1e-14 is not within epsilon of zero. Pinned by
// ToleranceTest.EpsilonsAreFloatLiterals.
template <>
const double KY_SMALL_REAL<double>::epsilon = KyMath::internal::smallReal<double>();
static_assert(KyMath::internal::smallReal<double>() < 1e-14,
              "the comment above describes this value");

template <>
bool KY_ARE_EQUAL<double>(double a, double b) {
    return KyMath::internal::withinTolerance(std::abs(a - b), std::abs(a), std::abs(b),
                                             KY_SMALL_REAL<double>::epsilon);
}

}  // namespace Ky
