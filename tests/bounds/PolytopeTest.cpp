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

// Deliberate: only the top of the stack is read, so code that rebuilds often has to pop.
TEST(PolytopeTest, EveryChangePushesAFullMask) {
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

TEST(PolytopeTest, CopiesAreWhole) {
    Polytope p = unitPolytope(), assigned(Planes(9, Planed(1, 2, 3, 4)));
    expectContains(true, 0x2A, p, {0.5, 0.5, 0.5, 2, 2, 2});
    EXPECT_EQ(&assigned, &(assigned = p));
    for (const Polytope& copy : {p, assigned}) {
        expectPlanes(unitPolytope().getPlanes(), copy);
        expectState(0x2A, {0, 0x3F}, copy);
    }
}

// Scaled past epsilon, a plane keeps corners that a fresh copy does not have.
TEST(PolytopeTest, CornersDoNotDependOnCapacity) {
    for (const std::size_t capacity : {0u, 8u}) {
        Polytope p{Planes(capacity)}, assigned = p;
        for (Polytope* reserved : {&p, &assigned}) reserved->clear();
        p.add(Planed(1, 0, 0, 2));
        p.transformProvidingInverse(Matrix44d() *= 1e-17);
        p.add(p.getPlanes()[0]);
        p.add(Planed(0, 1, 0, 2));
        assigned = p;
        Polytope set;
        set.set(p.getPlanes());
        for (const Polytope* kept : {&p, &assigned}) {
            EXPECT_EQ(0u, kept->getPlanes()[0].upperBBCorner()) << capacity;
            EXPECT_EQ(1u, kept->getPlanes()[1].upperBBCorner()) << capacity;
        }
        for (const Polytope& fresh : {set, Polytope(p), Polytope(p.getPlanes())}) {
            EXPECT_EQ(1u, fresh.getPlanes()[0].upperBBCorner()) << capacity;
        }
    }
}

TEST(PolytopeTest, BoxGivesSixInwardPlanesInOrder) {
    Polytope p(Planes(9, Planed(1, 2, 3, 4)));
    p.setToBoundingBox(BoundingBoxd(0, 2, 3, -4, 5, 6));
    expectPlanes({Planed(1, 0, 0, -0.0), Planed(-1, 0, 0, -4), Planed(0, 1, 0, -2),
                  Planed(0, -1, 0, 5), Planed(0, 0, 1, -3), Planed(0, 0, -1, 6)},
                 p);
}

TEST(PolytopeTest, TestsThePlanesOfTheTopMask) {
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
TEST(PolytopeTest, PlanesBeyondThirtyTwoAreNeverTested) {
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

// Deliberate: transform() takes the rigid inverse first, whatever the matrix.
TEST(PolytopeTest, TransformInvertsAsRigid) {
    const Matrix44d quarter(0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);
    for (const bool invert : {false, true}) {
        Polytope p = unitPolytope();
        expectContains(true, 0x2A, p, {0.5, 0.5, 0.5, 2, 2, 2});
        invert ? p.transform(quarter) : p.transformProvidingInverse(quarter);
        EXPECT_EQ(Planed(0, invert ? -1 : 1, 0, 0), p.getPlanes()[0]);
        EXPECT_EQ(Planed(0, 0, -1, 1), p.getPlanes()[5]);
        expectState(0x2A, {0, 0x3F}, p);
    }
    Polytope p = unitPolytope();
    p.transform(Transformation::createScaleT<double>(4, 4, 4));
    EXPECT_EQ(Planed(-1, 0, 0, 0.25), p.getPlanes()[1]);
}

}  // namespace
}  // namespace KyMath::test
