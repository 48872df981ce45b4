// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

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
BoundingSphere at(double x, double radius) {
    return BoundingSphere(Vector3d(x, 2, 3), radius);
}

TEST(BoundingSphereTest, IsValidFromRadiusZeroOn) {
    EXPECT_BITS(BoundingSphere(Vector3d(), -1), BoundingSphere());
    for (const double r : {0.0, -0.0, 1.0}) EXPECT_TRUE(at(9, r).valid()) << r;
    for (const double r : {below(0.0), -1.0, kNaN<double>}) EXPECT_FALSE(at(9, r).valid()) << r;
}

TEST(BoundingSphereTest, GrowsByAPointStrictlyOutside) {
    const Vector3d p(6, 2, 3);
    for (const double r : {-1.0, -0.5, kNaN<double>}) expectGrown(at(6, 0), at(6, 0), at(1, r), p);
    expectGrown(at(2, 4), at(1, 5), at(1, 3), p);
    for (const double r : {5.0, 9.0}) expectGrown(at(1, r), at(1, r), at(1, r), p);
    BoundingSphere s = at(1, 5);
    s.expandBy(s.center());
    EXPECT_BITS(at(1, 5), s);
}

TEST(BoundingSphereTest, EmptySpheresChangeNothing) {
    for (const BoundingSphere& empty : {at(9, -1), at(9, kNaN<double>)}) {
        expectGrown(at(1, 2), at(1, 2), at(1, 2), empty);
        expectGrown(at(1, 2), at(1, 2), empty, at(1, 2));
        expectGrown(empty, empty, empty, BoundingSphere());
    }
}

TEST(BoundingSphereTest, KeepsTheSphereThatHoldsTheOther) {
    expectGrown(at(3, 5), at(1, 7), at(1, 3), at(6, 2));
    // Touching from inside: the outer sphere stays or is copied, to the last bit.
    expectGrown(at(1, 5), at(1, 5), at(1, 5), at(4, 2));
    expectGrown(at(1, 5), at(4, 8), at(4, 2), at(1, 5));
    const Vector3d minus(-0.0, -0.0, -0.0);  // says which of two equal centres is kept
    for (double r : {-0.0, 2.0}) {
        const BoundingSphere s(Vector3d(), r);
        expectGrown(s, s, s, minus);
        expectGrown(s, s, s, BoundingSphere(minus, std::abs(r)));
    }
}

TEST(BoundingSphereTest, GrowsByABoxToItsCorners) {
    const BoundingBoxd box(-1, -2, -2, 3, 2, 2);
    const Vector3d c(1, 0, 0);
    const BoundingSphere around(c, std::sqrt(12.0));
    for (const auto& empty : {BoundingSphere(), at(5, kNaN<double>)})
        expectGrown(around, around, empty, box);
    EXPECT_BITS(around, after(BoundingSphere(c, 1), [&](auto& s) { s.expandRadiusBy(box); }));
    for (const double x : {below(-1.0), kNaN<double>}) {
        expectGrown(at(1, 2), at(1, 2), at(1, 2), BoundingBoxd(-1, -2, -2, x, 2, 2));
    }
}

// Deliberate: the old sphere is represented by its far-side points.
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
