// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Lines.h>
#include <KyMath/inline/Lines.h>

#include "internal/Components.h"

#include <cmath>
#include <ostream>

namespace KyMath {

namespace {

Vector3d pointAt(const Line3& line, double t) {
    return line.p2 * t + line.p1 * (1 - t);
}

/// Writes the point to *out if out is not null. Returns its distance from q, which may be *out.
double report(const Vector3d& point, const Vector3d& q, Vector3d* out) {
    const double distance = Vector3d::distance(point, q);
    if (out) *out = point;
    return distance;
}

/// The point of a line or segment from which distanceTo(target) measures.
template <class Line, class Target>
Vector3d closestPoint(const Line& line, const Target& target) {
    Vector3d closest;
    line.distanceTo(target, &closest);
    return closest;
}

double clamp(double t) {
    if (0 > t) return 0;
    return t > 1 ? 1 : t;
}

/// Where the lines p and q are closest: each line's closestPointFactor(the other).
struct Factors {
    double p, q;
};
inline Factors closestPointFactors(const Line3& p, const Line3& q) {
    const Vector3d d1 = p.p2 - p.p1;
    const Vector3d d2 = q.p2 - q.p1;
    const double a = d1 * d1;
    const double b = d1 * d2;
    const double c = d2 * d2;
    const double denominator = a * c - b * b;
    if (!(std::abs(denominator) > internal::lineTolerance())) return {0, 0};
    const double k = 1 / denominator;
    return {(p.p1 - q.p1) * ((d2 * b - d1 * c) * k), (q.p1 - p.p1) * ((d1 * b - d2 * a) * k)};
}

}  // namespace

double Line3::closestPointFactor(const Line3& line) const {
    return closestPointFactors(*this, line).p;
}

Vector3d Line3::closestPointTo(const Vector3d& q) const {
    return closestPoint(*this, q);
}
Vector3d Line3::closestPointTo(const Line3& line) const {
    return closestPoint(*this, line);
}

double Line3::distanceTo(const Vector3d& q, Vector3d* closest) const {
    return report(pointAt(*this, closestPointFactor(q)), q, closest);
}
double Line3::distanceTo(const Line3& line, Vector3d* closest) const {
    if (isParallel(line)) return distanceTo(line.p1, closest);
    const Factors t = closestPointFactors(*this, line);
    return report(pointAt(*this, t.p), pointAt(line, t.q), closest);
}
double Line3::distanceTo(const Vector3d& center, double radius, int* count, Vector3d* points) {
    Vector3d unwantedPoints[2];
    int unwantedCount;
    if (!points) points = unwantedPoints;
    if (!count) count = &unwantedCount;

    Vector3d direction = p2 - p1;
    const double distance = distanceTo(center, &points[0]);
    const double gap = distance - radius;
    if (distance > radius) {
        *count = 0;
    } else if (internal::lineTolerance() > std::abs(gap)) {
        *count = 1;
    } else {
        *count = 2;
        const double h = std::sqrt(radius * radius - distance * distance);
        direction.normalize();
        points[1] = points[0] - direction * h;
        points[0] = points[1] + direction * (h + h);
    }
    return gap;
}

double Segment3::closestPointFactor(const Vector3d& q) const {
    return Line3::closestPointFactor(q);
}
double Segment3::closestPointFactor(const Segment3& segment) const {
    return clamp(Line3::closestPointFactor(segment));
}

Vector3d Segment3::closestPointTo(const Vector3d& q) const {
    return closestPoint(*this, q);
}
Vector3d Segment3::closestPointTo(const Segment3& segment) const {
    return closestPoint(*this, segment);
}

double Segment3::distanceTo(const Vector3d& q, Vector3d* closest) const {
    return report(pointAt(*this, clamp(closestPointFactor(q))), q, closest);
}

// Deliberate: the factors are clamped independently, not recomputed from each other. Of a parallel
// segment only the first point counts, unless the segment lies wholly beyond an end. Pinned by
// LinesTest.SkewSegmentsAreClampedOnTheirOwn and LinesTest.ParallelSegmentsMeetAtFacingEnds.
double Segment3::distanceTo(const Segment3& segment, Vector3d* closest) const {
    if (!isParallel(segment)) {
        const Factors t = closestPointFactors(*this, segment);
        return report(pointAt(*this, clamp(t.p)), pointAt(segment, clamp(t.q)), closest);
    }
    const double t0 = closestPointFactor(segment.p1);
    const double t1 = closestPointFactor(segment.p2);
    if (t0 > 1 && t1 > t0) return report(p2, segment.p1, closest);
    if (t1 > 1 && t0 > t1) return report(p2, segment.p2, closest);
    if (0 > t1 && t1 > t0) return report(p1, segment.p2, closest);
    if (0 > t0 && t0 > t1) return report(p1, segment.p1, closest);
    return distanceTo(segment.p1, closest);
}

std::ostream& operator<<(std::ostream& os, const Line3& line) {
    const Vector3d& p1 = line.p1;
    const Vector3d& p2 = line.p2;
    return os << "p1:" << p1.x() << " " << p1.y() << " " << p1.z()  //
              << " p2:" << p2.x() << " " << p2.y() << " " << p2.z();
}

static_assert(internal::kIsPlain<Segment3, 6 * sizeof(double)> &&
                  std::is_trivially_copyable_v<Segment3>,
              "a line is its two points");

}  // namespace KyMath
