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

    const auto* const iFrom = load<I3>(origins);
    const auto* const iAlong = load<I3>(directions);
    const auto metBox = [=](const I3& from, const I3& along, const Imath::Box<I3>& box) {
        Imath::Line3<T> line;  // the library's direction may have any length
        line.pos = from;
        line.dir = along;
        I3 entry, exit;
        return Imath::findEntryAndExitPoints(line, box, entry, exit) ? exit : I3(0);
    };
    KY_PEER_LOOP(T, "line and boxes", Imath, metBox(iFrom[0], iAlong[0], iBoxes[i]));
    KY_PEER_LOOP(T, "lines and a box", Imath, metBox(iFrom[i], iAlong[i], iBoxes[0]));
    const auto* const gFrom = load<G3>(origins);
    const auto* const gAlong = load<G3>(directions);
    const auto metTriangle = [=](std::size_t line, const G3* corners) {
        glm::vec<2, T> weights;
        T t = 0;
        return glm::intersectRayTriangle(gFrom[line], gAlong[line], corners[0], corners[1],
                                         corners[2], weights, t)
                   ? t
                   : T(0);
    };
    const auto* const gCorners = load<G3>(inputs);
    KY_PEER_LOOP(T, "line and triangles", GLM, metTriangle(0, gCorners + 3 * i));
    KY_PEER_LOOP(T, "lines and a triangle", GLM, metTriangle(i, gCorners));
}

}  // namespace

void addArrays() {
    addAll<float>();
    addAll<double>();
}
