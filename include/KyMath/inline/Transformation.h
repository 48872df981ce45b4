// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_TRANSFORMATION_H
#define KYMATH_INLINE_TRANSFORMATION_H

#include <KyMath/inline/Components.h>

#ifdef KYMATH_INLINE
#pragma GCC system_header
#endif

KY_EXACT_BEGIN
namespace KyMath {

namespace Transformation {

template <class T>
KY_SMALL Vector3T<T> getTranslationT(const Matrix44T<T>& m) {
    return Vector3T<T>(m(0, 3), m(1, 3), m(2, 3));
}

template <class T>
KY_SMALL void setTranslationT(Matrix44T<T>& m, const Vector3T<T>& t) {
    m(0, 3) = t.x();
    m(1, 3) = t.y();
    m(2, 3) = t.z();
}

#ifdef KYMATH_INLINE
extern template Vector3T<float> getTranslationT(const Matrix44T<float>&);
extern template Vector3T<double> getTranslationT(const Matrix44T<double>&);
extern template void setTranslationT(Matrix44T<float>&, const Vector3T<float>&);
extern template void setTranslationT(Matrix44T<double>&, const Vector3T<double>&);
#endif

}  // namespace Transformation

}  // namespace KyMath
KY_EXACT_END

#endif
