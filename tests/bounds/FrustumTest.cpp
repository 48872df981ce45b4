// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

namespace KyMath::test {
namespace {

TEST(FrustumTest, PlanesAreClipPlanesTimesProjectionTimesViewAtUnitLengthAndCopyWhole) {
    const Vector4f clipPlanes[] = {{1, 0, 0, 1},  {-1, 0, 0, 1}, {0, 1, 0, 1},
                                   {0, -1, 0, 1}, {0, 0, -1, 1}, {0, 0, 1, 1}};
    Corpus<float> corpus(72);
    for (int n = 0; n < 1000; ++n) {
        Matrix44f view = corpus.matrix(), projection = corpus.matrix();
        projection[n / 4 % 4][n % 4] = -1;  // one of all elements tells a perspective
        const bool perspective = n % 16 == 11;
        if (n % 3 == 0) view *= 1e-9f;  // below the machine epsilon before normalising, not after
        const Matrix44f product = Matrix44f::multiply(projection, view);
        Frustum f, assigned;
        f.setToWorldSpaceFrustum(view, projection);
        const Frustum copy(assigned = f);
        const Vector3f p = corpus.vector();
        const Vector4f projected = Matrix44f::multiplyWithVector(product, Vector4f(p, 1));
        for (unsigned int i = 0; i < 6; ++i) {
            Vector4f clip = clipPlanes[i];
            if (i == Frustum::eNear && perspective) clip[3] = 0;
            Planef plane(each<Vector4f>([&](int k) { return clip * Vector4f(product[k]); }));
            plane.makeUnitLength();
            EXPECT_BITS(plane, f.getPlane(i)) << i;
            EXPECT_BITS(plane, assigned.getPlane(i)) << i;
            EXPECT_BITS(plane.getAsVector4(), copy.getPlane(i).getAsVector4()) << i;
            EXPECT_BITS(Planef(), Frustum().getPlane(i));
            const float side = clip * projected;  // rounding decides it near 0
            if (std::abs(side) < 1) continue;
            EXPECT_EQ(side > 0, f.getPlane(i).distance(p) > 0) << i;
        }
    }
}

// Deliberate: one element tells a perspective, and only at exactly -1.
TEST(FrustumTest, NearPlaneIsAtClipZeroOnlyForAnElementOfExactlyMinusOne) {
    for (float e : {-1.0f, above(-1.0f), below(-1.0f), -0.5f, 1.0f, kNaN<float>}) {
        const Matrix44f projection(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 4, e, 0, 0, 8, 0);
        Frustum f;
        f.setToWorldSpaceFrustum(Matrix44f(), projection);
        const Vector4f v = f.getPlane(Frustum::eNear).getAsVector4();
        const float k = e == -1 ? 4 : 4 + e;
        EXPECT_BITS(Vector4f(0, 0, k, 8) * (1 / std::abs(k)), v) << e;
    }
}

TEST(WorldSpaceSegmentTest, RunsFromDepthOneToDepthZeroWithTrueDivisionsOfWhateverW) {
    Corpus<float> corpus(74);
    for (int n = 0; n < 3000; ++n) {
        Matrix44f m = corpus.matrix();
        if (n % 2 == 0) m(static_cast<unsigned long>(n / 2 % 4), 2) = corpus.any();
        if (n % 5 == 0) m[0][3] = m[1][3] = m[2][3] = m[3][3] = 0;
        const Vector3f p = n % 3 == 0 ? corpus.anyVector() : corpus.vector();
        const auto at = [&](float depth) {
            const auto h = Matrix44f::multiplyWithVector(m, Vector4f(p[0], p[1], depth, 1));
            return Vector3f(h[0] / h[3], h[1] / h[3], h[2] / h[3]);
        };
        Vector3f first, second, far = p, near = p;  // either output may be the point
        getWorldSpaceSegment(m, far, far, second);
        getWorldSpaceSegment(m, near, first, near);
        EXPECT_BITS(at(1), first);
        EXPECT_BITS(at(0), second);
        EXPECT_BITS(at(1), far);
        EXPECT_BITS(at(0), near);
    }
}

}  // namespace
}  // namespace KyMath::test
