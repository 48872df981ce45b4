// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_CURVES_H
#define KYMATH_CURVES_H

#include <KyMath/Forward.h>
#include <KyMath/Vector3.h>

#include <vector>

namespace KyMath {

/// @name Curves sampled into points
///
/// Each function replaces the contents of out by count points, with the curve's parameter running
/// from 0 to 1 (in even steps, except for B-splines), and returns true. With fewer control points
/// or samples than it requires, it returns false and out is unchanged. out is also unchanged if
/// allocation fails, which throws std::bad_alloc or std::length_error. With as many samples as
/// control points, the result is the control points themselves. out may be the list of control
/// points.
/// @{

/// Points on the straight segment from a to b, both exact. At least two samples.
KY_CONTAINERS KY_API bool CreateLinearInterpolation(const Vector3T<double>& a,
                                                    const Vector3T<double>& b, unsigned int count,
                                                    std::vector<Vector3T<double>>& out);

/// Points on the Bezier curve of the control points, by de Casteljau's repeated interpolation. The
/// ends are exact; the curve does not pass through the other control points. At least two control
/// points, and at least as many samples. The time is proportional to count times the square of the
/// number of control points.
KY_CONTAINERS KY_API bool CreateBezier(const std::vector<Vector3T<double>>& controls,
                                       unsigned int count, std::vector<Vector3T<double>>& out);

/// Points on a Catmull-Rom spline through the control points, with parameters proportional to chord
/// length. At the ends, the missing neighbour is the end point itself. At least three control
/// points, and at least as many samples.
///
/// The segment advances by at most one from one sample to the next: with few samples and short
/// segments it lags behind, and the samples are control points until it has caught up. The last
/// sample may then fall short of the last control point. Coincident neighbours can give NaN.
KY_CONTAINERS KY_API bool CreateCatmullRomSpline(const std::vector<Vector3T<double>>& controls,
                                                 unsigned int count,
                                                 std::vector<Vector3T<double>>& out);

/// Points on a uniform cubic B-spline that starts at the first and ends at the last control point,
/// both exact, and passes near the others. At least two control points, and at least as many
/// samples; two control points give a straight segment.
///
/// The number s of segments (m + 1, m or m - 1 for m control points) follows from count. Steps of
/// the parameter are even if count is k s + 1 for some k. If it is k s + 2, every sample at a joint
/// of two segments is skipped; otherwise some of the first and last segments get one sample more
/// than the rest. With m or m - 1 segments and m > 3, the curve jumps to its last point. So
/// k (m + 1) + 1 is the count to choose.
KY_CONTAINERS KY_API bool CreateBSpline(const std::vector<Vector3T<double>>& controls,
                                        unsigned int count, std::vector<Vector3T<double>>& out);

/// Which curve CreateCurve makes. Every other value counts as eCurveCatmullRom.
enum eCurveType : int { eCurveBSpline = 0, eCurveBezier = 1, eCurveCatmullRom = 2 };

/// Calls the function for that type.
KY_CONTAINERS KY_API bool CreateCurve(eCurveType type,
                                      const std::vector<Vector3T<double>>& controls,
                                      unsigned int count, std::vector<Vector3T<double>>& out);
/// @}

}  // namespace KyMath

#endif
