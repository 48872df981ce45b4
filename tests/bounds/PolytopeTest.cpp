// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace KyMath::test {
namespace {

using Masks = std::vector<unsigned int>;
using Planes = std::vector<Planed>;

const BoundingBoxd kUnitBox(0, 0, 0, 1, 1, 1);
const BoundingBoxd kInside(0.25, 0.25, 0.25, 0.75, 0.75, 0.75);
const BoundingBoxd kFarAway(40, 50, 60, 41, 51, 61);

Polytope unitPolytope() {
    Polytope p;
    p.setToBoundingBox(kUnitBox);
    return p;
}

Planes planesFacing(double x, int count) {
    return Planes(static_cast<std::size_t>(count), Planed(1, 0, 0, x));
}

void expectPlanes(const Planes& expected, const Polytope& p) {
    ASSERT_EQ(expected.size(), p.getPlanes().size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const Planed& got = p.getPlanes()[i];
        EXPECT_BITS(expected[i].getAsVector4(), got.getAsVector4()) << i;
        EXPECT_EQ(expected[i].upperBBCorner(), got.upperBBCorner()) << i;
        EXPECT_EQ(expected[i].lowerBBCorner(), got.lowerBBCorner()) << i;
    }
}

void expectState(unsigned int mask, const Masks& stack, const Polytope& p) {
    EXPECT_EQ(mask, p.getCurrentMask());
    EXPECT_EQ(stack, p.getMaskStack());
}

TEST(PolytopeTest, WithoutPlanesHoldsEveryBox) {
    Polytope p;
    expectState(0, {0}, p);
    EXPECT_TRUE(p.contains(kFarAway));
    p.setToBoundingBox(kUnitBox);
    p.clear();
    EXPECT_TRUE(p.contains(kFarAway));
    expectPlanes({}, p);
    expectState(0, {0, 0x3F, 0}, p);
    // An older mask on top has no planes left to ask, but becomes the current mask.
    p.popCurrentMask();
    EXPECT_TRUE(p.contains(kFarAway));
    expectState(0x3F, {0, 0x3F}, p);
}

// Deliberate: the stack is read at its top only, so whoever rebuilds often has to pop.
TEST(PolytopeTest, EveryChangeOfThePlanesPushesAFullMaskOnTopOfTheOldOnes) {
    const Planes five = planesFacing(7, 5);
    Polytope p(five);
    expectState(0x1F, {0x1F}, p);
    p.add(Planed(0, 1, 0, 1));
    expectState(0x3F, {0x1F, 0x3F}, p);
    p.set(planesFacing(1, 2));
    expectState(3, {0x1F, 0x3F, 3}, p);
    p.clear();
    expectState(0, {0x1F, 0x3F, 3, 0}, p);
    p.setToBoundingBox(kUnitBox);
    expectState(0x3F, {0x1F, 0x3F, 3, 0, 0x3F}, p);
    p.setupMask();
    expectState(0x3F, {0x1F, 0x3F, 3, 0, 0x3F, 0x3F}, p);
    p.popCurrentMask();
    p.popCurrentMask();
    p.pushCurrentMask();
    expectState(0x3F, {0x1F, 0x3F, 3, 0, 0x3F}, p);
    for (int i = 0; i < 5; ++i) p.popCurrentMask();
    expectState(0x3F, {}, p);
}

TEST(PolytopeTest, ListConstructorAndAddRefreshTheCornersOfEachPlane) {
    Planed stale(0x1p-60, 0, -0x1p-60, 0x1p-59);  // below the machine epsilon: upper corner 0
    stale.makeUnitLength();
    ASSERT_EQ(0u, stale.upperBBCorner());
    Planes planes(1);
    planes[0] = stale;
    Polytope added;
    added.add(stale);
    expectPlanes({Planed(stale)}, Polytope(planes));
    expectPlanes({Planed(stale)}, added);
}

TEST(PolytopeTest, SetReplacesThePlanesAndCopiesAreWhole) {
    Polytope p = unitPolytope();
    const Planes planes = {Planed(1, 2, 3, 4), Planed(-5, 6, -7, 8)};
    p.set(planes);
    expectPlanes(planes, p);
    p.contains(BoundingBoxd(1, 1, 1, 2, 2, 2));  // inside plane 0
    p.pushCurrentMask();
    const Masks stack = {0, 0x3F, 3, p.getCurrentMask()};
    ASSERT_EQ(2u, p.getCurrentMask());
    p.contains(BoundingBoxd(0, 9, 0, 0, 9, 0));
    ASSERT_EQ(0u, p.getCurrentMask());

    const Polytope copy(p);
    Polytope assigned = unitPolytope();
    EXPECT_EQ(&assigned, &(assigned = p));
    Polytope& itself = p;
    p = itself;
    for (const Polytope* q : {&copy, &std::as_const(assigned), &std::as_const(p)}) {
        expectPlanes(planes, *q);
        expectState(0, stack, *q);
    }
}

TEST(PolytopeTest, BoundingBoxGivesSixInwardPlanesInOrder) {
    Polytope p(planesFacing(3, 9));
    p.setToBoundingBox(BoundingBoxd(1, 2, 3, -4, 5, 0));
    const Planes expected = {Planed(1, 0, 0, -1), Planed(-1, 0, 0, -4), Planed(0, 1, 0, -2),
                             Planed(0, -1, 0, 5), Planed(0, 0, 1, -3),  Planed(0, 0, -1, 0)};
    expectPlanes(expected, p);
    expectState(0x3F, {0x1FF, 0x3F}, p);
    p.setToBoundingBox(BoundingBoxd(0, -1, -2, 1, 1, 1));
    EXPECT_BITS(Vector4d(1, 0, 0, -0.0), p.getPlanes()[0].getAsVector4());
    EXPECT_EQ(6u, p.getPlanes().size());
}

TEST(PolytopeTest, ContainsAnswersAndLeavesTheStraddledPlanesInTheMask) {
    const double above0 = std::numeric_limits<double>::denorm_min(), above1 = above(1.0);
    const struct {
        const char* what;
        BoundingBoxd box;
        bool in;
        unsigned int mask;
    } cases[] = {
        {"inside", kInside, true, 0},
        {"over the far corner", {0.5, 0.5, 0.5, 2, 2, 2}, true, 0x2A},
        {"beyond the far corner", {2, 2, 2, 3, 3, 3}, false, 0x3E},
        {"over x = 0", {-1, 0.25, 0.25, 0.5, 0.5, 0.5}, true, 0x01},
        {"inside, at x = 0", {0, 0.25, 0.25, 0.5, 0.5, 0.5}, true, 0x01},
        {"inside, off x = 0", {above0, 0.25, 0.25, 0.5, 0.5, 0.5}, true, 0},
        {"outside, at x = 0", {-1, 0.25, 0.25, 0, 0.5, 0.5}, true, 0x01},
        {"outside, off x = 0", {-1, 0.25, 0.25, -above0, 0.5, 0.5}, false, 0x3F},
        // A rejection keeps the bits that were cleared before it.
        {"outside, off z = 1", {0.25, 0.25, above1, 0.5, 0.5, 2}, false, 0x20},
        {"around everything", {-9, -9, -9, 9, 9, 9}, true, 0x3F},
    };
    Polytope p = unitPolytope();
    for (const auto& c : cases) {  // each test starts from the stack, not from the mask left before
        EXPECT_EQ(c.in, p.contains(c.box)) << c.what;
        expectState(c.mask, {0, 0x3F}, p);
    }
}

TEST(PolytopeTest, TopOfZeroHoldsEverythingUntilPopped) {
    Polytope p = unitPolytope();
    ASSERT_TRUE(p.contains(kInside));
    p.pushCurrentMask();
    EXPECT_TRUE(p.contains(kFarAway));
    expectState(0, {0, 0x3F, 0}, p);
    p.popCurrentMask();
    EXPECT_FALSE(p.contains(kFarAway));
    // The current mask is not written on that way.
    p = unitPolytope();
    p.popCurrentMask();
    EXPECT_TRUE(p.contains(kFarAway));
    expectState(0x3F, {0}, p);
}

TEST(PolytopeTest, TestsOnlyThePlanesInTheTopMask) {
    Polytope p = unitPolytope();
    ASSERT_TRUE(p.contains(BoundingBoxd(0.5, 0.5, 0.5, 2, 0.75, 2)));
    ASSERT_EQ(0x22u, p.getCurrentMask());  // x < 1 and z < 1
    p.pushCurrentMask();
    EXPECT_TRUE(p.contains(BoundingBoxd(-9, -9, -9, 0.5, 9, 2)));
    expectState(0x20, {0, 0x3F, 0x22}, p);
    EXPECT_FALSE(p.contains(BoundingBoxd(1.5, 0.5, 0.5, 2, 0.75, 0.75)));
    EXPECT_FALSE(p.contains(BoundingBoxd(0.5, 0.5, 1.5, 0.75, 0.75, 2)));
    expectState(0x20, {0, 0x3F, 0x22}, p);
    // Bits without a plane stay.
    p.set(planesFacing(0, 2));
    p.popCurrentMask();
    EXPECT_TRUE(p.contains(kInside));
    EXPECT_EQ(0x20u, p.getCurrentMask());
}

// Deliberate: a mask has 32 bits, and planes beyond them count as satisfied.
TEST(PolytopeTest, PlanesFromTheThirtyThirdOnAreKeptButNeverTested) {
    for (int count : {31, 32, 33, 40, 70}) {
        Polytope p(planesFacing(-0.5, count - 1));  // kInside straddles these
        p.add(Planed(1, 0, 0, -5));                 // and lies outside this one
        const unsigned int all = count == 31 ? 0x7FFFFFFFu : 0xFFFFFFFFu;
        EXPECT_EQ(all, p.getMaskStack().back());
        EXPECT_EQ(count > 32, p.contains(kInside)) << count;
        EXPECT_EQ(all, p.getCurrentMask()) << count;
        p.transformProvidingInverse(Transformation::createScaleT<double>(2, 1, 1));
        EXPECT_BITS(Vector4d(1, 0, 0, -2.5), p.getPlanes().back().getAsVector4());
    }
}

/// An irregular region: a box, cut by random planes that keep its middle.
Polytope randomPolytope(Corpus<double>& corpus) {
    Polytope p;
    p.setToBoundingBox(BoundingBoxd(-8, -7, -6, 5, 6, 7));
    for (int i = 0; i < 5; ++i) {
        const Vector3d n = corpus.vector();
        p.add(Planed(Vector4d(n, 4 * n.norm())));
    }
    return p;
}

/// By all eight corners; contains() must agree to the last bit, since each sum is monotonic.
bool bruteContains(const Polytope& p, const BoundingBoxd& box, unsigned int* mask) {
    *mask = p.getMaskStack().back();
    unsigned int bit = 1;
    for (const Planed& plane : p.getPlanes()) {
        int in = 0, out = 0;
        for (unsigned int i = 0; i < 8; ++i) {
            in += plane.distance(box.corner(i)) > 0;
            out += plane.distance(box.corner(i)) < 0;
        }
        if (in == 8) *mask &= ~bit;
        if (out == 8) return false;
        bit *= 2;
    }
    return true;
}

// As in PlaneTest: the plane touches the box to the last bit, in the order of its sum.
TEST(PolytopeTest, ContainsEvaluatesCornersInThePlanesOwnOrder) {
    Corpus<double> corpus(62);
    for (int n = 0; n < 500; ++n) {
        const Vector3d v = corpus.vector();
        const BoundingBoxd box = corpus.box();
        const Planed plane(Vector4d(v, 0));
        const double low = plane.distance(box.corner(plane.lowerBBCorner()));
        const double high = plane.distance(box.corner(plane.upperBBCorner()));
        for (double d : {-low, above(-low), -high, below(-high)}) {
            Polytope p(Planes(1, Planed(Vector4d(v, d))));
            EXPECT_EQ(d != below(-high), p.contains(box));
            EXPECT_EQ(d == above(-low) ? 0u : 1u, p.getCurrentMask());
        }
    }
}

struct Node {
    BoundingBoxd box;
    std::vector<Node> children;
};

Node randomTree(Corpus<double>& corpus, const BoundingBoxd& box, int depth) {
    Node node{box, {}};
    for (int n = 0; depth > 0 && n < 4; ++n) {
        BoundingBoxd child;
        for (int i = 0; i < 3; ++i) {
            const double at = box.getMin()[i], size = box.getMax()[i] - at;
            const double s = std::abs(corpus.plain()) / 10, t = std::abs(corpus.plain()) / 10;
            child.getMin()[i] = at + size * std::min(s, t);
            child.getMax()[i] = std::min(at + size * std::max(s, t), box.getMax()[i]);
        }
        node.children.push_back(randomTree(corpus, child, depth - 1));
    }
    return node;
}

void cull(Polytope& p, const Node& node, std::vector<const Node*>* seen) {
    if (!p.contains(node.box)) return;
    seen->push_back(&node);
    p.pushCurrentMask();
    for (const Node& child : node.children) cull(p, child, seen);
    p.popCurrentMask();
}

void cullFlat(Polytope& p, const Node& node, std::vector<const Node*>* seen, int* total) {
    unsigned int mask = 0;
    const bool in = bruteContains(p, node.box, &mask);
    EXPECT_EQ(in, p.contains(node.box));
    EXPECT_EQ(mask, p.getCurrentMask());
    ++*total;
    if (in) seen->push_back(&node);
    for (const Node& child : node.children) cullFlat(p, child, seen, total);
}

TEST(PolytopeTest, CullingATreeWithMasksSeesWhatTestingEveryBoxSees) {
    Corpus<double> corpus(63);
    std::size_t visible = 0;
    int total = 0;
    for (int n = 0; n < 20; ++n) {
        Polytope p = randomPolytope(corpus);
        const Node tree = randomTree(corpus, BoundingBoxd(-12, -12, -12, 12, 12, 12), 4);
        const Masks stack = p.getMaskStack();
        std::vector<const Node*> byMasks, flat;
        cull(p, tree, &byMasks);
        cullFlat(p, tree, &flat, &total);
        EXPECT_EQ(flat, byMasks);
        EXPECT_EQ(stack, p.getMaskStack());
        visible += flat.size();
    }
    EXPECT_GT(visible, 1000u);
    EXPECT_GT(static_cast<std::size_t>(total), visible + 1000);
}

// Deliberate: transform() takes the rigid inverse first, whatever the matrix, and passes that on as
// the matrix for coefficients.
TEST(PolytopeTest, TransformInvertsAsRigidAndTransformsEveryPlaneWithoutTouchingTheMasks) {
    Corpus<double> corpus(64);
    for (int n = 0; n < 100; ++n) {
        const Matrix44d m = corpus.matrix();
        Polytope inverted = randomPolytope(corpus);
        inverted.contains(BoundingBoxd(0, 0, 0, 20, 1, 1));
        Polytope provided = inverted;
        Planes byInverse = inverted.getPlanes(), byMatrix = byInverse;
        for (Planed& plane : byInverse) plane.transformProvidingInverse(m.inverse_orthogonal());
        for (Planed& plane : byMatrix) plane.transformProvidingInverse(m);
        const Polytope before = inverted;
        inverted.transform(m);
        provided.transformProvidingInverse(m);
        expectPlanes(byInverse, inverted);
        expectPlanes(byMatrix, provided);
        expectState(before.getCurrentMask(), before.getMaskStack(), inverted);
        expectState(before.getCurrentMask(), before.getMaskStack(), provided);
    }
}

}  // namespace
}  // namespace KyMath::test
