// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <vector>

namespace KyMath::test {
namespace {

// Each array call is held against single calls, for arrays that end anywhere in a group of four.

constexpr std::size_t kMost = 9;

/// An element amid others, as in a client's structure.
template <class V>
struct Member {
    double before;
    V value;
    char after;
};

template <class V, class Make>
std::vector<V> list(Make make) {
    std::vector<V> values;
    values.reserve(kMost);  // no room beyond: there the address sanitizer sees a read
    for (std::size_t i = 0; i < kMost; ++i) values.push_back(make());
    return values;
}

/// all(in, out, n, strides) must do what one(v) does with each of n: into an array of its own, in
/// place within structures, and from each into the other.
template <class V, class All, class One>
void expectLikeSingle(const std::vector<V>& in, All all, One one) {
    for (std::size_t n = 0; n <= kMost; ++n) {
        std::vector<V> out(kMost), packed(kMost);
        std::vector<Member<V>> inPlace(kMost), members(kMost);
        for (std::size_t i = 0; i < kMost; ++i) inPlace[i].value = in[i];
        all(in.data(), out.data(), n, sizeof(V), sizeof(V));
        all(&inPlace[0].value, packed.data(), n, sizeof inPlace[0], sizeof(V));
        all(&inPlace[0].value, &inPlace[0].value, n, sizeof inPlace[0], sizeof inPlace[0]);
        all(in.data(), &members[0].value, n, sizeof(V), sizeof members[0]);
        for (std::size_t i = 0; i < kMost; ++i) {
            EXPECT_BITS(i < n ? one(in[i]) : V(), out[i]) << i << " of " << n;
            EXPECT_BITS(i < n ? one(in[i]) : in[i], inPlace[i].value) << i << " of " << n;
            EXPECT_BITS(out[i], members[i].value) << i << " of " << n;
            EXPECT_BITS(out[i], packed[i]) << i << " of " << n;
        }
    }
    all(static_cast<const V*>(nullptr), static_cast<V*>(nullptr), std::size_t(0), sizeof(V),
        sizeof(V));
}

template <class T>
class BatchTest : public ::testing::Test {
protected:
    Corpus<T> corpus{1};

    std::vector<Vector3T<T>> vectors() {
        auto v = list<Vector3T<T>>([this] { return corpus.vector(); });
        v[2].x() = kInf<T>;
        v[6].z() = kNaN<T>;
        return v;
    }
    std::vector<BoundingBoxT<T>> boxes() {
        auto b = list<BoundingBoxT<T>>([this] { return corpus.box(); });
        b[3].init();
        b[5].xMax() = kNaN<T>;
        return b;
    }
    /// Of no special form, affine, affine without a finite translation, and such that w = x + 1.
    std::vector<Matrix44T<T>> matrices() {
        auto m = list<Matrix44T<T>>([this] { return corpus.matrix(); });
        m.resize(4);
        for (unsigned c = 0; c < 4; ++c) {
            for (std::size_t i = 1; i < 4; ++i) m[i](3, c) = c == 3 ? T(1) : T(0);
        }
        m[2](0, 3) = kInf<T>;
        m[3](3, 0) = 1;
        return m;
    }
};
TYPED_TEST_SUITE(BatchTest, Scalars, );

TYPED_TEST(BatchTest, TransformsLikeSingleCalls) {
    using T = TypeParam;
    // All w are 1 by an affine matrix, and all but one where w = x + 1.
    auto finite = list<Vector3T<T>>([this] { return this->corpus.vector(); });
    for (std::size_t i = 0; i < kMost; ++i) {
        if (i != 5) finite[i].x() = 0;
    }
    for (const Matrix44T<T>& m : this->matrices()) {
        for (const auto& vectors : {this->vectors(), finite}) {
            expectLikeSingle(
                vectors, [&](auto... a) { Batch::transformPositions(m, a...); },
                [&](const auto& p) { return Transformation::transformPositionT(m, p); });
        }
        expectLikeSingle(
            this->vectors(), [&](auto... a) { Batch::transformDirections(m, a...); },
            [&](const auto& d) { return Transformation::transformDirectionT(m, d); });
        expectLikeSingle(
            this->boxes(), [&](auto... a) { Batch::transformBoxes(m, a...); },
            [&](const auto& box) { return after(box, [&](auto& b) { b.transform(m); }); });
    }
}

TYPED_TEST(BatchTest, MultipliesLikeSingleCallsAlsoInPlaceOfEitherFactor) {
    using M = Matrix44T<TypeParam>;
    const auto make = [this] { return this->corpus.matrix(); };
    const std::vector<M> a = list<M>(make), b = list<M>(make);
    std::vector<M> overA = a, overB = b, byOne = b;
    Batch::multiply(overA.data(), b.data(), overA.data(), kMost - 1);
    Batch::multiply(a.data(), overB.data(), overB.data(), kMost - 1);
    Batch::multiply(a[0], byOne.data(), byOne.data(), kMost - 1);
    for (std::size_t i = 0; i < kMost - 1; ++i) {
        EXPECT_BITS(M::multiply(a[i], b[i]), overA[i]);
        EXPECT_BITS(M::multiply(a[i], b[i]), overB[i]);
        EXPECT_BITS(M::multiply(a[0], b[i]), byOne[i]);
    }
    EXPECT_BITS(a.back(), overA.back());
    EXPECT_BITS(b.back(), byOne.back());
}

TYPED_TEST(BatchTest, ClassifiesLikeSingleCalls) {
    using T = TypeParam;
    std::vector<Member<BoundingBoxT<T>>> members;
    for (const auto& box : this->boxes()) members.push_back({0, box, 0});
    int seen = 0;
    for (int i = 0; i < 20; ++i) {
        const Vector3T<T> n = this->corpus.vector();
        const PlaneT<T> plane(n, i < 2 ? n * T(2 - 4 * i) : this->corpus.vector() * T(0.25));
        for (std::size_t count = 0; count <= kMost; ++count) {
            signed char sides[kMost + 1] = {};
            sides[count] = 7;
            Batch::classify(plane, &members[0].value, sides, count, sizeof members[0]);
            EXPECT_EQ(7, sides[count]);
            for (std::size_t k = 0; k < count; ++k) {
                EXPECT_EQ(plane.intersect(members[k].value), sides[k]);
                seen |= 1 << (sides[k] + 1);
            }
        }
    }
    EXPECT_EQ(7, seen) << "all three answers";
}

using BatchDoubleTest = BatchTest<double>;

TEST_F(BatchDoubleTest, CompoundsLikeSingleCallsAndKeepsRowThree) {
    using Ky::KyTransform;
    const auto make = [this] { return KyTransform(corpus.matrix()); };
    const std::vector<KyTransform> a = list<KyTransform>(make), b = list<KyTransform>(make);
    std::vector<KyTransform> out = list<KyTransform>(make), expected = out, overA = a, overB = b;
    Batch::compound(a.data(), b.data(), out.data(), kMost);
    Batch::compound(overA.data(), b.data(), overA.data(), kMost);
    Batch::compound(a.data(), overB.data(), overB.data(), kMost);
    for (std::size_t i = 0; i < kMost; ++i) {
        EXPECT_BITS(expected[i].compound(a[i], b[i]).toMatrix44(), out[i].toMatrix44());
        EXPECT_BITS(KyTransform(a[i]).compound(a[i], b[i]).toMatrix44(), overA[i].toMatrix44());
        EXPECT_BITS(KyTransform(b[i]).compound(a[i], b[i]).toMatrix44(), overB[i].toMatrix44());
    }
}

TEST_F(BatchDoubleTest, CullsLikeContainsUnderTheTopmostMaskAndChangesNothing) {
    Polytope region;  // of 33 planes around the origin, the last of which does not count
    for (int i = 0; i < 32; ++i) {
        const Vector3d n = corpus.vector();
        region.add(Planed(n, -n));
    }
    region.add(Planed(0, 0, 0, -1));
    auto boxes = this->boxes();
    boxes[4].set(2, 2, 2, -2, -2, -2);  // its lower corners are further than the upper ones
    boxes[7].set(-0.1, -0.1, -0.1, 0.1, 0.1, 0.1);
    boxes[8].set(-9, -9, -9, 9, 9, 9);

    std::vector<unsigned int> masks;
    for (const double size : {20.0, 1.5, 0.001}) {
        Polytope single = region;
        ASSERT_TRUE(single.contains(BoundingBoxd(-size, -size, -size, size, size, size)));
        single.pushCurrentMask();
        const unsigned int mask = single.getCurrentMask();
        masks.push_back(mask);
        for (std::size_t n = 0; n <= kMost; ++n) {
            unsigned char visible[kMost + 1] = {};
            visible[n] = 7;
            const Polytope& unchanged = single;
            Batch::cull(unchanged, boxes.data(), visible, n);
            EXPECT_EQ(7, visible[n]);
            for (std::size_t i = 0; i < n; ++i) {
                Polytope copy = single;
                EXPECT_EQ(int(copy.contains(boxes[i])), visible[i]) << i << " of " << n;
            }
        }
    }
    EXPECT_EQ(~0u, masks[0]);
    EXPECT_TRUE(masks[1] != 0 && masks[1] != ~0u);
    EXPECT_EQ(0u, masks[2]);
}

}  // namespace
}  // namespace KyMath::test
