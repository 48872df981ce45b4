// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Plane.h>
#include <KyMath/inline/Plane.h>

#include <KyMath/BoundingBox.h>
#include <KyMath/Matrix.h>

#include "internal/Components.h"

#include <cmath>
#include <limits>

namespace KyMath {

template <class T>
PlaneT<T>::PlaneT(const Vector3T<T>& p1, const Vector3T<T>& p2, const Vector3T<T>& p3) {
    const Vector3T<T> cross = (p2 - p1).cross(p3 - p2);
    const T length = cross.norm();
    // Compared with the double 1e-6 for both types.
    const Vector3T<T> n = double(length) > 1e-6 ? cross / length : Vector3T<T>();
    set(n[0], n[1], n[2], -(n * p2));
}

template <class T>
PlaneT<T>& PlaneT<T>::operator=(const PlaneT& plane) = default;

template <class T>
void PlaneT<T>::transform(const Matrix44T<T>& m) {
    set(Matrix44T<T>::multiplyWithVector(m, v_));
    makeUnitLength();
}
template <class T>
void PlaneT<T>::transformProvidingInverse(const Matrix44T<T>& m) {
    transform(m);
}

static_assert(internal::kIsPlain<PlaneT<float>, 4 * sizeof(float) + 8> &&
                  internal::kIsPlain<PlaneT<double>, 4 * sizeof(double) + 8>,
              "a plane is its coefficients and two indices");

template class PlaneT<float>;
template class PlaneT<double>;

}  // namespace KyMath
