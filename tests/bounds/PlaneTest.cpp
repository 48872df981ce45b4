// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

namespace KyMath::test {
namespace {

template <class T>
class PlaneTest : public ::testing::Test {
protected:
    Vector4T<T> coefficients(bool any) {
        return any ? corpus_.template anyOf<Vector4T<T>>() : corpus_.vector4();
    }

    Corpus<T> corpus_{51};
};
TYPED_TEST_SUITE(PlaneTest, Scalars, );

template <class T>
unsigned int upperOf(const Vector4T<T>& v) {
    unsigned int bits = 0;
    for (int i = 0; i < 3; ++i) bits |= kEps<T> > v[i] ? 0u : 1u << i;
    return bits;
}

template <class T>
void expectPlane(const Vector4T<T>& coefficients, const PlaneT<T>& plane) {
    EXPECT_BITS(coefficients, plane.getAsVector4());
    EXPECT_EQ(upperOf(coefficients), plane.upperBBCorner());
    EXPECT_EQ(7u - upperOf(coefficients), plane.lowerBBCorner());
}

// Deliberate: only the default constructor leaves the lower corner at 0.
TYPED_TEST(PlaneTest, DefaultPlaneHasBothCornersZeroWhichCopyingRefreshesAndAssignmentKeeps) {
    using T = TypeParam;
    const PlaneT<T> none;
    PlaneT<T> assigned(1, 2, 3, 4);
    EXPECT_EQ(&assigned, &(assigned = none));
    EXPECT_BITS(none, assigned);
    EXPECT_EQ(0u, none.upperBBCorner() | none.lowerBBCorner());
    expectPlane(Vector4T<T>(), PlaneT<T>(none));
}

TYPED_TEST(PlaneTest, EveryWayToSetCoefficientsTakesTheUpperCornerFromTheMachineEpsilonOn) {
    using T = TypeParam;
    for (int n = 0; n < 1000; ++n) {
        Vector4T<T> v = this->coefficients(true);  // the epsilon itself among them
        if (n % 4 == 0) v[n / 4 % 3] = below(kEps<T>);
        PlaneT<T> values(v[0], v[1], v[2], v[3]), vector(v), copy(values), setValues, setVector;
        setValues.set(v[0], v[1], v[2], v[3]);
        setVector.set(v);
        for (const auto* p : {&values, &vector, &copy, &setValues, &setVector}) expectPlane(v, *p);
        EXPECT_BITS(v.xyz(), values.getNormal());
    }
}

TYPED_TEST(PlaneTest, PassesThroughAPointWithTheNormalAsGiven) {
    using T = TypeParam;
    for (int n = 0; n < 3000; ++n) {
        const Vector3T<T> v = this->corpus_.anyVector(), p = this->corpus_.anyVector();
        const T d = -v[0] * p[0] - v[1] * p[1] - v[2] * p[2];
        expectPlane(Vector4T<T>(v, d), PlaneT<T>(v, p));
    }
    // Cancelling products leave +0, not the -0 of a negated sum.
    expectPlane(Vector4T<T>(1, 1, 0, 0), PlaneT<T>(Vector3T<T>(1, 1, 0), Vector3T<T>(2, -2, 0)));
}

TYPED_TEST(PlaneTest, PassesThroughThreePointsAnchoredAtTheSecondUnlessTheProductIsShort) {
    using T = TypeParam;
    const auto check = [](const Vector3T<T>& p1, const Vector3T<T>& p2, const Vector3T<T>& p3) {
        const Vector3T<T> product = (p2 - p1).cross(p3 - p2);
        const bool flat = !(static_cast<double>(product.norm()) > 1e-6);
        const Vector3T<T> n = flat ? Vector3T<T>() : product * (1 / product.norm());
        expectPlane(Vector4T<T>(n, -(n * p2)), PlaneT<T>(p1, p2, p3));
    };
    for (int n = 0; n < 3000; ++n) {
        Vector3T<T> p[3];
        for (auto& q : p) q = n % 3 == 0 ? this->corpus_.anyVector() : this->corpus_.vector();
        if (n % 3 == 1) p[2] = p[1] + (p[1] - p[0]) * this->corpus_.plain();  // nearly collinear
        check(p[0], p[1], p[2]);
    }
    const Vector3T<T> o, x(1, 0, 0), y(0, 1, 0);
    EXPECT_EQ(Vector4T<T>(0, 0, 1, 0), PlaneT<T>(o, x, y).getAsVector4());
    // The largest T that is not above the double 1e-6: for float, that is the float 1e-6.
    const T limit = static_cast<T>(1e-6);
    for (T length : {below(limit), limit, above(limit), T(1e-4f)})
        check(o, x * length, y + x * length);
}

TYPED_TEST(PlaneTest, ComparesCoefficientsExactlyAndNothingElse) {
    using T = TypeParam;
    const PlaneT<T> plane(5, 5, 5, 5);
    for (int i = 0; i < 4; ++i) {
        for (T other : {T(5), above(T(5)), kNaN<T>}) {
            Vector4T<T> v(5, 5, 5, 5);
            v[i] = other;
            EXPECT_EQ(other == 5, plane == PlaneT<T>(v));
            EXPECT_EQ(other != 5, plane != PlaneT<T>(v));
        }
    }
    EXPECT_TRUE(PlaneT<T>() == PlaneT<T>(0, -T(0), 0, 0));  // the lower corners are 0 and 7
}

TYPED_TEST(PlaneTest, DistanceAndSpheresAreExactAtEqualityWhichTouches) {
    using T = TypeParam;
    for (int n = 0; n < 3000; ++n) {
        const Vector4T<T> v = this->coefficients(n % 2);
        const Vector3T<T> p = n % 2 ? this->corpus_.anyVector() : this->corpus_.vector();
        const T s = v[0] * p[0] + v[1] * p[1] + v[2] * p[2] + v[3];
        EXPECT_BITS(s, PlaneT<T>(v).distance(p));
        for (T r : {s, below(s), above(s), -s, below(-s), above(-s), T(0), kNaN<T>}) {
            EXPECT_EQ(s > r ? 1 : -r > s ? -1 : 0, PlaneT<T>(v).intersectBoundingSphere(p, r));
        }
    }
}

// With d just so, the plane passes through one corner as evaluated: another order of the sum, or
// another corner, would leave a remainder of one sign or the other.
TYPED_TEST(PlaneTest, BoxThatTouchesThePlaneStraddlesAndOneStepDecides) {
    using T = TypeParam;
    for (int n = 0; n < 2000; ++n) {
        const Vector3T<T> v = this->corpus_.vector();
        const BoundingBoxT<T> box = this->corpus_.box();
        const unsigned int upper = upperOf(Vector4T<T>(v, 0));
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
    for (int n = 0; n < 2000; ++n) {
        const Vector4T<T> v = this->coefficients(n % 4 == 0);
        Matrix44T<T> m = this->corpus_.matrix();
        if (n % 3 == 0) m *= kEps<T> / 16;  // some coefficients are then below epsilon, some above
        if (n % 100 == 1) m *= 0;           // a length of 0 is not guarded
        const Vector4T<T> moved = Matrix44T<T>::multiplyWithVector(m, v);
        PlaneT<T> expected(moved), one(v), two(v);
        expected.makeUnitLength();
        EXPECT_BITS(moved * (1 / moved.xyz().norm()), expected.getAsVector4());
        one.transform(m);
        two.transformProvidingInverse(m);
        EXPECT_BITS(expected, one);
        EXPECT_BITS(expected, two);
    }
}

}  // namespace
}  // namespace KyMath::test
