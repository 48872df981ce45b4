// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Peers.h"

using bench::load;
using bench::peer;

namespace {

template <class T>
void addAll() {
    const auto inputs = bench::numbers<T>(3 * bench::kCount, -1, 1, 1);
    const auto others = bench::numbers<T>(3 * bench::kCount, -1, 1, 2);

    using E = bench::EigenVector3<T>;
    const E* const ea = load<E>(inputs);
    const E* const eb = load<E>(others);
    peer<T>("component access", "Eigen", [=](std::size_t i) { return T(ea[i].y()); });
    peer<T>("dot", "Eigen", [=](std::size_t i) { return ea[i].dot(eb[i]); });
    peer<T>("cross", "Eigen", [=](std::size_t i) { return E(ea[i].cross(eb[i])); });
    peer<T>("normalise", "Eigen", [=](std::size_t i) { return E(ea[i].normalized()); });

    using G = bench::GlmVector3<T>;
    const G* const ga = load<G>(inputs);
    const G* const gb = load<G>(others);
    peer<T>("component access", "GLM", [=](std::size_t i) { return T(ga[i].y); });
    peer<T>("dot", "GLM", [=](std::size_t i) { return glm::dot(ga[i], gb[i]); });
    peer<T>("cross", "GLM", [=](std::size_t i) { return glm::cross(ga[i], gb[i]); });
    peer<T>("normalise", "GLM", [=](std::size_t i) { return glm::normalize(ga[i]); });

    using I = Imath::Vec3<T>;
    const I* const ia = load<I>(inputs);
    const I* const ib = load<I>(others);
    peer<T>("component access", "Imath", [=](std::size_t i) { return T(ia[i].y); });
    peer<T>("dot", "Imath", [=](std::size_t i) { return ia[i].dot(ib[i]); });
    peer<T>("cross", "Imath", [=](std::size_t i) { return ia[i].cross(ib[i]); });
    peer<T>("normalise", "Imath", [=](std::size_t i) { return ia[i].normalized(); });

    if constexpr (std::is_same_v<T, double>) {
        const auto* const ba = load<btVector3>(inputs, 3, bench::bulletVector);
        const auto* const bb = load<btVector3>(others, 3, bench::bulletVector);
        peer<T>("component access", "Bullet", [=](std::size_t i) { return T(ba[i].y()); });
        peer<T>("dot", "Bullet", [=](std::size_t i) { return ba[i].dot(bb[i]); });
        peer<T>("cross", "Bullet", [=](std::size_t i) { return ba[i].cross(bb[i]); });
        peer<T>("normalise", "Bullet", [=](std::size_t i) { return ba[i].normalized(); });
    }
}

}  // namespace

void addPeers() {
    addAll<float>();
    addAll<double>();
}
