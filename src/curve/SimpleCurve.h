// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_CURVE_SIMPLECURVE_H
#define KYMATH_CURVE_SIMPLECURVE_H

#include <KyMath/Curves.h>

#include <cstddef>
#include <optional>

namespace KyMath::internal {

/// The cases that are the same for all types of curves, with the value to return: too few control
/// points or samples, as many samples as control points, two control points. Empty in all other
/// cases, with out unchanged.
inline std::optional<bool> simpleCurve(const std::vector<Vector3d>& controls, std::size_t fewest,
                                       unsigned int count, std::vector<Vector3d>& out) {
    const std::size_t m = controls.size();
    if (m < fewest || count < m) return false;
    if (count == m) {
        out = controls;
        return true;
    }
    if (m == 2) return CreateLinearInterpolation(controls[0], controls[1], count, out);
    return std::nullopt;
}

}  // namespace KyMath::internal

#endif
