// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <vector>

namespace KyMath::test {
namespace {

using Masks = std::vector<unsigned int>;
using Planes = std::vector<Planed>;

const BoundingBoxd kInside(0.25, 0.25, 0.25, 0.75, 0.75, 0.75);
const BoundingBoxd kFarAway(40, 50, 60, 41, 51, 61);

Polytope unitPolytope() {
    Polytope p;
    p.setToBoundingBox(BoundingBoxd(0, 0, 0, 1, 1, 1));
    return p;
}

void expectPlanes(const Planes& expected, const Polytope& p) {
    ASSERT_EQ(expected.size(), p.getPlanes().size());
    for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_BITS(expected[i], p.getPlanes()[i]);
}

void expectState(unsigned int mask, const Masks& stack, const Polytope& p) {
    EXPECT_EQ(mask, p.getCurrentMask());
    EXPECT_EQ(stack, p.getMaskStack());
}

void expectContains(bool in, unsigned int mask, Polytope& p, const BoundingBoxd& box) {
    const Masks stack = p.getMaskStack();
    EXPECT_EQ(in, p.contains(box));
    expectState(mask, stack, p);
}

// Deliberate: the stack is read at its top only, so whoever rebuilds often has to pop.
TEST(PolytopeTest, EveryChangeOfThePlanesPushesAFullMaskOnTopOfTheOldOnes) {
    const Planes two = {Planed(1, 2, 3, 4), Planed(-5, 6, -7, 8)};
    Polytope p(Planes(5, Planed(1, 0, 0, 7)));
    expectState(0x1F, {0x1F}, p);
    p.add(Planed(0, 1, 0, 1));
    expectState(0x3F, {0x1F, 0x3F}, p);
    p.set(two);
    expectPlanes(two, p);
    expectState(3, {0x1F, 0x3F, 3}, p);
    p.setToBoundingBox(kInside);
    p.clear();
    p.setupMask();
    expectPlanes({}, p);
    expectState(0, {0x1F, 0x3F, 3, 0x3F, 0, 0}, p);
    expectContains(true, 0, p, kFarAway);
    for (int i = 0; i < 2; ++i) p.popCurrentMask();
    // An older mask on top has no planes left to ask, but becomes the current mask.
    expectContains(true, 0x3F, p, kFarAway);
}

TEST(PolytopeTest, ListConstructorAndAddRefreshTheCornersOfEachPlane) {
    Polytope added;
    added.add(Planed());  // both corners of a default plane are 0
    expectPlanes({Planed(0, 0, 0, 0)}, added);
    expectPlanes({Planed(0, 0, 0, 0)}, Polytope(Planes(1)));
}

TEST(PolytopeTest, CopiesAreWhole) {
    Polytope p = unitPolytope(), assigned(Planes(9, Planed(1, 2, 3, 4)));
    expectContains(true, 0x2A, p, {0.5, 0.5, 0.5, 2, 2, 2});
    EXPECT_EQ(&assigned, &(assigned = p));
    for (const Polytope& copy : {p, assigned}) {
        expectPlanes(unitPolytope().getPlanes(), copy);
        expectState(0x2A, {0, 0x3F}, copy);
    }
}

TEST(PolytopeTest, BoundingBoxGivesSixInwardPlanesInOrder) {
    Polytope p(Planes(9, Planed(1, 2, 3, 4)));
    p.setToBoundingBox(BoundingBoxd(0, 2, 3, -4, 5, 6));
    expectPlanes({Planed(1, 0, 0, -0.0), Planed(-1, 0, 0, -4), Planed(0, 1, 0, -2),
                  Planed(0, -1, 0, 5), Planed(0, 0, 1, -3), Planed(0, 0, -1, 6)},
                 p);
}

TEST(PolytopeTest, TestsOnlyThePlanesInTheTopMaskAndLeavesThoseStraddled) {
    Polytope p = unitPolytope();
    expectContains(true, 0x22, p, {0.5, 0.5, 0.5, 2, 0.75, 2});  // x < 1 and z < 1
    p.pushCurrentMask();
    expectContains(true, 0x20, p, {-9, -9, -9, 0.5, 9, 2});  // each time from the top of the stack
    expectContains(false, 0x22, p, {1.5, 0.5, 0.5, 2, 0.75, 0.75});
    expectContains(false, 0x20, p, {0.5, 0.5, 1.5, 0.75, 0.75, 2});
    expectContains(true, 0, p, kInside);
    p.pushCurrentMask();
    expectContains(true, 0, p, kFarAway);  // nothing is left to ask
    p.popCurrentMask();
    p.popCurrentMask();
    expectContains(false, 0x3E, p, kFarAway);
    p.popCurrentMask();  // to the mask of no planes: the current mask is not written on that way
    expectContains(true, 0x3E, p, kFarAway);
}

// Deliberate: a mask has 32 bits, and planes beyond them count as satisfied.
TEST(PolytopeTest, PlanesFromTheThirtyThirdOnAreKeptButNeverTested) {
    for (std::size_t count : {31u, 32u, 33u, 40u, 70u}) {
        Polytope p(Planes(count - 1, Planed(1, 0, 0, -0.5)));  // kInside straddles these
        p.add(Planed(1, 0, 0, -5));                            // and lies outside this one
        const unsigned int all = count == 31 ? 0x7FFFFFFFu : 0xFFFFFFFFu;
        EXPECT_EQ(all, p.getMaskStack().back());
        expectContains(count > 32, all, p, kInside);
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

/// By all eight corners and all planes; contains() must agree to the last bit, since each sum is
/// monotonic and what a mask leaves out was settled by a box around this one.
bool containsByCorners(Polytope& p, const BoundingBoxd& box) {
    const Planes& planes = p.getPlanes();
    unsigned int mask = p.getMaskStack().back();
    bool seen = true;
    for (std::size_t k = 0; seen && k < planes.size(); ++k) {
        int in = 0, out = 0;
        for (unsigned int i = 0; i < 8; ++i) {
            in += planes[k].distance(box.corner(i)) > 0;
            out += planes[k].distance(box.corner(i)) < 0;
        }
        if (in == 8) mask &= ~(1u << k);
        seen = out < 8;
    }
    expectContains(seen, mask, p, box);
    return seen;
}

TEST(PolytopeTest, CullingNestedBoxesWithMasksSeesWhatTestingAllPlanesSees) {
    Corpus<double> corpus(63);
    for (int n = 0; n < 1000; ++n) {
        BoundingBoxd box = corpus.box();
        // One more plane touches the box to the last bit as its sum is formed, or is a step off.
        const Planed plane(Vector4d(corpus.vector(), 0));
        const double low = -plane.distance(box.corner(plane.lowerBBCorner()));
        const double high = -plane.distance(box.corner(plane.upperBBCorner()));
        const double distances[] = {low, above(low), high, below(high)};
        Polytope p = randomPolytope(corpus);
        p.add(Planed(Vector4d(plane.getNormal(), distances[n % 4])));
        for (int depth = 0; depth < 6 && containsByCorners(p, box); ++depth) {
            p.pushCurrentMask();
            const Vector3d middle = box.center();
            for (int i = 0; i < 3; ++i) {
                (corpus.plain() < 0 ? box.getMin() : box.getMax())[i] = middle[i];
            }
        }
    }
}

// Deliberate: transform() takes the rigid inverse first, whatever the matrix.
TEST(PolytopeTest, TransformInvertsAsRigidAndTransformsEveryPlaneWithoutTouchingTheMasks) {
    Corpus<double> corpus(64);
    for (int n = 0; n < 100; ++n) {
        const Matrix44d m = corpus.matrix();
        Polytope before = randomPolytope(corpus);
        before.contains(BoundingBoxd(0, 0, 0, 20, 1, 1));
        for (bool invert : {false, true}) {
            Planes expected = before.getPlanes();
            for (Planed& plane : expected) plane.transform(invert ? m.inverse_orthogonal() : m);
            Polytope p = before;
            invert ? p.transform(m) : p.transformProvidingInverse(m);
            expectPlanes(expected, p);
            expectState(before.getCurrentMask(), before.getMaskStack(), p);
        }
    }
}

}  // namespace
}  // namespace KyMath::test
