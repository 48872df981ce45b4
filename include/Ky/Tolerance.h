// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KY_TOLERANCE_H
#define KY_TOLERANCE_H

#include <Ky/Export.h>
#include <KyMath/Forward.h>

namespace Ky {

/// The library's small value for each scalar type.
///
/// | T      | epsilon                                                                          |
/// |--------|----------------------------------------------------------------------------------|
/// | float  | the float 1e-6, 9.99999997e-07                                                   |
/// | double | the float literal 1e-14 widened, 9.9999998245167004e-15: below the double 1e-14  |
template <class T>
struct KY_API KY_SMALL_REAL {
    static_assert(KyMath::internal::IsScalar<T>::value,
                  "KyMath: the scalar type must be float or double");

    static const T epsilon;  ///< Read-only data: ready before any initialiser runs.
};

template <>
const float KY_SMALL_REAL<float>::epsilon;
template <>
const double KY_SMALL_REAL<double>::epsilon;

/// Whether a and b are equal within e = KY_SMALL_REAL<double>::epsilon by the mixed rule, which
/// every areEqualTol() follows. With d = |a - b|:
///
///     d <= e                          when |a| <= e or |b| <= e,
///     d / |a| <= e and d / |b| <= e   otherwise.
///
/// The rule is absolute near zero and relative elsewhere. A NaN equals nothing; an infinity does
/// not even equal itself. Only for double: widen floats first, other types do not compile.
template <class T>
bool KY_ARE_EQUAL(T a, T b) KY_DELETED("for double only: widen floats first");
template <>
KY_API bool KY_ARE_EQUAL<double>(double a, double b);

}  // namespace Ky

#endif
