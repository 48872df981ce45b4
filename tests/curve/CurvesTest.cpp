// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <cstdlib>
#include <new>
#include <vector>

// Allocation that can be made to fail. Inlined, the pairs would look mismatched to GCC.
static int blocksInUse = 0, allocationsLeft = 1 << 30;
__attribute__((noinline)) void* operator new(std::size_t size) {
    void* const block = size < 1u << 30 && allocationsLeft-- > 0 ? std::malloc(size) : nullptr;
    if (block == nullptr) throw std::bad_alloc();
    ++blocksInUse;
    return block;
}
__attribute__((noinline)) void operator delete(void* block) noexcept {
    blocksInUse -= block != nullptr;
    std::free(block);
}
__attribute__((noinline)) void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}

namespace KyMath::test {
namespace {

using Points = std::vector<Vector3d>;

void expectPoints(const Points& expected, const Points& actual) {
    ASSERT_EQ(expected.size(), actual.size());
    for (std::size_t i = 0; i < actual.size(); ++i) EXPECT_BITS(expected[i], actual[i]) << i;
}

// Points along x, y and z at once.
Points diagonal(std::initializer_list<double> xs) {
    Points points;
    for (const double x : xs) points.emplace_back(x, 2 * x, -x);
    return points;
}

using Create = bool (*)(const Points&, unsigned, Points&);
const Create kCreate[] = {CreateBSpline, CreateBezier, CreateCatmullRomSpline};

// Lets one more allocation succeed each time until create() returns, which must change nothing
// before; returns the number of allocations.
template <class F>
int allocationsOf(F create, const Points& out) {
    for (int allowed = 0;; ++allowed) {
        const Points before = out;
        const Vector3d* const data = out.data();
        const int inUse = blocksInUse;
        try {
            allocationsLeft = allowed;
            create();
            allocationsLeft = 1 << 30;
            return allowed;
        } catch (const std::bad_alloc&) {
            allocationsLeft = 1 << 30;
        }
        EXPECT_TRUE(blocksInUse == inUse && out.data() == data) << allowed;
        expectPoints(before, out);
        if (allowed == 99) return allowed;
    }
}

TEST(CurvesTest, OutputIsUntouchedOnFailureAndMayBeTheControls) {
    Corpus<double> corpus(5101);
    for (unsigned i = 0; i < 3 * 10 * 30; ++i) {
        const unsigned curve = i % 3, m = i / 3 % 10, n = i / 30;
        Points p;
        while (p.size() < m) p.push_back(corpus.vector());
        const Points before(n % 3, Vector3d(7, 8, 9));
        Points out = before, self = p;
        const bool made = m > 1 + curve / 2 && n >= m;
        const int needed = allocationsOf(
            [&] { EXPECT_EQ(made, kCreate[curve](p, n, out)) << curve << ": " << m << ", " << n; },
            out);
        EXPECT_TRUE(needed < 50 && (needed > 0 || !made || n <= before.size())) << needed;
        if (!made) expectPoints(before, out);
        if (made && n == m) expectPoints(p, out);
        allocationsOf([&] { EXPECT_EQ(made, kCreate[curve](self, n, self)); }, self);
        expectPoints(made ? out : p, self);
        for (const int type : {static_cast<int>(curve), 3, 7, -1}) {
            if (curve != 2 && type != static_cast<int>(curve)) continue;
            Points again = before;
            EXPECT_EQ(made, CreateCurve(eCurveType(type), p, n, again)) << type;
            expectPoints(out, again);
        }
        EXPECT_EQ(made ? 99 : 0,
                  made ? allocationsOf([&] { kCreate[curve](p, ~0u, out); }, out) : 0);
    }
}

TEST(CurvesTest, LinearInterpolationIsExactAtBothEndsWhichMayBeInTheOutput) {
    const double third = 1.0 / 3;
    const Vector3d a(0.1, 2, -3), b(0.7, 5, kInf<double>);
    for (const unsigned n : {0u, 1u, 2u, 4u}) {
        Points out = {b, a}, self = out;
        allocationsOf([&] { EXPECT_EQ(n > 1, CreateLinearInterpolation(a, b, n, out)); }, out);
        EXPECT_EQ(n > 1, CreateLinearInterpolation(self[1], self[0], n, self));
        expectPoints(out, self);
        if (n <= 1) continue;
        EXPECT_BITS(a, out.front());
        EXPECT_BITS(b, out.back());
        if (n == 4) expectPoints({a, (b - a) * third + a, (b - a) * (third * 2) + a, b}, out);
    }
}

// Deliberate: three control points reach the last of them. Sixths of whole numbers are exact here.
TEST(CurvesTest, BSplineOfThreePointsHasThreeOrFourSegments) {
    Points out;
    EXPECT_TRUE(CreateBSpline(diagonal({6, 12, 24}), 4, out));
    expectPoints(diagonal({6, 11, 22, 24}), out);
    EXPECT_TRUE(CreateBSpline(diagonal({6, 12, 24}), 5, out));
    expectPoints(diagonal({6, 7, 13, 22, 24}), out);
}

TEST(CurvesTest, BezierHalvesAndAccumulatesItsParameter) {
    Points out;
    EXPECT_TRUE(CreateBezier(diagonal({0, 8, 24, 24}), 5, out));
    expectPoints(diagonal({0, 7.125, 15, 21.375, 24}), out);
    EXPECT_TRUE(CreateBezier(diagonal({0, 0, 1}), 12, out));
    double t = 0;
    for (int i = 0; i < 8; ++i) t += 1.0 / 11;
    EXPECT_NE(8.0 / 11, t);
    EXPECT_BITS(t * t, out[8].x());
}

// Deliberate: a sample beyond the next knot as well is a control point, and so may be the last one.
TEST(CurvesTest, CatmullRomLagsBehindShortSegmentsAndHasTwoThresholds) {
    const auto samples = [](std::initializer_list<double> xs, unsigned n) {
        Points p, out;
        for (const double x : xs) p.emplace_back(x, 0, 0);
        EXPECT_TRUE(CreateCatmullRomSpline(p, n, out));
        return out;
    };
    EXPECT_EQ(98, samples({0, 97, 98, 99, 100}, 6).back().x());
    // A sample within 1e-8 of a segment's start, or of its end, is the control point there.
    const double s15 = 0.9375, s1 = 0.0625;
    int copied[2] = {}, between[2] = {};
    double end = s15 / 0.99999999, start = s1 - 0x1p-27, next = start + 0x1p-27 / 1e-8;
    for (int i = 0; i < 50; ++i) end = below(end), next = below(next);
    for (int i = 0; i < 100; ++i, end = above(end), next = above(next)) {
        const bool atEnd = s15 / end > 0.99999999;
        EXPECT_EQ(atEnd, samples({0, end, 1}, 17)[15].x() == end);
        ++(atEnd ? copied : between)[0];
        const bool atStart = (s1 - start) / (next - start) < 1e-8;
        EXPECT_EQ(atStart, samples({0, start, next, 1}, 17)[1].x() == start);
        ++(atStart ? copied : between)[1];
    }
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(copied[i] > 0 && between[i] > 0) << i;
}

}  // namespace
}  // namespace KyMath::test
