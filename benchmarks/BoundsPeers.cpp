// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Peers.h"

using namespace bench;

namespace {

struct BulletBox {
    btVector3 min, max;
};

template <class T>
void addAll() {
    const auto [inputs, others, moves, origins, directions] = BoundsInputs<T>();
    const auto next = [](std::size_t i) { return (i + 1) % kCount; };

    using E3 = EigenVector3<T>;
    using EBox = Eigen::AlignedBox<T, 3>;
    using EPlane = Eigen::Hyperplane<T, 3>;
    const auto* const ea = load<EBox>(inputs);
    const auto* const eb = load<EBox>(others);
    const auto* const em = load<Eigen::Transform<T, 3, Eigen::Affine>>(moves);
    const auto* const eo = load<E3>(origins);
    const auto* const ed = load<E3>(directions);
    KY_PEER(T, "box transform", Eigen, ea[i].transformed(em[i]));
    KY_PEER(T, "box merge", Eigen, ea[i].merged(eb[i]));
    KY_PEER(T, "box overlap", Eigen, ea[i].intersects(eb[i]));
    KY_PEER(T, "plane through points", Eigen, EPlane::Through(eo[i], ed[i], eo[next(i)]));

    using I3 = Imath::Vec3<T>;
    using IBox = Imath::Box<I3>;
    const auto* const ia = load<IBox>(inputs);
    const auto* const ib = load<IBox>(others);
    const auto* const im = load<Imath::Matrix44<T>>(moves);
    const auto* const io = load<I3>(origins);
    const auto* const id = load<I3>(directions);
    KY_PEER(T, "box transform", Imath, Imath::transform(ia[i], im[i]));
    peer<T>("box merge", "Imath", [=](std::size_t i) {
        IBox r = ia[i];
        r.extendBy(ib[i]);
        return r;
    });
    KY_PEER(T, "box overlap", Imath, ia[i].intersects(ib[i]));
    // Tests a ray, half of the line. For lines there is only findEntryAndExitPoints().
    peer<T>("line against box", "Imath", [=](std::size_t i) {
        Imath::Line3<T> ray;
        ray.pos = io[i];
        ray.dir = id[i];
        return Imath::intersects(ia[i], ray);
    });
    KY_PEER(T, "plane through points", Imath, Imath::Plane3<T>(io[i], id[i], io[next(i)]));

    if constexpr (std::is_same_v<T, double>) {
        const auto box = [](const double* b) {
            return BulletBox{bulletVector(b), bulletVector(b + 3)};
        };
        const auto* const ba = load<BulletBox>(inputs, 6, box);
        const auto* const bb = load<BulletBox>(others, 6, box);
        const auto* const bm = load<btTransform>(moves, 16, bulletTransform);
        const auto* const bo = load<btVector3>(origins, 3, bulletVector);
        const auto* const bd = load<btVector3>(directions, 3, bulletVector);
        peer<T>("box transform", "Bullet", [=](std::size_t i) {
            BulletBox r;
            btTransformAabb(ba[i].min, ba[i].max, 0, bm[i], r.min, r.max);
            return r;
        });
        peer<T>("box merge", "Bullet", [=](std::size_t i) {
            BulletBox r = ba[i];
            r.min.setMin(bb[i].min);
            r.max.setMax(bb[i].max);
            return r;
        });
        KY_PEER(T, "box overlap", Bullet,
                TestAabbAgainstAabb2(ba[i].min, ba[i].max, bb[i].min, bb[i].max));
        peer<T>("line against box", "Bullet", [=](std::size_t i) {
            btScalar t = 1e30;
            btVector3 normal;
            return btRayAabb(bo[i], bo[i] + bd[i], ba[i].min, ba[i].max, t, normal);
        });
    }
}

void addFrustum() {
    const auto* const views = load<Imath::M44f>(frustumViews());
    struct Planes {
        Imath::Plane3f p[6];
    };
    const Imath::Frustumf frustum(1, 100, -1, 1.5f, 1, -0.5f);
    peer<float>("frustum planes", "Imath", [=](std::size_t i) {
        Planes r;
        frustum.planes(r.p, views[i]);
        return r;
    });
}

}  // namespace

void addBounds() {
    addAll<float>();
    addAll<double>();
    addFrustum();
}
