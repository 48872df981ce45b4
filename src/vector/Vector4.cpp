// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Vector4.h>
#include <KyMath/inline/Vector4.h>

#include "internal/Components.h"

namespace KyMath {

template <class T>
Vector4T<T>::Vector4T(const std::array<T, 4>& a) : v_{a[0], a[1], a[2], a[3]} {}

template <class T>
bool Vector4T<T>::areEqualTol(const Vector4T& a, const Vector4T& b, double tol) {
    return internal::areEqualTol(a.v_, b.v_, tol);
}

static_assert(internal::kArePlain<Vector4T, 4>, "a vector is its four values");

template class Vector4T<float>;
template class Vector4T<double>;

}  // namespace KyMath
