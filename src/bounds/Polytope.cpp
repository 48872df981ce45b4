// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Polytope.h>

#include <KyMath/BoundingBox.h>
#include <KyMath/Matrix.h>

#include "internal/Arithmetic.h"

#include <algorithm>
#include <cstddef>

namespace KyMath {

namespace {

constexpr std::size_t kMaskBits = 32;

// Lets the next push of a mask succeed.
void makeRoom(std::vector<unsigned int>& stack) {
    stack.push_back(0);
    stack.pop_back();
}

}  // namespace

Polytope::Polytope() {
    setupMask();
}
Polytope::Polytope(const std::vector<PlaneT<double>>& planes) : planes_(planes) {
    setupMask();
}
Polytope::Polytope(const Polytope& p) = default;
Polytope::~Polytope() = default;

// Memory runs out, if it does, before the first change.

Polytope& Polytope::operator=(const Polytope& p) {
    maskStack_.reserve(p.maskStack_.size());
    planes_ = p.planes_;
    maskStack_ = p.maskStack_;
    currentMask_ = p.currentMask_;
    return *this;
}

void Polytope::set(const std::vector<PlaneT<double>>& planes) {
    std::vector<PlaneT<double>> copies(planes);  // with fresh corner indices
    makeRoom(maskStack_);
    planes_.swap(copies);
    setupMask();
}
void Polytope::add(const PlaneT<double>& plane) {
    makeRoom(maskStack_);
    planes_.push_back(plane);
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
const std::vector<PlaneT<double>>& Polytope::getPlanes() const {
    return planes_;
}

// Deliberate: every change of the planes pushes, and nothing below is removed. Only the top of the
// stack is ever read. Pinned by PolytopeTest.
void Polytope::setupMask() {
    makeRoom(maskStack_);
    const std::size_t n = planes_.size();
    currentMask_ = n < kMaskBits ? (1u << n) - 1 : ~0u;
    pushCurrentMask();
}
void Polytope::pushCurrentMask() {
    maskStack_.push_back(currentMask_);
}
void Polytope::popCurrentMask() {
    maskStack_.pop_back();
}
unsigned int Polytope::getCurrentMask() const {
    return currentMask_;
}
const std::vector<unsigned int>& Polytope::getMaskStack() const {
    return maskStack_;
}

bool Polytope::contains(const BoundingBoxT<double>& box) {
    const unsigned int top = maskStack_.back();
    if (top == 0) return true;
    currentMask_ = top;
    // Deliberate: planes beyond the bits of a mask are never tested. Pinned by PolytopeTest.
    const std::size_t count = std::min(planes_.size(), kMaskBits);
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned int bit = 1u << i;
        if ((currentMask_ & bit) == 0) continue;
        const int side = planes_[i].intersect(box);
        if (side < 0) return false;
        if (side > 0) currentMask_ ^= bit;
    }
    return true;
}

void Polytope::transformProvidingInverse(const Matrix44T<double>& m) {
    for (PlaneT<double>& plane : planes_) plane.transformProvidingInverse(m);
}
void Polytope::transform(const Matrix44T<double>& m) {
    transformProvidingInverse(m.inverse_orthogonal());
}

}  // namespace KyMath
