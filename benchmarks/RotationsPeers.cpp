// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Peers.h"

using namespace bench;

namespace {

template <class T>
Eigen::Quaternion<T> eigenTurn(const EigenVector3<T>& e) {
    using Turn = Eigen::AngleAxis<T>;
    using V = EigenVector3<T>;
    return Turn(e[0], V::UnitX()) * Turn(e[1], V::UnitY()) * Turn(e[2], V::UnitZ());
}

template <class T>
void addAll() {
    const auto [angles, scales, points, times, inputs, others, turns, otherTurns] =
        RotationsInputs<T>();
    const auto* const t = load<T>(times);

    using E3 = EigenVector3<T>;
    using E33 = Eigen::Matrix<T, 3, 3>;
    using EQ = Eigen::Quaternion<T>;
    const auto* const ee = load<E3>(angles);
    const auto* const ep = load<E3>(points);
    const auto* const ea = load<EQ>(inputs, 4, eigenQuaternion<T>);
    const auto* const eb = load<EQ>(others, 4, eigenQuaternion<T>);
    const auto* const em = load<EigenMatrix<T>>(turns);
    KY_PEER_AND_LOOP(T, "Euler to matrix", Eigen, E33(eigenTurn<T>(ee[i]).toRotationMatrix()));
    KY_PEER_AND_LOOP(T, "matrix to Euler", Eigen,
                     E3(em[i].template topLeftCorner<3, 3>().eulerAngles(0, 1, 2)));
    KY_PEER_AND_LOOP(T, "quaternion product", Eigen, ea[i] * eb[i]);
    KY_PEER_AND_LOOP(T, "quaternion rotate", Eigen, E3(ea[i] * ep[i]));
    KY_PEER_AND_LOOP(T, "slerp", Eigen, ea[i].slerp(t[i], eb[i]));
    const auto eigenDirection = [](const EigenMatrix<T>& m) {
        return m.template block<3, 1>(0, 0);
    };
    const auto* const eo = load<EigenMatrix<T>>(otherTurns);
    KY_PEER(T, "quaternion from directions", Eigen,
            EQ::FromTwoVectors(eigenDirection(em[i]), eigenDirection(eo[i])));
    KY_PEER_AND_LOOP(T, "quaternion to matrix", Eigen, E33(ea[i].toRotationMatrix()));
    KY_PEER_AND_LOOP(T, "matrix to quaternion", Eigen, EQ(em[i].template topLeftCorner<3, 3>()));

    using G3 = GlmVector3<T>;
    using G44 = GlmMatrix<T>;
    using GQ = glm::qua<T>;
    const auto* const ge = load<G3>(angles);
    const auto* const gs = load<G3>(scales);
    const auto* const gp = load<G3>(points);
    const auto* const ga = load<GQ>(inputs, 4, glmQuaternion<T>);
    const auto* const gb = load<GQ>(others, 4, glmQuaternion<T>);
    const auto* const gm = load<G44>(turns);
    const auto glmMatrix = [](const G3& e) { return glm::eulerAngleXYZ(e.x, e.y, e.z); };
    KY_PEER_AND_LOOP(T, "Euler to matrix", GLM, glmMatrix(ge[i]));
    peerAndLoop<T>("matrix to Euler", "GLM", [=](std::size_t i) {
        G3 r;
        glm::extractEulerAngleXYZ(gm[i], r.x, r.y, r.z);
        return r;
    });
    peer<T>("compose and decompose", "GLM", [=](std::size_t i) {
        struct {
            G3 scale, rotation, translation, skew;
            GlmVector4<T> perspective;
        } r;
        GQ q;
        const G44 m = glm::scale(glm::translate(G44(1), gp[i]) * glmMatrix(ge[i]), gs[i]);
        glm::decompose(m, r.scale, q, r.translation, r.skew, r.perspective);
        r.rotation = glm::eulerAngles(q);
        return r;
    });
    KY_PEER_AND_LOOP(T, "quaternion product", GLM, ga[i] * gb[i]);
    KY_PEER_AND_LOOP(T, "quaternion rotate", GLM, ga[i] * gp[i]);
    KY_PEER_AND_LOOP(T, "slerp", GLM, glm::slerp(ga[i], gb[i], t[i]));
    const auto* const go = load<G44>(otherTurns);
    KY_PEER(T, "quaternion from directions", GLM, glm::rotation(G3(gm[i][0]), G3(go[i][0])));
    KY_PEER_AND_LOOP(T, "quaternion to matrix", GLM, glm::mat4_cast(ga[i]));
    KY_PEER_AND_LOOP(T, "matrix to quaternion", GLM, glm::quat_cast(gm[i]));

    using I3 = Imath::Vec3<T>;
    using I44 = Imath::Matrix44<T>;
    using IQ = Imath::Quat<T>;
    const auto* const ie = load<I3>(angles);
    const auto* const is = load<I3>(scales);
    const auto* const ip = load<I3>(points);
    const auto* const ia = load<IQ>(inputs);
    const auto* const ib = load<IQ>(others);
    const auto* const im = load<I44>(turns);
    peerAndLoop<T>("Euler to matrix", "Imath", [=](std::size_t i) {
        I44 m;
        m.setEulerAngles(ie[i]);
        return m;
    });
    peerAndLoop<T>("matrix to Euler", "Imath", [=](std::size_t i) {
        I3 r;
        Imath::extractEulerXYZ(im[i], r);
        return r;
    });
    peer<T>("compose and decompose", "Imath", [=](std::size_t i) {
        struct {
            I3 scale, shear, rotation, translation;
        } r;
        I44 m;
        m.translate(ip[i]);
        m.rotate(ie[i]);
        m.scale(is[i]);
        Imath::extractSHRT(m, r.scale, r.shear, r.rotation, r.translation, false);
        return r;
    });
    KY_PEER_AND_LOOP(T, "quaternion product", Imath, ia[i] * ib[i]);
    KY_PEER_AND_LOOP(T, "quaternion rotate", Imath, ip[i] * ia[i]);
    KY_PEER_AND_LOOP(T, "slerp", Imath, Imath::slerpShortestArc(ia[i], ib[i], t[i]));
    const auto* const io = load<I44>(otherTurns);
    peer<T>("quaternion from directions", "Imath", [=](std::size_t i) {
        IQ q;
        const T* const a = im[i][0];
        const T* const b = io[i][0];
        q.setRotation(I3(a[0], a[1], a[2]), I3(b[0], b[1], b[2]));
        return q;
    });
    KY_PEER_AND_LOOP(T, "quaternion to matrix", Imath, ia[i].toMatrix44());
    KY_PEER_AND_LOOP(T, "matrix to quaternion", Imath, Imath::extractQuat(im[i]));

    if constexpr (std::is_same_v<T, double>) {
        const auto* const be = load<btVector3>(angles, 3, bulletVector);
        const auto* const bp = load<btVector3>(points, 3, bulletVector);
        const auto* const ba = load<btQuaternion>(inputs, 4, bulletQuaternion);
        const auto* const bb = load<btQuaternion>(others, 4, bulletQuaternion);
        const auto* const bm = load<btTransform>(turns, 16, bulletTransform);
        peerAndLoop<T>("Euler to matrix", "Bullet", [=](std::size_t i) {
            btMatrix3x3 m;
            m.setEulerZYX(be[i][0], be[i][1], be[i][2]);
            return m;
        });
        peerAndLoop<T>("matrix to Euler", "Bullet", [=](std::size_t i) {
            Values<double, 3> r;
            bm[i].getBasis().getEulerZYX(r.v[0], r.v[1], r.v[2]);
            return r;
        });
        KY_PEER_AND_LOOP(T, "quaternion product", Bullet, ba[i] * bb[i]);
        KY_PEER_AND_LOOP(T, "quaternion rotate", Bullet, quatRotate(ba[i], bp[i]));
        KY_PEER_AND_LOOP(T, "slerp", Bullet, ba[i].slerp(bb[i], t[i]));
        KY_PEER_AND_LOOP(T, "quaternion to matrix", Bullet, btMatrix3x3(ba[i]));
        peerAndLoop<T>("matrix to quaternion", "Bullet", [=](std::size_t i) {
            btQuaternion q;
            bm[i].getBasis().getRotation(q);
            return q;
        });
    }
}

void addRigid() {
    const auto [inputs, others, angles] = RigidInputs();

    using Rigid = EigenRigid<double>;
    const auto* const ea = load<Rigid>(inputs);
    const auto* const eb = load<Rigid>(others);
    const auto* const ee = load<Eigen::Vector3d>(angles);
    KY_PEER_AND_LOOP(double, "rigid compound", Eigen, Rigid(eb[i] * ea[i]));
    peer<double>("rigid compound chain", "Eigen",
                 [=, t = Rigid()](std::size_t i) mutable -> const Rigid& {
                     if (i == 0) t = ea[0];
                     return t = eb[i] * t;
                 });
    KY_PEER(double, "Euler order change", Eigen,
            Eigen::Vector3d(eigenTurn<double>(ee[i]).toRotationMatrix().eulerAngles(2, 1, 0)));

    const auto* const ge = load<glm::dvec3>(angles);
    peer<double>("Euler order change", "GLM", [=](std::size_t i) {
        glm::dvec3 r;
        glm::extractEulerAngleZYX(glm::eulerAngleXYZ(ge[i].x, ge[i].y, ge[i].z), r.x, r.y, r.z);
        return r;
    });

    using Euler = Imath::Eulerd;
    const auto* const ie = load<Imath::V3d>(angles);
    KY_PEER(double, "Euler order change", Imath,
            Imath::V3d(Euler(Euler(ie[i], Euler::XYZ), Euler::ZYX)));

    const auto* const ba = load<btTransform>(inputs, 16, bulletTransform);
    const auto* const bb = load<btTransform>(others, 16, bulletTransform);
    KY_PEER_AND_LOOP(double, "rigid compound", Bullet, bb[i] * ba[i]);
    peer<double>("rigid compound chain", "Bullet",
                 [=, t = btTransform()](std::size_t i) mutable -> const btTransform& {
                     if (i == 0) t = ba[0];
                     return t = bb[i] * t;
                 });
}

}  // namespace

void addRotations() {
    addAll<float>();
    addAll<double>();
    addRigid();
}
