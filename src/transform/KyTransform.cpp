// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <Ky/KyTransform.h>
#include <KyMath/inline/KyTransform.h>

#include <Ky/KyEulerAngles.h>
#include <KyMath/Matrix.h>

#include "internal/Components.h"
#include "lanes/Kernels.h"
#include "lanes/Lanes.h"
#include "rotation/RotationToQuaternion.h"

namespace Ky {

using KyMath::Matrix44d;
using KyMath::Quaterniond;
using KyMath::Vector3d;

KY_EARLY_CONSTANT const KyTransform KyTransform::kIdentity(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0,
                                                           0, 1);

KyTransform::KyTransform(const Matrix44d& m) {
    set(m);
}

KyTransform::KyTransform(const Vector3d& position, const KyEulerAngles& angles) : KyTransform() {
    angles.toMatrix44(*this);
    setTranslation(position);
}

KyTransform KyTransform::createIdentity() {
    return kIdentity;
}

void KyTransform::set(const Matrix44d& m) {
    const double* const a = m;
    set(a);
}

Matrix44d KyTransform::toMatrix44() const {
    return Matrix44d(v_);
}

bool KyTransform::isIdentity(double tol) const {
    // Each test fails on a strict excess: a NaN passes.
    for (int c = 0; c < 4; ++c) {
        for (int r = 0; r < 3; ++r) {
            if (std::abs(v_[4 * c + r] - (r == c ? 1 : 0)) > tol) return false;
        }
    }
    return true;
}

bool KyTransform::isValid() const {
    constexpr double kTolerance = 1e-7;
    const double* const m = v_;
    if (!KyMath::internal::withinTolerance(std::abs(m[15] - 1), std::abs(m[15]), 1.0, kTolerance)) {
        return false;
    }
    if (!(std::abs(m[3]) <= kTolerance && std::abs(m[7]) <= kTolerance &&
          std::abs(m[11]) <= kTolerance)) {
        return false;
    }
    KyTransform product;  // R^T R
    product.compound(*this, KyTransform(toMatrix44().transpose()));
    product.setTranslation(Vector3d());
    if (!product.isIdentity(kTolerance)) return false;

    const double det = (m[5] * m[10] - m[9] * m[6]) * m[0] + (m[9] * m[2] - m[10] * m[1]) * m[4] +
                       (m[6] * m[1] - m[5] * m[2]) * m[8];
    return std::abs(det - 1) < kTolerance;
}

void KyTransform::setRotation(const Vector3d& x, const Vector3d& y, const Vector3d& z) {
    const Vector3d columns[] = {x, y, z};  // copies: they may be views of this transform
    for (int c = 0; c < 3; ++c) Vector3d::set(v_ + 4 * c, columns[c]);
}

KyTransform& KyTransform::setRotation(const Quaterniond& q) {
    const double w = q.w();
    const double x = q.x();
    const double y = q.y();
    const double z = q.z();
    const double s = 1 / (w * w + x * x + y * y + z * z);
    setRotation(Vector3d((w * w + x * x - y * y - z * z) * s, 2 * s * (x * y + w * z),
                         2 * s * (x * z - w * y)),
                Vector3d(2 * s * (x * y - w * z), (w * w - x * x + y * y - z * z) * s,
                         2 * s * (y * z + w * x)),
                Vector3d(2 * s * (x * z + w * y), 2 * s * (y * z - w * x),
                         (w * w - x * x - y * y + z * z) * s));
    return *this;
}
KyTransform& KyTransform::makeRotationFromQuaternion(const Quaterniond& q) {
    return setRotation(q);
}

bool KyTransform::setRotation(Vector3d dir, double tol) {
    double length;
    if (!dir.normalize(tol, &length)) return false;
    Vector3d& y = *Vector3d::cast(v_ + 4);
    if (!y.normalize(tol, &length)) return false;
    // Deliberate: compared with the old y axis, although that is replaced below. Pinned by
    // KyTransformTest.DirectionBecomesTheXAxis.
    if (tol > 1 - std::abs(dir * y)) return false;

    if (std::abs(dir.x()) > std::abs(dir.y())) {
        const double k = 1 / std::sqrt(dir.z() * dir.z() + dir.x() * dir.x());
        y.set(dir.z() * k, 0, -dir.x() * k);
    } else {
        const double k = 1 / std::sqrt(dir.z() * dir.z() + dir.y() * dir.y());
        y.set(0, -dir.z() * k, dir.y() * k);
    }
    Vector3d::set(v_, dir);
    Vector3d::set(v_ + 8, dir.cross(y));
    return true;
}

void KyTransform::makeOrthonormal(int axis) {
    // Deliberate: the float literal widened, 0.0099999997764825821. Pinned by
    // KyTransformTest.MakeOrthonormalReplacesAParallelColumn.
    constexpr double kNearlyParallel = double(0.01f);
    static_assert(kNearlyParallel < 0.01, "the comment above describes this value");

    Vector3d& first = *Vector3d::cast(v_ + 4 * axis);
    Vector3d& second = *Vector3d::cast(v_ + 4 * ((axis + 1) % 3));
    Vector3d& third = *Vector3d::cast(v_ + 4 * ((axis + 2) % 3));
    first.normalize();
    const Vector3d formerThird = third;
    third = first.cross(second);
    double length;
    if (!third.normalize(kNearlyParallel, &length)) {
        second = formerThird;
        third = first.cross(second);
        third.normalize();
    }
    second = third.cross(first);
    second.normalize();
}

KyTransform& KyTransform::rotateSelf(const Vector3d& omega, double dt) {
    Quaterniond q;
    toQuaternion(q);
    q.finiteRotation(omega, dt);
    return setRotation(q);
}

KyTransform& KyTransform::makeRotation(const Quaterniond& q) {
    *this = KyTransform();
    return setRotation(q);
}
bool KyTransform::makeRotation(Vector3d dir, double tol) {
    if (!setRotation(dir, tol)) return false;
    setTranslation(Vector3d());
    return true;
}
void KyTransform::makeFromRotatedVector(const Vector3d& from, const Vector3d& to) {
    Quaterniond q;
    q.fromRotation(from, to);
    makeRotation(q);
}
KyTransform KyTransform::outerProduct3x3(const Vector3d& a, const Vector3d& b) {
    KyTransform t;
    t.setRotation(b * a.x(), b * a.y(), b * a.z());
    return t;
}

void KyTransform::toQuaternion(Quaterniond& q) const {
    double squares = 0;
    for (int c = 0; c < 3; ++c) {
        for (int r = 0; r < 3; ++r) squares += v_[4 * c + r] * v_[4 * c + r];
    }
    q = KyMath::internal::rotationToQuaternion(v_, squares);
}

KyTransform& KyTransform::compound(const KyTransform& a, const KyTransform& b) {
    KY_KERNEL(compound(v_, v_, a.v_, b.v_));
    return *this;
}
KyTransform& KyTransform::compoundFirstThenInverseSecond(const KyTransform& a,
                                                         const KyTransform& b) {
    KY_KERNEL(compoundFirstThenInverseSecond(v_, v_, a.v_, b.v_));
    return *this;
}
KyTransform& KyTransform::compoundInverseFirstThenSecond(const KyTransform& a,
                                                         const KyTransform& b) {
    KY_KERNEL(compoundInverseFirstThenSecond(v_, v_, a.v_, b.v_));
    return *this;
}

KyTransform& KyTransform::postCompound(const KyTransform& o) {
    KY_KERNEL(compound(v_, kIdentity.v_, v_, o.v_));
    return *this;
}
KyTransform& KyTransform::postCompoundWithInverse(const KyTransform& o) {
    KY_KERNEL(compoundFirstThenInverseSecond(v_, kIdentity.v_, v_, o.v_));
    return *this;
}
KyTransform& KyTransform::preCompound(const KyTransform& o) {
    KY_KERNEL(compound(v_, kIdentity.v_, o.v_, v_));
    return *this;
}
KyTransform& KyTransform::preCompoundWithInverse(const KyTransform& o) {
    KY_KERNEL(compoundInverseFirstThenSecond(v_, kIdentity.v_, o.v_, v_));
    return *this;
}

KyTransform& KyTransform::interpolateRotation(const KyTransform& a, const KyTransform& b,
                                              double s) {
    Quaterniond from;
    Quaterniond to;
    a.toQuaternion(from);
    b.toQuaternion(to);
    setRotation(from.slerp(to, s));
    v_[3] = v_[7] = v_[11] = 0;
    v_[15] = 1;
    return *this;
}
KyTransform& KyTransform::interpolate(const KyTransform& a, const KyTransform& b, double s) {
    interpolateRotation(a, b, s);
    setTranslation(b.getTranslation() * s + a.getTranslation() * (1 - s));
    return *this;
}

static_assert(KyMath::internal::kIsPlain<KyTransform, 16 * sizeof(double)> &&
                  std::is_trivially_copyable_v<KyTransform>,
              "a rigid transform is its sixteen values");

}  // namespace Ky
