// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <cstdlib>
#include <new>
#include <set>
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

template <class F>
void append(Points& points, F component) {
    points.push_back(each<Vector3d>(component));
}
void expectPoints(const Points& expected, const Points& actual) {
    ASSERT_EQ(expected.size(), actual.size());
    for (std::size_t i = 0; i < actual.size(); ++i) EXPECT_BITS(expected[i], actual[i]) << i;
}

Points linear(const Vector3d& a, const Vector3d& b, unsigned n) {
    Points out(1, a);
    for (unsigned i = 1; i + 1 < n; ++i) {
        const double t = 1.0 / (n - 1) * i;
        append(out, [&](int c) { return (b[c] - a[c]) * t + a[c]; });
    }
    out.push_back(b);
    return out;
}

Points bezier(const Points& p, unsigned n) {
    if (p.size() == 2) return linear(p[0], p[1], n);
    Points out;
    double t = 0;  // deliberate: accumulated
    for (unsigned i = 0; i < n; ++i, t += 1.0 / (n - 1)) {
        Points q = p, r;
        for (; q.size() > 1; q = r, r.clear()) {
            for (std::size_t j = 1; j < q.size(); ++j) {
                append(r, [&](int c) { return (1 - t) * q[j - 1][c] + t * q[j][c]; });
            }
        }
        out.push_back(q[0]);
    }
    out.front() = p.front(), out.back() = p.back();
    return out;
}

std::set<double> parametersSeen;  // within the segments of catmullRom

Points catmullRom(const Points& p, unsigned n) {
    Points out, q = p;
    q.push_back(p.back());
    std::vector<double> u(1);
    for (std::size_t i = 1; i < p.size(); ++i) u.push_back(u.back() + (p[i] - p[i - 1]).norm());
    for (double& knot : u) knot = &knot == &u.back() ? 1 : knot / u.back();
    for (unsigned i = 0, k = 0; i < n; ++i) {
        const double s = i * (1.0 / (n - 1));
        if (s > u[k + 1]) ++k;  // deliberate: by one at most
        const Vector3d &a = q[k == 0 ? 0 : k - 1], &b = q[k], &d = q[k + 1], &e = q[k + 2];
        const double x = (s - u[k]) / (u[k + 1] - u[k]), xx = x * x, xxx = x * x * x;
        parametersSeen.insert(x);
        append(out, [&](int c) {
            const double sum = xx * (2 * a[c] - 5 * b[c] + 4 * d[c] - e[c]) +
                               (x * (d[c] - a[c]) + 2 * b[c]) +
                               xxx * (3 * b[c] - a[c] - 3 * d[c] + e[c]);
            return x < 1e-8 ? b[c] : x > 0.99999999 ? d[c] : 0.5 * sum;
        });
    }
    return out;
}

Points bSpline(const Points& p, unsigned n) {
    if (p.size() == 2) return linear(p[0], p[1], n);
    const unsigned m = static_cast<unsigned>(p.size()), q = n / (m + 1);
    unsigned segments = m, each = (n - 1) / m, start = 0, extra = (n - 1) % m;
    const unsigned tests[][3] = {{q, 1, q}, {q + 1, 1, q + 1}, {q, 2, q + 1}};
    for (unsigned i = 9; i-- > 0;) {  // the first test that holds decides
        const auto& [quotient, more, samples] = tests[i / 3];
        if (n != quotient * (m + 1 - i % 3) + more) continue;
        segments = m + 1 - i % 3, each = samples, start = more - 1, extra = 0;
    }
    const unsigned three[][4] = {{0, 0, 0, 1}, {0, 1, 1, 2}, {1, 2, 2, 2}};
    Points out(start);
    for (unsigned s = 0; s < segments; ++s) {
        const auto at = [&](unsigned j, int c) {
            const unsigned index = std::min(std::max(s + j, 2u) - 2, m - 1);
            return p[m == 3 && segments == 3 ? three[s][j] : index][c];
        };
        // One more to the first segment, the last, the second, and so on.
        const unsigned turn = s < m - 1 - s ? 2 * s : 2 * (m - 1 - s) + 1;
        const unsigned samples = each + (turn < extra);
        for (unsigned j = start; j < samples; ++j) {
            const double t = static_cast<double>(j) / samples, ttt = 3 * t * t * t;
            const double w[] = {(1 - t) * (1 - t) * (1 - t) / 6, (ttt - 6 * t * t + 4) / 6,
                                (3 * t + (3 * t * t - ttt) + 1) / 6, t * t * t / 6};
            append(out, [&](int c) {
                return w[0] * at(0, c) + w[1] * at(1, c) + w[2] * at(2, c) + w[3] * at(3, c);
            });
        }
    }
    out[0] = p[0];
    out.push_back(p.back());
    return out;
}

using Create = bool (*)(const Points&, unsigned, Points&);
const Create kCreate[] = {CreateBSpline, CreateBezier, CreateCatmullRomSpline};
Points (*const kExpected[])(const Points&, unsigned) = {bSpline, bezier, catmullRom};

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

TEST(CurvesTest, SamplesFollowTheFormulasAndOutputIsUntouchedWithoutThem) {
    Corpus<double> corpus(5101);
    for (unsigned i = 0; i < 3 * 10 * 80; ++i) {
        const unsigned curve = i % 3, m = i / 3 % 10, n = i / 30;
        Points p;
        while (p.size() < m) p.push_back(n % 16 == 5 ? corpus.anyVector() : corpus.vector());
        const Points before(n % 3, Vector3d(7, 8, 9));
        Points out = before, self = p;
        const bool made = m > 1 + curve / 2 && n >= m;
        const Points expected = !made ? before : n == m ? p : kExpected[curve](p, n);
        const int needed = allocationsOf(
            [&] { EXPECT_EQ(made, kCreate[curve](p, n, out)) << curve << ": " << m << ", " << n; },
            out);
        EXPECT_TRUE(needed < 50 && (needed > 0 || !made || n <= before.size())) << needed;
        expectPoints(expected, out);
        allocationsOf([&] { EXPECT_EQ(made, kCreate[curve](self, n, self)); }, self);
        expectPoints(made ? expected : p, self);
        for (const int type : {static_cast<int>(curve), 3, 7, -1}) {
            if (curve != 2 && type != static_cast<int>(curve)) continue;
            out = before;
            EXPECT_EQ(made, CreateCurve(eCurveType(type), p, n, out)) << type;
            expectPoints(expected, out);
        }
        EXPECT_EQ(made ? 99 : 0,
                  made ? allocationsOf([&] { kCreate[curve](p, ~0u, out); }, out) : 0);
    }
}

TEST(CurvesTest, LinearInterpolationIsExactAtBothEnds) {
    Corpus<double> corpus(5102);
    for (unsigned n = 0; n < 60; ++n) {
        const Vector3d a = corpus.anyVector(), b = corpus.vector();
        Points out = {b, a}, self = out;
        allocationsOf([&] { EXPECT_EQ(n > 1, CreateLinearInterpolation(a, b, n, out)); }, out);
        expectPoints(n > 1 ? linear(a, b, n) : self, out);
        EXPECT_EQ(n > 1, CreateLinearInterpolation(self[1], self[0], n, self));
        expectPoints(out, self);
    }
}

// Deliberate: a sample beyond the next knot as well is a control point, and so may be the last one.
TEST(CurvesTest, CatmullRomLagsBehindShortSegmentsAndHasTwoThresholds) {
    const auto expectOnX = [](std::initializer_list<double> xs, unsigned n) {
        Points p, out;
        for (const double x : xs) p.emplace_back(x, 0, 0);
        EXPECT_TRUE(CreateCatmullRomSpline(p, n, out));
        expectPoints(catmullRom(p, n), out);
        return out.back().x();
    };
    EXPECT_EQ(98, expectOnX({0, 97, 98, 99, 100}, 6));
    double end = 0.9375 / 0.99999999, start = 0.0625 - 0x1p-27, next = start + 0x1p-27 / 1e-8;
    for (int i = 0; i < 50; ++i) end = below(end), next = below(next);
    for (int i = 0; i < 100; ++i, end = above(end), next = above(next)) {
        expectOnX({0, end, 1}, 17);
        expectOnX({0, start, next, 1}, 17);
    }
    for (const double x : {1e-8, 0.99999999}) {
        for (const double seen : {below(x), x, above(x)}) EXPECT_EQ(1u, parametersSeen.count(seen));
    }
}

}  // namespace
}  // namespace KyMath::test
