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
/// Each function fills out with count points, at even steps of the curve's parameter from 0 to 1,
/// and returns true; whatever out held before is gone. It returns false, and leaves out untouched,
/// for fewer control points or samples than it states. It leaves out untouched, too, when memory
/// runs out, which std::bad_alloc or std::length_error reports. With as many samples as control
/// points, the control points themselves are the result. out may be the list of control points.
/// @{

/// Points on the straight segment from a to b, both of them exact. At least two samples.
KY_API bool CreateLinearInterpolation(const Vector3T<double>& a, const Vector3T<double>& b,
                                      unsigned int count, std::vector<Vector3T<double>>& out);

/// Points on the Bezier curve of the control points, by de Casteljau's repeated interpolation. The
/// ends are exact; the curve does not pass through the other control points. At least two control
/// points, and as many samples. The time is proportional to count times the square of the number of
/// control points.
KY_API bool CreateBezier(const std::vector<Vector3T<double>>& controls, unsigned int count,
                         std::vector<Vector3T<double>>& out);

/// Points on a Catmull-Rom spline through the control points, with parameters proportional to chord
/// length. At the ends, the missing neighbour is the end point itself. At least three control
/// points, and as many samples.
///
/// The segment advances by one at most from a sample to the next: with few samples and short
/// segments it lags behind, and the samples are control points until it has caught up; the last
/// sample may then be short of the last control point. Coincident neighbours can give NaN.
KY_API bool CreateCatmullRomSpline(const std::vector<Vector3T<double>>& controls,
                                   unsigned int count, std::vector<Vector3T<double>>& out);

/// Points on a uniform cubic B-spline that starts at the first and ends at the last control point,
/// both exact, and passes near the others. At least two control points, and as many samples; two
/// give a straight segment.
///
/// The number of segments (m + 1, m or m - 1 for m control points) follows from count, such that
/// all get equally many samples where that is possible; then some of the first and last segments
/// get one more. With m or m - 1 segments and m > 3, the curve jumps to its last point.
KY_API bool CreateBSpline(const std::vector<Vector3T<double>>& controls, unsigned int count,
                          std::vector<Vector3T<double>>& out);

/// Which curve CreateCurve makes. Every other value counts as eCurveCatmullRom.
enum eCurveType : int { eCurveBSpline = 0, eCurveBezier = 1, eCurveCatmullRom = 2 };

/// The result of the function for that type.
KY_API bool CreateCurve(eCurveType type, const std::vector<Vector3T<double>>& controls,
                        unsigned int count, std::vector<Vector3T<double>>& out);
/// @}

}  // namespace KyMath

#endif
