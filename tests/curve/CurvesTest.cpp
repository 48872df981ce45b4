// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <vector>

namespace KyMath::test {
namespace {

using Points = std::vector<Vector3d>;

void expectPoints(const Points& expected, const Points& actual) {
    ASSERT_EQ(expected.size(), actual.size());
    for (std::size_t i = 0; i < actual.size(); ++i) EXPECT_BITS(expected[i], actual[i]) << i;
}

Points along(const Vector3d& d, std::initializer_list<double> factors) {
    Points points;
    for (const double factor : factors) points.push_back(d * factor);
    return points;
}
Points diagonal(std::initializer_list<double> factors) {
    return along(Vector3d(1, 2, -1), factors);
}

template <class F>
Points sampled(F create, const Points& controls, unsigned count) {
    Points out;
    EXPECT_TRUE(create(controls, count, out));
    return out;
}

TEST(CurvesTest, OutputMayBeTheControls) {
    Corpus<double> corpus(5101);
    const decltype(&CreateBezier) named[] = {CreateBSpline, CreateBezier, CreateCatmullRomSpline};
    for (unsigned curve = 0; curve < 3; ++curve) {
        for (unsigned m = 0; m < 10; ++m) {
            Points controls(m);
            for (Vector3d& p : controls) p = corpus.vector();
            for (unsigned n = 0; n < 30; ++n) {
                const bool possible = m > 1 + curve / 2 && n >= m;
                Points out = controls, self = controls;
                EXPECT_EQ(possible, named[curve](controls, n, out)) << curve << m << n;
                EXPECT_EQ(possible, named[curve](self, n, self));
                expectPoints(out, self);
                if (!possible || n == m) expectPoints(controls, out);
            }
        }
    }
}

TEST(CurvesTest, UnknownTypesAreCatmullRom) {
    const Points controls = diagonal({0, 1, 5, 2});
    for (const int type : {2, 3, 7, -1}) {
        Points out;
        EXPECT_TRUE(CreateCurve(eCurveType(type), controls, 9, out));
        expectPoints(sampled(CreateCatmullRomSpline, controls, 9), out);
    }
}

TEST(CurvesTest, LinearInterpolationIsExactAtBothEnds) {
    const double third = 1.0 / 3;
    const Vector3d a(0.1, 2, -3), b(0.7, 5, kInf<double>);
    for (const unsigned n : {0u, 1u, 2u, 4u}) {
        Points out = {b, a}, self = out;  // the ends may be in the output
        EXPECT_EQ(n > 1, CreateLinearInterpolation(a, b, n, out));
        EXPECT_EQ(n > 1, CreateLinearInterpolation(self[1], self[0], n, self));
        expectPoints(out, self);
        if (n == 2) expectPoints({a, b}, out);
        if (n == 4) expectPoints({a, (b - a) * third + a, (b - a) * (third * 2) + a, b}, out);
    }
}

// At a joint: a sixth, four sixths and a sixth of three control points.
TEST(CurvesTest, BSplineAveragesItsControls) {
    expectPoints(diagonal({0, 1, 6, 15, 32, 36}),
                 sampled(CreateBSpline, diagonal({0, 6, 12, 36}), 6));
}

// Deliberate: three control points reach the last of them. Sixths of whole numbers are exact here.
TEST(CurvesTest, BSplineOfThreePointsReachesTheLast) {
    const Points controls = diagonal({6, 12, 24});
    expectPoints(diagonal({6, 11, 22, 24}), sampled(CreateBSpline, controls, 4));
    expectPoints(diagonal({6, 7, 13, 22, 24}), sampled(CreateBSpline, controls, 5));
}

TEST(CurvesTest, BezierAccumulatesItsParameter) {
    expectPoints(diagonal({0, 7.125, 15, 21.375, 24}),
                 sampled(CreateBezier, diagonal({0, 8, 24, 24}), 5));
    double t = 0;
    for (int i = 0; i < 8; ++i) t += 1.0 / 11;
    EXPECT_NE(8.0 / 11, t);
    EXPECT_BITS(t * t, sampled(CreateBezier, diagonal({0, 0, 1}), 12)[8].x());
}

// Half-way between four points at even distances: -1, 9, 9 and -1 sixteenths of them. The end
// stands in for its missing neighbour.
TEST(CurvesTest, CatmullRomPassesThroughItsControls) {
    const Points p = {{0, 0, 0}, {16, 0, 0}, {16, 16, 0}, {0, 16, 0}, {0, 0, 0}};
    const Points out = sampled(CreateCatmullRomSpline, p, 9);
    for (std::size_t i = 0; i < 5; ++i) EXPECT_BITS(p[i], out[2 * i]);
    EXPECT_EQ(Vector3d(8, -1, 0), out[1]);
    EXPECT_EQ(Vector3d(18, 8, 0), out[3]);
    EXPECT_EQ(Vector3d(-1, 8, 0), out[7]);
}

// Deliberate: a sample beyond the next knot as well is a control point, and so may be the last one.
TEST(CurvesTest, CatmullRomLagsBehindShortSegments) {
    const Points p = diagonal({0, 97, 98, 99, 100});
    EXPECT_EQ(98, sampled(CreateCatmullRomSpline, p, 6).back().x());
}

// A sample within 1e-8 of a segment's start, or of its end, is the control point there.
TEST(CurvesTest, CatmullRomSnapsToNearbyControls) {
    const Vector3d x(1, 0, 0);
    const double s15 = 0.9375, s1 = 0.0625;
    int copied[2] = {}, between[2] = {};
    double end = s15 / 0.99999999, start = s1 - 0x1p-27, next = start + 0x1p-27 / 1e-8;
    for (int i = 0; i < 50; ++i) end = below(end), next = below(next);
    for (int i = 0; i < 100; ++i, end = above(end), next = above(next)) {
        const bool atEnd = s15 / end > 0.99999999, atStart = (s1 - start) / (next - start) < 1e-8;
        const Points a = along(x, {0, end, 1}), b = along(x, {0, start, next, 1});
        EXPECT_EQ(atEnd, sampled(CreateCatmullRomSpline, a, 17)[15].x() == end);
        EXPECT_EQ(atStart, sampled(CreateCatmullRomSpline, b, 33)[2].x() == start);
        ++(atEnd ? copied : between)[0], ++(atStart ? copied : between)[1];
    }
    for (const int count : {copied[0], copied[1], between[0], between[1]}) EXPECT_GT(count, 0);
}

}  // namespace
}  // namespace KyMath::test
