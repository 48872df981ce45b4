// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Peers.h"
#include "Scene.h"

#include <memory>

using bench::addWhole;
using bench::kItems;
using bench::load;

namespace {

void addBoxes() {
    const auto& [x, y, z] = bench::kEye;
    const double s = bench::kSpread * bench::kNear;
    const Imath::M44d camera(0, -1, 0, 0, 0, 0, 1, 0, -1, 0, 0, 0, x, y, z, 1);
    const Imath::FrustumTest<double> view(Imath::Frustumd(bench::kNear, bench::kFar, -s, s, s, -s),
                                          camera);
    const auto* const boxes = load<Imath::Box3d>(bench::sceneBoxes());
    addWhole(
        "100,000 boxes/d/Imath",
        [=, out = std::make_shared<std::vector<unsigned char>>(kItems)] {
            for (std::size_t i = 0; i < kItems; ++i) (*out)[i] = view.isVisible(boxes[i]);
            return out->data();
        },
        kItems);
}

template <class T>
void addPoints() {
    const auto inputs = bench::scenePoints<T>();
    const auto matrix = bench::projection<T>();

    using E3 = bench::EigenVector3<T>;
    const auto* const em = load<bench::EigenMatrix<T>>(matrix);
    const auto* const ep = load<E3>(inputs);
    addWhole(
        bench::name<T>("100,000 points", "Eigen"),
        [=, out = std::make_shared<std::vector<E3>>(kItems)] {
            for (std::size_t i = 0; i < kItems; ++i) {
                const bench::EigenVector4<T> h = *em * ep[i].homogeneous();
                (*out)[i] = h.hnormalized();
            }
            return out->data();
        },
        kItems);

    using G3 = bench::GlmVector3<T>;
    const auto* const gm = load<bench::GlmMatrix<T>>(matrix);
    const auto* const gp = load<G3>(inputs);
    addWhole(
        bench::name<T>("100,000 points", "GLM"),
        [=, out = std::make_shared<std::vector<G3>>(kItems)] {
            for (std::size_t i = 0; i < kItems; ++i) {
                const bench::GlmVector4<T> h = *gm * bench::GlmVector4<T>(gp[i], T(1));
                (*out)[i] = G3(h) / h.w;
            }
            return out->data();
        },
        kItems);

    using I3 = Imath::Vec3<T>;
    const auto* const im = load<Imath::Matrix44<T>>(matrix);
    const auto* const ip = load<I3>(inputs);
    addWhole(
        bench::name<T>("100,000 points", "Imath"),
        [=, out = std::make_shared<std::vector<I3>>(kItems)] {
            for (std::size_t i = 0; i < kItems; ++i) im->multVecMatrix(ip[i], (*out)[i]);
            return out->data();
        },
        kItems);
}

}  // namespace

void addPeers() {
    addBoxes();
    addPoints<float>();
    addPoints<double>();
}
