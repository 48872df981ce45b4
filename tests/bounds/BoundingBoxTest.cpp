// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

namespace KyMath::test {
namespace {

KY_SUITE(BoundingBoxTest);

KY_TEST(BoundingBoxTest, KeepsCornersAsGiven) {
    const Vec<T> min(7, -2, 3), max(-4, 5, 1);  // out of order on x and z
    Box<T> b(max, min);
    b.set(b.getMax(), b.getMin());
    EXPECT_BITS(Box<T>(7, -2, 3, -4, 5, 1), b);
    for (unsigned int i = 0; i < 16; ++i) {  // bits from the fourth on are ignored
        const Vec<T> corner(i & 1 ? -4 : 7, i & 2 ? 5 : -2, i & 4 ? 1 : 3);
        EXPECT_BITS(corner, b.corner(i));
    }
}

KY_TEST(BoundingBoxTest, IsInsideOutByDefault) {
    const T m = kMax<T>;
    EXPECT_BITS(Box<T>(m, m, m, -m, -m, -m), Box<T>());
}

KY_TEST(BoundingBoxTest, IsValidWhereNoMinimumIsAbove) {
    for (const T at : {T(2), above(T(2)), kNaN<T>}) {
        for (int axis = 0; axis < 3; ++axis) {
            const auto moved = [&](Box<T>& b) { b.getMin()[axis] = at; };
            EXPECT_EQ(at <= 2, after(Box<T>(1, 1, 1, 2, 2, 2), moved).valid())
                << axis << ": " << at;
        }
    }
}

KY_TEST(BoundingBoxTest, RadiusIsTakenInDouble) {
    const Box<T> box(1, 2, 3, 3, 5, 9);
    EXPECT_BITS(T(3.5), box.radius());
    EXPECT_BITS(T(12.25), box.radius2());
    // The float sum of squares is subnormal here, where 0.25 times it only fits a double.
    const Box<T> small(0, 0, 0, std::sqrt(std::numeric_limits<T>::denorm_min()), 0, 0);
    EXPECT_EQ(0, small.radius2());
    EXPECT_EQ(sizeof(T) == 4, small.radius() > 0);
}

KY_TEST(BoundingBoxTest, GrowsWhereStrictlyBeyond) {
    const T nan = kNaN<T>;
    Box<T> box(0, 0, 0, 0, 0, 0);  // equal zeros keep their sign, and a NaN replaces nothing
    box.expandBy(-T(0), nan, 1);
    box.expandBy(Vector3T<T>(-T(0), nan, 2));
    EXPECT_BITS(Box<T>(0, 0, 0, 0, 0, 2), box);
    EXPECT_BITS(Box<T>(0, 0, -1, 0, 0, 2), box + Box<T>(-T(0), nan, -1, -T(0), nan, nan));
    EXPECT_BITS(Box<T>(nan, 0, 0, nan, 1, 1),
                Box<T>(nan, 0, 0, nan, 1, 1) + Box<T>(-1, 0, 0, 2, 1, 1));
    expectInPlace(box, box, [](Box<T>& b) -> Box<T>& { return b += b; });
}

KY_TEST(BoundingBoxTest, GrowsBySpheresInDouble) {
    const Box<T> box(0, 0, 0, 1, 1, 1);
    EXPECT_BITS(Box<T>(-2, -1, 0, 4, 5, 6), box + BoundingSphere(Vector3d(1, 2, 3), 3));
    // Below 0 only in double: a float then takes the narrowed -0.
    EXPECT_BITS(static_cast<T>(-1e-60), (box + BoundingSphere(Vector3d(), 1e-60)).xMin());
    // Deliberate: the sphere's validity is the caller's business.
    EXPECT_BITS(Box<T>(1, 1, 1, -1, -1, -1), Box<T>() + BoundingSphere());
}

KY_TEST(BoundingBoxTest, ContainsItsFacesNotOneStepFurther) {
    const Box<T> box(-1, -2, -3, 1, 2, 3);
    for (int i = 0; i < 3; ++i) {
        const T min = box.getMin()[i], max = box.getMax()[i];
        for (const T at : {below(min), min, max, above(max), kNaN<T>}) {
            const bool inside = min <= at && at <= max;
            const auto moved = [&](Vec<T>& p) { p[i] = at; };
            EXPECT_EQ(inside, box.contains(after(Vec<T>(), moved))) << i << ": " << at;
            EXPECT_EQ(inside, Box<T>::isBetween(at, min, max)) << at;
        }
    }
}

// Deliberate: the reciprocal of a zero is the largest number.
KY_TEST(BoundingBoxTest, LinesAreInfiniteAndStrict) {
    const auto hits = [](T x, T y, T dx, T dy) {
        return Box<T>(1, 2, 3, 5, 6, 7).intersect(Vec<T>(x, y, 4), Vec<T>(dx, dy, 0));
    };
    EXPECT_TRUE(hits(9, 3, 1, 0));
    EXPECT_TRUE(hits(9, 3, T(-1e-20), 0));
    EXPECT_FALSE(hits(4, 1, 1, 1));  // through the edge x = 5, y = 2
    EXPECT_TRUE(hits(4, above(T(1)), 1, 1));
    // In a face, the huge slab ends at t = 0, so that the half line before it does not count.
    EXPECT_TRUE(hits(-9, 2, 1, 0));
    EXPECT_FALSE(hits(9, 2, 1, 0));
    EXPECT_FALSE(hits(-9, 6, 1, 0));
    EXPECT_TRUE(hits(9, 6, 1, -T(0)));
}

KY_TEST(BoundingBoxTest, AQuarterTurnSwapsExtents) {
    const Mat<T> turn(0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 10, 20, 30, 1);  // about z
    const Box<T> before(1, 2, 3, 3, 3, 4), moved(7, 21, 33, 8, 23, 34),
        invalid(1, 0, 0, below(T(1)), 1, 1);
    EXPECT_BITS(moved, after(before, [&](Box<T>& b) { b.transform(turn); }));
    EXPECT_BITS(Box<T>(8, 21, 33, 8, 21, 33),
                after(Box<T>(1, 2, 3, 1, 2, 3), [&](Box<T>& b) { b.transform(turn); }));
    EXPECT_BITS(before, after(moved, [&](Box<T>& b) { b.inverseTransform(turn); }));
    EXPECT_BITS(invalid, after(invalid, [&](Box<T>& b) { b.transform(turn); }));
    EXPECT_BITS(invalid, after(invalid, [&](Box<T>& b) { b.inverseTransform(turn); }));
}

KY_TEST(BoundingBoxTest, ProjectionDividesTheCentreAlone) {
    const Mat<T> half(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 2);
    EXPECT_BITS(Box<T>(0, T(0.75), T(1.25), 2, T(1.75), T(2.25)),
                after(Box<T>(1, 2, 3, 3, 3, 4), [&](Box<T>& b) { b.transform(half); }));
}

// Deliberate: the transpose stands for the inverse.
KY_TEST(BoundingBoxTest, InverseTransformDoesNotUndoScale) {
    const Mat<T> scale = Transformation::createScaleT<T>(2, 1, 1);
    EXPECT_BITS(Box<T>(2, 2, 3, 6, 3, 4),
                after(Box<T>(1, 2, 3, 3, 3, 4), [&](Box<T>& b) { b.inverseTransform(scale); }));
}

}  // namespace
}  // namespace KyMath::test
