// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_BOUNDINGBOX_H
#define KYMATH_INLINE_BOUNDINGBOX_H

#include <KyMath/inline/Components.h>

#ifdef KYMATH_INLINE
#pragma GCC system_header
#endif

KY_EXACT_BEGIN
namespace KyMath {

template <class T>
KY_SMALL BoundingBoxT<T>::BoundingBoxT() {
    init();
}
template <class T>
KY_SMALL BoundingBoxT<T>::BoundingBoxT(T xMin, T yMin, T zMin, T xMax, T yMax, T zMax)
    : min_(xMin, yMin, zMin), max_(xMax, yMax, zMax) {}
template <class T>
KY_SMALL BoundingBoxT<T>::BoundingBoxT(const Vector3T<T>& min, const Vector3T<T>& max)
    : min_(min), max_(max) {}

template <class T>
KY_SMALL void BoundingBoxT<T>::init() {
    constexpr T kLargest = internal::largest<T>();
    set(kLargest, kLargest, kLargest, -kLargest, -kLargest, -kLargest);
}
template <class T>
KY_SMALL void BoundingBoxT<T>::set(T xMin, T yMin, T zMin, T xMax, T yMax, T zMax) {
    min_.set(xMin, yMin, zMin);
    max_.set(xMax, yMax, zMax);
}
template <class T>
KY_SMALL void BoundingBoxT<T>::set(const Vector3T<T>& min, const Vector3T<T>& max) {
    // All values are read first: min may be the current maximum.
    set(min[0], min[1], min[2], max[0], max[1], max[2]);
}

template <class T>
KY_SMALL Vector3T<T>& BoundingBoxT<T>::getMin() {
    return min_;
}
template <class T>
KY_SMALL Vector3T<T>& BoundingBoxT<T>::getMax() {
    return max_;
}
template <class T>
KY_SMALL const Vector3T<T>& BoundingBoxT<T>::getMin() const {
    return min_;
}
template <class T>
KY_SMALL const Vector3T<T>& BoundingBoxT<T>::getMax() const {
    return max_;
}
template <class T>
KY_SMALL T& BoundingBoxT<T>::xMin() {
    return min_.x();
}
template <class T>
KY_SMALL T& BoundingBoxT<T>::yMin() {
    return min_.y();
}
template <class T>
KY_SMALL T& BoundingBoxT<T>::zMin() {
    return min_.z();
}
template <class T>
KY_SMALL T& BoundingBoxT<T>::xMax() {
    return max_.x();
}
template <class T>
KY_SMALL T& BoundingBoxT<T>::yMax() {
    return max_.y();
}
template <class T>
KY_SMALL T& BoundingBoxT<T>::zMax() {
    return max_.z();
}
template <class T>
KY_SMALL T BoundingBoxT<T>::xMin() const {
    return min_.x();
}
template <class T>
KY_SMALL T BoundingBoxT<T>::yMin() const {
    return min_.y();
}
template <class T>
KY_SMALL T BoundingBoxT<T>::zMin() const {
    return min_.z();
}
template <class T>
KY_SMALL T BoundingBoxT<T>::xMax() const {
    return max_.x();
}
template <class T>
KY_SMALL T BoundingBoxT<T>::yMax() const {
    return max_.y();
}
template <class T>
KY_SMALL T BoundingBoxT<T>::zMax() const {
    return max_.z();
}
template <class T>
KY_SMALL Vector3T<T> BoundingBoxT<T>::corner(unsigned int i) const {
    return Vector3T<T>((i & 1 ? max_ : min_)[0], (i & 2 ? max_ : min_)[1],
                       (i & 4 ? max_ : min_)[2]);
}

#if KY_INLINE_ARITHMETIC

template <class T>
KY_SMALL bool BoundingBoxT<T>::valid() const {
    return max_[0] >= min_[0] && max_[1] >= min_[1] && max_[2] >= min_[2];
}
template <class T>
KY_SMALL Vector3T<T> BoundingBoxT<T>::center() const {
    return (min_ + max_) * T(0.5);
}
template <class T>
KY_SMALL Vector3T<T> BoundingBoxT<T>::getBBSize() const {
    return max_ - min_;
}
template <class T>
KY_SMALL T BoundingBoxT<T>::radius() const {
    return T(internal::root(0.25 * double(getBBSize().normSquare())));
}
template <class T>
KY_SMALL T BoundingBoxT<T>::radius2() const {
    return internal::times(T(0.25), getBBSize().normSquare());
}

namespace internal {

// The bounds of an interval after it has grown to include a value, which may have the wider type W:
// compared in W, narrowed when taken. A NaN changes nothing.
template <class T, class W>
KY_HELPER T lower(T min, W low) {
    return W(min) > low ? T(low) : min;
}
template <class T, class W>
KY_HELPER T higher(T max, W high) {
    return high > W(max) ? T(high) : max;
}

}  // namespace internal

template <class T>
KY_SMALL void BoundingBoxT<T>::expandBy(T x, T y, T z) {
    set(internal::lower(min_[0], x), internal::lower(min_[1], y), internal::lower(min_[2], z),
        internal::higher(max_[0], x), internal::higher(max_[1], y), internal::higher(max_[2], z));
}
template <class T>
KY_SMALL void BoundingBoxT<T>::expandBy(const Vector3T<T>& p) {
    expandBy(p[0], p[1], p[2]);
}
#ifdef KYMATH_INLINE  // in the library, by registers: a call goes through memory anyway

template <class T>
KY_SMALL BoundingBoxT<T>& BoundingBoxT<T>::operator+=(const BoundingBoxT& b) {
    return *this = *this + b;
}
template <class T>
KY_SMALL BoundingBoxT<T> BoundingBoxT<T>::operator+(const BoundingBoxT& b) const {
    return BoundingBoxT(internal::lower(min_[0], b.min_[0]), internal::lower(min_[1], b.min_[1]),
                        internal::lower(min_[2], b.min_[2]), internal::higher(max_[0], b.max_[0]),
                        internal::higher(max_[1], b.max_[1]), internal::higher(max_[2], b.max_[2]));
}

#endif

template <class T>
KY_SMALL bool BoundingBoxT<T>::contains(const Vector3T<T>& p) const {
    return isBetween(p[0], min_[0], max_[0]) && isBetween(p[1], min_[1], max_[1]) &&
           isBetween(p[2], min_[2], max_[2]);
}
template <class T>
KY_SMALL bool BoundingBoxT<T>::intersects(const BoundingBoxT& b) const {
    return intersect(b).valid();
}
template <class T>
KY_SMALL BoundingBoxT<T> BoundingBoxT<T>::intersect(const BoundingBoxT& b) const {
    BoundingBoxT common;
    KY_UNROLL
    for (int i = 0; i < 3; ++i) {
        common.min_[i] = internal::larger(min_[i], b.min_[i]);
        common.max_[i] = internal::smaller(max_[i], b.max_[i]);
    }
    return common;
}
template <class T>
KY_SMALL bool BoundingBoxT<T>::intersect(const Vector3T<T>& origin,
                                         const Vector3T<T>& direction) const {
    T near = -T(__builtin_inf());
    T far = T(__builtin_inf());
    KY_UNROLL
    for (int i = 0; i < 3; ++i) {
        // The largest finite number instead of 1 / 0: infinity would give NaN on the faces.
        const T r = direction[i] == 0 ? internal::largest<T>() : 1 / direction[i];
        const T t1 = r * (min_[i] - origin[i]);
        const T t2 = r * (max_[i] - origin[i]);
        near = internal::larger(near, internal::smaller(t1, t2));
        far = internal::smaller(far, internal::larger(t1, t2));
    }
    return far > near;
}
template <class T>
KY_SMALL bool BoundingBoxT<T>::isBetween(T value, T low, T high) {
    return value >= low && high >= value;
}

#endif

}  // namespace KyMath
KY_EXACT_END

#endif
