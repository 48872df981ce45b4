// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <iomanip>

namespace KyMath::test {
namespace {

Segment3 onX(double from, double to) {
    return Segment3(Vector3d(from, 0, 0), Vector3d(to, 0, 0));
}

TEST(LinesTest, AreValidIfTheirPointsDiffer) {
    EXPECT_FALSE(Line3(Vector3d(), Vector3d(-0.0, 0, -0.0)).isValid());
    for (int i = 0; i < 3; ++i) {
        for (const double x : {above(0.0), kNaN<double>}) {
            const Vector3d other = after(Vector3d(), [&](Vector3d& p) { p[i] = x; });
            EXPECT_TRUE(Line3(Vector3d(), other).isValid()) << i << ": " << x;
        }
    }
}

TEST(LinesTest, SegmentsEndLinesDoNot) {
    Segment3 s(Vector3d(1, 2, 3), Vector3d(3, 2, 3));
    Line3 l = s;
    const Vector3d q(5, 6, 3), foot(5, 2, 3);
    EXPECT_EQ(2, l.closestPointFactor(q));
    EXPECT_EQ(2, s.closestPointFactor(q));  // deliberate: not clamped
    EXPECT_EQ(foot, l.closestPointTo(q));
    EXPECT_EQ(s.p2, s.closestPointTo(q));
    EXPECT_EQ(4, l.distanceTo(q, &l.p1));  // outputs may be operands
    EXPECT_EQ(foot, l.p1);
    EXPECT_EQ(std::sqrt(20.0), s.distanceTo(q, &s.p1));
    EXPECT_EQ(s.p2, s.p1);
    EXPECT_TRUE(std::isnan(s.distanceTo(Vector3d(kNaN<double>, 0, 0), nullptr)));
}

// Deliberate: absolute, and on squares.
TEST(LinesTest, ToleranceCountsForSquaredLengths) {
    const Line3 x = onX(0, 1);
    const double root = std::sqrt(1e-7);
    for (const double y : {root / 2, below(root), above(root), root * 2}) {
        const Line3 tiny(Vector3d(), Vector3d(0, y, 0)), beside(x.p2, Vector3d(1, y, 0));
        EXPECT_EQ(y * y > 1e-7, tiny.closestPointFactor(Vector3d(5, 6, 7)) != 0) << y;
        EXPECT_EQ(y * y > 1e-7, x.closestPointFactor(beside) != 0) << y;
        EXPECT_EQ(y * y < 1e-7, x.isParallel(tiny)) << y;
    }
}

TEST(LinesTest, SkewSegmentsAreClampedOnTheirOwn) {
    const Segment3 s = onX(0, 2), t(Vector3d(3, 4, 3), Vector3d(3, 8, 3));
    const Line3 l = s, m = t;
    EXPECT_EQ(1.5, l.closestPointFactor(m));
    EXPECT_EQ(-1, m.closestPointFactor(l));
    EXPECT_EQ(Vector3d(3, 0, 0), l.closestPointTo(m));
    EXPECT_EQ(3, l.distanceTo(m, nullptr));
    EXPECT_EQ(1, s.closestPointFactor(t));
    EXPECT_EQ(0, t.closestPointFactor(s));
    EXPECT_EQ(std::sqrt(26.0), s.distanceTo(t, nullptr));
}

// Deliberate: overlapping parallel segments ask for the first point of the other one alone.
TEST(LinesTest, ParallelSegmentsMeetAtFacingEnds) {
    const Segment3 s = onX(0, 1);
    const double cases[][4] = {{3, 5, 1, 2},       {5, 3, 1, 2},    {-5, -3, 0, 3}, {-3, -5, 0, 3},
                               {0.25, 9, 0.25, 0}, {9, 0.25, 1, 8}, {3, 3, 1, 2},   {-3, -3, 0, 3},
                               {1, 3, 1, 0},       {3, 1, 1, 2},    {0, -3, 0, 0},  {-3, 0, 0, 3}};
    for (const auto& c : cases) {
        const Segment3 q = onX(c[0], c[1]);
        EXPECT_BITS(Vector3d(c[2], 0, 0), s.closestPointTo(q)) << c[0];
        EXPECT_EQ(c[3], s.distanceTo(q, nullptr)) << c[0];
    }
}

TEST(LinesTest, SphereIsMissedTouchedOrCrossed) {
    Line3 x = onX(-1, 3), point = onX(1, 1);
    Vector3d points[] = {Vector3d(1, 3, 0), Vector3d()};
    int count = -1;
    EXPECT_EQ(-2, x.distanceTo(points[0], 5, &count, points));  // over the centre
    EXPECT_EQ(2, count);
    EXPECT_EQ(Vector3d(5, 0, 0), points[0]);
    EXPECT_EQ(Vector3d(-3, 0, 0), points[1]);
    EXPECT_EQ(-2, x.distanceTo(Vector3d(1, 3, 0), 5, nullptr, nullptr));
    EXPECT_EQ(-2, point.distanceTo(point.p1, 2, &count, points));
    for (const Vector3d& p : points) EXPECT_EQ(point.p1, p);
    const double counts[][2] = {{1e-7, 0},  {above(0.0), 0},   {0, 1}, {-below(1e-7), 1},
                                {-1e-7, 2}, {-above(1e-7), 2}, {2, 0}};
    for (const auto& [gap, expected] : counts) {  // at a distance of 0, where the gap is exact
        points[1] = Vector3d(7, 7, 7);
        EXPECT_EQ(gap, x.distanceTo(Vector3d(0.5, 0, 0), -gap, &count, points));
        EXPECT_EQ(expected, count) << gap;
        EXPECT_EQ(count == 2, points[1] != Vector3d(7, 7, 7));
    }
}

TEST(LinesTest, PrintInTheFormatOfTheStream) {
    std::ostringstream s;
    s << std::showpos << Segment3(Vector3d(1, 2, 3), Vector3d(4, 5, 6)) << "; ";
    EXPECT_EQ("p1:+1 +2 +3 p2:+4 +5 +6; ", s.str());
}

}  // namespace
}  // namespace KyMath::test
