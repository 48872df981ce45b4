// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Curves.h>

#include "curve/Samples.h"
#include "internal/Arithmetic.h"

#include <algorithm>
#include <cstddef>

namespace KyMath {

namespace {

/// How the samples of a curve are distributed over its segments.
struct Sharing {
    std::size_t segments;
    std::size_t samples;  // per segment
    std::size_t start;    // first sample taken of each segment: 1 if P[0] precedes them
    std::size_t extra;    // further samples: one each for the first, last, second, ... segment

    /// The number of samples of segment c, counted from 1.
    std::size_t samplesOf(std::size_t c) const {
        const bool longer = c <= (extra + 1) / 2 || c > segments - extra / 2;
        return samples + (longer ? 1 : 0);
    }
};

/// For m control points and n > m samples, of which the last is the last control point: m + 1, m or
/// m - 1 segments, the first of these that shares the other samples evenly, or else m segments and
/// extra samples.
Sharing share(std::size_t m, std::size_t n) {
    const std::size_t low = n / (m + 1);
    const std::size_t high = low + 1;
    // The order matters. For m + 1 segments, the row of `high` never matches.
    const struct {
        std::size_t samples, remainder, start;
    } rows[] = {{low, 1, 0}, {high, 1, 0}, {low, 2, 1}};
    for (const auto& row : rows) {
        for (const std::size_t segments : {m + 1, m, m - 1}) {
            if (n == row.samples * segments + row.remainder) {
                return {segments, row.start == 0 ? row.samples : high, row.start, 0};
            }
        }
    }
    return {m, (n - 1) / m, 0, (n - 1) % m};
}

/// Index of control point j, 0 to 3, of segment c, counted from 1.
std::size_t controlIndex(std::size_t m, std::size_t segments, std::size_t c, std::size_t j) {
    // Deliberate: three control points have a table of their own, so that fewer segments still end
    // at the last one. Pinned by CurvesTest.BSplineOfThreePointsReachesTheLast.
    static constexpr std::size_t kThreeOfThree[3][4] = {{0, 0, 0, 1}, {0, 1, 1, 2}, {1, 2, 2, 2}};
    static constexpr std::size_t kTwoOfThree[2][4] = {{0, 0, 1, 1}, {0, 1, 2, 2}};
    if (m == 3 && segments == 3) return kThreeOfThree[c - 1][j];
    if (m == 3 && segments == 2) return kTwoOfThree[c - 1][j];
    const std::size_t i = c + j;  // the index plus 3, which is never negative
    return i < 3 ? 0 : std::min(i - 3, m - 1);
}

/// The weights of the four control points at a sample.
struct Weights {
    double b[4];
};

/// The weights at t = j / samples, for all samples of a segment.
std::vector<Weights> weightsOf(std::size_t samples) {
    std::vector<Weights> weights(samples);
    for (std::size_t j = 0; j < samples; ++j) {
        const double t = double(j) / double(samples);
        weights[j] = {{(1 - t) * (1 - t) * (1 - t) / 6, (3 * t * t * t - 6 * t * t + 4) / 6,
                       (3 * t + (3 * t * t - 3 * t * t * t) + 1) / 6, t * t * t / 6}};
    }
    return weights;
}

}  // namespace

bool CreateBSpline(const std::vector<Vector3d>& controls, unsigned int count,
                   std::vector<Vector3d>& out) {
    if (const auto done = internal::simpleCurve(controls, 2, count, out)) return *done;
    const std::size_t m = controls.size();
    const std::vector<Vector3d> p = controls;  // a copy: the controls may be out
    const Sharing sharing = share(m, count);
    const std::vector<Weights> weights[] = {weightsOf(sharing.samples),
                                            weightsOf(sharing.extra > 0 ? sharing.samples + 1 : 0)};
    internal::allocate(out, count);
    auto sample = out.begin() + static_cast<std::ptrdiff_t>(sharing.start);
    for (std::size_t c = 1; c <= sharing.segments; ++c) {
        const auto control = [&](std::size_t j) -> const Vector3d& {
            return p[controlIndex(m, sharing.segments, c, j)];
        };
        const Vector3d p0 = control(0), p1 = control(1), p2 = control(2), p3 = control(3);
        const std::size_t samples = sharing.samplesOf(c);
        for (std::size_t j = sharing.start; j < samples; ++j) {
            const double* const b = weights[samples - sharing.samples][j].b;
            *sample++ = p0 * b[0] + p1 * b[1] + p2 * b[2] + p3 * b[3];
        }
    }
    out.front() = p.front();
    out.back() = p.back();
    return true;
}

}  // namespace KyMath
