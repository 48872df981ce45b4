// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// One of each type and of each state that a debugger shows in its own way.
#include <Ky/Ky.h>
#include <KyMath/KyMath.h>

#include <cstddef>
#include <limits>
#include <new>
#include <vector>

using namespace KyMath;
using Ky::KyEulerAngles;
using Ky::KyTransform;

namespace {

alignas(Polytope) unsigned char garbage[sizeof(Polytope)];

void stop(const Vector3d& reference, const Vector3d* pointer) {
    (void)(reference.x() + pointer->x());
}

}  // namespace

int main() {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    const Vector2f v2f(0.1f, -16777216.0f);
    const Vector3d v3(0.1, -0.0, 1e300), special(nan, inf, -inf);
    const Vector4f v4f(1e-45f, std::numeric_limits<float>::max(), 1.0f / 3, 1);
    const Vector6 v6(1, 2, 3, 4, 5, 6);
    const Vector3f array[2];
    const std::vector<Vector2d> list{Vector2d(1, 2), Vector2d(3, 4)};
    const Matrix44f m = Transformation::createTranslationT(10.0f, -0.5f, 1e-3f);
    const KyTransform rigid(Vector3d(1, 2, 3), KyEulerAngles(0, 0, 0, KyEulerAngles::eXYZs));
    const Quaternionf turn(Vector3f(0, 3, 4), 1.5707964f);
    const Quaterniond one, none(0, 0, 0, 0), tiny(0, 4e-320, 0, 0), odd(nan, 0, 0, 0);
    const KyEulerAngles euler(0.5, 0, -1, KyEulerAngles::eZYXr);
    const KyEulerAngles negated(0, 0, nan, KyEulerAngles::eEulerOrder(32 + 21));
    const KyEulerAngles unknown(0, 0, 0, KyEulerAngles::eEulerOrder(1024 + 32 + 25));
    const BoundingBoxd box(-1, -2, -3, 1, 2, 3), flat(0, 0, 0, 1, -1, 1), noBox(nan, 0, 0, 1, 1, 1);
    const BoundingBoxf empty;
    const BoundingSphere sphere(Vector3d(1, 2, 3), 0.5), emptySphere;
    const Planed plane(1, 0, -1, 2.5);
    Polytope room;
    room.setToBoundingBox(BoundingBoxd(0, 0, 0, 10, 10, 10));
    room.contains(BoundingBoxd(9, 1, 1, 11, 2, 2));
    room.pushCurrentMask();
    for (std::size_t i = 0; i < sizeof garbage; ++i) garbage[i] = static_cast<unsigned char>(i);
    Polytope noPlanes;
    for (int i = 0; i < 8; ++i) noPlanes.pushCurrentMask();
    const Polytope& unset = *std::launder(reinterpret_cast<Polytope*>(garbage));
    Frustum frustum;
    frustum.setToWorldSpaceFrustum(Matrix44f(), Matrix44f());
    const Line3 line(Vector3d(1, 2, 3), Vector3d(4, 5, 6));
    const Segment3 segment(line.p2, line.p1);
    stop(v3, &special);
    return unset.getCurrentMask() == 0;
}
