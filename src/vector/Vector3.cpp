// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Vector3.h>
#include <KyMath/inline/Vector3.h>

#include "internal/Components.h"
#include "internal/Libm.h"

namespace KyMath {

template <>
KY_EARLY_CONSTANT const Vector3T<float> Vector3T<float>::kZero(0, 0, 0);
template <>
KY_EARLY_CONSTANT const Vector3T<double> Vector3T<double>::kZero(0, 0, 0);

template <class T>
bool Vector3T<T>::areEqualTol(const Vector3T& a, const Vector3T& b, double tol) {
    return internal::areEqualTol(a.v_, b.v_, tol);
}

template <class T>
bool Vector3T<T>::makeCleanBase(T tol) {
    const int i = maxComponentIndex();
    const int j = (i + 1) % 3;
    const int k = (i + 2) % 3;
    // Each test fails on a strict excess: a NaN passes.
    if (std::abs(std::abs(v_[i]) - 1) > tol || std::abs(v_[j]) > tol || std::abs(v_[k]) > tol) {
        return false;
    }
    v_[i] = v_[i] > 0 ? T(1) : T(-1);
    v_[j] = 0;
    v_[k] = 0;
    return true;
}

template <class T>
void Vector3T<T>::setOrthogonal(const Vector3T& v) {
    Vector3T axis;
    axis.v_[(v.maxComponentIndex() + 1) % 3] = 1;
    *this = v.cross(axis);
}
template <class T>
Vector3T<T> Vector3T<T>::getOrthogonal() const {
    Vector3T r;
    r.setOrthogonal(*this);
    return r;
}

template <class T>
void Vector3T<T>::planeSpace(Vector3T& u, Vector3T& v) const {
    const T x = v_[0];
    const T y = v_[1];
    const T z = v_[2];
    // Deliberate: the sum of two magnitudes decides, not the largest component. Pinned by
    // Vector3Test.PlaneSpaceComparesXPlusZWithY.
    if (std::abs(x) + std::abs(z) > std::abs(y)) {
        const T k = 1 / std::sqrt(x * x + z * z);
        u.set(z * k, 0, -x * k);
    } else {
        const T k = 1 / std::sqrt(y * y + z * z);
        u.set(0, -z * k, y * k);
    }
    v = cross(u);
}

template <class T>
bool Vector3T<T>::planeNormal(const Vector3T& a, const Vector3T& b, const Vector3T& c,
                              Vector3T& normal) {
    // Deliberate: for double this is the float literal widened, 9.9999997473787516e-05, not the
    // double 1e-4: a cross product whose length lies between the two is still normalised. Pinned by
    // Vector3Test.PlaneNormalToleranceIsAWidenedFloat.
    constexpr T kTolerance = T(1e-4f);
    static_assert(double(kTolerance) < 1e-4, "the comment above describes this value");
    normal = (b - a).cross(c - b);
    T length;
    return normal.normalize(kTolerance, &length);
}

template <class T>
void Vector3T<T>::print(const char*) const {}

static_assert(internal::kArePlain<Vector3T, 3> && std::is_trivially_copyable_v<Vector3T<double>>,
              "a vector is its three values");

template class Vector3T<float>;
template class Vector3T<double>;

}  // namespace KyMath

namespace Ky {

bool KyComputeAngle(const KyMath::Vector3T<double>& a, const KyMath::Vector3T<double>& b,
                    double& angle) {
    const double sine = a.cross(b).norm();
    const double cosine = a * b;
    if (sine < 1e-14 && std::abs(cosine) < 1e-14) return false;
    angle = KyMath::internal::atan2(sine, cosine);
    return true;
}

}  // namespace Ky
