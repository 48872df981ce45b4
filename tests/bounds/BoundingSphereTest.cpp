// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <algorithm>

namespace KyMath::test {
namespace {

static_assert(std::is_trivially_copyable<BoundingSphere>::value, "copied freely");
static_assert(sizeof(BoundingSphere) == 4 * sizeof(double), "centre, radius and nothing else");

const double kDenorm = std::numeric_limits<double>::denorm_min();
const double kInvalidRadii[] = {-1, -kDenorm, kNaN<double>};

void expectSame(const BoundingSphere& expected, const BoundingSphere& actual) {
    EXPECT_BITS(expected.center(), actual.center());
    EXPECT_BITS(expected.radius(), actual.radius());
}

template <class What>
BoundingSphere expanded(BoundingSphere s, const What& what) {
    s.expandBy(what);
    return s;
}
template <class What>
BoundingSphere expandedRadius(BoundingSphere s, const What& what) {
    s.expandRadiusBy(what);
    return s;
}

double distance(const Vector3d& a, const Vector3d& b) {
    const Vector3d d = a - b;
    return std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
}

BoundingSphere randomSphere(Corpus<double>& corpus, bool plain) {
    const Vector3d c = plain ? corpus.vector() : corpus.anyVector();
    return BoundingSphere(c, plain ? std::abs(corpus.plain()) : corpus.any());
}

TEST(BoundingSphereTest, IsEmptyByDefaultAndValidFromRadiusZeroOn) {
    BoundingSphere s;
    expectSame(BoundingSphere(Vector3d(0, 0, 0), -1), s);
    s.set(Vector3d(1, 2, 3), 4);
    s.center().y() = 5;
    s.radius() += 2;
    expectSame(BoundingSphere(Vector3d(1, 5, 3), 6), s);
    s.init();
    expectSame(BoundingSphere(), s);
    for (double r : {0.0, -0.0, kDenorm, 1.0}) EXPECT_TRUE(BoundingSphere(Vector3d(), r).valid());
    for (double r : kInvalidRadii) EXPECT_FALSE(BoundingSphere(Vector3d(), r).valid()) << r;
}

TEST(BoundingSphereTest, AnEmptySphereBecomesTheFirstThingMerged) {
    const Vector3d p(1, -2, 3);
    const BoundingSphere point(p, 0), other(p, 4);
    const BoundingBoxd box(0, -1, 2, 2, 5, 7);
    const BoundingSphere around(Vector3d(1, 2, 4.5), std::sqrt(runtime(0.25 * (4 + 36 + 25))));
    for (double r : kInvalidRadii) {
        const BoundingSphere empty(Vector3d(7, 8, 9), r);
        expectSame(point, expanded(empty, p));
        expectSame(point, expandedRadius(empty, p));
        expectSame(other, expanded(empty, other));
        expectSame(other, expandedRadius(empty, other));
        expectSame(around, expanded(empty, box));
        expectSame(around, expandedRadius(empty, box));
    }
}

TEST(BoundingSphereTest, EmptyArgumentsChangeNothingNotEvenAnEmptySphere) {
    for (double own : {2.0, -3.0, kNaN<double>}) {
        const BoundingSphere s(Vector3d(1, 2, 3), own);
        for (double r : kInvalidRadii) {
            const BoundingSphere empty(Vector3d(40, 50, 60), r);
            expectSame(s, expanded(s, empty));
            expectSame(s, expandedRadius(s, empty));
        }
        for (int axis = 0; axis < 3; ++axis) {
            for (double low : {10.5, kNaN<double>}) {
                BoundingBoxd box(9, 9, 9, 10, 10, 10);
                box.getMin()[axis] = low;
                expectSame(s, expanded(s, box));
                expectSame(s, expandedRadius(s, box));
            }
        }
    }
}

TEST(BoundingSphereTest, GrowsToWorkedExamples) {
    const Vector3d o, p(3, 0, 0);
    const BoundingSphere unit(o, 1), other(Vector3d(4, 0, 0), 1);
    expectSame(BoundingSphere(Vector3d(1, 0, 0), 2), expanded(unit, p));
    expectSame(BoundingSphere(o, 3), expandedRadius(unit, p));
    expectSame(BoundingSphere(Vector3d(2, 0, 0), 3), expanded(unit, other));
    expectSame(BoundingSphere(o, 5), expandedRadius(unit, other));
}

TEST(BoundingSphereTest, GrowsByAPointStrictlyOutside) {
    Corpus<double> corpus(43);
    int grew = 0;
    for (int n = 0; n < 4000; ++n) {
        const BoundingSphere s = randomSphere(corpus, n % 2);
        const Vector3d p = n % 2 ? corpus.vector() : corpus.anyVector(), c = s.center();
        BoundingSphere moved = s, fixed = s;
        const double dist = distance(p, c);
        if (!(s.radius() >= 0)) {
            moved = fixed = BoundingSphere(p, 0);
        } else if (dist > s.radius()) {
            const double half = (dist - s.radius()) * 0.5, f = half / dist;
            moved.radius() = s.radius() + half;
            moved.center() = c + (p - c) * f;
            fixed.radius() = dist;
            ++grew;
        }
        expectSame(moved, expanded(s, p));
        expectSame(fixed, expandedRadius(s, p));
        // On the surface, the point changes nothing.
        const BoundingSphere through(c, dist);
        if (dist >= 0) expectSame(through, expanded(through, p));
    }
    EXPECT_GT(grew, 400);
}

BoundingSphere joined(const BoundingSphere& a, const BoundingSphere& b) {
    if (!(b.radius() >= 0)) return a;
    if (!(a.radius() >= 0)) return b;
    const double dist = distance(a.center(), b.center());
    if (a.radius() >= b.radius() + dist) return a;
    if (b.radius() >= a.radius() + dist) return b;
    const double r = (b.radius() + (a.radius() + dist)) * 0.5, f = (r - a.radius()) / dist;
    return BoundingSphere(a.center() + (b.center() - a.center()) * f, r);
}

TEST(BoundingSphereTest, GrowsByASphereAndKeepsTheLargerIfItHoldsTheOther) {
    Corpus<double> corpus(44);
    for (int n = 0; n < 4000; ++n) {
        const BoundingSphere a = randomSphere(corpus, n % 2), b = randomSphere(corpus, n % 2);
        expectSame(joined(a, b), expanded(a, b));
        BoundingSphere fixed = a.valid() || !b.valid() ? a : b;
        const double reach = distance(b.center(), a.center()) + b.radius();
        if (a.valid() && b.valid() && reach > a.radius()) fixed.radius() = reach;
        expectSame(fixed, expandedRadius(a, b));
        if (n % 2 == 0) continue;
        // Touching from inside: the outer sphere stays or is copied, to the last bit.
        const double dist = distance(a.center(), b.center());
        const BoundingSphere around(b.center(), a.radius() + dist);
        expectSame(around, expanded(a, around));
        expectSame(around, expanded(around, a));
    }
}

TEST(BoundingSphereTest, ConcentricSpheresKeepTheLargerAndATieKeepsThisOne) {
    const Vector3d minus(-0.0, -0.0, -0.0);  // tells which of the centres is kept
    const BoundingSphere s(Vector3d(0, 0, 0), 2);
    expectSame(s, expanded(s, BoundingSphere(minus, 1)));
    expectSame(s, expanded(s, BoundingSphere(minus, 2)));
    expectSame(BoundingSphere(minus, 3), expanded(s, BoundingSphere(minus, 3)));
}

// Around the box and the eight points of the sphere that face away from the box's own corners.
BoundingSphere aroundBox(const BoundingSphere& s, const BoundingBoxd& b) {
    BoundingBoxd all = b;
    for (unsigned int i = 0; s.radius() >= 0 && i < 8; ++i) {
        Vector3d n = b.corner(i) - s.center();
        n.normalize();
        for (int k = 0; k < 3; ++k) {
            const double q = s.center()[k] + n[k] * -s.radius();
            all.getMin()[k] = std::min(all.getMin()[k], q);
            all.getMax()[k] = std::max(all.getMax()[k], q);
        }
    }
    return BoundingSphere((all.getMin() + all.getMax()) * 0.5,
                          std::sqrt(0.25 * (all.getMax() - all.getMin()).normSquare()));
}

TEST(BoundingSphereTest, GrowsByABoxToTheSphereAroundBoxAndFarSidePoints) {
    Corpus<double> corpus(45);
    int kept = 0;
    for (int n = 0; n < 2000; ++n) {
        BoundingSphere s = randomSphere(corpus, true);
        if (n % 5 == 0) s.radius() = -1;
        if (n % 5 == 1) s.radius() *= 4;
        const BoundingBoxd box = corpus.box();
        expectSame(aroundBox(s, box), expanded(s, box));
        BoundingSphere fixed = s;
        if (s.radius() >= 0) {
            for (unsigned int i = 0; i < 8; ++i) {
                fixed.radius() = std::max(fixed.radius(), distance(box.corner(i), s.center()));
            }
            kept += fixed.radius() == s.radius();
        } else {
            fixed = aroundBox(s, box);
        }
        expectSame(fixed, expandedRadius(s, box));
    }
    EXPECT_GT(kept, 20);
}

TEST(BoundingSphereTest, MayShrinkWhenGrownByABox) {
    // No direction leads to a corner at the centre, so the far-side points are the centre itself.
    const Vector3d c(1, 2, 3);
    expectSame(BoundingSphere(c, 0), expanded(BoundingSphere(c, 1), BoundingBoxd(c, c)));
    const BoundingSphere big(Vector3d(), 10);
    const BoundingSphere grown = expanded(big, BoundingBoxd(1, 0, 0, 2, 0, 0));
    expectSame(BoundingSphere(Vector3d(-4, 0, 0), 6), grown);
}

}  // namespace
}  // namespace KyMath::test
