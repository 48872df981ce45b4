// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0

// A first-person camera, steered by keys and the mouse: which things are in view, and which one the
// mouse is on. z is up; lengths are in metres. It prints:
//
//     at 0.0 -8.0 1.7, looking to 0.10 0.99 -0.05
//       in view: table, lamp, wall
//       the mouse at 0, 0 is on the wall, 11.1 m away
//       the mouse at 200, 60 is on the wall, 11.9 m away
//       the mouse at -80, -150 is on the ground, 6.3 m away
//       the mouse at 300, -250 is on the ground, 4.6 m away
//     at -2.5 -2.7 1.7, looking to 0.78 0.62 -0.05
//       in view: table, lamp, wall
//       the mouse at 0, 0 is on the lamp, 5.7 m away
//       the mouse at 200, 60 is on the sky
//       the mouse at -80, -150 is on the table, 3.4 m away
//       the mouse at 300, -250 is on the ground, 4.6 m away

#include <KyMath/KyMath.h>
#include <KyMath/Unpack.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

using namespace KyMath;
using Ky::KyEulerAngles;
using Ky::KyTransform;

namespace {

const double kPi = std::acos(-1.0);
const double kWidth = 1280, kHeight = 720, kFieldOfView = 1;  // pixels, radians from top to bottom

struct Camera {
    Vector3d eye;
    double yaw = 0, pitch = 0;  // from +y to the left, and up

    // From the camera, which looks along its -z with y up, to the world.
    KyTransform pose() const {
        return {eye, KyEulerAngles(yaw, pitch + kPi / 2, 0, KyEulerAngles::eZXYs)};
    }

    void turn(double left, double up) {
        yaw += left;
        pitch = std::clamp(pitch + up, -kPi / 2, kPi / 2);
    }

    // On the ground, wherever the eye looks.
    void walk(double ahead, double right) {
        const KyTransform heading(Vector3d(), KyEulerAngles(0, 0, yaw));
        eye += heading.transformDirection(Vector3d(right, ahead, 0));
    }

    // Through a pixel, counted from the middle to the right and up. The direction reaches one metre
    // ahead, so that factors of it are metres ahead.
    Vector3d throughPixel(double x, double y) const {
        const double size = std::tan(kFieldOfView / 2) / (kHeight / 2);
        return pose().transformDirection(Vector3d(x * size, y * size, -1));
    }

    // The planes around what is in view, facing inwards.
    Polytope view() const {
        Frustum frustum;
        frustum.setToWorldSpaceFrustum(
            toFloat(inverseOf(pose())),
            Transformation::createPerspectiveT(float(kFieldOfView), float(kWidth / kHeight), 0.1f,
                                               100.0f));
        return toPolytope(frustum);
    }
};

struct Thing {
    const char* name;
    BoundingBoxd box;
};
const Thing kThings[] = {{"table", BoundingBoxd(-2, -1, 0, 0, 0, 0.8)},
                         {"lamp", BoundingBoxd(2, 0.5, 0, 2.4, 0.9, 3)},
                         {"wall", BoundingBoxd(-10, 3, 0, 10, 3.3, 4)},
                         {"door", BoundingBoxd(-9, -12, 0, -8, -11.9, 2)}};
const Planed kGround(0, 0, 1, 0);
const char* const kSky = "sky";

// The nearest thing that the line enters ahead, and how far away that is.
std::pair<std::string, double> pick(const Vector3d& eye, const Vector3d& direction) {
    std::pair<std::string, double> nearest(kSky, INFINITY);
    double enter = 0, leave = 0;
    for (const auto& [name, box] : kThings) {
        if (Rays::intersect(eye, direction, box, &enter, &leave) && leave >= 0 &&
            enter < nearest.second) {
            nearest = {name, enter};
        }
    }
    if (Rays::intersect(eye, direction, kGround, &enter) && enter >= 0 && enter < nearest.second) {
        nearest = {"ground", enter};
    }
    nearest.second *= direction.norm();
    return nearest;
}

void show(const Camera& camera) {
    const auto [x, y, z] = camera.eye;
    const auto [ahead, left, up] = camera.throughPixel(0, 0);
    std::printf("at %.1f %.1f %.1f, looking to %.2f %.2f %.2f\n  in view:", x, y, z, ahead, left,
                up);
    Polytope view = camera.view();
    const char* before = " ";
    for (const auto& [name, box] : kThings) {
        if (!view.contains(box)) continue;
        std::printf("%s%s", before, name);
        before = ", ";
    }
    std::printf("\n");
    for (const auto& [right, above] : {Vector2d(0, 0), {200, 60}, {-80, -150}, {300, -250}}) {
        const auto [name, distance] = pick(camera.eye, camera.throughPixel(right, above));
        std::printf("  the mouse at %.0f, %.0f is on the %s", right, above, name.c_str());
        if (name != kSky) std::printf(", %.1f m away", distance);
        std::printf("\n");
    }
}

}  // namespace

int main() {
    Camera camera;
    camera.eye = Vector3d(0, -8, 1.7);
    camera.turn(-0.1, -0.05);
    show(camera);
    camera.walk(5, -3);
    camera.turn(-0.8, 0);
    show(camera);
}
