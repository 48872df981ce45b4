// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

namespace KyMath::test {
namespace {

TEST(FrustumTest, PlanesPointInwardsAtUnitLength) {
    // The view is 2 wide, 4 high and 6 deep; small values are below epsilon before normalising.
    for (const float scale : {1.0f, 1e-9f}) {
        const Matrix44f view(scale, 0, 0, 0, 0, scale, 0, 0, 0, 0, scale, 0, 0, 0, 0, scale);
        Frustum f;
        f.setToWorldSpaceFrustum(view, Matrix44f(1, 0, 0, 0, 0, 0.5f, 0, 0, 0, 0, 0.25f, 0,  //
                                                 0, 0, -0.5f, 1));
        const Vector4f planes[] = {{1, 0, 0, 1},  {-1, 0, 0, 1}, {0, 1, 0, 2},
                                   {0, -1, 0, 2}, {0, 0, -1, 6}, {0, 0, 1, 2}};
        for (unsigned int i = 0; i < 6; ++i) {
            EXPECT_LE((planes[i] - f.getPlane(i).getAsVector4()).norm(), 4 * kEps<float>) << i;
        }
        EXPECT_EQ(scale < 1 ? 0u : 1u, f.getPlane(Frustum::eLeft).upperBBCorner());
    }
}

// Deliberate: a perspective has exactly -1 in one element.
TEST(FrustumTest, NearPlaneIsAtClipZeroForPerspectives) {
    for (float e : {-1.0f, above(-1.0f), below(-1.0f), -0.5f, 1.0f, kNaN<float>}) {
        const Matrix44f projection(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 4, e, 0, 0, 8, 0);
        Frustum f;
        f.setToWorldSpaceFrustum(Matrix44f(), projection);
        const Vector4f v = f.getPlane(Frustum::eNear).getAsVector4();
        const float k = e == -1 ? 4 : 4 + e;
        EXPECT_BITS(Vector4f(0, 0, k, 8) * (1 / std::abs(k)), v) << e;
    }
}

TEST(WorldSpaceSegmentTest, RunsFromDepthOneToDepthZero) {
    const Matrix44f m(1, 0, 0, 0, 0, 1, 0, 0, 3, 5, 7, 4, 0, 0, 0, 3);
    Vector3f p(2, 4, 9), q = p, first, second;  // either output may be the point
    getWorldSpaceSegment(m, p, p, second);
    getWorldSpaceSegment(m, q, first, q);
    for (const Vector3f& one : {p, first}) EXPECT_BITS(Vector3f(5 / 7.0f, 9 / 7.0f, 1), one);
    for (const Vector3f& zero : {q, second}) EXPECT_BITS(Vector3f(2 / 3.0f, 4 / 3.0f, 0), zero);
}

}  // namespace
}  // namespace KyMath::test
