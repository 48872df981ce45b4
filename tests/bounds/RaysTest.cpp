// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

namespace KyMath::test {
namespace {

KY_SUITE(RaysTest);

/// The part of a line in a box: "nothing", or its two ends.
template <class T>
std::vector<T> part(const Vec<T>& origin, const Vec<T>& direction, const Box<T>& box) {
    T near = 7, far = 8;
    if (Rays::intersect(origin, direction, box, &near, &far)) return {near, far};
    EXPECT_EQ(7, near) << "written";
    EXPECT_EQ(8, far) << "written";
    return {};
}

KY_TEST(RaysTest, BoxFromEverywhere) {
    using Part = std::vector<T>;
    const Box<T> box(-1, -2, -3, 1, 2, 3), flat(-1, -2, 3, 1, 2, 3);
    const Vec<T> x(1, 0, 0), z(0, 0, 2), tilted(1, 1, 0);
    EXPECT_EQ((Part{4, 6}), part(Vec<T>(-5, 0, 0), x, box));
    EXPECT_EQ((Part{-6, -4}), part(Vec<T>(5, 0, 0), x, box)) << "behind";
    EXPECT_EQ((Part{-1, 1}), part(Vec<T>(0, 0, 0), x, box)) << "inside";
    EXPECT_EQ((Part{T(-1.5), T(1.5)}), part(Vec<T>(0, 0, 0), z, box)) << "t counts in directions";
    EXPECT_EQ((Part{T(1.5), T(1.5)}), part(Vec<T>(0, 0, 0), z, flat)) << "a flat box";
    EXPECT_EQ((Part{-1, 1}), part(Vec<T>(0, 2, 3), x, box)) << "along an edge";
    EXPECT_EQ((Part{1, 1}), part(Vec<T>(0, -3, 0), tilted, box)) << "through one corner";
    EXPECT_EQ((Part{-kInf<T>, kInf<T>}), part(Vec<T>(1, 2, 3), Vec<T>(), box)) << "no direction";
    EXPECT_EQ(Part(), part(Vec<T>(0, above(T(2)), 0), x, box)) << "beside";
    EXPECT_EQ(Part(), part(Vec<T>(0, T(-3.5), 0), tilted, box));
    EXPECT_EQ(Part(), part(Vec<T>(), x, Box<T>())) << "empty";
    EXPECT_EQ(Part(), part(Vec<T>(), tilted, Box<T>(1, -1, -1, 0, 1, 1))) << "empty along x";
    for (int i = 0; i < 6; ++i) {
        Vec<T> lines[] = {Vec<T>(0, 0, 0), tilted};
        lines[i / 3][i % 3] = kNaN<T>;
        EXPECT_EQ(Part(), part(lines[0], lines[1], box)) << i;
        Box<T> broken = box;
        (i < 3 ? broken.getMin() : broken.getMax())[i % 3] = kNaN<T>;
        EXPECT_EQ(Part(), part(Vec<T>(), tilted, broken)) << i;
    }
}

// The least component that has a reciprocal still counts; half of it would divide to infinity.
KY_TEST(RaysTest, BoxAlongAnAxis) {
    const T least = above(std::numeric_limits<T>::min() / 4);
    const Box<T> box(-1, 0, -1, 1, 0, 1);
    EXPECT_EQ((std::vector<T>{0, 0}), part(Vec<T>(), Vec<T>(1, least, 0), box));
    EXPECT_EQ((std::vector<T>{-1, 1}), part(Vec<T>(), Vec<T>(1, below(least), 0), box));
}

TEST(SphereRaysTest, MeetTouchAndMiss) {
    const BoundingSphere ball(Vector3d(1, 2, 3), 5);
    double near = 7, far = 8;
    EXPECT_TRUE(Rays::intersect(Vector3d(1, 2, 11), Vector3d(0, 0, -2), ball, &near, &far));
    EXPECT_EQ(1.5, near);
    EXPECT_EQ(6.5, far);
    EXPECT_TRUE(Rays::intersect(Vector3d(1, 6, 3), Vector3d(1, 0, 0), ball, &near, &far));
    EXPECT_EQ(-3, near) << "inside";
    EXPECT_EQ(3, far);
    EXPECT_TRUE(Rays::intersect(Vector3d(0, 7, 3), Vector3d(1, 0, 0), ball, &near, &far));
    EXPECT_EQ(1, near) << "touching";
    EXPECT_EQ(1, far);
    const Vector3d x(1, 0, 0), nan(kNaN<double>, 0, 0), beside(0, above(7.0), 3);
    EXPECT_FALSE(Rays::intersect(beside, x, ball, &near, &far));
    EXPECT_FALSE(Rays::intersect(Vector3d(1, 2, 3), Vector3d(), ball, &near, &far));
    EXPECT_FALSE(Rays::intersect(Vector3d(), x, BoundingSphere(), &near, &far));
    EXPECT_FALSE(Rays::intersect(nan, x, ball, &near, &far));
    EXPECT_FALSE(Rays::intersect(x, nan, ball, &near, &far));
    EXPECT_EQ(1, near) << "written";
    EXPECT_EQ(1, far) << "written";
}

KY_TEST(RaysTest, Plane) {
    const PlaneT<T> floor(0, 0, 2, -8);  // z = 4, its normal of length 2
    T t = 7;
    EXPECT_TRUE(Rays::intersect(Vec<T>(1, 1, 10), Vec<T>(1, 0, -3), floor, &t));
    EXPECT_EQ(2, t);
    EXPECT_TRUE(Rays::intersect(Vec<T>(1, 1, 1), Vec<T>(0, 0, -3), floor, &t));
    EXPECT_EQ(-1, t);
    EXPECT_FALSE(Rays::intersect(Vec<T>(1, 1, 4), Vec<T>(1, 0, 0), floor, &t)) << "in it";
    EXPECT_FALSE(Rays::intersect(Vec<T>(1, 1, kMax<T> / 4), Vec<T>(0, 0, kEps<T>), floor, &t));
    EXPECT_FALSE(Rays::intersect(Vec<T>(kNaN<T>, 1, 1), Vec<T>(0, 0, 1), floor, &t));
    EXPECT_FALSE(Rays::intersect(Vec<T>(), Vec<T>(0, 0, kNaN<T>), floor, &t));
    EXPECT_EQ(-1, t) << "written";
}

KY_TEST(RaysTest, Triangle) {
    const Vec<T> a(1, 1, 2), b(5, 1, 2), c(1, 9, 2), up(0, 0, 4), down(0, 0, -4);
    T t = 7, u = 8, v = 9;
    EXPECT_TRUE(Rays::intersect(Vec<T>(2, 5, 0), up, a, b, c, &t, &u, &v));
    EXPECT_EQ(T(0.5), t);
    EXPECT_EQ(T(0.25), u);
    EXPECT_EQ(T(0.5), v);
    EXPECT_TRUE(Rays::intersect(Vec<T>(2, 5, 0), down, a, b, c, &t, &u, &v)) << "other side";
    EXPECT_EQ(T(-0.5), t);
    for (const Vec<T>& corner : {a, b, c}) {
        EXPECT_TRUE(Rays::intersect(corner, up, a, b, c, &t, &u, &v));
        EXPECT_EQ(0, t);
    }
    for (const Vec<T>& p : {Vec<T>(below(T(1)), 2, 0), Vec<T>(2, below(T(1)), 0), Vec<T>(4, 6, 0),
                            Vec<T>(kNaN<T>, 2, 0), Vec<T>(2, 2, kNaN<T>)}) {
        EXPECT_FALSE(Rays::intersect(p, up, a, b, c, &t, &u, &v)) << p[0];
    }
    EXPECT_FALSE(Rays::intersect(Vec<T>(0, 2, 2), Vec<T>(1, 0, 0), a, b, c, &t, &u, &v)) << "in it";
    EXPECT_FALSE(Rays::intersect(Vec<T>(1, 1, 0), up, a, b, b, &t, &u, &v)) << "without area";
    EXPECT_EQ(0, t) << "written";
}

KY_TEST(RaysTest, ArraysAreSingleCalls) {
    struct Hull {
        Box<T> box;
        int id;
    };
    Corpus<T> random(1);
    constexpr std::size_t kN = 53;
    std::vector<Vec<T>> o(kN), d(kN), corners(3 * kN);
    std::vector<Hull> hulls(kN);
    for (std::vector<Vec<T>>* all : {&o, &d, &corners}) {
        for (Vec<T>& v : *all) v = random.vector();
    }
    for (Hull& hull : hulls) hull.box = random.box();
    for (std::size_t i = 0; i < kN;
         i += 3) {  // triangles around the first line, lines to triangles
        Vec<T>* const p = &corners[3 * i];
        p[2] = (o[0] + d[0]) * 3 - p[0] - p[1];
        d[i + 1] = (corners[0] + corners[1] + corners[2]) / 3 - o[i + 1];
    }
    corners[22] = corners[23] = corners[21];
    corners[24][0] = kNaN<T>;
    // With the first of the rays, and with the first of what they meet.
    std::vector<T> near[2], far[2], t[2];
    for (auto* all : {near, far, t}) all[0].resize(kN), all[1].resize(kN);
    const Vec<T>* const c = corners.data();
    Rays::intersectBoxes(o[0], d[0], &hulls[0].box, near[0].data(), far[0].data(), kN,
                         sizeof(Hull));
    Rays::intersectBox(o.data(), d.data(), hulls[0].box, near[1].data(), far[1].data(), kN);
    Rays::intersectTriangles(o[0], d[0], c, t[0].data(), kN);
    Rays::intersectTriangle(o.data(), d.data(), c[0], c[1], c[2], t[1].data(), kN);
    int met = 0, triangles = 0;
    for (std::size_t i = 0; i < 2 * kN; ++i) {
        const std::size_t many = i / kN, ray = many * (i % kN), target = (1 - many) * (i % kN);
        T first = kInf<T>, last = -kInf<T>, at = kInf<T>, u, v;
        met += Rays::intersect(o[ray], d[ray], hulls[target].box, &first, &last);
        const Vec<T>* const p = c + 3 * target;
        triangles += Rays::intersect(o[ray], d[ray], p[0], p[1], p[2], &at, &u, &v);
        EXPECT_BITS(first, near[many][i % kN]);
        EXPECT_BITS(last, far[many][i % kN]);
        EXPECT_BITS(at, t[many][i % kN]);
    }
    EXPECT_LT(5, met);
    EXPECT_LT(30, triangles);
    Rays::intersectBoxes<T>(o[0], d[0], nullptr, nullptr, nullptr, 0);
    Rays::intersectTriangles<T>(o[0], d[0], nullptr, nullptr, 0);
}

}  // namespace
}  // namespace KyMath::test
