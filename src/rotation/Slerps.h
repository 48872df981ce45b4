// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_ROTATION_SLERPS_H
#define KYMATH_ROTATION_SLERPS_H

#include <KyMath/Forward.h>

#include "lanes/Kernels.h"

namespace KyMath::internal {

/// out[i] = a[i].slerp(b[i], t[i])
template <class T>
void slerps(Strided<const QuaternionT<T>> a, Strided<const QuaternionT<T>> b, Strided<const T> t,
            Strided<QuaternionT<T>> out, std::size_t count);

}  // namespace KyMath::internal

#endif
