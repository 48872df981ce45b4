// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Peers.h"

using namespace bench;

namespace {

template <class T>
void addAll() {
    const auto [inputs, others, rigid, points] = MatricesInputs<T>();

    using E = EigenMatrix<T>;
    using E3 = EigenVector3<T>;
    using E4 = EigenVector4<T>;
    using Rigid = EigenRigid<T>;
    const auto* const ea = load<E>(inputs);
    const auto* const eb = load<E>(others);
    const auto* const et = load<Rigid>(rigid);
    const auto* const ep = load<E4>(points);
    const auto* const ep3 = load<E3>(points);
    KY_PEER_AND_LOOP(T, "matrix product", Eigen, E(ea[i] * eb[i]));
    KY_PEER(T, "matrix by vector", Eigen, E4(ea[i] * ep[i]));
    peer<T>("point with divide", "Eigen", [=](std::size_t i) {
        const E4 h = ea[i] * ep3[i].homogeneous();
        return E3(h.hnormalized());
    });
    KY_PEER(T, "direction", Eigen, E3(ea[i].template topLeftCorner<3, 3>() * ep3[i]));
    KY_PEER_AND_LOOP(T, "general inverse", Eigen, E(ea[i].inverse()));
    KY_PEER(T, "rigid inverse", Eigen, Rigid(et[i].inverse()));
    KY_PEER(T, "transpose", Eigen, E(ea[i].transpose()));
    KY_PEER(T, "determinant", Eigen, ea[i].determinant());

    using G = GlmMatrix<T>;
    using G3 = GlmVector3<T>;
    using G4 = GlmVector4<T>;
    const auto* const ga = load<G>(inputs);
    const auto* const gb = load<G>(others);
    const auto* const gp = load<G4>(points);
    const auto* const gp3 = load<G3>(points);
    KY_PEER_AND_LOOP(T, "matrix product", GLM, ga[i] * gb[i]);
    KY_PEER(T, "matrix by vector", GLM, ga[i] * gp[i]);
    peer<T>("point with divide", "GLM", [=](std::size_t i) {
        const G4 h = ga[i] * G4(gp3[i], T(1));
        return G3(h) / h.w;
    });
    KY_PEER(T, "direction", GLM, (glm::mat<3, 3, T>(ga[i]) * gp3[i]));
    KY_PEER_AND_LOOP(T, "general inverse", GLM, glm::inverse(ga[i]));
    KY_PEER(T, "transpose", GLM, glm::transpose(ga[i]));
    KY_PEER(T, "determinant", GLM, glm::determinant(ga[i]));

    using I = Imath::Matrix44<T>;
    using I3 = Imath::Vec3<T>;
    const auto* const ia = load<I>(inputs);
    const auto* const ib = load<I>(others);
    const auto* const ip = load<Imath::Vec4<T>>(points);
    const auto* const ip3 = load<I3>(points);
    KY_PEER_AND_LOOP(T, "matrix product", Imath, ia[i] * ib[i]);
    KY_PEER(T, "matrix by vector", Imath, ip[i] * ia[i]);
    peer<T>("point with divide", "Imath", [=](std::size_t i) {
        I3 p;
        ia[i].multVecMatrix(ip3[i], p);
        return p;
    });
    peer<T>("direction", "Imath", [=](std::size_t i) {
        I3 p;
        ia[i].multDirMatrix(ip3[i], p);
        return p;
    });
    KY_PEER_AND_LOOP(T, "general inverse", Imath, ia[i].inverse());
    KY_PEER(T, "transpose", Imath, ia[i].transposed());
    KY_PEER(T, "determinant", Imath, ia[i].determinant());

    if constexpr (std::is_same_v<T, double>) {
        const auto* const bt = load<btTransform>(rigid, 16, bulletTransform);
        KY_PEER(T, "rigid inverse", Bullet, bt[i].inverse());
    }
}

}  // namespace

void addMatrices() {
    addAll<float>();
    addAll<double>();
}
