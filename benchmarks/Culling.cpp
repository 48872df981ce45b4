// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Scene.h"

#include <KyMath/Batch.h>
#include <KyMath/BoundingBox.h>
#include <KyMath/Matrix.h>
#include <KyMath/Polytope.h>
#include <KyMath/Transformation.h>

#include <algorithm>
#include <memory>

using namespace bench;
using KyMath::BoundingBoxd;
using KyMath::Polytope;

namespace {

using Flags = std::vector<unsigned char>;

std::vector<KyMath::Planed> viewPlanes() {
    const auto& [x, y, z] = kEye;
    const double s = kSpread;
    return {{s, 1, 0, -s * x - y},  {s, -1, 0, -s * x + y}, {s, 0, 1, -s * x - z},
            {s, 0, -1, -s * x + z}, {1, 0, 0, -x - kNear},  {-1, 0, 0, x + kFar}};
}

/// A box is visible unless some plane has it strictly on its negative side: its furthest corner,
/// and also the nearest one, which in an inverted box can be on the positive side.
struct LimitPlane {
    Values<double, 4> v;
    unsigned int upper;

    double distance(const Values<double, 6>& b, unsigned int corner) const {
        const auto at = [&](unsigned int i) { return b.v[(corner >> i & 1) * 3 + i]; };
        return v.v[0] * at(0) + v.v[1] * at(1) + v.v[2] * at(2) + v.v[3];
    }
};

void limitCull(const std::vector<LimitPlane>& planes, const Values<double, 6>* boxes, std::size_t n,
               unsigned char* visible) {
    for (std::size_t i = 0; i < n; ++i) {
        unsigned char seen = 1;
        for (const LimitPlane& p : planes) {
            if (0 > p.distance(boxes[i], p.upper) && !(p.distance(boxes[i], ~p.upper & 7) > 0)) {
                seen = 0;
                break;
            }
        }
        visible[i] = seen;
    }
}

template <class T>
void limitTransform(const Values<T, 16>& matrix, const Values<T, 3>* points, std::size_t n,
                    Values<T, 3>* results) {
    using V = typename Lanes<T>::Type;
    V m[4];
    std::memcpy(m, matrix.v, sizeof m);
    for (std::size_t i = 0; i < n; ++i) {
        const T* const p = points[i].v;
        const V h = m[0] * p[0] + m[1] * p[1] + m[2] * p[2] + m[3];
        const V q = h / V{h[3], h[3], h[3], 1};
        results[i] = {q[0], q[1], q[2]};
    }
}

/// A node is a range of the boxes, which are in the order of the tree's leaves.
struct Node {
    BoundingBoxd box;
    std::size_t begin, end;
    std::vector<Node> children;
};

Node buildTree(std::vector<BoundingBoxd>& boxes, std::size_t begin, std::size_t end) {
    constexpr std::size_t kChildren = 4;
    Node node{{}, begin, end, {}};
    for (std::size_t i = begin; i < end; ++i) node.box += boxes[i];
    const auto split = [&](std::size_t from, std::size_t to) {
        BoundingBoxd all;
        for (std::size_t i = from; i < to; ++i) all += boxes[i];
        const int axis = all.getBBSize().maxComponentIndex();
        const std::size_t middle = from + (to - from) / 2;
        const auto at = [&](std::size_t i) { return boxes.begin() + std::ptrdiff_t(i); };
        std::nth_element(at(from), at(middle), at(to), [axis](const auto& a, const auto& b) {
            return a.getMin()[axis] < b.getMin()[axis];
        });
        return middle;
    };
    if (end - begin > kChildren) {
        const std::size_t middle = split(begin, end);
        const std::size_t cuts[] = {begin, split(begin, middle), middle, split(middle, end), end};
        for (std::size_t k = 0; k < kChildren; ++k) {
            node.children.push_back(buildTree(boxes, cuts[k], cuts[k + 1]));
        }
    }
    return node;
}

void cullTree(Polytope& view, const Node& node, const BoundingBoxd* boxes, unsigned char* visible) {
    const bool seen = view.contains(node.box);
    if (!seen || view.getCurrentMask() == 0) {  // wholly outside, or inside
        std::fill(visible + node.begin, visible + node.end, static_cast<unsigned char>(seen));
        return;
    }
    view.pushCurrentMask();
    if (node.children.empty()) {
        KyMath::Batch::cull(view, boxes + node.begin, visible + node.begin, node.end - node.begin);
    }
    for (const Node& child : node.children) cullTree(view, child, boxes, visible);
    view.popCurrentMask();
}

/// The boxes of a tree in depth-first order.
struct FlatTree {
    std::vector<BoundingBoxd> boxes;
    std::vector<unsigned int> descendants;

    FlatTree(const Node& node, const std::vector<BoundingBoxd>& leaves) {
        add(node, leaves);
    }
    void add(const Node& node, const std::vector<BoundingBoxd>& leaves) {
        const std::size_t self = boxes.size();
        boxes.push_back(node.box);
        descendants.push_back(0);
        for (const Node& child : node.children) add(child, leaves);
        if (node.children.empty()) {
            for (std::size_t i = node.begin; i < node.end; ++i) {
                boxes.push_back(leaves[i]);
                descendants.push_back(0);
            }
        }
        descendants[self] = unsigned(boxes.size() - self - 1);
    }
};

/// A box is tested against the planes that the box above it straddles; nothing is below a side.
void limitTree(const std::vector<LimitPlane>& planes, const Values<double, 6>* boxes,
               const unsigned int* descendants, std::size_t n, signed char* sides,
               unsigned int* masks) {
    struct Level {
        std::size_t end;
        unsigned int mask;
    };
    std::vector<Level> above = {{n, (1u << planes.size()) - 1}};
    for (std::size_t i = 0; i < n;) {
        while (above.back().end == i) above.pop_back();
        signed char side = 1;
        unsigned int straddled = 0;
        for (unsigned int rest = above.back().mask; rest != 0; rest &= rest - 1) {
            const LimitPlane& p = planes[unsigned(__builtin_ctz(rest))];
            if (p.distance(boxes[i], ~p.upper & 7) > 0) continue;
            if (0 > p.distance(boxes[i], p.upper)) {
                side = -1;
                break;
            }
            side = 0;
            straddled |= rest & -rest;
        }
        const std::size_t end = i + 1 + descendants[i];
        masks[i] = straddled;
        if (side == 0) {
            sides[i] = 0;
            if (descendants[i] > 0) above.push_back({end, straddled});
            ++i;
        } else {
            std::memset(sides + i, side, end - i);
            i = end;
        }
    }
}

void addBoxes() {
    const auto inputs = sceneBoxes();
    const auto* const boxes = load<BoundingBoxd>(inputs);
    const auto* const lboxes = load<Values<double, 6>>(inputs);
    const auto view = std::make_shared<Polytope>(viewPlanes());
    std::vector<LimitPlane> planes;
    for (const auto& p : view->getPlanes()) {
        const auto& v = p.getAsVector4();
        planes.push_back({{v[0], v[1], v[2], v[3]}, p.upperBBCorner()});
    }
    const auto flags = [] { return std::make_shared<Flags>(kItems); };

    oursWhole<double>(
        "100,000 boxes",
        [=, out = flags()] {
            KyMath::Batch::cull(*view, boxes, out->data(), kItems);
            return out->data();
        },
        [=, out = flags()] {
            limitCull(planes, lboxes, kItems, out->data());
            return out->data();
        },
        kItems);

    std::vector<BoundingBoxd> sorted(boxes, boxes + kItems);
    const auto tree = std::make_shared<Node>(buildTree(sorted, 0, kItems));
    const auto leaves = std::make_shared<std::vector<BoundingBoxd>>(sorted);
    const auto flat = [=, out = flags()] {
        for (std::size_t i = 0; i < kItems; ++i) (*out)[i] = view->contains((*leaves)[i]);
        return out->data();
    };
    const auto deep = [=, out = flags()] {
        cullTree(*view, *tree, leaves->data(), out->data());
        return out->data();
    };
    demandSame("hierarchy", 0, flat(), kItems, deep(), kItems);
    if constexpr (!kLimits) addWhole("hierarchy of 100,000, single calls/d/ours", deep, kItems);

    const auto nodes = std::make_shared<FlatTree>(*tree, sorted);
    const std::size_t n = nodes->boxes.size();
    const auto masks = std::make_shared<std::vector<unsigned int>>(n);
    using Sides = std::vector<signed char>;
    oursWhole<double>(
        "hierarchy of 100,000, one call",
        [=, out = std::make_shared<Sides>(n)] {
            KyMath::Batch::cullTree(*view, nodes->boxes.data(), nodes->descendants.data(),
                                    out->data(), masks->data(), n);
            return out->data();
        },
        [=, out = std::make_shared<Sides>(n),
         // A box is its six values.
         values = reinterpret_cast<const Values<double, 6>*>(nodes->boxes.data())] {
            limitTree(planes, values, nodes->descendants.data(), n, out->data(), masks->data());
            return out->data();
        },
        kItems);
}

template <class T>
void addPoints() {
    using Vector = KyMath::Vector3T<T>;
    using Limit = Values<T, 3>;
    const auto inputs = scenePoints<T>();
    const auto matrix = projection<T>();
    const auto* const points = load<Vector>(inputs);
    const auto* const lpoints = load<Limit>(inputs);
    const auto* const m = load<KyMath::Matrix44T<T>>(matrix);
    const auto* const lm = load<Values<T, 16>>(matrix);
    oursWhole<T>(
        "100,000 points",
        [=, out = std::make_shared<std::vector<Vector>>(kItems)] {
            KyMath::Batch::transformPositions(*m, points, out->data(), kItems);
            return out->data();
        },
        [=, out = std::make_shared<std::vector<Limit>>(kItems)] {
            limitTransform(*lm, lpoints, kItems, out->data());
            return out->data();
        },
        kItems);
}

}  // namespace

void addCulling() {
    addBoxes();
    addPoints<float>();
    addPoints<double>();
}
