// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Peers.h"

using namespace bench;

namespace {

/// By one matrix.
template <class T>
void addAll() {
    const auto [inputs, others, rigid, points] = MatricesInputs<T>();
    using E3 = EigenVector3<T>;
    using E4 = EigenVector4<T>;
    const auto* const ea = load<EigenMatrix<T>>(inputs);
    const auto* const eb = load<EigenMatrix<T>>(others);
    const auto* const ep3 = load<E3>(points);
    using G3 = GlmVector3<T>;
    using G4 = GlmVector4<T>;
    const auto* const ga = load<GlmMatrix<T>>(inputs);
    const auto* const gb = load<GlmMatrix<T>>(others);
    const auto* const gp3 = load<G3>(points);
    using I3 = Imath::Vec3<T>;
    const auto* const ia = load<Imath::Matrix44<T>>(inputs);
    const auto* const ip3 = load<I3>(points);
    peerLoop<T>("points with divide", "Eigen", [=](std::size_t i) {
        const E4 h = *ea * ep3[i].homogeneous();
        return E3(h.hnormalized());
    });
    peerLoop<T>("points with divide", "GLM", [=](std::size_t i) {
        const G4 h = *ga * G4(gp3[i], T(1));
        return G3(h) / h.w;
    });
    peerLoop<T>("points with divide", "Imath", [=](std::size_t i) {
        I3 p;
        ia->multVecMatrix(ip3[i], p);
        return p;
    });
    KY_PEER_LOOP(T, "directions", Eigen, E3(ea->template topLeftCorner<3, 3>() * ep3[i]));
    KY_PEER_LOOP(T, "directions", GLM, (glm::mat<3, 3, T>(*ga) * gp3[i]));
    peerLoop<T>("directions", "Imath", [=](std::size_t i) {
        I3 p;
        ia->multDirMatrix(ip3[i], p);
        return p;
    });
    KY_PEER_LOOP(T, "one matrix by many", Eigen, EigenMatrix<T>(*ea * eb[i]));
    KY_PEER_LOOP(T, "one matrix by many", GLM, *ga * gb[i]);

    const auto [boxes, otherBoxes, moves, origins, directions] = BoundsInputs<T>();
    const auto* const eBoxes = load<Eigen::AlignedBox<T, 3>>(boxes);
    const auto* const eMoves = load<Eigen::Transform<T, 3, Eigen::Affine>>(moves);
    const auto* const iBoxes = load<Imath::Box<I3>>(boxes);
    const auto* const iMoves = load<Imath::Matrix44<T>>(moves);
    KY_PEER_LOOP(T, "box transform", Eigen, eBoxes[i].transformed(*eMoves));
    KY_PEER_LOOP(T, "box transform", Imath, Imath::transform(iBoxes[i], *iMoves));
}

}  // namespace

void addArrays() {
    addAll<float>();
    addAll<double>();
}
