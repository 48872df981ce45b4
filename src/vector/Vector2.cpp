// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Vector2.h>
#include <KyMath/inline/Vector2.h>

#include "internal/Components.h"
#include "internal/Libm.h"

namespace KyMath {

template <>
KY_EARLY_CONSTANT const Vector2T<float> Vector2T<float>::kZero(0, 0);
template <>
KY_EARLY_CONSTANT const Vector2T<double> Vector2T<double>::kZero(0, 0);

template <class T>
bool Vector2T<T>::areEqualTol(const Vector2T& a, const Vector2T& b, double tol) {
    return internal::areEqualTol(a.v_, b.v_, tol);
}

template <class T>
Vector2T<T>& Vector2T<T>::rotate(T angle) {
    const auto turn = internal::sinCos(angle);
    set(v_[0] * turn.c - v_[1] * turn.s, v_[0] * turn.s + v_[1] * turn.c);
    return *this;
}

static_assert(internal::kArePlain<Vector2T, 2>, "a vector is its two values");

template class Vector2T<float>;
template class Vector2T<double>;

}  // namespace KyMath
