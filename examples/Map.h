// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_EXAMPLES_MAP_H
#define KYMATH_EXAMPLES_MAP_H

#include "HeightField.h"
#include "Picture.h"

#include <KyMath/KyMath.h>

#include <algorithm>
#include <cmath>
#include <vector>

/// Picture of a part of the ground from above, north up.
struct Map : Picture {
    KyMath::BoundingBoxd world;
    double scale;  ///< Pixels per metre.

    Map(const KyMath::BoundingBoxd& box, double pixelsPerMetre)
        : Picture(pixels(box.getBBSize().x() * pixelsPerMetre),
                  pixels(box.getBBSize().y() * pixelsPerMetre)),
          world(box),
          scale(pixelsPerMetre) {}
    static int pixels(double length) {
        return std::max(1, int(std::lround(length)));
    }
    Vector3d toPixel(const Vector3d& p) const {
        return {(p.x() - world.xMin()) * scale, (world.yMax() - p.y()) * scale, 0};
    }
    Vector3d toWorld(const Vector3d& p) const {  // at the mean height
        return {world.xMin() + p.x() / scale, world.yMax() - p.y() / scale, world.center().z()};
    }

    /// Outlines the region that is inside all planes at the mean height.
    void outline(const std::vector<KyMath::Planed>& planes, const Vector3d& colour) {
        const auto line = [&](const Vector3d& pixel) {
            double inside = 1e9;  // distance in pixels to the nearest edge of the region
            for (const KyMath::Planed& plane : planes) {
                const Vector3d n = plane.getNormal();
                const double slope = std::hypot(n.x(), n.y()) + 1e-9;
                inside = std::min(inside, plane.distance(toWorld(pixel)) / slope * scale);
            }
            return KyMath::Vector4d(colour, std::clamp(1.5 - std::abs(inside), 0.0, 1.0));
        };
        paint(toPixel(world.getMin()), toPixel(world.getMax()), 0, line);
    }
};

/// Draws the ground, brighter where it is higher and where it faces a light in the north-west.
inline void drawGround(Map& map, const HeightField& ground) {
    using namespace KyMath;
    const double d = 0.75 * std::max(ground.cellEast, ground.cellNorth);
    const Vector3d low(0.76, 0.79, 0.72), top(0.99, 0.96, 0.90), light(-0.5, 0.5, 0.7071);
    const auto shade = [&](const Vector3d& pixel) {
        const Vector3d p = map.toWorld(pixel);
        const auto h = [&](double x, double y) { return ground.heightAt(p.x() + x, p.y() + y); };
        Vector3d normal(h(-d, 0) - h(d, 0), h(0, -d) - h(0, d), d);  // slopes doubled for clarity
        normal.normalize();
        const double t = (h(0, 0) - map.world.zMin()) / (map.world.getBBSize().z() + 1);
        const double bright = 0.4 + 0.72 * std::max(0.0, normal * light);
        return Vector4d((low * (1 - t) + top * t) * bright, 1);
    };
    map.paint(map.toPixel(map.world.getMin()), map.toPixel(map.world.getMax()), 0, shade);
}

#endif
