// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Polytope.h>
#include <KyMath/inline/Polytope.h>

#include <KyMath/BoundingBox.h>
#include <KyMath/Matrix.h>

#include "internal/Arithmetic.h"

#include <cstddef>

namespace KyMath {

namespace {

using Planes = std::vector<PlaneT<double>>;

// Reserves one slot; reserve(size + 1) would lose geometric growth.
void makeRoom(std::vector<unsigned int>& stack) {
    stack.push_back(0);
    stack.pop_back();
}

// Copies planes as they are, including their corner indices. The vector's own copies would get
// fresh indices or not, depending on its capacity and on the standard library.
void copyAsIs(const Planes& from, Planes& to) {
    to.resize(from.size());
    for (std::size_t i = 0; i < from.size(); ++i) to[i] = from[i];
}

}  // namespace

Polytope::Polytope() {
    setupMask();
}
Polytope::Polytope(const Planes& planes) : planes_(planes) {
    setupMask();
}
Polytope::Polytope(const Polytope& p) = default;
Polytope::~Polytope() = default;

// If memory runs out, it does so before the first change.

Polytope& Polytope::operator=(const Polytope& p) {
    maskStack_.reserve(p.maskStack_.size());
    copyAsIs(p.planes_, planes_);
    maskStack_ = p.maskStack_;
    currentMask_ = p.currentMask_;
    return *this;
}

void Polytope::set(const Planes& planes) {
    Planes copies(planes);  // with fresh corner indices
    makeRoom(maskStack_);
    planes_.swap(copies);
    setupMask();
}
void Polytope::add(const PlaneT<double>& plane) {
    makeRoom(maskStack_);
    const PlaneT<double> added(plane);  // a copy: plane may be one of planes_
    if (planes_.size() == planes_.capacity()) {
        Planes grown;
        grown.reserve(2 * planes_.size() + 1);
        copyAsIs(planes_, grown);
        planes_.swap(grown);
    }
    planes_.push_back(added);
    setupMask();
}
void Polytope::clear() {
    makeRoom(maskStack_);
    planes_.clear();
    setupMask();
}
void Polytope::setToBoundingBox(const BoundingBoxT<double>& box) {
    makeRoom(maskStack_);
    planes_.reserve(6);
    planes_.clear();
    planes_.emplace_back(1.0, 0.0, 0.0, -box.xMin());
    planes_.emplace_back(-1.0, 0.0, 0.0, box.xMax());
    planes_.emplace_back(0.0, 1.0, 0.0, -box.yMin());
    planes_.emplace_back(0.0, -1.0, 0.0, box.yMax());
    planes_.emplace_back(0.0, 0.0, 1.0, -box.zMin());
    planes_.emplace_back(0.0, 0.0, -1.0, box.zMax());
    setupMask();
}

// Deliberate: every change of the planes pushes a mask and removes none. Only the top of the stack
// is ever read. Pinned by PolytopeTest.EveryChangePushesAFullMask.
void Polytope::setupMask() {
    const std::size_t n = planes_.size();
    const unsigned int all = n < internal::maskBits() ? (1u << n) - 1 : ~0u;
    maskStack_.push_back(all);
    currentMask_ = all;
}

void Polytope::transformProvidingInverse(const Matrix44T<double>& m) {
    for (PlaneT<double>& plane : planes_) plane.transformProvidingInverse(m);
}
void Polytope::transform(const Matrix44T<double>& m) {
    transformProvidingInverse(m.inverse_orthogonal());
}

}  // namespace KyMath
