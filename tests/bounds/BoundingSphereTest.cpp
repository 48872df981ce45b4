// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <algorithm>

namespace KyMath::test {
namespace {

/// What s becomes by expandBy(what), and by expandRadiusBy(what).
template <class What>
void expectGrown(const BoundingSphere& moved, const BoundingSphere& fixed, const BoundingSphere& s,
                 const What& what) {
    BoundingSphere a = s, b = s;
    a.expandBy(what);
    b.expandRadiusBy(what);
    EXPECT_BITS(moved, a);
    EXPECT_BITS(fixed, b);
}

BoundingSphere randomSphere(Corpus<double>& corpus, bool plain) {
    const Vector3d c = plain ? corpus.vector() : corpus.anyVector();
    return BoundingSphere(c, plain ? std::abs(corpus.plain()) : corpus.any());
}

TEST(BoundingSphereTest, IsEmptyByDefaultAndValidFromRadiusZeroOn) {
    BoundingSphere s(Vector3d(1, 2, 3), 4);
    s.center().y() = 5;
    EXPECT_BITS(BoundingSphere(Vector3d(1, 5, 3), 4), s);
    s.init();
    EXPECT_BITS(BoundingSphere(Vector3d(), -1), s);
    EXPECT_BITS(s, BoundingSphere());
    const double step = std::numeric_limits<double>::denorm_min();
    for (double r : {0.0, -0.0, step, 1.0, -1.0, -step, kNaN<double>}) {
        EXPECT_EQ(r >= 0, BoundingSphere(Vector3d(), r).valid()) << r;
    }
}

TEST(BoundingSphereTest, GrowsByAPointStrictlyOutsideAndBecomesTheFirst) {
    Corpus<double> corpus(43);
    for (int n = 0; n < 4000; ++n) {
        const BoundingSphere s = randomSphere(corpus, n % 2);
        const Vector3d p = n % 2 ? corpus.vector() : corpus.anyVector(), c = s.center();
        const double distance = Vector3d::distance(p, c), half = (distance - s.radius()) * 0.5;
        BoundingSphere moved = s, fixed = s;
        if (!(s.radius() >= 0)) {
            moved = fixed = BoundingSphere(p, 0);
        } else if (distance > s.radius()) {
            moved = BoundingSphere(c + (p - c) * (half / distance), s.radius() + half);
            fixed.radius() = distance;
        }
        expectGrown(moved, fixed, s, p);
        const BoundingSphere through(c, distance);
        if (distance >= 0) expectGrown(through, through, through, p);
    }
}

BoundingSphere joined(const BoundingSphere& a, const BoundingSphere& b) {
    if (!(b.radius() >= 0)) return a;
    if (!(a.radius() >= 0)) return b;
    const double distance = Vector3d::distance(a.center(), b.center());
    if (a.radius() >= b.radius() + distance) return a;
    if (b.radius() >= a.radius() + distance) return b;
    const double r = (b.radius() + (a.radius() + distance)) * 0.5, f = (r - a.radius()) / distance;
    return BoundingSphere(a.center() + (b.center() - a.center()) * f, r);
}

TEST(BoundingSphereTest, GrowsByASphereAndKeepsTheLargerIfItHoldsTheOther) {
    Corpus<double> corpus(44);
    for (int n = 0; n < 4000; ++n) {
        const BoundingSphere a = randomSphere(corpus, n % 2), b = randomSphere(corpus, n % 2);
        const double distance = Vector3d::distance(b.center(), a.center());
        BoundingSphere fixed = a.valid() || !b.valid() ? a : b;
        if (a.valid() && b.valid()) fixed.radius() = std::max(a.radius(), distance + b.radius());
        expectGrown(joined(a, b), fixed, a, b);
        if (n % 2 == 0) continue;
        // Touching from inside: the outer sphere stays or is copied, to the last bit.
        const BoundingSphere around(b.center(), a.radius() + distance);
        expectGrown(around, around, around, a);
        expectGrown(around, BoundingSphere(a.center(), distance + around.radius()), a, around);
    }
}

TEST(BoundingSphereTest, ATieOfConcentricSpheresKeepsThisOne) {
    const Vector3d plus, minus(-0.0, -0.0, -0.0);  // tells which of the centres is kept
    for (double r : {-0.0, 2.0}) {
        const BoundingSphere s(plus, r);
        expectGrown(s, s, s, minus);
        expectGrown(s, s, s, BoundingSphere(minus, std::abs(r)));
    }
}

/// Around the box and the eight points of the sphere that face away from the box's own corners.
BoundingSphere aroundBox(const BoundingSphere& s, const BoundingBoxd& box) {
    BoundingBoxd all = box;
    for (unsigned int i = 0; s.radius() >= 0 && i < 8; ++i) {
        Vector3d n = box.corner(i) - s.center();
        n.normalize();
        const Vector3d q = s.center() + n * -s.radius();
        all.expandBy(q.x(), q.y(), q.z());
    }
    return BoundingSphere(all.center(), all.radius());
}

TEST(BoundingSphereTest, GrowsByABoxToTheSphereAroundBoxAndFarSidePoints) {
    Corpus<double> corpus(45);
    for (int n = 0; n < 2000; ++n) {
        BoundingSphere s = randomSphere(corpus, true);
        if (n % 5 == 0) s.radius() = n % 2 ? -1 : kNaN<double>;
        if (n % 5 == 1) s.radius() *= 4;
        BoundingBoxd box = corpus.box();
        BoundingSphere fixed = s.valid() ? s : aroundBox(s, box);
        for (unsigned int i = 0; s.valid() && i < 8; ++i) {
            fixed.radius() = std::max(fixed.radius(), (box.corner(i) - s.center()).norm());
        }
        expectGrown(aroundBox(s, box), fixed, s, box);
        box.getMin()[n % 3] = n % 2 ? 99 : kNaN<double>;
        expectGrown(s, s, s, box);
    }
}

// Deliberate: far-side points stand in for the old sphere.
TEST(BoundingSphereTest, MayShrinkWhenGrownByABox) {
    const Vector3d c(1, 2, 3);  // no direction leads to a corner at the centre
    BoundingSphere unit(c, 1), big(Vector3d(), 10);
    unit.expandBy(BoundingBoxd(c, c));
    EXPECT_BITS(BoundingSphere(c, 0), unit);
    big.expandBy(BoundingBoxd(1, 0, 0, 2, 0, 0));
    EXPECT_BITS(BoundingSphere(Vector3d(-4, 0, 0), 6), big);
}

}  // namespace
}  // namespace KyMath::test
