// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_BENCHMARKS_SCENE_H
#define KYMATH_BENCHMARKS_SCENE_H

#include "Bench.h"

namespace bench {

/// Boxes on hilly ground, 1000 by 625 units, z up.
constexpr std::size_t kItems = 100000;

inline std::vector<double> sceneBoxes() {
    constexpr std::size_t kColumns = 400;
    const std::vector<double> jitter = numbers<double>(4 * kItems, 0, 1, 1);
    std::vector<double> boxes;
    for (std::size_t i = 0; i < kItems; ++i) {
        const double* const j = &jitter[4 * i];
        const double x = 2.5 * (double(i % kColumns) + j[0]);
        const std::size_t row = i / kColumns;
        const double y = 2.5 * (double(row) + j[1]);
        const double z = 20 * std::sin(x / 60) * std::cos(y / 50);
        boxes.insert(boxes.end(), {x, y, z, x + 2 + j[2], y + 2 + j[2], z + 1 + 3 * j[3]});
    }
    return boxes;
}

/// The camera is at the edge of the ground and looks along x. Its view has depths x - kEye[0] from
/// near to far, and extends kSpread times the depth to each side, up and down.
constexpr double kEye[] = {-20, 300, 30};
constexpr double kNear = 1, kFar = 600, kSpread = 0.5;

/// Points in front of a projective matrix.
template <class T>
std::vector<T> scenePoints() {
    return numbers<T>(3 * kItems, -1, 1, 2);
}
template <class T>
std::vector<T> projection() {
    return {T(1.5), 0, 0, 0, 0, 2, 0, 0, 0, 0, T(-1.25), -1, T(0.5), T(0.25), T(-3), 4};
}

}  // namespace bench

#endif
