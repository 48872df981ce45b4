// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <utility>

namespace KyMath::test {
namespace {

template <class T>
constexpr bool kPlaneIsPlain = std::is_standard_layout<PlaneT<T>>::value &&
                               sizeof(PlaneT<T>) == 4 * sizeof(T) + 2 * sizeof(unsigned int);
static_assert(kPlaneIsPlain<float> && kPlaneIsPlain<double>, "coefficients and two indices");

template <class T>
class PlaneTest : public ::testing::Test {
protected:
    Vector4T<T> anyCoefficients() {
        const T a = corpus_.any(), b = corpus_.any(), c = corpus_.any(), d = corpus_.any();
        return Vector4T<T>(a, b, c, d);
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
    EXPECT_EQ(upperOf(coefficients) ^ 7u, plane.lowerBBCorner());
}

// Deliberate: only the default constructor leaves the lower corner at 0, and only assignment
// passes that on.
TYPED_TEST(PlaneTest, DefaultPlaneHasBothCornersZeroWhichCopyingRefreshesAndAssignmentKeeps) {
    using T = TypeParam;
    const PlaneT<T> none;
    PlaneT<T> assigned(1, 2, 3, 4);
    EXPECT_EQ(&assigned, &(assigned = none));
    for (const PlaneT<T>* p : {&none, &std::as_const(assigned)}) {
        EXPECT_BITS(Vector4T<T>(), p->getAsVector4());
        EXPECT_EQ(0u, p->upperBBCorner());
        EXPECT_EQ(0u, p->lowerBBCorner());
    }
    expectPlane(Vector4T<T>(), PlaneT<T>(none));
}

TYPED_TEST(PlaneTest, EveryWayToSetCoefficientsRefreshesTheCorners) {
    using T = TypeParam;
    for (int n = 0; n < 1000; ++n) {
        const Vector4T<T> v = this->anyCoefficients();
        const PlaneT<T> values(v[0], v[1], v[2], v[3]), vector(v), copy(values);
        PlaneT<T> setValues, setVector;
        setValues.set(v[0], v[1], v[2], v[3]);
        setVector.set(v);
        for (const PlaneT<T>* p :
             {&values, &vector, &copy, &std::as_const(setValues), &std::as_const(setVector)}) {
            expectPlane(v, *p);
        }
        EXPECT_BITS(v.xyz(), values.getNormal());
    }
}

TYPED_TEST(PlaneTest, UpperCornerTakesTheMaximumFromTheMachineEpsilonOn) {
    using T = TypeParam;
    for (T value : {kEps<T>, above(kEps<T>), T(1), kNaN<T>, kInf<T>,  // these take the maximum
                    below(kEps<T>), T(1e-20), T(0), -T(0), -kEps<T>, T(-1), -kInf<T>}) {
        const bool up = std::isnan(value) || value >= kEps<T>;
        for (unsigned int axis = 0; axis < 3; ++axis) {
            for (T rest : {T(-1), T(1)}) {
                Vector4T<T> v(rest, rest, rest, -rest);
                v[axis] = value;
                PlaneT<T> plane(v);
                const unsigned int bit = 1u << axis, others = rest > 0 ? 7u & ~bit : 0u;
                const unsigned int upper = up ? others | bit : others;
                EXPECT_EQ(upper, plane.upperBBCorner()) << axis << ": " << value;
                EXPECT_EQ(7u - upper, plane.lowerBBCorner()) << axis << ": " << value;
                EXPECT_EQ(7u - upper, plane.calculateUpperLowerBBCorners());
            }
        }
    }
}

TYPED_TEST(PlaneTest, PassesThroughAPointWithTheNormalAsGiven) {
    using T = TypeParam;
    for (int n = 0; n < 3000; ++n) {
        const Vector3T<T> v = this->corpus_.anyVector(), p = this->corpus_.anyVector();
        const T d = -v[0] * p[0] - v[1] * p[1] - v[2] * p[2];
        expectPlane(Vector4T<T>(v[0], v[1], v[2], d), PlaneT<T>(v, p));
    }
    // Cancelling products leave +0, not the -0 of a negated sum.
    expectPlane(Vector4T<T>(1, 1, 0, 0), PlaneT<T>(Vector3T<T>(1, 1, 0), Vector3T<T>(2, -2, 0)));
}

template <class T>
Vector4T<T> throughPoints(const Vector3T<T>& p1, const Vector3T<T>& p2, const Vector3T<T>& p3) {
    const Vector3T<T> u = p2 - p1, v = p3 - p2;
    T n[3];
    for (int i = 0; i < 3; ++i) {
        const int j = (i + 1) % 3, k = (i + 2) % 3;
        n[i] = u[j] * v[k] - u[k] * v[j];
    }
    const T length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
    const bool flat = !(static_cast<double>(length) > 1e-6);
    for (T& c : n) c = flat ? 0 : c * (1 / length);
    return Vector4T<T>(n[0], n[1], n[2], -(n[0] * p2[0] + n[1] * p2[1] + n[2] * p2[2]));
}

TYPED_TEST(PlaneTest, PassesThroughThreePointsAnchoredAtTheSecond) {
    using T = TypeParam;
    for (int n = 0; n < 3000; ++n) {
        Vector3T<T> p[3];
        for (auto& q : p) q = n % 3 == 0 ? this->corpus_.anyVector() : this->corpus_.vector();
        if (n % 3 == 1) p[2] = p[1] + (p[1] - p[0]) * this->corpus_.plain();  // nearly collinear
        expectPlane(throughPoints(p[0], p[1], p[2]), PlaneT<T>(p[0], p[1], p[2]));
    }
    const Vector3T<T> o, x(1, 0, 0), y(0, 1, 0);
    EXPECT_EQ(Vector4T<T>(0, 0, 1, 0), PlaneT<T>(o, x, y).getAsVector4());
    // No coefficient is above 0: the upper corner is 0. d is -0 here.
    expectPlane(Vector4T<T>(0, 0, 0, -T(0)), PlaneT<T>(o, x, Vector3T<T>(3, 0, 0)));
}

TYPED_TEST(PlaneTest, ThreePointsSpanAPlaneWhenTheProductIsLongerThanTheDouble1eMinus6) {
    using T = TypeParam;
    // The largest T that is not above the double 1e-6: for float, that is the float 1e-6.
    const T limit = static_cast<T>(1e-6);
    for (T length : {below(limit), limit, above(limit), T(1e-4f)}) {
        const Vector3T<T> a, b(length, 0, 0), c(length, 1, 0);  // the product is (0, 0, length)
        EXPECT_BITS(length > limit ? length * (1 / length) : 0, PlaneT<T>(a, b, c).getNormal().z());
    }
}

TYPED_TEST(PlaneTest, ComparesCoefficientsExactlyAndNothingElse) {
    using T = TypeParam;
    for (int i = 0; i < 4; ++i) {
        for (T other : {T(5), above(T(5)), kNaN<T>}) {
            Vector4T<T> v(5, 5, 5, 5);
            v[i] = other;
            EXPECT_EQ(other == 5, PlaneT<T>(5, 5, 5, 5) == PlaneT<T>(v));
            EXPECT_EQ(other != 5, PlaneT<T>(v) != PlaneT<T>(5, 5, 5, 5));
        }
    }
    EXPECT_TRUE(PlaneT<T>() == PlaneT<T>(0, -T(0), 0, 0));  // the lower corners are 0 and 7
}

TYPED_TEST(PlaneTest, DistanceAndSpheresAreExactAtEqualityWhichTouches) {
    using T = TypeParam;
    for (int n = 0; n < 3000; ++n) {
        const Vector4T<T> v = n % 2 ? this->anyCoefficients() : this->corpus_.vector4();
        const Vector3T<T> p = n % 2 ? this->corpus_.anyVector() : this->corpus_.vector();
        const PlaneT<T> plane(v);
        const T s = v[0] * p[0] + v[1] * p[1] + v[2] * p[2] + v[3];
        EXPECT_BITS(s, plane.distance(p));
        for (T r : {s, below(s), above(s), -s, below(-s), above(-s), T(0), kNaN<T>}) {
            EXPECT_EQ(s > r ? 1 : -r > s ? -1 : 0, plane.intersectBoundingSphere(p, r));
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
        const Vector3T<T> low = box.corner(upper ^ 7u), high = box.corner(upper);
        const T lowSum = v[0] * low[0] + v[1] * low[1] + v[2] * low[2];
        const T highSum = v[0] * high[0] + v[1] * high[1] + v[2] * high[2];
        EXPECT_EQ(0, PlaneT<T>(Vector4T<T>(v, -lowSum)).intersect(box));
        EXPECT_EQ(1, PlaneT<T>(Vector4T<T>(v, above(-lowSum))).intersect(box));
        EXPECT_EQ(0, PlaneT<T>(Vector4T<T>(v, -highSum)).intersect(box));
        EXPECT_EQ(-1, PlaneT<T>(Vector4T<T>(v, below(-highSum))).intersect(box));
    }
}

template <class T>
Vector4T<T> unit(const Vector4T<T>& v) {
    const T f = 1 / std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
    return Vector4T<T>(v[0] * f, v[1] * f, v[2] * f, v[3] * f);
}

TYPED_TEST(PlaneTest, MakeUnitLengthMultipliesByOneReciprocalWithoutAGuard) {
    using T = TypeParam;
    for (int n = 0; n < 3000; ++n) {
        const Vector4T<T> v = n % 2 ? this->anyCoefficients() : this->corpus_.vector4();
        PlaneT<T> plane(v);
        plane.makeUnitLength();
        EXPECT_BITS(unit(v), plane.getAsVector4());
    }
}

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
    EXPECT_EQ(1u, plane.upperBBCorner());
    EXPECT_EQ(0, plane.intersect(box));
}

TYPED_TEST(PlaneTest, TransformsByTheMatrixAsItStandsAndTakesTheCornersBeforeNormalising) {
    using T = TypeParam;
    for (int n = 0; n < 2000; ++n) {
        const Vector4T<T> v = n % 4 ? this->corpus_.vector4() : this->anyCoefficients();
        Matrix44T<T> m = this->corpus_.matrix();
        if (n % 3 == 0) m *= kEps<T> / 16;  // some coefficients are then below epsilon, some above
        Vector4T<T> moved;
        for (int k = 0; k < 4; ++k) {
            moved[k] = v[0] * m[0][k] + v[1] * m[1][k] + v[2] * m[2][k] + v[3] * m[3][k];
        }
        PlaneT<T> one(v), two(v);
        one.transform(m);
        two.transformProvidingInverse(m);
        for (const PlaneT<T>* p : {&one, &two}) {
            EXPECT_BITS(unit(moved), p->getAsVector4());
            EXPECT_EQ(upperOf(moved), p->upperBBCorner());
            EXPECT_EQ(upperOf(moved) ^ 7u, p->lowerBBCorner());
        }
    }
}

}  // namespace
}  // namespace KyMath::test
