// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Frustum.h>

#include <KyMath/Transformation.h>

#include "lanes/Lanes.h"

#include <limits>

namespace KyMath {

Frustum::Frustum() = default;
Frustum::Frustum(const Frustum& f) = default;
Frustum& Frustum::operator=(const Frustum& f) = default;

namespace {

using Lanes = internal::Lanes<float>;

/// 1 / |(a, b, c)| of four planes.
Lanes reciprocalLengths(Lanes p0, Lanes p1, Lanes p2, Lanes p3) {
    internal::Columns<float> v = {{p0, p1, p2, p3}};
    internal::transpose(v);
    const Lanes square = internal::times3(v, v.c);
    return 1 / reinterpret_cast<Lanes>(_mm_sqrt_ps(reinterpret_cast<__m128>(square)));
}

}  // namespace

void Frustum::setToWorldSpaceFrustum(const Matrix44T<float>& view,
                                     const Matrix44T<float>& projection) {
    // A plane maps from clip space to world space by the transpose of what maps points the other
    // way: its columns are these rows.
    const Matrix44T<float> product = Matrix44T<float>::multiply(projection, view);
    internal::Columns<float> rows = internal::loadColumns<float>(product);
    internal::transpose(rows);
    const auto planeOf = [&rows](float a, float b, float c, float d) {
        const float normal[] = {a, b, c};
        return internal::times4(rows, normal, d);
    };
    Lanes v[6];
    v[eLeft] = planeOf(1, 0, 0, 1);
    v[eRight] = planeOf(-1, 0, 0, 1);
    v[eBottom] = planeOf(0, 1, 0, 1);
    v[eTop] = planeOf(0, -1, 0, 1);
    v[eFar] = planeOf(0, 0, -1, 1);
    // Deliberate: this one element, compared exactly, tells a perspective projection, whose depth
    // starts at 0. Pinned by FrustumTest.
    v[eNear] = planeOf(0, 0, 1, projection(3, 2) == -1 ? 0.0f : 1.0f);

    // To unit length, and the corners of the planes before, both as PlaneT does.
    constexpr float kEpsilon = std::numeric_limits<float>::epsilon();
    const Lanes first = reciprocalLengths(v[0], v[1], v[2], v[3]);
    const Lanes last = reciprocalLengths(v[4], v[5], v[4], v[5]);
    for (int i = 0; i < 6; ++i) {
        PlaneT<float>& plane = planes_[i];
        internal::store<float>(plane.v_, v[i] * (i < 4 ? first[i] : last[i - 4]));
        plane.lower_ = static_cast<unsigned int>(internal::bitsOf(kEpsilon > v[i])) & 7u;
        plane.upper_ = ~plane.lower_ & 7u;
    }
}

const PlaneT<float>& Frustum::getPlane(unsigned int i) const {
    return planes_[i];
}

static_assert(sizeof(Frustum) == 6 * sizeof(PlaneT<float>), "a frustum is its six planes");

}  // namespace KyMath

void getWorldSpaceSegment(const KyMath::Matrix44T<float>& m, const KyMath::Vector3T<float>& p,
                          KyMath::Vector3T<float>& far, KyMath::Vector3T<float>& near) {
    using KyMath::Transformation::transformPositionT;
    const float x = p.x();  // copies: an output may be p
    const float y = p.y();
    far = transformPositionT(m, KyMath::Vector3f(x, y, 1));
    near = transformPositionT(m, KyMath::Vector3f(x, y, 0));
}
