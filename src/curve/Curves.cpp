// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Curves.h>

#include "curve/Samples.h"
#include "lanes/Kernels.h"

#include <algorithm>
#include <cstddef>

namespace KyMath {

using Points = std::vector<Vector3d>;

bool CreateLinearInterpolation(const Vector3d& a, const Vector3d& b, unsigned int count,
                               Points& out) {
    if (count <= 1) return false;
    const Vector3d first = a;  // copies: a and b may be elements of out
    const Vector3d last = b;
    internal::allocate(out, count);
    const double step = 1.0 / (count - 1);
    out[0] = first;
    for (unsigned int i = 1; i < count - 1; ++i) out[i] = (last - first) * (step * i) + first;
    out[count - 1] = last;
    return true;
}

std::optional<bool> internal::simpleCurve(const Points& controls, std::size_t fewest,
                                          unsigned int count, Points& out) {
    const std::size_t m = controls.size();
    if (m < fewest || count < m) return false;
    if (count == m) {
        out = controls;
        return true;
    }
    if (m == 2) return CreateLinearInterpolation(controls[0], controls[1], count, out);
    return std::nullopt;
}

bool CreateBezier(const Points& controls, unsigned int count, Points& out) {
    if (const auto done = internal::simpleCurve(controls, 2, count, out)) return *done;
    const std::size_t m = controls.size();
    const Points fixed = controls;  // a copy: the controls may be out
    std::vector<double> work(internal::bezierWork(m));
    internal::allocate(out, count);
    KY_KERNEL(bezier(fixed[0], m, 1.0 / (count - 1), work.data(), out[0], count));
    out.front() = fixed.front();
    out.back() = fixed.back();
    return true;
}

namespace {

/// One segment of a Catmull-Rom spline: twice its coefficients, and its length in knots.
struct Segment {
    Segment(const Points& p, const std::vector<double>& u, std::size_t k)
        : length(u[k + 1] - u[k]) {
        const Vector3d& p0 = p[k == 0 ? 0 : k - 1];
        const Vector3d& p1 = p[k];
        const Vector3d& p2 = p[k + 1];
        const Vector3d& p3 = p[std::min(k + 2, p.size() - 1)];
        constant = p1 * 2;
        linear = p2 - p0;
        square = p0 * 2 - p1 * 5 + p2 * 4 - p3;
        cube = p1 * 3 - p0 - p2 * 3 + p3;
    }
    Vector3d at(double x) const {
        return (square * (x * x) + (linear * x + constant) + cube * (x * x * x)) * 0.5;
    }

    double length;
    Vector3d constant, linear, square, cube;
};

}  // namespace

bool CreateCatmullRomSpline(const Points& controls, unsigned int count, Points& out) {
    if (const auto done = internal::simpleCurve(controls, 3, count, out)) return *done;
    const std::size_t m = controls.size();
    const Points p = controls;  // a copy: the controls may be out
    std::vector<double> u(m);
    internal::allocate(out, count);

    for (std::size_t k = 1; k < m; ++k) u[k] = u[k - 1] + Vector3d::distance(p[k], p[k - 1]);
    const double total = u[m - 1];
    for (double& knot : u) knot /= total;
    u[m - 1] = 1;

    const double step = 1.0 / (count - 1);
    std::size_t k = 0;
    Segment segment(p, u, k);
    for (unsigned int i = 0; i < count; ++i) {
        const double s = i * step;
        // Deliberate: advances by at most one segment per sample. Pinned by
        // CurvesTest.CatmullRomLagsBehindShortSegments.
        if (s > u[k + 1]) segment = Segment(p, u, ++k);
        const double x = (s - u[k]) / segment.length;
        if (x < 1e-8) {
            out[i] = p[k];
        } else if (x > 0.99999999) {
            out[i] = p[k + 1];
        } else {
            out[i] = segment.at(x);
        }
    }
    return true;
}

bool CreateCurve(eCurveType type, const Points& controls, unsigned int count, Points& out) {
    switch (type) {
        case eCurveBSpline:
            return CreateBSpline(controls, count, out);
        case eCurveBezier:
            return CreateBezier(controls, count, out);
        default:
            return CreateCatmullRomSpline(controls, count, out);
    }
}

}  // namespace KyMath
