// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_BOUNDS_MASK_H
#define KYMATH_BOUNDS_MASK_H

#include <KyMath/Plane.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

namespace KyMath::internal {

// Bit i of the mask of a polytope stands for plane i.
inline constexpr std::size_t kMaskBits = std::numeric_limits<unsigned int>::digits;

// Deliberate: planes beyond the bits of a mask are never tested. Pinned by
// PolytopeTest.PlanesBeyondThirtyTwoAreNeverTested.
inline std::size_t maskedPlanes(const std::vector<PlaneT<double>>& planes) {
    return std::min(planes.size(), kMaskBits);
}

}  // namespace KyMath::internal

#endif
