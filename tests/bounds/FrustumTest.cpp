// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

namespace KyMath::test {
namespace {

/// The planes over clip coordinates (x, y, z, w); only the near one depends on the projection.
Vector4f clipPlane(unsigned int i, bool perspective) {
    const Vector4f planes[] = {{1, 0, 0, 1},  {-1, 0, 0, 1}, {0, 1, 0, 1},
                               {0, -1, 0, 1}, {0, 0, -1, 1}, {0, 0, 1, 1}};
    return i == Frustum::eNear && perspective ? Vector4f(0, 0, 1, 0) : planes[i];
}

TEST(FrustumTest, IsZeroByDefaultAndOfTwoIdentitiesTheClipVolume) {
    Frustum f;
    for (unsigned int i = 0; i < 6; ++i) EXPECT_BITS(Vector4f(), f.getPlane(i).getAsVector4());
    f.setToWorldSpaceFrustum(Matrix44f(), Matrix44f());
    const unsigned int upper[] = {1, 0, 2, 0, 0, 4};
    for (unsigned int i = 0; i < 6; ++i) {
        EXPECT_TRUE(Planef(clipPlane(i, false)) == f.getPlane(i)) << i;
        EXPECT_EQ(upper[i], f.getPlane(i).upperBBCorner()) << i;
        EXPECT_EQ(upper[i] ^ 7u, f.getPlane(i).lowerBBCorner()) << i;
    }
}

TEST(FrustumTest, PlanesAreClipPlanesTimesProjectionTimesViewAtUnitLengthAndCopyWhole) {
    Corpus<float> corpus(72);
    for (int n = 0; n < 1000; ++n) {
        Matrix44f view = corpus.matrix(), projection = corpus.matrix();
        const bool perspective = n % 2 == 0;
        if (perspective) projection(3, 2) = -1;
        if (n % 3 == 0) view *= 1e-9f;  // below the machine epsilon before normalising, not after
        Matrix44f product;
        for (int c = 0; c < 4; ++c) {
            for (int r = 0; r < 4; ++r) {
                product[c][r] = projection[0][r] * view[c][0] + projection[1][r] * view[c][1] +
                                projection[2][r] * view[c][2] + projection[3][r] * view[c][3];
            }
        }
        Frustum f, assigned;
        f.setToWorldSpaceFrustum(view, projection);
        const Frustum copy(assigned = f);
        for (unsigned int i = 0; i < 6; ++i) {
            const Vector4f clip = clipPlane(i, perspective);
            Vector4f v;
            for (int k = 0; k < 4; ++k) {
                const float* const m = product[k];
                v[k] = clip[0] * m[0] + clip[1] * m[1] + clip[2] * m[2] + clip[3] * m[3];
            }
            const unsigned int upper = Planef(v).upperBBCorner();
            const float scale = 1 / std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
            for (const Frustum* each : {&f, &assigned}) {
                EXPECT_EQ(upper, each->getPlane(i).upperBBCorner()) << i;
                EXPECT_EQ(upper ^ 7u, each->getPlane(i).lowerBBCorner()) << i;
                EXPECT_BITS(v * scale, each->getPlane(i).getAsVector4()) << i;
            }
            EXPECT_BITS(v * scale, copy.getPlane(i).getAsVector4()) << i;
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
        const float k = e == -1 ? 4 : 4 + e, scale = 1 / std::abs(k);
        EXPECT_BITS(k * scale, v[2]) << e;
        EXPECT_BITS(8 * scale, v[3]) << e;
    }
    // The other elements do not matter: near is row 2 + row 3 = (-2, -2, 1, -2).
    Matrix44f projection;
    for (int i = 0; i < 16; ++i) projection[i / 4][i % 4] = -1;
    projection(3, 2) = 2;
    Frustum f;
    f.setToWorldSpaceFrustum(Matrix44f(), projection);
    EXPECT_BITS(1 / 3.0f, f.getPlane(Frustum::eNear).getNormal().z());
}

TEST(FrustumTest, HoldsThePointsThatProjectIntoTheClipVolume) {
    const float kMargin = 1e-3f;  // points nearer to a plane than float rounding are not judged
    Corpus<float> corpus(73);
    int judged[2] = {};
    for (int n = 0; n < 300; ++n) {
        const Vector3f eye = corpus.vector(), target = corpus.vector();
        const Matrix44f view = Transformation::createCameraLookAtT(eye, target, Vector3f(0, 0, 1))
                                   .inverse_orthogonal();
        const bool perspective = n % 2 == 0;
        const Matrix44f projection =
            perspective ? Transformation::createFrustumT<float>(-1, 2, -1.5f, 1, 1, 30)
                        : Transformation::createOrthographicT<float>(-9, 8, -7, 9, 1, 30);
        Frustum f;
        f.setToWorldSpaceFrustum(view, projection);
        const Matrix44f product = Matrix44f::multiply(projection, view);
        for (int k = 0; k < 20; ++k) {
            const Vector3f p = corpus.vector() * 1.5f;
            const Vector4f clip = Matrix44f::multiplyWithVector(product, Vector4f(p, 1));
            const float x = clip[0], y = clip[1], z = clip[2], w = clip[3];
            const float inside[] = {w + x, w - x, w + y, w - y, w - z, perspective ? z : w + z};
            for (unsigned int i = 0; i < 6; ++i) {
                if (std::abs(inside[i]) < kMargin) continue;
                EXPECT_EQ(inside[i] > 0, f.getPlane(i).distance(p) > 0) << n << ", plane " << i;
                ++judged[inside[i] > 0];
            }
        }
    }
    EXPECT_GT(judged[0], 5000);
    EXPECT_GT(judged[1], 5000);
}

Vector3f devicePoint(const Matrix44f& m, const Vector3f& p, float depth) {
    float v[4];
    for (int r = 0; r < 4; ++r) {
        v[r] = m[0][r] * p[0] + m[1][r] * p[1] + m[2][r] * depth + m[3][r] * 1;
    }
    return Vector3f(v[0] / v[3], v[1] / v[3], v[2] / v[3]);
}

TEST(WorldSpaceSegmentTest, RunsFromDepthOneToDepthZeroWithTrueDivisions) {
    Corpus<float> corpus(74);
    for (int n = 0; n < 3000; ++n) {
        Matrix44f m = corpus.matrix();
        if (n % 2 == 0) m(static_cast<unsigned long>(n / 2 % 4), 2) = corpus.any();
        const Vector3f p = n % 3 == 0 ? corpus.anyVector() : corpus.vector();
        Vector3f first, second;
        getWorldSpaceSegment(m, p, first, second);
        EXPECT_BITS(devicePoint(m, p, 1), first);
        EXPECT_BITS(devicePoint(m, p, 0), second);
        Vector3f far = p, near = p, other;  // either output may be the point
        getWorldSpaceSegment(m, far, far, other);
        EXPECT_BITS(second, other);
        getWorldSpaceSegment(m, near, other, near);
        EXPECT_BITS(first, other);
        EXPECT_BITS(first, far);
        EXPECT_BITS(second, near);
    }
}

TEST(WorldSpaceSegmentTest, IgnoresTheDepthOfThePointAndDoesNotGuardTheDivision) {
    Vector3f first, second;
    getWorldSpaceSegment(Matrix44f(), Vector3f(0.25f, -0.5f, 7), first, second);
    EXPECT_BITS(Vector3f(0.25f, -0.5f, 1), first);
    EXPECT_BITS(Vector3f(0.25f, -0.5f, 0), second);

    Matrix44f m;
    m(0, 2) = kInf<float>;  // times 0 is formed, not left out
    getWorldSpaceSegment(m, Vector3f(0.25f, -0.5f, 7), first, second);
    EXPECT_BITS(Vector3f(kInf<float>, -0.5f, 1), first);
    EXPECT_BITS(Vector3f(kNaN<float>, -0.5f, 0), second);

    m = Matrix44f();
    m(3, 3) = 0;  // w = 0 at both ends
    getWorldSpaceSegment(m, Vector3f(2, -3, 7), first, second);
    EXPECT_BITS(Vector3f(kInf<float>, -kInf<float>, kInf<float>), first);
    EXPECT_BITS(Vector3f(kInf<float>, -kInf<float>, kNaN<float>), second);
}

}  // namespace
}  // namespace KyMath::test
