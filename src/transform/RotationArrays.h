// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_TRANSFORM_ROTATION_ARRAYS_H
#define KYMATH_TRANSFORM_ROTATION_ARRAYS_H

#include <KyMath/Forward.h>

#include "lanes/Kernels.h"

namespace KyMath::internal {

// Array calls of createRotationT() and getRotationT().

template <class T>
void createRotations(Strided<const Vector3T<T>> in, Strided<Matrix44T<T>> out, std::size_t count);
template <class T>
void getRotations(Strided<const Matrix44T<T>> in, bool normalize, Strided<Vector3T<T>> out,
                  std::size_t count);

}  // namespace KyMath::internal

#endif
