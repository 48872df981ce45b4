// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Peers.h"

using namespace bench;

namespace {

template <class T>
void addAll() {
    const auto [inputs, others] = VectorsInputs<T>();

    using E = EigenVector3<T>;
    const E* const ea = load<E>(inputs);
    const E* const eb = load<E>(others);
    KY_PEER(T, "component access", Eigen, T(ea[i].y()));
    KY_PEER_AND_LOOP(T, "dot", Eigen, ea[i].dot(eb[i]));
    KY_PEER_AND_LOOP(T, "cross", Eigen, E(ea[i].cross(eb[i])));
    KY_PEER_AND_LOOP(T, "normalise", Eigen, E(ea[i].normalized()));

    using G = GlmVector3<T>;
    const G* const ga = load<G>(inputs);
    const G* const gb = load<G>(others);
    KY_PEER(T, "component access", GLM, T(ga[i].y));
    KY_PEER_AND_LOOP(T, "dot", GLM, glm::dot(ga[i], gb[i]));
    KY_PEER_AND_LOOP(T, "cross", GLM, glm::cross(ga[i], gb[i]));
    KY_PEER_AND_LOOP(T, "normalise", GLM, glm::normalize(ga[i]));

    using I = Imath::Vec3<T>;
    const I* const ia = load<I>(inputs);
    const I* const ib = load<I>(others);
    KY_PEER(T, "component access", Imath, T(ia[i].y));
    KY_PEER_AND_LOOP(T, "dot", Imath, ia[i].dot(ib[i]));
    KY_PEER_AND_LOOP(T, "cross", Imath, ia[i].cross(ib[i]));
    KY_PEER_AND_LOOP(T, "normalise", Imath, ia[i].normalized());

    if constexpr (std::is_same_v<T, double>) {
        const auto* const ba = load<btVector3>(inputs, 3, bulletVector);
        const auto* const bb = load<btVector3>(others, 3, bulletVector);
        KY_PEER(T, "component access", Bullet, T(ba[i].y()));
        KY_PEER_AND_LOOP(T, "dot", Bullet, ba[i].dot(bb[i]));
        KY_PEER_AND_LOOP(T, "cross", Bullet, ba[i].cross(bb[i]));
        KY_PEER_AND_LOOP(T, "normalise", Bullet, ba[i].normalized());
    }
}

}  // namespace

void addVectors() {
    addAll<float>();
    addAll<double>();
}
