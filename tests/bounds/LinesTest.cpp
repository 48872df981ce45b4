// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <iomanip>

namespace KyMath::test {
namespace {

static_assert(std::is_trivially_copyable<Segment3>::value, "copied freely");
static_assert(sizeof(Segment3) == 6 * sizeof(double), "two points and nothing else");

const double kTolerance = 1e-7;

double factor(const Line3& l, const Vector3d& q) {
    const Vector3d d = l.p2 - l.p1;
    return d * d > kTolerance ? d * (q - l.p1) / (d * d) : 0;
}
double factor(const Line3& l, const Line3& m) {
    const Vector3d d = l.p2 - l.p1, e = m.p2 - m.p1;
    const double a = d * d, b = d * e, c = e * e, inv = 1 / (a * c - b * b);
    const auto v = each<Vector3d>([&](int i) { return (e[i] * b - d[i] * c) * inv; });
    return std::abs(a * c - b * b) > kTolerance ? (l.p1 - m.p1) * v : 0;
}
bool parallel(const Line3& l, const Line3& m) {
    const Vector3d c = (l.p2 - l.p1).cross(m.p2 - m.p1);
    return kTolerance > c * c;
}
template <class L>
double limited(double t) {
    return std::is_same<L, Line3>::value ? t : 0 > t ? 0 : t > 1 ? 1 : t;
}

// A closest point and a distance.
using Found = std::pair<Vector3d, double>;
Found between(const Vector3d& c, const Vector3d& q) {
    return {c, (c - q).norm()};
}
Vector3d at(const Line3& l, double t) {
    return each<Vector3d>([&](int i) { return t * l.p2[i] + (1 - t) * l.p1[i]; });
}
template <class L>
Found found(const L& l, const Vector3d& q) {
    return between(at(l, limited<L>(factor(l, q))), q);
}
template <class L>
Found found(const L& l, const L& m) {
    if (!parallel(l, m)) {
        return between(at(l, limited<L>(factor(l, m))), at(m, limited<L>(factor(m, l))));
    }
    const Vector3d ends[] = {m.p1, m.p2};
    const double t[] = {factor(l, m.p1), factor(l, m.p2)};
    for (int i = 0; i < 2 && std::is_same<L, Segment3>::value; ++i) {
        if (t[i] > 1 && t[1 - i] > t[i]) return between(l.p2, ends[i]);
        if (0 > t[i] && t[i] > t[1 - i]) return between(l.p1, ends[i]);
    }
    return found(l, m.p1);
}

// The answers about the other thing, written to nowhere, beside and over the operand.
template <class L, class Other>
void check(L l, const Other& other) {
    const Found expected = found(l, other);
    Vector3d closest(7, 7, 7);
    EXPECT_BITS(expected.second, l.distanceTo(other, nullptr));
    EXPECT_BITS(expected.second, l.distanceTo(other, &closest));
    EXPECT_BITS(expected.first, closest);
    EXPECT_BITS(expected.first, l.closestPointTo(other));
    EXPECT_BITS(expected.second, l.distanceTo(other, &l.p2));
    EXPECT_BITS(expected.first, l.p2);
}
void checkPoint(const Line3& l, const Vector3d& q) {
    const Segment3 s(l.p1, l.p2);
    EXPECT_BITS(factor(l, q), l.closestPointFactor(q));
    EXPECT_BITS(factor(l, q), s.closestPointFactor(q));  // deliberate: not clamped
    check(l, q);
    check(s, q);
}
void checkLines(const Line3& l, const Line3& m) {
    const Segment3 s(l.p1, l.p2), q(m.p1, m.p2);
    EXPECT_EQ(parallel(l, m), l.isParallel(m));
    EXPECT_BITS(factor(l, m), l.closestPointFactor(m));
    EXPECT_BITS(limited<Segment3>(factor(l, m)), s.closestPointFactor(q));
    check(l, m);
    check(s, q);
}

TEST(LinesTest, AreTwoPointsAndValidUnlessTheyAreEqual) {
    EXPECT_FALSE(Line3().isValid() || Segment3().isValid());
    EXPECT_FALSE(Line3(Vector3d(), Vector3d(-0.0, 0, -0.0)).isValid());
    EXPECT_BITS(Vector3d(), Segment3().p2);
    const Vector3d p(1, 2, 3);
    for (int i = 0; i < 3; ++i) {
        for (const double x : {above(p[i]), kNaN<double>}) {
            Vector3d q = p;
            q[i] = x;
            EXPECT_TRUE(Line3(p, q).isValid() && Segment3(q, p).isValid());
        }
    }
}

TEST(LinesTest, AnswersFollowTheFormulas) {
    Corpus<double> corpus(4601);
    for (int n = 0; n < 1000; ++n) {
        const Vector3d a = corpus.vector() * (n % 4), b = corpus.vector(), c = corpus.vector();
        const Vector3d d = n % 4 == 0 ? corpus.anyVector() : corpus.vector();
        checkPoint(Line3(a, d), c);
        checkLines(Line3(a, b), Line3(c, d));
        const Vector3d q = a + b * (n % 16 * 0.1);
        checkLines(Line3(a, a + b), Line3(q + c, q - c));  // they cross, within the segment or not
    }
}

// Deliberate: absolute, and on squares. (0, y, z) has a squared length about the tolerance, or just
// that.
TEST(LinesTest, ToleranceCountsForSquaredLengthsAtAnyScale) {
    int on = 0, over = 0;
    const Line3 x(Vector3d(), Vector3d(1, 0, 0));
    for (int k = 1; k < 400; ++k) {
        const double y = std::sqrt(kTolerance) * (k / 512.0), z = std::sqrt(kTolerance - y * y);
        for (const double length : {below(z), z, above(z)}) {
            const Line3 tiny(Vector3d(), Vector3d(0, y, length));
            checkPoint(tiny, Vector3d(5, 6, 7));
            checkLines(x, tiny);
            const double square = y * y + length * length;
            on += square == kTolerance, over += square == above(kTolerance);
        }
    }
    EXPECT_TRUE(on > 0 && over > 0);
}

// Deliberate: overlapping parallel segments ask for the first point of the other one alone.
TEST(LinesTest, ParallelSegmentsMeetAtTheEndsThatFaceEachOther) {
    const double t[] = {-3, -1.5, -0.0, 0, 0.25, 1, 1.5, 3, kNaN<double>};
    for (int i = 0; i < 81; ++i) {
        const Vector3d p(1, 2, 3), d(0, 2, 0), from = p + d * t[i / 9], to = p + d * t[i % 9];
        for (const Vector3d& off : {Vector3d(), Vector3d(0.5, 0, -0.25)}) {
            checkLines(Line3(p, p + d), Line3(from + off, to + off));
        }
    }
    const Segment3 s(Vector3d(), Vector3d(1, 0, 0));
    const double cases[][4] = {{3, 5, 1, 2},   {5, 3, 1, 2},       {-5, -3, 0, 3},
                               {-3, -5, 0, 3}, {0.25, 9, 0.25, 0}, {9, 0.25, 1, 8}};
    for (const auto& c : cases) {
        const Segment3 q(Vector3d(c[0], 0, 0), Vector3d(c[1], 0, 0));
        EXPECT_BITS(Vector3d(c[2], 0, 0), s.closestPointTo(q)) << c[0];
        EXPECT_EQ(c[3], s.distanceTo(q, nullptr)) << c[0];
    }
}

void checkSphere(Line3 l, const Vector3d& center, double radius) {
    const auto [c, distance] = found(l, center);
    const double gap = distance - radius, h = std::sqrt(radius * radius - distance * distance);
    const int crossings = distance > radius ? 0 : kTolerance > std::abs(gap) ? 1 : 2;
    Vector3d u = l.p2 - l.p1, in(7, 7, 7), out = c;
    u.normalize();
    if (crossings == 2) in = c - u * h, out = in + u * (h + h);
    Vector3d points[] = {center, Vector3d(7, 7, 7)};
    int count[] = {7, 7};
    EXPECT_BITS(gap, l.distanceTo(center, radius, nullptr, nullptr));
    EXPECT_BITS(gap, l.distanceTo(center, radius, &count[0], nullptr));
    EXPECT_BITS(gap, l.distanceTo(points[0], radius, &count[1], points));  // over the centre
    EXPECT_TRUE(count[0] == crossings && count[1] == crossings) << radius;
    EXPECT_BITS(out, points[0]);
    EXPECT_BITS(in, points[1]);
    EXPECT_BITS(gap, l.distanceTo(center, radius, nullptr, points));
}

TEST(LinesTest, SphereIsMissedTouchedOrCrossed) {
    Corpus<double> corpus(4602);
    for (int n = 0; n < 500; ++n) {
        const Line3 l(corpus.vector(), n % 5 == 0 ? corpus.anyVector() : corpus.vector());
        checkSphere(l, corpus.vector(), corpus.any());
    }
    const Line3 x(Vector3d(-1, 0, 0), Vector3d(3, 0, 0));
    for (const double gap : {0.0, 1e-7, below(1e-7), above(1e-7), 1e-16, -1e-16, -1e-7, 2.0}) {
        for (const double y : {0.0, 1.0}) {
            checkSphere(x, Vector3d(0.5, y, 0), y + gap);
            checkSphere(Line3(x.p1, x.p1), Vector3d(-1, y, 0), y + gap);
        }
    }
}

TEST(LinesTest, PrintsInTheFormatOfTheStream) {
    std::ostringstream plain, odd;
    EXPECT_EQ(&plain, &(plain << Segment3(Vector3d(1, 2, 3), Vector3d(4, 5, 6))));
    EXPECT_EQ("p1:1 2 3 p2:4 5 6", plain.str());
    odd << std::fixed << std::setprecision(1) << std::showpos << std::setw(5) << Line3();
    EXPECT_EQ("  p1:+0.0 +0.0 +0.0 p2:+0.0 +0.0 +0.0", odd.str());
}

}  // namespace
}  // namespace KyMath::test
