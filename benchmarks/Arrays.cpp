// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Bench.h"

#include <Ky/Ky.h>
#include <KyMath/Batch.h>
#include <KyMath/KyMath.h>

using namespace bench;
namespace Batch = KyMath::Batch;

namespace {

/// f(out) calls the library for kCount elements.
template <class T, class Out, class F>
void ours(const char* operation, F f) {
    if constexpr (!kLimits) array<T, Out>(operation, "ours", f);
}

template <class T>
void addVectorArrays() {
    using V = KyMath::Vector3T<T>;
    using B = KyMath::BoundingBoxT<T>;
    const auto [inputs, others] = VectorsInputs<T>();
    const auto* const a = load<V>(inputs);
    const auto* const b = load<V>(others);
    ours<T, T>("dot", [=](T* r) { Batch::dot(a, b, r, kCount); });
    ours<T, V>("cross", [=](V* r) { Batch::cross(a, b, r, kCount); });
    ours<T, T>("norm", [=](T* r) { Batch::norm(a, r, kCount); });
    ours<T, V>("normalise", [=](V* r) { Batch::normalize(a, r, kCount); });
    ours<T, V>("plane normals", [=](V* r) { Batch::planeNormals(a, b, a + 1, r, kCount - 1); });
    ours<T, B>("box of points", [=](B* r) {
        r->init();
        Batch::expandBy(*r, a, kCount);
    });
}

template <class T>
void addRotationArrays() {
    using V = KyMath::Vector3T<T>;
    using Q = KyMath::QuaternionT<T>;
    using M = KyMath::Matrix44T<T>;
    const auto [angles, scales, points, times, inputs, others, turns, otherTurns] =
        RotationsInputs<T>();
    const auto* const e = load<V>(angles);
    const auto* const p = load<V>(points);
    const auto* const t = load<T>(times);
    const auto* const a = load<Q>(inputs);
    const auto* const b = load<Q>(others);
    const auto* const m = load<M>(turns);
    ours<T, M>("Euler to matrix", [=](M* r) { Batch::createRotations(e, r, kCount); });
    ours<T, V>("matrix to Euler", [=](V* r) { Batch::getRotations(m, false, r, kCount); });
    ours<T, Q>("quaternion product", [=](Q* r) { Batch::multiply(a, b, r, kCount); });
    ours<T, V>("quaternion rotate", [=](V* r) { Batch::rotate(a, p, r, kCount); });
    ours<T, Q>("slerp", [=](Q* r) { Batch::slerp(a, b, t, r, kCount); });
    ours<T, Q>("normalise quaternions", [=](Q* r) { Batch::normalize(a, r, kCount); });
    ours<T, M>("quaternion to matrix", [=](M* r) { Batch::createRotations(a, r, kCount); });
    ours<T, Q>("matrix to quaternion",
               [=](Q* r) { Batch::getRotationsAsQuaternions(m, false, r, kCount); });
}

template <class T>
void addMatrixArrays() {
    using V = KyMath::Vector3T<T>;
    using M = KyMath::Matrix44T<T>;
    const auto [inputs, others, rigid, points] = MatricesInputs<T>();
    const auto* const a = load<M>(inputs);
    const auto* const b = load<M>(others);
    const auto* const p = load<V>(points);
    ours<T, V>("points with divide", [=](V* r) { Batch::transformPositions(*a, p, r, kCount); });
    ours<T, V>("directions", [=](V* r) { Batch::transformDirections(*a, p, r, kCount); });
    ours<T, M>("matrix product", [=](M* r) { Batch::multiply(a, b, r, kCount); });
    ours<T, M>("one matrix by many", [=](M* r) { Batch::multiply(*a, b, r, kCount); });
    ours<T, M>("general inverse", [=](M* r) { Batch::inverse(a, r, kCount); });
}

template <class T>
void addBoxArrays() {
    using B = KyMath::BoundingBoxT<T>;
    using Side = signed char;
    const auto [inputs, others, moves, origins, directions] = BoundsInputs<T>();
    const auto* const a = load<B>(inputs);
    const auto* const m = load<KyMath::Matrix44T<T>>(moves);
    const KyMath::PlaneT<T> plane(T(0.48), T(-0.6), T(0.64), T(-0.5));
    ours<T, B>("box transform", [=](B* r) { Batch::transformBoxes(*m, a, r, kCount); });
    ours<T, Side>("boxes and a plane", [=](Side* r) { Batch::classify(plane, a, r, kCount); });

    // The results are two of T for each: where a line enters and leaves a box.
    using V = KyMath::Vector3T<T>;
    const auto* const from = load<V>(origins);
    const auto* const along = load<V>(directions);
    ours<T, V>("line and boxes", [=](V* r) {
        T* const t = *r;
        KyMath::Rays::intersectBoxes(from[0], along[0], a, t, t + kCount, kCount);
    });
    ours<T, V>("lines and a box", [=](V* r) {
        T* const t = *r;
        KyMath::Rays::intersectBox(from, along, a[0], t, t + kCount, kCount);
    });
    const auto* const corners = load<V>(MatricesInputs<T>().inputs);
    ours<T, T>("line and triangles", [=](T* t) {
        KyMath::Rays::intersectTriangles(from[0], along[0], corners, t, kCount);
    });
    ours<T, T>("lines and a triangle", [=](T* t) {
        KyMath::Rays::intersectTriangle(from, along, corners[0], corners[1], corners[2], t, kCount);
    });
}

void addRigidArrays() {
    using R = Ky::KyTransform;
    const auto [inputs, others, angles] = RigidInputs();
    const auto* const a = load<R>(inputs);
    const auto* const b = load<R>(others);
    ours<double, R>("rigid compound", [=](R* r) { Batch::compound(a, b, r, kCount); });
}

}  // namespace

void addArrays() {
    addVectorArrays<float>();
    addVectorArrays<double>();
    addMatrixArrays<float>();
    addMatrixArrays<double>();
    addRotationArrays<float>();
    addRotationArrays<double>();
    addBoxArrays<float>();
    addBoxArrays<double>();
    addRigidArrays();
}
