// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_EXAMPLES_CONVERT_H
#define KYMATH_EXAMPLES_CONVERT_H

#include <KyMath/Matrix.h>
#include <KyMath/Vectors.h>

// Conversions between float and double: the library has no implicit ones.

inline KyMath::Vector3f toFloat(const KyMath::Vector3d& v) {
    return {float(v.x()), float(v.y()), float(v.z())};
}
inline KyMath::Vector3d toDouble(const KyMath::Vector3f& v) {
    return {double(v.x()), double(v.y()), double(v.z())};
}
inline KyMath::Matrix44f toFloat(const KyMath::Matrix44d& m) {
    KyMath::Matrix44f result;
    for (int i = 0; i < 16; ++i) result[i / 4][i % 4] = float(m[i / 4][i % 4]);
    return result;
}

#endif
