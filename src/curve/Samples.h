// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_CURVE_SAMPLES_H
#define KYMATH_CURVE_SAMPLES_H

#include <KyMath/Curves.h>

#include <cstddef>
#include <optional>

namespace KyMath::internal {

/// Resizes out; its values are unspecified. If memory runs out, out is unchanged.
inline void allocate(std::vector<Vector3d>& out, unsigned int count) {
    out.reserve(count);
    out.resize(count);
}

/// The cases that are the same for all types of curves, with the value to return: too few control
/// points or samples, as many samples as control points, two control points. Empty in all other
/// cases, with out unchanged.
std::optional<bool> simpleCurve(const std::vector<Vector3d>& controls, std::size_t fewest,
                                unsigned int count, std::vector<Vector3d>& out);

}  // namespace KyMath::internal

#endif
