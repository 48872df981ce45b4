// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <algorithm>
#include <tuple>

namespace KyMath::test {
namespace {

template <class T>
class BoundingBoxTest : public ::testing::Test {
protected:
    Corpus<T> corpus_{41};
};
TYPED_TEST_SUITE(BoundingBoxTest, Scalars, );

TYPED_TEST(BoundingBoxTest, KeepsCornersAsGivenAndEachAccessorReachesItsOwnComponent) {
    using Box = BoundingBoxT<TypeParam>;
    const Vector3T<TypeParam> min(7, -2, 3), max(-4, 5, 1);  // out of order on x and z
    Box byVectors(max, min), byValues;
    byVectors.set(byVectors.getMax(), byVectors.getMin());
    byValues.set(7, -2, 3, -4, 5, 1);
    for (const Box& b : {Box(min, max), Box(7, -2, 3, -4, 5, 1), byVectors, byValues}) {
        EXPECT_BITS(min, b.getMin());
        EXPECT_BITS(max, b.getMax());
        EXPECT_BITS(min, Vector3T<TypeParam>(b.xMin(), b.yMin(), b.zMin()));
        EXPECT_BITS(max, Vector3T<TypeParam>(b.xMax(), b.yMax(), b.zMax()));
        for (unsigned int i = 0; i < 64; ++i) {  // bits from the fourth on are ignored
            const Vector3T<TypeParam> corner(i & 1 ? -4 : 7, i & 2 ? 5 : -2, i & 4 ? 1 : 3);
            EXPECT_BITS(corner, b.corner(i));
        }
    }
    Box b;
    TypeParam i = 11;
    for (auto* c : {&b.xMin(), &b.yMin(), &b.zMin(), &b.xMax(), &b.yMax(), &b.zMax()}) *c = i++;
    EXPECT_BITS(Box(11, 12, 13, 14, 15, 16), b);
    const TypeParam m = kMax<TypeParam>;
    b.init();
    EXPECT_BITS(Box(m, m, m, -m, -m, -m), b);
    EXPECT_BITS(b, Box());
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

TYPED_TEST(BoundingBoxTest, MeasuresFollowTheirFormulas) {
    using T = TypeParam;
    // At this scale the float sum of squares is subnormal, where 0.25 times it only fits a double.
    const T tiny = std::sqrt(std::numeric_limits<T>::denorm_min());
    for (int n = 0; n < 3000; ++n) {
        BoundingBoxT<T> box = this->corpus_.anyBox();
        if (n % 4 == 0) box.set(box.getMin() * tiny, box.getMax() * tiny);
        const Vector3T<T> size = box.getMax() - box.getMin();
        const T sum = size.normSquare();
        EXPECT_BITS((box.getMin() + box.getMax()) * T(0.5), box.center());
        EXPECT_BITS(size, box.getBBSize());
        EXPECT_BITS(T(0.25) * sum, box.radius2());
        EXPECT_BITS(static_cast<T>(std::sqrt(0.25 * static_cast<double>(sum))), box.radius());
    }
}

/// Compared in W, narrowed when stored: equal zeros keep their sign, and a NaN replaces nothing.
template <class T, class W>
BoundingBoxT<T> grown(BoundingBoxT<T> box, const Vector3T<W>& low, const Vector3T<W>& high) {
    for (int i = 0; i < 3; ++i) {
        T &min = box.getMin()[i], &max = box.getMax()[i];
        if (static_cast<W>(min) > low[i]) min = static_cast<T>(low[i]);
        if (high[i] > static_cast<W>(max)) max = static_cast<T>(high[i]);
    }
    return box;
}

TYPED_TEST(BoundingBoxTest, GrowsWhereStrictlyBeyondAndBySpheresInDouble) {
    using Box = BoundingBoxT<TypeParam>;
    Corpus<double> doubles(42);
    for (int n = 0; n < 5000; ++n) {
        const Box box = n % 5 == 0 ? Box() : this->corpus_.anyBox(), other = this->corpus_.anyBox();
        const Vector3T<TypeParam> p = this->corpus_.anyVector();
        const BoundingSphere s(doubles.anyVector() * (1 + 0x1p-40), doubles.any() * 0.3);
        const Vector3d r(s.radius(), s.radius(), s.radius());
        const Box byBox = grown(box, other.getMin(), other.getMax());
        const Box bySphere = grown(box, s.center() - r, s.center() + r);
        Box pointCall = box, sphereCall = box;
        pointCall.expandBy(p.x(), p.y(), p.z());
        sphereCall.expandBy(s);
        EXPECT_BITS(grown(box, p, p), pointCall);
        EXPECT_BITS(bySphere, sphereCall);
        EXPECT_BITS(bySphere, box + s);
        EXPECT_BITS(byBox, box + other);
        expectInPlace(bySphere, box, [&](Box& b) -> Box& { return b += s; });
        expectInPlace(byBox, box, [&](Box& b) -> Box& { return b += other; });
    }
    // Below 0 only in double: a float then takes the narrowed -0.
    const Box zero = Box(0, 0, 0, 1, 1, 1) + BoundingSphere(Vector3d(), 1e-60);
    EXPECT_BITS(static_cast<TypeParam>(-1e-60), zero.xMin());
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

TYPED_TEST(BoundingBoxTest, IntersectsExactlyWhenTheCommonBoxIsValid) {
    using T = TypeParam;
    const auto whole = [this](int) { return std::floor(this->corpus_.plain() / 3); };  // may touch
    for (int n = 0; n < 8000; ++n) {
        Vector3T<T> v[4];
        for (auto& p : v) p = each<Vector3T<T>>(whole);
        const BoundingBoxT<T> a(v[0], v[1]), b(v[2], v[3]), shared = a.intersect(b);
        for (int i = 0; i < 3; ++i) {
            EXPECT_BITS(std::max(v[0][i], v[2][i]), shared.getMin()[i]);
            EXPECT_BITS(std::min(v[1][i], v[3][i]), shared.getMax()[i]);
        }
        EXPECT_EQ(shared.valid(), a.intersects(b));
    }
}

template <class T>
bool lineHits(const BoundingBoxT<T>& box, const Vector3T<T>& origin, const Vector3T<T>& direction) {
    T enter[3], leave[3];
    for (int i = 0; i < 3; ++i) {
        const T r = direction[i] == 0 ? kMax<T> : 1 / direction[i], o = origin[i];
        std::tie(enter[i], leave[i]) =
            std::minmax({r * (box.getMin()[i] - o), r * (box.getMax()[i] - o)});
    }
    return *std::min_element(leave, leave + 3) > *std::max_element(enter, enter + 3);
}

TYPED_TEST(BoundingBoxTest, LineTestFollowsTheSlabFormula) {
    using T = TypeParam;
    // Whole numbers lead through edges, where rounded reciprocals decide, and along faces.
    const auto whole = [this](int) { return std::round(this->corpus_.plain() / 2); };
    for (int n = 0; n < 20000; ++n) {
        Vector3T<T> v[4];
        for (auto& p : v) p = n % 2 ? each<Vector3T<T>>(whole) : this->corpus_.vector();
        const BoundingBoxT<T> box(v[0], v[1]);
        EXPECT_EQ(lineHits(box, v[2], v[3]), box.intersect(v[2], v[3])) << n;
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

/// The centre carried through centerMap, the half-extents through the 3x3 block of m.
template <class T>
BoundingBoxT<T> mapped(const BoundingBoxT<T>& b, const Matrix44T<T>& centerMap,
                       const Matrix44T<T>& m) {
    if (!b.valid()) return b;
    const Vector3T<T> c = Transformation::transformPositionT(centerMap, b.center());
    const auto half = each<Vector3T<T>>([&, e = b.getBBSize() * T(0.5)](int i) {
        return std::abs(m[0][i]) * e[0] + std::abs(m[1][i]) * e[1] + std::abs(m[2][i]) * e[2];
    });
    return BoundingBoxT<T>(c - half, c + half);
}

TYPED_TEST(BoundingBoxTest, TransformsByCentreAndHalfExtents) {
    using T = TypeParam;
    for (int n = 0; n < 3000; ++n) {
        const BoundingBoxT<T> box = n % 3 == 0 ? this->corpus_.anyBox() : this->corpus_.box();
        Matrix44T<T> m = this->corpus_.matrix();  // a projective one: the centre is divided by w
        if (n % 5 == 0) m(static_cast<unsigned long>(n % 4), 2) = this->corpus_.any();
        BoundingBoxT<T> forth = box, back = box;
        forth.transform(m);
        back.inverseTransform(m);
        EXPECT_BITS(mapped(box, m, m), forth);
        EXPECT_BITS(mapped(box, m.inverse_orthogonal(), Matrix44T<T>(m).transpose()), back);
    }
}

TYPED_TEST(BoundingBoxTest, AQuarterTurnSwapsExtentsAndItsInverseBringsThemBack) {
    using T = TypeParam;
    const Matrix44T<T> turn(0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 10, 20, 30, 1);  // about z
    BoundingBoxT<T> box(1, 2, 3, 3, 3, 4);
    box.transform(turn);
    EXPECT_BITS(BoundingBoxT<T>(7, 21, 33, 8, 23, 34), box);
    box.inverseTransform(turn);
    EXPECT_BITS(BoundingBoxT<T>(1, 2, 3, 3, 3, 4), box);
    // Deliberate: a scale enlarges both ways, since the transpose stands for the inverse.
    box.inverseTransform(Transformation::createScaleT<T>(2, 1, 1));
    EXPECT_BITS(BoundingBoxT<T>(2, 2, 3, 6, 3, 4), box);
}

}  // namespace
}  // namespace KyMath::test
