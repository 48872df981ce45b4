// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <algorithm>

namespace KyMath::test {
namespace {

template <class T>
constexpr bool kPlain = std::is_trivially_copyable<BoundingBoxT<T>>::value &&
                        sizeof(BoundingBoxT<T>) == 6 * sizeof(T);
static_assert(kPlain<float> && kPlain<double>, "two corners, copied freely");

template <class T>
class BoundingBoxTest : public ::testing::Test {
protected:
    BoundingBoxT<T> anyBox() {
        const Vector3T<T> min = corpus_.anyVector(), max = corpus_.anyVector();
        return BoundingBoxT<T>(min, max);
    }

    Corpus<T> corpus_{41};
};
TYPED_TEST_SUITE(BoundingBoxTest, Scalars, );

TYPED_TEST(BoundingBoxTest, IsEmptyUntilTheFirstPointBecomesBothCorners) {
    using T = TypeParam;
    const T m = kMax<T>;
    const BoundingBoxT<T> empty(m, m, m, -m, -m, -m);
    BoundingBoxT<T> box;
    EXPECT_BITS(empty, box);
    EXPECT_FALSE(box.valid());
    box.expandBy(1, -2, 3);
    EXPECT_BITS(BoundingBoxT<T>(1, -2, 3, 1, -2, 3), box);
    EXPECT_TRUE(box.valid());
    EXPECT_BITS(T(0), box.radius());
    EXPECT_BITS(Vector3T<T>(), box.getBBSize());
    box.init();
    EXPECT_BITS(empty, box);
}

TYPED_TEST(BoundingBoxTest, KeepsCornersAsGivenAndEachAccessorReachesItsOwnComponent) {
    using T = TypeParam;
    const Vector3T<T> min(7, -2, 3), max(-4, 5, 1);  // out of order on x and z
    BoundingBoxT<T> box(min, max), byVectors, byValues;
    byVectors.set(min, max);
    byValues.set(7, -2, 3, -4, 5, 1);
    EXPECT_BITS(BoundingBoxT<T>(7, -2, 3, -4, 5, 1), box);
    EXPECT_BITS(box, byVectors);
    EXPECT_BITS(box, byValues);
    const BoundingBoxT<T>& read = box;
    EXPECT_BITS(min, read.getMin());
    EXPECT_BITS(min, Vector3T<T>(read.xMin(), read.yMin(), read.zMin()));
    EXPECT_BITS(max, Vector3T<T>(read.xMax(), read.yMax(), read.zMax()));
    T i = 11;
    for (T* c : {&box.xMin(), &box.yMin(), &box.zMin(), &box.xMax(), &box.yMax(), &box.zMax()}) {
        *c = i++;
    }
    EXPECT_BITS(BoundingBoxT<T>(11, 12, 13, 14, 15, 16), box);
    box.getMax() = min;
    box.getMin() = max;
    EXPECT_BITS(BoundingBoxT<T>(max, min), box);
}

TYPED_TEST(BoundingBoxTest, IsValidUnlessAMinimumExceedsItsMaximumOrIsNaN) {
    using T = TypeParam;
    const struct {
        T min, max;
        bool valid;
    } cases[] = {{2, 2, true},     {2, above(T(2)), true}, {2, below(T(2)), false},
                 {0, -T(0), true}, {kNaN<T>, 2, false},    {2, kNaN<T>, false}};
    for (const auto& c : cases) {
        for (int axis = 0; axis < 3; ++axis) {
            BoundingBoxT<T> box(-1, -1, -1, 1, 1, 1);
            box.getMin()[axis] = c.min;
            box.getMax()[axis] = c.max;
            EXPECT_EQ(c.valid, box.valid()) << axis << ": " << c.min << ", " << c.max;
        }
    }
}

TYPED_TEST(BoundingBoxTest, MeasuresFollowTheirFormulas) {
    using T = TypeParam;
    // At this scale the float sum of squares is subnormal, where 0.25 times it only fits a double.
    const T tiny = std::sqrt(std::numeric_limits<T>::denorm_min());
    for (int n = 0; n < 3000; ++n) {
        BoundingBoxT<T> box = this->anyBox();
        if (n % 4 == 0) box.set(box.getMin() * tiny, box.getMax() * tiny);
        const Vector3T<T>&p = box.getMin(), &q = box.getMax();
        const T x = q[0] - p[0], y = q[1] - p[1], z = q[2] - p[2];
        const T sum = x * x + y * y + z * z;
        EXPECT_BITS((p + q) * T(0.5), box.center());
        EXPECT_BITS(Vector3T<T>(x, y, z), box.getBBSize());
        EXPECT_BITS(T(0.25) * sum, box.radius2());
        EXPECT_BITS(static_cast<T>(std::sqrt(0.25 * static_cast<double>(sum))), box.radius());
    }
}

TYPED_TEST(BoundingBoxTest, CornerBitsChooseTheMaximumAndHigherBitsAreIgnored) {
    using T = TypeParam;
    const BoundingBoxT<T> box(1, 2, 3, 4, 5, 6);
    for (unsigned int i = 0; i < 24; ++i) {
        const Vector3T<T> corner(i % 2 ? 4 : 1, i / 2 % 2 ? 5 : 2, i / 4 % 2 ? 6 : 3);
        EXPECT_BITS(corner, box.corner(i));
        EXPECT_BITS(corner, box.corner(i | 0xFFFFFFC0u));
    }
}

// Written as the comparisons stand: equal zeros keep the sign they have, a NaN replaces nothing.
template <class T>
BoundingBoxT<T> grown(BoundingBoxT<T> box, const Vector3T<T>& low, const Vector3T<T>& high) {
    for (int i = 0; i < 3; ++i) {
        if (box.getMin()[i] > low[i]) box.getMin()[i] = low[i];
        if (high[i] > box.getMax()[i]) box.getMax()[i] = high[i];
    }
    return box;
}

TYPED_TEST(BoundingBoxTest, GrowsByPointsAndBoxesWhereStrictlyBeyond) {
    using T = TypeParam;
    for (int n = 0; n < 5000; ++n) {
        const BoundingBoxT<T> box = this->anyBox(), other = this->anyBox();
        const Vector3T<T> p = this->corpus_.anyVector();
        BoundingBoxT<T> byPoint = box, byBox = box;
        byPoint.expandBy(p.x(), p.y(), p.z());
        EXPECT_BITS(grown(box, p, p), byPoint);
        EXPECT_EQ(&byBox, &(byBox += other));
        EXPECT_BITS(grown(box, other.getMin(), other.getMax()), byBox);
        EXPECT_BITS(byBox, box + other);
    }
}

TYPED_TEST(BoundingBoxTest, GrowsBySpheresInDoubleAndStoresTheResultNarrowed) {
    using T = TypeParam;
    Corpus<double> doubles(42);
    const auto check = [](const BoundingBoxT<T>& box, const BoundingSphere& s) {
        BoundingBoxT<T> grownBox = box, byCall = box, bySum = box;
        for (int i = 0; i < 3; ++i) {
            const double low = s.center()[i] - s.radius(), high = s.center()[i] + s.radius();
            const auto min = static_cast<double>(box.getMin()[i]);
            const auto max = static_cast<double>(box.getMax()[i]);
            if (min > low) grownBox.getMin()[i] = static_cast<T>(low);
            if (high > max) grownBox.getMax()[i] = static_cast<T>(high);
        }
        byCall.expandBy(s);
        EXPECT_BITS(grownBox, byCall);
        EXPECT_EQ(&bySum, &(bySum += s));
        EXPECT_BITS(grownBox, bySum);
        EXPECT_BITS(grownBox, box + s);
    };
    for (int n = 0; n < 5000; ++n) {
        const Vector3d c = doubles.anyVector() * (1 + 0x1p-40);  // seldom a float
        const double r = doubles.any() * 0.3;
        check(n % 5 == 0 ? BoundingBoxT<T>() : this->anyBox(), BoundingSphere(c, r));
    }
    const T o = 0;  // equal zeros keep the sign they have
    check(BoundingBoxT<T>(o, o, o, -o, -o, -o), BoundingSphere(Vector3d(0, -0.0, 0), 0));
    // Below 0 only in double: a float then takes the narrowed -0.
    check(BoundingBoxT<T>(0, 0, 0, 1, 1, 1), BoundingSphere(Vector3d(), 1e-60));
}

// Deliberate: the sphere's validity is the caller's business.
TYPED_TEST(BoundingBoxTest, MergesAnEmptySphereAsIfItsRadiusWereOrdinary) {
    using Box = BoundingBoxT<TypeParam>;
    EXPECT_BITS(Box(1, 1, 1, -1, -1, -1), Box() + BoundingSphere());
    EXPECT_BITS(Box(0, 0, 0, 9, 4, 4),
                Box(0, 0, 0, 4, 4, 4) + BoundingSphere(Vector3d(10, 2, 2), -1));
}

TYPED_TEST(BoundingBoxTest, IntersectsExactlyWhenTheCommonBoxIsValid) {
    using T = TypeParam;
    const auto whole = [this] { return std::floor(this->corpus_.plain() / 3); };  // often touching
    int valid = 0;
    for (int n = 0; n < 4000; ++n) {
        BoundingBoxT<T> a, b, common;
        for (int i = 0; i < 3; ++i) {
            a.getMin()[i] = whole();
            b.getMin()[i] = whole();
            a.getMax()[i] = whole() + 2;
            b.getMax()[i] = whole() + 2;
            common.getMin()[i] = std::max(a.getMin()[i], b.getMin()[i]);
            common.getMax()[i] = std::min(a.getMax()[i], b.getMax()[i]);
        }
        EXPECT_BITS(common, a.intersect(b));
        EXPECT_EQ(common.valid(), a.intersects(b));
        valid += common.valid();
    }
    EXPECT_GT(valid, 200);
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
    EXPECT_FALSE(BoundingBoxT<T>::isBetween(2, 3, 1));
}

template <class T>
bool lineHits(const BoundingBoxT<T>& box, const Vector3T<T>& origin, const Vector3T<T>& direction) {
    T tNear = 0, tFar = 0;
    for (int i = 0; i < 3; ++i) {
        const T r = direction[i] == 0 ? kMax<T> : 1 / direction[i];
        const T t1 = r * (box.getMin()[i] - origin[i]), t2 = r * (box.getMax()[i] - origin[i]);
        tNear = i == 0 ? std::min(t1, t2) : std::max(tNear, std::min(t1, t2));
        tFar = i == 0 ? std::max(t1, t2) : std::min(tFar, std::max(t1, t2));
    }
    return tFar > tNear;
}

TYPED_TEST(BoundingBoxTest, LineTestFollowsTheSlabFormula) {
    using T = TypeParam;
    int hits = 0;
    for (int n = 0; n < 4000; ++n) {
        const BoundingBoxT<T> box = this->corpus_.box();
        const Vector3T<T> o = this->corpus_.vector(), d = this->corpus_.vector();
        EXPECT_EQ(lineHits(box, o, d), box.intersect(o, d)) << n;
        hits += lineHits(box, o, d);
    }
    EXPECT_GT(hits, 200);
    EXPECT_LT(hits, 3800);
    // Through an edge, at t = k on both its faces: the rounded reciprocals decide. The quotients
    // would always be k.
    hits = 0;
    const BoundingBoxT<T> box(-500, 1, -500, 2, 500, 500);
    for (int n = 0; n < 60 * 60; ++n) {
        const T x = static_cast<T>(1 + n % 60), y = static_cast<T>(1 + n / 60), k = 3;
        const Vector3T<T> o(2 - k * x, 1 - k * y, 0), d(x, y, 0);
        EXPECT_EQ(lineHits(box, o, d), box.intersect(o, d)) << x << ", " << y;
        hits += lineHits(box, o, d);
    }
    EXPECT_GT(hits, 10);
}

TYPED_TEST(BoundingBoxTest, LineIsInfiniteStrictAndTakesAHugeReciprocalForAZero) {
    using T = TypeParam;
    const BoundingBoxT<T> box(1, 2, 3, 5, 6, 7);
    const T z = T(0);
    const struct {
        const char* what;
        Vector3T<T> origin, direction;
        bool hit;
    } cases[] = {
        {"ahead", {-9, 3, 4}, {1, 0, 0}, true},
        {"behind", {9, 3, 4}, {1, 0, 0}, true},
        {"just below y", {-9, below(T(2)), 4}, {1, 0, 0}, false},
        {"by a tiny step", {9, 3, 4}, {T(-1e-20), 0, 0}, true},
        {"above z", {-9, 3, 8}, {1, 0, 0}, false},
        {"along y, beside", {6, -1, 4}, {0, 2, 0}, false},
        {"along z, beside", {3, 7, 90}, {0, 0, -3}, false},
        {"through the edge x = 5, y = 2", {4, 1, 4}, {1, 1, 0}, false},
        {"inside that edge", {4, above(T(1)), 4}, {1, 1, 0}, true},
        // In a face, the huge slab ends at t = 0, so that the half line before it does not count.
        {"in the face y = 2, ahead", {-9, 2, 4}, {1, 0, 0}, true},
        {"in the face y = 2, behind", {9, 2, 4}, {1, 0, 0}, false},
        {"in the face y = 6, ahead", {-9, 6, 4}, {1, 0, 0}, false},
        {"in the face y = 6, behind", {9, 6, 4}, {1, -z, 0}, true},
    };
    for (const auto& c : cases) EXPECT_EQ(c.hit, box.intersect(c.origin, c.direction)) << c.what;
}

// Centre and half-extents, with the 3x3 block of m as it stands or transposed.
template <class T>
BoundingBoxT<T> mapped(const BoundingBoxT<T>& b, const Matrix44T<T>& m, bool inverse) {
    const Vector3T<T> e = (b.getMax() - b.getMin()) * T(0.5);
    const Vector3T<T> c = Transformation::transformPositionT(inverse ? m.inverse_orthogonal() : m,
                                                             (b.getMax() + b.getMin()) * T(0.5));
    BoundingBoxT<T> box;
    for (int i = 0; i < 3; ++i) {
        T s[3];
        for (int j = 0; j < 3; ++j) s[j] = std::abs(inverse ? m[i][j] : m[j][i]);
        const T half = s[0] * e[0] + s[1] * e[1] + s[2] * e[2];
        box.getMin()[i] = c[i] - half;
        box.getMax()[i] = c[i] + half;
    }
    return box;
}

TYPED_TEST(BoundingBoxTest, TransformsByCentreAndHalfExtents) {
    using T = TypeParam;
    for (int n = 0; n < 3000; ++n) {
        const BoundingBoxT<T> box = n % 3 == 0 ? this->anyBox() : this->corpus_.box();
        Matrix44T<T> m = this->corpus_.matrix();  // a projective one: the centre is divided by w
        if (n % 5 == 0) m(static_cast<unsigned long>(n % 4), 2) = this->corpus_.any();
        BoundingBoxT<T> forth = box, back = box;
        forth.transform(m);
        back.inverseTransform(m);
        EXPECT_BITS(box.valid() ? mapped(box, m, false) : box, forth);
        EXPECT_BITS(box.valid() ? mapped(box, m, true) : box, back);
    }
}

TYPED_TEST(BoundingBoxTest, TransformedBoxIsTheTightBoxOfTheTransformedCorners) {
    using T = TypeParam;
    const T kRounding = 16 * kEps<T> * 400;  // 16 roundings of terms below 400
    for (int n = 0; n < 500; ++n) {
        Matrix44T<T> m = this->corpus_.matrix();
        m[0][3] = m[1][3] = m[2][3] = 0;
        m[3][3] = 1;
        const BoundingBoxT<T> box = this->corpus_.box();
        BoundingBoxT<T> corners, moved = box;
        for (unsigned int i = 0; i < 8; ++i) {
            const Vector3T<T> p = Transformation::transformPositionT(m, box.corner(i));
            corners.expandBy(p.x(), p.y(), p.z());
        }
        moved.transform(m);
        const Vector3T<T> low = corners.getMin() - moved.getMin();
        const Vector3T<T> high = corners.getMax() - moved.getMax();
        EXPECT_LT(std::max(low.norm(), high.norm()), kRounding);
    }
}

TYPED_TEST(BoundingBoxTest, AQuarterTurnSwapsExtentsAndItsInverseBringsThemBack) {
    using T = TypeParam;
    const Matrix44T<T> turn(0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 10, 20, 30, 1);  // about z
    const BoundingBoxT<T> box(1, 2, 3, 3, 3, 4);
    BoundingBoxT<T> moved = box;
    moved.transform(turn);
    EXPECT_BITS(BoundingBoxT<T>(7, 21, 33, 8, 23, 34), moved);
    moved.inverseTransform(turn);
    EXPECT_BITS(box, moved);
    // Deliberate: a scale enlarges both ways, since the transpose stands for the inverse.
    moved.inverseTransform(Transformation::createScaleT<T>(2, 1, 1));
    EXPECT_BITS(BoundingBoxT<T>(2, 2, 3, 6, 3, 4), moved);
}

}  // namespace
}  // namespace KyMath::test
