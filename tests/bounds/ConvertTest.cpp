// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

namespace KyMath::test {
namespace {

/// Whether each value of a, as a float, is that of b in the same place.
template <class A, class B>
void expectRounded(const A& a, const B& b) {
    Numbers rounded = numbers(a);
    // From memory: GCC 12 drops the rounding of a pair of doubles to float and back.
    for (double& x : rounded) x = double(runtime(static_cast<float>(x)));
    EXPECT_EQ(rounded, numbers(b));
}

TEST(ConvertTest, FloatsAreTheNearestDoublesAreExact) {
    Corpus<double> random(1);
    const auto both = [](const auto& v) {
        const auto f = toFloat(v);
        expectRounded(v, f);
        expectRounded(toDouble(f), f);
    };
    const Vector3d v = random.vector() / 3.0;
    both(Vector2d(v.x(), v.y()));
    both(v);
    both(Vector4d(v.x(), v.y(), v.z(), random.plain() / 3));
    both(Quaterniond(v, 1));
    both(random.matrix() *= 1 / 3.0);
    both(random.box());
    both(Planed(v, random.vector()));
    const Matrix44d m = random.matrix();
    EXPECT_BITS(toFloat(m), toFloat(Ky::KyTransform(m)));
    EXPECT_EQ(kInf<float>, toFloat(Vector3d(1e300, 0, 0)).x());
}

TEST(ConvertTest, EmptyBoxesStayEmpty) {
    EXPECT_BITS(BoundingBoxf(), toFloat(BoundingBoxd()));
    EXPECT_BITS(BoundingBoxd(), toDouble(BoundingBoxf()));
    const double most = BoundingBoxd().xMin();
    EXPECT_BITS(Vector3f(1, 2, 3), toFloat(BoundingBoxd(most, most, most, 1, 2, 3)).getMax());
    const float mostf = BoundingBoxf().xMin();
    EXPECT_BITS(Vector3d(1, 2, 3), toDouble(BoundingBoxf(mostf, mostf, mostf, 1, 2, 3)).getMax());
}

// 1e-10 is positive for a plane of doubles, and less than the epsilon of floats.
TEST(ConvertTest, PlanesFindTheirCornersAnew) {
    const Planed p(1, 1e-10, 1, 0);
    EXPECT_EQ(7u, p.upperBBCorner());
    EXPECT_EQ(5u, toFloat(p).upperBBCorner());
    EXPECT_EQ(7u, toDouble(toFloat(p)).upperBBCorner());
}

TEST(ConvertTest, RigidTransforms) {
    const Quaterniond quarter(Vector3d(0, 0, 2), std::acos(0.0));
    const Ky::KyTransform t = toTransform(Vector3d(1, 2, 3), quarter);
    const Vector3d p(5, 6, 7), moved = t.transformPoint(p);
    EXPECT_NEAR(0, Vector3d::distance(moved, Vector3d(-5, 7, 10)), 1e-14);
    EXPECT_NEAR(0, Vector3d::distance(p, inverseOf(t).transformPoint(moved)), 1e-14);
    EXPECT_TRUE(Quaterniond::areEqualTol(quarter, toQuaternion(t), 1e-14));
}

TEST(ConvertTest, RegionOfAFrustum) {
    Frustum f;
    f.setToWorldSpaceFrustum(Matrix44f(), Transformation::createPerspectiveT(1.f, 1.f, 1.f, 9.f));
    const Polytope region = toPolytope(f);
    ASSERT_EQ(6u, region.getPlanes().size());
    for (unsigned int i = 0; i < 6; ++i) {
        EXPECT_BITS(toDouble(f.getPlane(i)), region.getPlanes()[i]) << i;
    }
}

}  // namespace
}  // namespace KyMath::test
