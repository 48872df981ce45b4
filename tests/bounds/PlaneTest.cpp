// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

namespace KyMath::test {
namespace {

KY_SUITE(PlaneTest);

template <class T>
void expectPlane(const Vec4<T>& coefficients, unsigned int upper, const PlaneT<T>& plane) {
    EXPECT_BITS(coefficients, plane.getAsVector4());
    EXPECT_EQ(upper, plane.upperBBCorner());
    EXPECT_EQ(7 - upper, plane.lowerBBCorner());
}

// Deliberate: only the default constructor leaves the lower corner at 0.
KY_TEST(PlaneTest, DefaultPlaneHasBothCornersZero) {
    const PlaneT<T> none;
    EXPECT_EQ(0u, none.upperBBCorner());
    EXPECT_EQ(0u, none.lowerBBCorner());
    EXPECT_TRUE(none == PlaneT<T>(0, -T(0), 0, 0));  // whose lower corner is 7
    PlaneT<T> assigned(1, 2, 3, 4);
    EXPECT_FALSE(assigned != PlaneT<T>(1, 2, 3, 4));
    EXPECT_EQ(&assigned, &(assigned = none));
    EXPECT_BITS(none, assigned);
    expectPlane(Vec4<T>(), 0, PlaneT<T>(none));  // copying refreshes
}

KY_TEST(PlaneTest, UpperCornerCountsFromTheMachineEpsilon) {
    for (const T x : {T(1), kEps<T>, below(kEps<T>), T(0), -T(0), T(-1), kNaN<T>}) {
        for (int i = 0; i < 3; ++i) {
            const Vec4<T> v = after(Vec4<T>(-1, -1, -1, 4), [&](Vec4<T>& u) { u[i] = x; });
            expectPlane(v, x < kEps<T> ? 0u : 1u << i, PlaneT<T>(v));
        }
    }
    PlaneT<T> self(1, -2, 3, 4);
    self.set(self.getAsVector4());
    expectPlane(Vec4<T>(1, -2, 3, 4), 5, self);
}

KY_TEST(PlaneTest, PassesThroughItsPoint) {
    expectPlane(Vec4<T>(2, -1, 0, -3), 1, PlaneT<T>(Vec<T>(2, -1, 0), Vec<T>(4, 5, 6)));
    // Cancelling products leave +0, not the -0 of a negated sum.
    expectPlane(Vec4<T>(1, 1, 0, 0), 3, PlaneT<T>(Vec<T>(1, 1, 0), Vec<T>(2, -2, 0)));
}

KY_TEST(PlaneTest, ThreePointsTooCloseGiveNoNormal) {
    // The largest T that is not above the double 1e-6: for float, that is the float 1e-6.
    const T limit = static_cast<T>(1e-6);
    for (const T length : {limit, above(limit), kNaN<T>}) {
        const PlaneT<T> plane(Vec<T>(), Vec<T>(length, 0, 0), Vec<T>(length, 1, 0));
        EXPECT_EQ(length > limit, plane.getNormal()[2] > T(0.5)) << length;
    }
}

KY_TEST(PlaneTest, SpheresThatTouchStraddle) {
    const PlaneT<T> plane(1, 2, 2, -1);
    const auto side = [&](T x, T radius) {
        return plane.intersectBoundingSphere(Vec<T>(x, x, x), radius);
    };
    EXPECT_EQ(4, plane.distance(Vec<T>(1, 1, 1)));
    EXPECT_EQ(1, side(1, below(T(4))));
    EXPECT_EQ(0, side(1, 4));
    EXPECT_EQ(0, side(-1, 6));
    EXPECT_EQ(-1, side(-1, below(T(6))));
    EXPECT_EQ(0, side(1, kNaN<T>));
}

// With d just so, the plane passes through one corner as evaluated: another order of the sum, or
// another corner, would leave a remainder of one sign or the other.
KY_TEST(PlaneTest, OneStepOffTheBoxDecides) {
    Corpus<T> corpus(51);
    for (int n = 0; n < 2000; ++n) {
        const Vec<T> v = corpus.vector();
        const Box<T> box = corpus.box();
        const unsigned upper = (v[0] > 0 ? 1u : 0u) + (v[1] > 0 ? 2u : 0u) + (v[2] > 0 ? 4u : 0u);
        const T low = -(v * box.corner(7u - upper)), high = -(v * box.corner(upper));
        const auto side = [&](T d) { return PlaneT<T>(Vec4<T>(v, d)).intersect(box); };
        EXPECT_EQ(0, side(low));
        EXPECT_EQ(1, side(above(low)));
        EXPECT_EQ(0, side(high));
        EXPECT_EQ(-1, side(below(high)));
    }
}

// Deliberate: the corners are those of the coefficients before.
KY_TEST(PlaneTest, MakeUnitLengthLeavesTheCorners) {
    const T tiny = kEps<T> / 4;  // a power of two, and too small for the upper corner
    PlaneT<T> plane(tiny, 0, 0, tiny * T(-0.5));
    plane.makeUnitLength();
    EXPECT_BITS(Vec4<T>(1, 0, 0, T(-0.5)), plane.getAsVector4());
    EXPECT_EQ(0u, plane.upperBBCorner());
    const Box<T> box(0, 0, 0, 1, 1, 1);
    EXPECT_EQ(1, plane.intersect(box));
    EXPECT_EQ(6u, plane.calculateUpperLowerBBCorners());
    EXPECT_EQ(0, plane.intersect(box));
}

KY_TEST(PlaneTest, TransformTakesTheMatrixAsItIs) {
    for (const T scale : {T(1), kEps<T> / 8}) {  // then, all coefficients are below epsilon
        const Mat<T> m(0, scale, 0, 0, -scale, 0, 0, 0, 0, 0, scale, 0, 0, 0, 0, scale * 2);
        PlaneT<T> one(4, 0, 0, 6), two = one;
        one.transform(m);
        two.transformProvidingInverse(m);
        EXPECT_EQ(Vec4<T>(0, 1, 0, 3), one.getAsVector4());
        EXPECT_EQ(scale == 1 ? 2u : 0u, one.upperBBCorner());  // before the unit length
        EXPECT_BITS(one, two);
    }
    PlaneT<T> none(1, 2, 3, 4);
    none.transform(Mat<T>::kZero);
    EXPECT_TRUE(std::isnan(none.getAsVector4()[0]));
}

}  // namespace
}  // namespace KyMath::test
