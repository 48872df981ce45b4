// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_BENCHMARKS_PEERS_H
#define KYMATH_BENCHMARKS_PEERS_H

#define GLM_ENABLE_EXPERIMENTAL
#define BT_USE_DOUBLE_PRECISION  // Bullet has one scalar type in a program

#include "Bench.h"

#include <Imath/ImathBoxAlgo.h>
#include <Imath/ImathEuler.h>
#include <Imath/ImathFrustum.h>
#include <Imath/ImathFrustumTest.h>
#include <Imath/ImathLine.h>
#include <Imath/ImathLineAlgo.h>
#include <Imath/ImathMatrix.h>
#include <Imath/ImathMatrixAlgo.h>
#include <Imath/ImathPlane.h>
#include <Imath/ImathQuat.h>
#include <Imath/ImathVec.h>
#include <LinearMath/btAabbUtil2.h>
#include <LinearMath/btTransform.h>
#include <Eigen/Dense>
#include <glm/glm.hpp>
#include <glm/gtc/quaternion.hpp>
#include <glm/gtx/euler_angles.hpp>
#include <glm/gtx/intersect.hpp>
#include <glm/gtx/matrix_decompose.hpp>
#include <glm/gtx/quaternion.hpp>

namespace bench {

/// @name The peers' types by scalar type, and conversions for those whose layout differs from that
/// of the inputs
/// @{
template <class T>
using EigenVector3 = Eigen::Matrix<T, 3, 1>;
template <class T>
using EigenVector4 = Eigen::Matrix<T, 4, 1>;
template <class T>
using EigenMatrix = Eigen::Matrix<T, 4, 4>;
template <class T>
using EigenRigid = Eigen::Transform<T, 3, Eigen::Isometry>;
template <class T>
using GlmVector3 = glm::vec<3, T>;
template <class T>
using GlmVector4 = glm::vec<4, T>;
template <class T>
using GlmMatrix = glm::mat<4, 4, T>;

template <class T>
Eigen::Quaternion<T> eigenQuaternion(const T* q) {
    return Eigen::Quaternion<T>(q[0], q[1], q[2], q[3]);
}
template <class T>
glm::qua<T> glmQuaternion(const T* q) {
    return glm::qua<T>(q[0], q[1], q[2], q[3]);
}
inline btVector3 bulletVector(const double* p) {
    return btVector3(p[0], p[1], p[2]);
}
inline btQuaternion bulletQuaternion(const double* q) {
    return btQuaternion(q[1], q[2], q[3], q[0]);
}
inline btTransform bulletTransform(const double* m) {
    return btTransform(btMatrix3x3(m[0], m[4], m[8], m[1], m[5], m[9], m[2], m[6], m[10]),
                       btVector3(m[12], m[13], m[14]));
}
/// @}

}  // namespace bench

#endif
