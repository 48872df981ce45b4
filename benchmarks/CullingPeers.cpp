// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Peers.h"
#include "Scene.h"

#include <memory>

using namespace bench;

namespace {

void addBoxes() {
    const auto& [x, y, z] = kEye;
    const double s = kSpread * kNear;
    const Imath::M44d camera(0, -1, 0, 0, 0, 0, 1, 0, -1, 0, 0, 0, x, y, z, 1);
    const Imath::FrustumTest<double> view(Imath::Frustumd(kNear, kFar, -s, s, s, -s), camera);
    const auto* const boxes = load<Imath::Box3d>(sceneBoxes());
    addWhole(
        "100,000 boxes/d/Imath",
        [=, out = std::make_shared<std::vector<unsigned char>>(kItems)] {
            for (std::size_t i = 0; i < kItems; ++i) (*out)[i] = view.isVisible(boxes[i]);
            return out->data();
        },
        kItems);
}

/// Adds a loop that transforms all points.
template <class T, class Vector, class F>
void addLoop(const char* who, F transform) {
    const auto* const points = load<Vector>(scenePoints<T>());
    addWhole(
        name<T>("100,000 points", who),
        [=, out = std::make_shared<std::vector<Vector>>(kItems)] {
            for (std::size_t i = 0; i < kItems; ++i) (*out)[i] = transform(points[i]);
            return out->data();
        },
        kItems);
}

template <class T>
void addPoints() {
    const auto matrix = projection<T>();
    using E3 = EigenVector3<T>;
    const auto* const em = load<EigenMatrix<T>>(matrix);
    addLoop<T, E3>("Eigen", [=](const E3& p) {
        const EigenVector4<T> h = *em * p.homogeneous();
        return E3(h.hnormalized());
    });
    using G3 = GlmVector3<T>;
    const auto* const gm = load<GlmMatrix<T>>(matrix);
    addLoop<T, G3>("GLM", [=](const G3& p) {
        const GlmVector4<T> h = *gm * GlmVector4<T>(p, T(1));
        return G3(h) / h.w;
    });
    using I3 = Imath::Vec3<T>;
    const auto* const im = load<Imath::Matrix44<T>>(matrix);
    addLoop<T, I3>("Imath", [=](const I3& p) {
        I3 result;
        im->multVecMatrix(p, result);
        return result;
    });
}

}  // namespace

void addCulling() {
    addBoxes();
    addPoints<float>();
    addPoints<double>();
}
