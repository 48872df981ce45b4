// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0

// Blends two poses of an arm, and exports each blend as glTF has it: for every joint a translation
// and a rotation x, y, z, w, relative to its parent. Lengths are in metres, y is up. It prints:
//
//     weight 0.0: the hand is at 0.000 0.858 0.096
//       {"translation": [0.00, 1.40, 0.00], "rotation": [0.6428, 0.0000, 0.0000, 0.7660]}
//       {"translation": [0.00, 0.00, 0.30], "rotation": [0.0000, 0.0000, 0.0000, 1.0000]}
//       {"translation": [0.00, 0.00, 0.25], "rotation": [0.0000, 0.0000, 0.0000, 1.0000]}
//     weight 0.5: the hand is at 0.311 1.212 0.368
//       {"translation": [0.00, 1.40, 0.00], "rotation": [0.3563, 0.3179, 0.0000, 0.8786]}
//       {"translation": [0.00, 0.00, 0.30], "rotation": [-0.3420, 0.0000, 0.0000, 0.9397]}
//       {"translation": [0.00, 0.00, 0.25], "rotation": [0.0000, 0.0000, 0.1305, 0.9914]}
//     weight 1.0: the hand is at 0.323 1.646 0.117
//       {"translation": [0.00, 1.40, 0.00], "rotation": [0.0000, 0.5736, 0.0000, 0.8192]}
//       {"translation": [0.00, 0.00, 0.30], "rotation": [-0.6428, 0.0000, 0.0000, 0.7660]}
//       {"translation": [0.00, 0.00, 0.25], "rotation": [0.0000, 0.0000, 0.2588, 0.9659]}

#include <KyMath/KyMath.h>
#include <KyMath/Unpack.h>

#include <cstdio>
#include <vector>

using namespace KyMath;
using Ky::KyTransform;

namespace {

// A joint relative to its parent, the joint before it.
struct Joint {
    Vector3d position;
    Quaterniond rotation;
};
using Pose = std::vector<Joint>;

const double kDegree = 0.017453292519943295;

Quaterniond about(const Vector3d& axis, double degrees) {
    return Quaterniond(axis, degrees * kDegree);
}

// Between the same joints of two poses: rotations by the shorter arc, so that bones keep their
// lengths, which blended positions in the world would not.
Pose blend(const Pose& from, const Pose& to, double weight) {
    Pose result;
    for (std::size_t i = 0; i < from.size(); ++i) {
        Quaterniond rotation = from[i].rotation.slerp(to[i].rotation, weight);
        rotation.normalize();  // slerp leaves it within rounding of unit length
        result.push_back({from[i].position * (1 - weight) + to[i].position * weight, rotation});
    }
    return result;
}

// Where the last joint is in the world.
KyTransform handOf(const Pose& pose) {
    KyTransform world;
    for (const Joint& joint : pose) {
        world.preCompound(toTransform(joint.position, joint.rotation));  // the child first
    }
    return world;
}

// Four digits are easy to read. "%.9g" keeps all of a float.
void write(const Pose& pose) {
    for (const Joint& joint : pose) {
        const auto [tx, ty, tz] = joint.position;
        const auto [w, x, y, z] = joint.rotation;  // w first here, last there
        std::printf("  {\"translation\": [%.2f, %.2f, %.2f], ", tx, ty, tz);
        std::printf("\"rotation\": [%.4f, %.4f, %.4f, %.4f]}\n", x, y, z, w);
    }
}

}  // namespace

int main() {
    const Vector3d x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
    const Pose down = {{Vector3d(0, 1.4, 0), about(x, 80)},
                       {Vector3d(0, 0, 0.3), about(x, 0)},
                       {Vector3d(0, 0, 0.25), Quaterniond()}};
    const Pose waving = {{Vector3d(0, 1.4, 0), about(y, 70)},
                         {Vector3d(0, 0, 0.3), about(x, -80)},
                         {Vector3d(0, 0, 0.25), about(z, 30)}};
    for (const double weight : {0.0, 0.5, 1.0}) {
        const Pose pose = blend(down, waving, weight);
        const auto [right, up, ahead] = handOf(pose).getTranslation();
        std::printf("weight %.1f: the hand is at %.3f %.3f %.3f\n", weight, right, up, ahead);
        write(pose);
    }
}
