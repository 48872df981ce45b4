// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

namespace KyMath::test {
namespace {

template <class T>
class BoundingBoxTest : public ::testing::Test {};
TYPED_TEST_SUITE(BoundingBoxTest, Scalars, );

TYPED_TEST(BoundingBoxTest, KeepsCornersAsGivenAndIsEmptyByDefault) {
    using T = TypeParam;
    using Box = BoundingBoxT<T>;
    const Vector3T<T> min(7, -2, 3), max(-4, 5, 1);  // out of order on x and z
    Box b(max, min);
    b.set(b.getMax(), b.getMin());
    EXPECT_BITS(Box(7, -2, 3, -4, 5, 1), b);
    for (unsigned int i = 0; i < 64; ++i) {  // bits from the fourth on are ignored
        const Vector3T<T> corner(i & 1 ? -4 : 7, i & 2 ? 5 : -2, i & 4 ? 1 : 3);
        EXPECT_BITS(corner, b.corner(i));
    }
    const T m = kMax<T>;
    EXPECT_BITS(Box(m, m, m, -m, -m, -m), Box());
}

TYPED_TEST(BoundingBoxTest, IsValidUnlessAMinimumExceedsItsMaximumOrIsNaN) {
    using T = TypeParam;
    for (T at : {below(T(2)), T(2), above(T(2)), kNaN<T>}) {
        for (int axis = 0; axis < 3; ++axis) {
            BoundingBoxT<T> low(1, 1, 1, 2, 2, 2), high(2, 2, 2, 3, 3, 3);
            low.getMin()[axis] = high.getMax()[axis] = at;
            EXPECT_EQ(at <= 2, low.valid()) << axis << ": " << at;
            EXPECT_EQ(at >= 2, high.valid()) << axis << ": " << at;
        }
    }
}

TYPED_TEST(BoundingBoxTest, RadiusIsTakenInDouble) {
    using T = TypeParam;
    const BoundingBoxT<T> box(1, 2, 3, 3, 5, 9);
    EXPECT_BITS(T(3.5), box.radius());
    EXPECT_BITS(T(12.25), box.radius2());
    // The float sum of squares is subnormal here, where 0.25 times it only fits a double.
    const T tiny = std::sqrt(std::numeric_limits<T>::denorm_min());
    const BoundingBoxT<T> small(0, 0, 0, tiny, 0, 0);
    EXPECT_EQ(0, small.radius2());
    EXPECT_EQ(sizeof(T) == 4, small.radius() > 0);
}

TYPED_TEST(BoundingBoxTest, GrowsWhereStrictlyBeyondAndBySpheresInDouble) {
    using T = TypeParam;
    using Box = BoundingBoxT<T>;
    const T nan = kNaN<T>;
    Box box(0, 0, 0, 0, 0, 0);  // equal zeros keep their sign, and a NaN replaces nothing
    box.expandBy(-T(0), nan, 2);
    EXPECT_BITS(Box(0, 0, 0, 0, 0, 2), box);
    EXPECT_BITS(Box(0, 0, -1, 0, 0, 2), box + Box(-T(0), nan, -1, -T(0), nan, nan));
    EXPECT_BITS(Box(nan, 0, 0, nan, 1, 1), Box(nan, 0, 0, nan, 1, 1) + Box(-1, 0, 0, 2, 1, 1));
    expectInPlace(box, box, [](Box& b) -> Box& { return b += b; });
    EXPECT_BITS(Box(-2, -1, 0, 4, 5, 6), box + BoundingSphere(Vector3d(1, 2, 3), 3));
    // Below 0 only in double: a float then takes the narrowed -0.
    const Box zero = Box(0, 0, 0, 1, 1, 1) + BoundingSphere(Vector3d(), 1e-60);
    EXPECT_BITS(static_cast<T>(-1e-60), zero.xMin());
    // Deliberate: the sphere's validity is the caller's business.
    EXPECT_BITS(Box(1, 1, 1, -1, -1, -1), Box() + BoundingSphere());
}

TYPED_TEST(BoundingBoxTest, ContainsPointsUpToItsFacesAndNotOneStepFurther) {
    using T = TypeParam;
    const BoundingBoxT<T> box(-1, -2, -3, 1, 2, 3);
    for (int i = 0; i < 3; ++i) {
        const T min = box.getMin()[i], max = box.getMax()[i];
        for (T at : {below(min), min, above(min), below(max), max, above(max), kNaN<T>}) {
            Vector3T<T> p(T(0.25), T(0.5), T(-0.5));
            p[i] = at;
            const bool in = min <= at && at <= max;
            EXPECT_EQ(in, box.contains(p)) << i << ": " << at;
            EXPECT_EQ(in, BoundingBoxT<T>::isBetween(at, min, max)) << at;
        }
    }
}

TYPED_TEST(BoundingBoxTest, LineIsInfiniteStrictAndTakesAHugeReciprocalForAZero) {
    using T = TypeParam;
    const auto hits = [](T x, T y, T dx, T dy) {
        const BoundingBoxT<T> box(1, 2, 3, 5, 6, 7);
        return box.intersect(Vector3T<T>(x, y, 4), Vector3T<T>(dx, dy, 0));
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

TYPED_TEST(BoundingBoxTest, AQuarterTurnSwapsExtentsAndItsInverseBringsThemBack) {
    using T = TypeParam;
    const Matrix44T<T> turn(0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 10, 20, 30, 1);  // about z
    BoundingBoxT<T> box(1, 2, 3, 3, 3, 4);
    box.transform(turn);
    EXPECT_BITS(BoundingBoxT<T>(7, 21, 33, 8, 23, 34), box);
    box.inverseTransform(turn);
    EXPECT_BITS(BoundingBoxT<T>(1, 2, 3, 3, 3, 4), box);
    // An invalid box stays as it is; a projective matrix divides the centre by w.
    BoundingBoxT<T> invalid(1, 0, 0, below(T(1)), 1, 1);
    invalid.transform(turn);
    invalid.inverseTransform(turn);
    EXPECT_BITS(BoundingBoxT<T>(1, 0, 0, below(T(1)), 1, 1), invalid);
    Matrix44T<T> half;
    half[3][3] = 2;
    BoundingBoxT<T> projected = box;
    projected.transform(half);
    EXPECT_BITS(BoundingBoxT<T>(0, T(0.75), T(1.25), 2, T(1.75), T(2.25)), projected);
    // Deliberate: a scale enlarges both ways, since the transpose stands for the inverse.
    box.inverseTransform(Transformation::createScaleT<T>(2, 1, 1));
    EXPECT_BITS(BoundingBoxT<T>(2, 2, 3, 6, 3, 4), box);
}

}  // namespace
}  // namespace KyMath::test
