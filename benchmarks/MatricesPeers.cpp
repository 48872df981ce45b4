// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Peers.h"

using bench::load;
using bench::peer;

namespace {

template <class T>
void addAll() {
    const auto inputs = bench::matrices<T>(1);
    const auto others = bench::matrices<T>(2);
    const auto rigid = bench::transforms<T>(1, 3);
    const auto points = bench::numbers<T>(4 * bench::kCount, -1, 1, 4);

    using E = bench::EigenMatrix<T>;
    using E3 = bench::EigenVector3<T>;
    using E4 = bench::EigenVector4<T>;
    using Rigid = bench::EigenRigid<T>;
    const auto* const ea = load<E>(inputs);
    const auto* const eb = load<E>(others);
    const auto* const et = load<Rigid>(rigid);
    const auto* const ep = load<E4>(points);
    const auto* const ep3 = load<E3>(points);
    peer<T>("matrix product", "Eigen", [=](std::size_t i) { return E(ea[i] * eb[i]); });
    peer<T>("matrix by vector", "Eigen", [=](std::size_t i) { return E4(ea[i] * ep[i]); });
    peer<T>("point with divide", "Eigen", [=](std::size_t i) {
        const E4 h = ea[i] * ep3[i].homogeneous();
        return E3(h.hnormalized());
    });
    peer<T>("general inverse", "Eigen", [=](std::size_t i) { return E(ea[i].inverse()); });
    peer<T>("rigid inverse", "Eigen", [=](std::size_t i) { return Rigid(et[i].inverse()); });
    peer<T>("determinant", "Eigen", [=](std::size_t i) { return ea[i].determinant(); });

    using G = bench::GlmMatrix<T>;
    using G3 = bench::GlmVector3<T>;
    using G4 = bench::GlmVector4<T>;
    const auto* const ga = load<G>(inputs);
    const auto* const gb = load<G>(others);
    const auto* const gp = load<G4>(points);
    const auto* const gp3 = load<G3>(points);
    peer<T>("matrix product", "GLM", [=](std::size_t i) { return ga[i] * gb[i]; });
    peer<T>("matrix by vector", "GLM", [=](std::size_t i) { return ga[i] * gp[i]; });
    peer<T>("point with divide", "GLM", [=](std::size_t i) {
        const G4 h = ga[i] * G4(gp3[i], T(1));
        return G3(h) / h.w;
    });
    peer<T>("general inverse", "GLM", [=](std::size_t i) { return glm::inverse(ga[i]); });
    peer<T>("determinant", "GLM", [=](std::size_t i) { return glm::determinant(ga[i]); });

    using I = Imath::Matrix44<T>;
    using I3 = Imath::Vec3<T>;
    const auto* const ia = load<I>(inputs);
    const auto* const ib = load<I>(others);
    const auto* const ip = load<Imath::Vec4<T>>(points);
    const auto* const ip3 = load<I3>(points);
    peer<T>("matrix product", "Imath", [=](std::size_t i) { return ia[i] * ib[i]; });
    peer<T>("matrix by vector", "Imath", [=](std::size_t i) { return ip[i] * ia[i]; });
    peer<T>("point with divide", "Imath", [=](std::size_t i) {
        I3 p;
        ia[i].multVecMatrix(ip3[i], p);
        return p;
    });
    peer<T>("general inverse", "Imath", [=](std::size_t i) { return ia[i].inverse(); });
    peer<T>("determinant", "Imath", [=](std::size_t i) { return ia[i].determinant(); });

    if constexpr (std::is_same_v<T, double>) {
        const auto* const bt = load<btTransform>(rigid, 16, bench::bulletTransform);
        peer<T>("rigid inverse", "Bullet", [=](std::size_t i) { return bt[i].inverse(); });
    }
}

}  // namespace

void addPeers() {
    addAll<float>();
    addAll<double>();
}
