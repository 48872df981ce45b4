// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

namespace KyMath::test {
namespace {

template <class T>
class PlaneTest : public ::testing::Test {
protected:
    Corpus<T> corpus_{51};
};
TYPED_TEST_SUITE(PlaneTest, Scalars, );

template <class T>
void expectPlane(const Vector4T<T>& coefficients, unsigned int upper, const PlaneT<T>& plane) {
    EXPECT_BITS(coefficients, plane.getAsVector4());
    EXPECT_EQ(upper, plane.upperBBCorner());
    EXPECT_EQ(7 - upper, plane.lowerBBCorner());
}

// Deliberate: only the default constructor leaves the lower corner at 0.
TYPED_TEST(PlaneTest, DefaultPlaneHasBothCornersZeroWhichCopyingRefreshesAndAssignmentKeeps) {
    using T = TypeParam;
    const PlaneT<T> none;
    PlaneT<T> assigned(1, 2, 3, 4);
    EXPECT_EQ(&assigned, &(assigned = none));
    EXPECT_BITS(none, assigned);
    EXPECT_EQ(0u, none.upperBBCorner() | none.lowerBBCorner());
    EXPECT_TRUE(none == PlaneT<T>(0, -T(0), 0, 0));  // whose lower corner is 7
    expectPlane(Vector4T<T>(), 0, PlaneT<T>(none));
}

TYPED_TEST(PlaneTest, UpperCornerIsThatOfCoefficientsFromTheMachineEpsilonOn) {
    using T = TypeParam;
    for (const T x : {T(1), kEps<T>, below(kEps<T>), T(0), -T(0), T(-1), kNaN<T>}) {
        const bool upper = !(x < kEps<T>);
        for (int i = 0; i < 3; ++i) {
            Vector4T<T> v(-1, -1, -1, 4);
            v[i] = x;
            expectPlane(v, upper ? 1u << i : 0u, PlaneT<T>(v));
        }
    }
    PlaneT<T> self(1, -2, 3, 4);
    self.set(self.getAsVector4());
    expectPlane(Vector4T<T>(1, -2, 3, 4), 5, self);
}

TYPED_TEST(PlaneTest, PassesThroughPointsWithTheNormalOfTheirTurnUnlessTheProductIsShort) {
    using T = TypeParam;
    using V = Vector3T<T>;
    expectPlane(Vector4T<T>(2, -1, 0, -3), 1, PlaneT<T>(V(2, -1, 0), V(4, 5, 6)));
    // Cancelling products leave +0, not the -0 of a negated sum.
    expectPlane(Vector4T<T>(1, 1, 0, 0), 3, PlaneT<T>(V(1, 1, 0), V(2, -2, 0)));
    EXPECT_EQ(Vector4T<T>(0, 0, 1, -3),
              PlaneT<T>(V(0, 0, 3), V(1, 0, 3), V(0, 1, 3)).getAsVector4());
    // The largest T that is not above the double 1e-6: for float, that is the float 1e-6.
    const T limit = static_cast<T>(1e-6);
    for (const T length : {T(0), below(limit), limit, above(limit), kNaN<T>}) {
        const PlaneT<T> plane(V(), V(length, 0, 0), V(length, 1, 0));
        EXPECT_EQ(length > limit, plane.getNormal()[2] > T(0.5)) << length;
        EXPECT_EQ(length > limit, !plane.getNormal().isZero()) << length;
    }
}

TYPED_TEST(PlaneTest, SpheresThatTouchStraddle) {
    using T = TypeParam;
    const PlaneT<T> plane(1, 2, 2, -1);
    const Vector3T<T> p(1, 1, 1), q(-1, -1, -1);  // at 4 and -6
    EXPECT_EQ(4, plane.distance(p));
    EXPECT_EQ(-6, plane.distance(q));
    for (const T step : {T(-1), T(0), T(1)}) {
        const T four = step < 0 ? below(T(4)) : step > 0 ? above(T(4)) : T(4);
        const T six = step < 0 ? below(T(6)) : step > 0 ? above(T(6)) : T(6);
        EXPECT_EQ(step < 0 ? 1 : 0, plane.intersectBoundingSphere(p, four));
        EXPECT_EQ(step < 0 ? -1 : 0, plane.intersectBoundingSphere(q, six));
    }
    EXPECT_EQ(0, plane.intersectBoundingSphere(p, kNaN<T>));
}

// With d just so, the plane passes through one corner as evaluated: another order of the sum, or
// another corner, would leave a remainder of one sign or the other.
TYPED_TEST(PlaneTest, BoxThatTouchesThePlaneStraddlesAndOneStepDecides) {
    using T = TypeParam;
    for (int n = 0; n < 2000; ++n) {
        const Vector3T<T> v = this->corpus_.vector();
        const BoundingBoxT<T> box = this->corpus_.box();
        const unsigned int upper =
            (v[0] > 0 ? 1u : 0u) + (v[1] > 0 ? 2u : 0u) + (v[2] > 0 ? 4u : 0u);
        const T low = -(v * box.corner(7u - upper)), high = -(v * box.corner(upper));
        const auto side = [&](T d) { return PlaneT<T>(Vector4T<T>(v, d)).intersect(box); };
        EXPECT_EQ(0, side(low));
        EXPECT_EQ(1, side(above(low)));
        EXPECT_EQ(0, side(high));
        EXPECT_EQ(-1, side(below(high)));
    }
}

// Deliberate: the corners are those of the coefficients before.
TYPED_TEST(PlaneTest, MakeUnitLengthLeavesTheCornersThatBoxesAreThenTestedWith) {
    using T = TypeParam;
    const T tiny = kEps<T> / 4;  // a power of two, and too small for the upper corner
    PlaneT<T> plane(tiny, 0, 0, tiny * T(-0.5));
    plane.makeUnitLength();
    EXPECT_BITS(Vector4T<T>(1, 0, 0, T(-0.5)), plane.getAsVector4());
    EXPECT_EQ(0u, plane.upperBBCorner());
    const BoundingBoxT<T> box(0, 0, 0, 1, 1, 1);
    EXPECT_EQ(1, plane.intersect(box));
    EXPECT_EQ(6u, plane.calculateUpperLowerBBCorners());
    EXPECT_EQ(0, plane.intersect(box));
}

TYPED_TEST(PlaneTest, TransformsByTheMatrixAsItStandsAndTakesTheCornersBeforeTheUnitLength) {
    using T = TypeParam;
    for (const T scale :
         {T(1), kEps<T> / 8}) {  // the second time, all coefficients are below epsilon
        const Matrix44T<T> m(0, scale, 0, 0, -scale, 0, 0, 0, 0, 0, scale, 0, 0, 0, 0, scale * 2);
        PlaneT<T> one(4, 0, 0, 6), two = one;
        one.transform(m);
        two.transformProvidingInverse(m);
        EXPECT_EQ(Vector4T<T>(0, 1, 0, 3), one.getAsVector4());
        EXPECT_EQ(scale == 1 ? 2u : 0u, one.upperBBCorner());
        EXPECT_BITS(one, two);
    }
    PlaneT<T> none(1, 2, 3, 4);
    none.transform(Matrix44T<T>::kZero);  // a length of 0 is not guarded
    EXPECT_TRUE(std::isnan(none.getAsVector4()[0]));
}

}  // namespace
}  // namespace KyMath::test
