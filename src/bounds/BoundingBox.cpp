// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/BoundingBox.h>

#include <KyMath/BoundingSphere.h>
#include <KyMath/Matrix.h>

#include "internal/Components.h"
#include "lanes/Kernels.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KyMath {

template <class T>
BoundingBoxT<T>::BoundingBoxT() {
    init();
}
template <class T>
BoundingBoxT<T>::BoundingBoxT(T xMin, T yMin, T zMin, T xMax, T yMax, T zMax)
    : min_(xMin, yMin, zMin), max_(xMax, yMax, zMax) {}
template <class T>
BoundingBoxT<T>::BoundingBoxT(const Vector3T<T>& min, const Vector3T<T>& max)
    : min_(min), max_(max) {}

template <class T>
void BoundingBoxT<T>::init() {
    constexpr T kLargest = std::numeric_limits<T>::max();
    set(kLargest, kLargest, kLargest, -kLargest, -kLargest, -kLargest);
}
template <class T>
void BoundingBoxT<T>::set(T xMin, T yMin, T zMin, T xMax, T yMax, T zMax) {
    min_.set(xMin, yMin, zMin);
    max_.set(xMax, yMax, zMax);
}
template <class T>
void BoundingBoxT<T>::set(const Vector3T<T>& min, const Vector3T<T>& max) {
    *this = BoundingBoxT(min, max);  // through a copy: min may be the current maximum
}

template <class T>
Vector3T<T>& BoundingBoxT<T>::getMin() {
    return min_;
}
template <class T>
Vector3T<T>& BoundingBoxT<T>::getMax() {
    return max_;
}
template <class T>
const Vector3T<T>& BoundingBoxT<T>::getMin() const {
    return min_;
}
template <class T>
const Vector3T<T>& BoundingBoxT<T>::getMax() const {
    return max_;
}
template <class T>
T& BoundingBoxT<T>::xMin() {
    return min_.x();
}
template <class T>
T& BoundingBoxT<T>::yMin() {
    return min_.y();
}
template <class T>
T& BoundingBoxT<T>::zMin() {
    return min_.z();
}
template <class T>
T& BoundingBoxT<T>::xMax() {
    return max_.x();
}
template <class T>
T& BoundingBoxT<T>::yMax() {
    return max_.y();
}
template <class T>
T& BoundingBoxT<T>::zMax() {
    return max_.z();
}
template <class T>
T BoundingBoxT<T>::xMin() const {
    return min_.x();
}
template <class T>
T BoundingBoxT<T>::yMin() const {
    return min_.y();
}
template <class T>
T BoundingBoxT<T>::zMin() const {
    return min_.z();
}
template <class T>
T BoundingBoxT<T>::xMax() const {
    return max_.x();
}
template <class T>
T BoundingBoxT<T>::yMax() const {
    return max_.y();
}
template <class T>
T BoundingBoxT<T>::zMax() const {
    return max_.z();
}
template <class T>
Vector3T<T> BoundingBoxT<T>::corner(unsigned int i) const {
    return Vector3T<T>((i & 1 ? max_ : min_)[0], (i & 2 ? max_ : min_)[1],
                       (i & 4 ? max_ : min_)[2]);
}

template <class T>
bool BoundingBoxT<T>::valid() const {
    return max_[0] >= min_[0] && max_[1] >= min_[1] && max_[2] >= min_[2];
}
template <class T>
Vector3T<T> BoundingBoxT<T>::center() const {
    return (min_ + max_) * T(0.5);
}
template <class T>
Vector3T<T> BoundingBoxT<T>::getBBSize() const {
    return max_ - min_;
}
template <class T>
T BoundingBoxT<T>::radius() const {
    return T(std::sqrt(0.25 * double(getBBSize().normSquare())));
}
template <class T>
T BoundingBoxT<T>::radius2() const {
    return T(0.25) * getBBSize().normSquare();
}

namespace {

// The bounds of an interval after it has grown to include a value, which may have the wider type W:
// compared in W, narrowed when taken. A NaN changes nothing.
template <class T, class W>
inline T lower(T min, W low) {
    return W(min) > low ? T(low) : min;
}
template <class T, class W>
inline T higher(T max, W high) {
    return high > W(max) ? T(high) : max;
}

}  // namespace

template <class T>
void BoundingBoxT<T>::expandBy(T x, T y, T z) {
    const Vector3T<T> p(x, y, z);
    *this += BoundingBoxT(p, p);
}
// Deliberate: a sphere with a negative radius is merged like any other, and can move a corner.
// Pinned by BoundingBoxTest.GrowsBySpheresInDouble.
template <class T>
void BoundingBoxT<T>::expandBy(const BoundingSphere& s) {
    const Vector3T<double> c = s.center();
    const double r = s.radius();
    for (int i = 0; i < 3; ++i) {
        min_[i] = lower(min_[i], c[i] - r);
        max_[i] = higher(max_[i], c[i] + r);
    }
}
template <class T>
BoundingBoxT<T>& BoundingBoxT<T>::operator+=(const BoundingBoxT& b) {
    return *this = *this + b;
}
template <class T>
BoundingBoxT<T> BoundingBoxT<T>::operator+(const BoundingBoxT& b) const {
    return BoundingBoxT(lower(min_[0], b.min_[0]), lower(min_[1], b.min_[1]),
                        lower(min_[2], b.min_[2]), higher(max_[0], b.max_[0]),
                        higher(max_[1], b.max_[1]), higher(max_[2], b.max_[2]));
}
template <class T>
BoundingBoxT<T>& BoundingBoxT<T>::operator+=(const BoundingSphere& s) {
    expandBy(s);
    return *this;
}
template <class T>
BoundingBoxT<T> BoundingBoxT<T>::operator+(const BoundingSphere& s) const {
    return BoundingBoxT(*this) += s;
}

template <class T>
bool BoundingBoxT<T>::contains(const Vector3T<T>& p) const {
    return isBetween(p[0], min_[0], max_[0]) && isBetween(p[1], min_[1], max_[1]) &&
           isBetween(p[2], min_[2], max_[2]);
}
template <class T>
bool BoundingBoxT<T>::intersects(const BoundingBoxT& b) const {
    return intersect(b).valid();
}
template <class T>
BoundingBoxT<T> BoundingBoxT<T>::intersect(const BoundingBoxT& b) const {
    BoundingBoxT common;
    for (int i = 0; i < 3; ++i) {
        common.min_[i] = std::max(min_[i], b.min_[i]);
        common.max_[i] = std::min(max_[i], b.max_[i]);
    }
    return common;
}
template <class T>
bool BoundingBoxT<T>::intersect(const Vector3T<T>& origin, const Vector3T<T>& direction) const {
    T near = -std::numeric_limits<T>::infinity();
    T far = std::numeric_limits<T>::infinity();
    for (int i = 0; i < 3; ++i) {
        // The largest finite number instead of 1 / 0: infinity would give NaN on the faces.
        const T r = direction[i] == 0 ? std::numeric_limits<T>::max() : 1 / direction[i];
        const T t1 = r * (min_[i] - origin[i]);
        const T t2 = r * (max_[i] - origin[i]);
        near = std::max(near, std::min(t1, t2));
        far = std::min(far, std::max(t1, t2));
    }
    return far > near;
}
template <class T>
bool BoundingBoxT<T>::isBetween(T value, T low, T high) {
    return value >= low && high >= value;
}

template <class T>
void BoundingBoxT<T>::transform(const Matrix44T<T>& m) {
    T* const box = reinterpret_cast<T*>(this);  // its six values
    KY_KERNEL(transformBoxes<T>(m, {box, 0}, {box, 0}, 1));
}

// Deliberate: the transpose of m's own 3x3 block, not the inverse of a block with scale. Pinned by
// BoundingBoxTest.InverseTransformDoesNotUndoScale.
template <class T>
void BoundingBoxT<T>::inverseTransform(const Matrix44T<T>& m) {
    transform(m.inverse_orthogonal());
}

static_assert(internal::kArePlain<BoundingBoxT, 6> &&
                  std::is_trivially_copyable_v<BoundingBoxT<double>>,
              "a box is its two corners");

template class BoundingBoxT<float>;
template class BoundingBoxT<double>;

}  // namespace KyMath
