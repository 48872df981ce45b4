// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Loops.h"
#include "Peers.h"

using namespace bench;

namespace {

template <class T>
using ByEigen = Library<T, EigenVector3<T>, Eigen::Quaternion<T>>;

template <class T>
struct ByGlm : Library<T, GlmVector3<T>, glm::qua<T>> {
    using V = GlmVector3<T>;

    static T dot(const V& a, const V& b) {
        return glm::dot(a, b);
    }
    static V cross(const V& a, const V& b) {
        return glm::cross(a, b);
    }
    static void normalize(V& v) {
        v = glm::normalize(v);
    }
};

template <class T>
struct ByImath : Library<T, Imath::Vec3<T>, Imath::Quat<T>> {
    using V = Imath::Vec3<T>;

    static V rotate(const Imath::Quat<T>& q, const V& v) {
        return v * q;
    }
};

template <class T>
void addAll() {
    addLoopsOf<ByEigen<T>>("Eigen");
    addLoopsOf<ByGlm<T>>("GLM");
    addLoopsOf<ByImath<T>>("Imath");
}

}  // namespace

void addLoops() {
    addAll<float>();
    addAll<double>();
}
