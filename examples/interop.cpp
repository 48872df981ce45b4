// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0

// The library in one program with Eigen, GLM, Imath and Bullet: what they can use in place, what
// has to be copied, and in which order.
//
//   1. matrices and rigid transforms: sixteen values, column by column, which Eigen, GLM and Imath
//      use in place; Bullet stores padded rows and copies;
//   2. arrays of vectors: three values each, without gaps; and their vectors viewed as ours;
//   3. quaternions: w comes first here and in Imath, last in the memory of the others.
//
// Prints a line for each. The exit status is 1 if any result differs, and 2 if there are arguments.

#define BT_USE_DOUBLE_PRECISION  // otherwise btScalar is float; one of the two in a whole program

#include <KyMath/KyMath.h>

#include <Imath/ImathMatrix.h>
#include <Imath/ImathQuat.h>
#include <Imath/ImathVec.h>
#include <LinearMath/btTransform.h>
#include <Eigen/Geometry>
#include <glm/glm.hpp>
#include <glm/gtc/quaternion.hpp>
#include <glm/gtc/type_ptr.hpp>

#include <cmath>
#include <cstdio>
#include <limits>
#include <type_traits>
#include <vector>

using namespace KyMath;
using Ky::KyTransform;

namespace {

bool failed = false;

void report(const char* ours, const char* theirs, const char* memory, bool agree) {
    std::printf("%-12s %-20s %-7s %s\n", ours, theirs, memory, agree ? "agree" : "DISAGREE");
    failed = failed || !agree;
}

// Allowed error of a result: fewer than 32 sums and products of values up to 16, each rounded by at
// most half a unit in the last place.
template <class T>
constexpr T kRounding = 32 * 16 * std::numeric_limits<T>::epsilon() / 2;

template <class T>
bool near(const Vector3T<T>& a, const Vector3T<T>& b) {
    return Vector3T<T>::distance(a, b) <= kRounding<T>;
}

// Views the same bytes as another class, for libraries without views of their own. Both classes
// must hold the same values and nothing else. C++ does not guarantee that such a view works. It
// does because our members are functions of the shared library: the compiler cannot see what they
// read and write. With KyMath::Static and -flto it can: add -fno-strict-aliasing, or copy.
template <class To, class From>
To& viewAs(From& from) {
    static_assert(std::is_standard_layout<To>::value && std::is_standard_layout<From>::value,
                  "the first value stands at the address of the object");
    static_assert(sizeof(To) == sizeof(From) && alignof(To) <= alignof(From), "nothing else");
    return reinterpret_cast<To&>(from);
}

// 1. Matrices and rigid transforms ----------------------------------------------------------------

template <class T>
Vector3T<T> transform(const Matrix44T<T>& m, const Vector3T<T>& p) {
    return Transformation::transformPositionT(m, p);
}
Vector3d transform(const KyTransform& t, const Vector3d& p) {
    return t.transformPoint(p);
}

// M is a matrix of T, or a rigid transform, which has the same layout.
template <class T, class M>
void viewMatrix(const char* name, M m) {
    // Eigen stores columns, and can view memory through a pointer.
    Eigen::Map<Eigen::Matrix<T, 4, 4>> inEigen(m);
    // GLM stores columns, and has no views.
    auto& inGlm = viewAs<glm::mat<4, 4, T>>(m);
    // Imath stores rows and multiplies row vectors from the left, so its matrix for the same map is
    // the transpose of ours. Both differences together leave the sixteen values in the same order.
    auto& inImath = viewAs<Imath::Matrix44<T>>(m);

    // Moves the translation by 1, 2 and 3, writing through each view; all must then agree.
    const Vector3T<T> p(3, -2, 1), shifted = transform(m, p) + Vector3T<T>(1, 2, 3);
    inEigen(0, 3) += 1;  // row, column, like m(0, 3)
    inGlm[3][1] += 2;    // column, row, like m[3][1]
    inImath[3][2] += 3;  // its row is our column: also like m[3][2]
    const bool seen = near(transform(m, p), shifted);
    const Eigen::Matrix<T, 4, 1> byEigen = inEigen * Eigen::Matrix<T, 4, 1>(3, -2, 1, 1);
    const glm::vec<4, T> byGlm = inGlm * glm::vec<4, T>(3, -2, 1, 1);
    const Imath::Vec3<T> byImath = Imath::Vec3<T>(3, -2, 1) * inImath;
    report(name, "Eigen::Map<Matrix4>", "shared", seen && near<T>(shifted, byEigen.data()));
    report(name, "glm::mat4 &", "shared", seen && near<T>(shifted, glm::value_ptr(byGlm)));
    report(name, "Imath::M44 &", "shared", seen && near<T>(shifted, &byImath.x));

    bool same = true;  // element (r, c) has one address
    for (int i = 0; i < 16; ++i) {
        const int r = i % 4, c = i / 4;
        const T* const ours = &m[c][r];
        same = same && ours == &inEigen(r, c) && ours == &inGlm[c][r] && ours == &inImath[c][r];
    }
    report(name, "all addresses", "shared", same);

    // Copied there and back.
    const glm::mat<4, 4, T> copy = glm::make_mat4<T>(m);
    const Matrix44T<T> back(glm::value_ptr(copy));
    report(name, "glm::make_mat4", "copied", m == M(back));
}

// A btTransform holds three rows, each padded to four values, and then the translation, so it
// cannot view our memory. It does read and write sixteen values by column.
template <class M>
void copyToBullet(const char* name, const M& m) {
    static_assert(std::is_same<btScalar, double>::value, "without the macro, m has to be float");
    btTransform bullet;
    bullet.setFromOpenGLMatrix(m);
    const btVector3 byBullet = bullet * btVector3(3, -2, 1);
    M back;
    bullet.getOpenGLMatrix(back);
    report(name, "btTransform", "copied",
           back == m && bullet.getBasis()[0][1] == m(0, 1) &&
               near<double>(transform(m, Vector3d(3, -2, 1)), byBullet.m_floats));
}

// All apply the right operand first, except Imath, which multiplies row vectors.
void multiply(Matrix44d a, Matrix44d b) {
    const Vector3d p(3, -2, 1), bFirst = transform(Matrix44d::multiply(a, b), p);
    const Eigen::Matrix4d byEigen = Eigen::Map<Eigen::Matrix4d>(a) * Eigen::Map<Eigen::Matrix4d>(b);
    const glm::dmat4 byGlm = viewAs<glm::dmat4>(a) * viewAs<glm::dmat4>(b);
    const Imath::M44d byImath = viewAs<Imath::M44d>(b) * viewAs<Imath::M44d>(a);
    const auto holds = [&](const Matrix44d& m) { return near(transform(m, p), bFirst); };
    report("multiply", "Eigen a * b", "", holds(byEigen.data()));
    report("multiply", "glm a * b", "", holds(glm::value_ptr(byGlm)));
    report("multiply", "Imath b * a", "", holds(byImath.getValue()));
}

// 2. Arrays of vectors ----------------------------------------------------------------------------

template <class T>
void viewVectors(const char* name) {
    std::vector<Vector3T<T>> points(5, Vector3T<T>(1, 2, 3));
    static_assert(sizeof(points[0]) == 3 * sizeof(T), "no gaps between vectors");

    // Viewed as a matrix with a column for each vector.
    Eigen::Map<Eigen::Matrix<T, 3, Eigen::Dynamic>> inEigen(points[0], 3, 5);
    inEigen.colwise() += Eigen::Matrix<T, 3, 1>(0, 0, 9);
    report(name, "Eigen::Map<Matrix3X>", "shared",
           &points[4][2] == &inEigen(2, 4) && points[4] == Vector3T<T>(1, 2, 12));

    auto* const inGlm = &viewAs<glm::vec<3, T>>(points[0]);
    inGlm[4] *= T(2);
    report(name, "glm::vec3 *", "shared",
           &points[4][2] == &inGlm[4].z && points[4] == Vector3T<T>(2, 4, 24));

    auto* const inImath = &viewAs<Imath::Vec3<T>>(points[0]);
    inImath[4].negate();
    report(name, "Imath::V3 *", "shared",
           &points[4][2] == &inImath[4].z && points[4] == Vector3T<T>(-2, -4, -24));
}

// cast() views any three values as a vector, including those that Bullet pads to four. Because of
// the padding, an array of btVector3 cannot be viewed as an array of Vector3d.
void viewTheirs() {
    Eigen::Matrix3Xd columns = Eigen::Matrix3Xd::Ones(3, 2);
    Vector3d::cast(columns.col(1).data())->set(1, 2, 3);
    report("Vector3d *", "Eigen column", "shared", columns(0, 0) == 1 && columns(2, 1) == 3);

    glm::dvec3 inGlm(0);
    Vector3d::cast(glm::value_ptr(inGlm))->set(1, 2, 3);
    report("Vector3d *", "glm::vec3", "shared", inGlm == glm::dvec3(1, 2, 3));

    Imath::V3d inImath(0);
    Vector3d::cast(&inImath.x)->set(1, 2, 3);
    report("Vector3d *", "Imath::V3", "shared", inImath == Imath::V3d(1, 2, 3));

    static_assert(sizeof(btVector3) == 4 * sizeof(double), "padded");
    btVector3 bullet(3, 0, 4);
    Vector3d::cast(bullet)->normalize();
    report("Vector3d *", "btVector3", "shared", std::abs(bullet.length() - 1) <= kRounding<double>);
}

// 3. Quaternions ----------------------------------------------------------------------------------

// The constructors take w, x, y, z, except Bullet's; but in memory x comes first, except in Imath.
// Quaterniond(eigen.coeffs().data()) compiles and takes x for w. Therefore convert by component:
Eigen::Quaterniond toEigen(const Quaterniond& q) {
    return {q.w(), q.x(), q.y(), q.z()};
}
glm::dquat toGlm(const Quaterniond& q) {
    return {q.w(), q.x(), q.y(), q.z()};
}
btQuaternion toBullet(const Quaterniond& q) {
    return {q.x(), q.y(), q.z(), q.w()};
}
Quaterniond fromEigen(const Eigen::Quaterniond& q) {
    return {q.w(), q.x(), q.y(), q.z()};
}
Quaterniond fromGlm(const glm::dquat& q) {
    return {q.w, q.x, q.y, q.z};
}
Quaterniond fromBullet(const btQuaternion& q) {
    return {q.w(), q.x(), q.y(), q.z()};
}

// In each library p * q applies q first.
void convertQuaternions() {
    Quaterniond p(Vector3d(1, 2, -2), 0.7), q(Vector3d(-3, 1, 5), 2.1);
    const Vector3d v(3, -2, 1), turned = p * q * v;

    const Eigen::Quaterniond eigen = toEigen(q);
    const Eigen::Vector3d byEigen = toEigen(p) * eigen * Eigen::Vector3d(3, -2, 1);
    report("Quaterniond", "Eigen::Quaterniond", "copied",
           fromEigen(eigen) == q && eigen.coeffs()[3] == q.w() &&
               near<double>(turned, byEigen.data()));

    const glm::dquat inGlm = toGlm(q);
    const glm::dvec3 byGlm = toGlm(p) * inGlm * glm::dvec3(3, -2, 1);
    report("Quaterniond", "glm::dquat", "copied",
           fromGlm(inGlm) == q && glm::value_ptr(inGlm)[3] == q.w() &&
               near<double>(turned, glm::value_ptr(byGlm)));

    const btQuaternion bullet = toBullet(q);
    const btVector3 byBullet = quatRotate(toBullet(p) * bullet, btVector3(3, -2, 1));
    report(
        "Quaterniond", "btQuaternion", "copied",
        fromBullet(bullet) == q && bullet[3] == q.w() && near<double>(turned, byBullet.m_floats));

    Imath::Quatd& inImath = viewAs<Imath::Quatd>(q);  // r, then v
    const Imath::V3d byImath = (viewAs<Imath::Quatd>(p) * inImath).rotateVector({3, -2, 1});
    inImath.invert();
    report("Quaterniond", "Imath::Quatd &", "shared",
           &q[0] == &inImath.r && &q[3] == &inImath.v.z && near<double>(turned, &byImath.x) &&
               near(turned, p * q.getInverse() * v));
}

}  // namespace

int main(int argc, char**) {
    if (argc > 1) {
        std::fputs("interop: takes no arguments; prints a line for each comparison\n", stderr);
        return 2;
    }
    const Vector3d angles(0.3, -0.4, 0.5), at(2, -5, 1);
    const Matrix44d scaled = Transformation::composeT(Vector3d(2, 1, 0.5), angles, at, 1.0);
    const Matrix44d rigid = Transformation::composeT(Vector3d(1, 1, 1), angles, at, 1.0);
    viewMatrix<float>("Matrix44f", Transformation::createRotationT(0.3f, -0.4f, 0.5f));
    viewMatrix<double>("Matrix44d", scaled);
    viewMatrix<double>("KyTransform", KyTransform(rigid));
    copyToBullet("Matrix44d", rigid);
    copyToBullet("KyTransform", KyTransform(rigid));
    multiply(scaled, rigid);
    viewVectors<float>("Vector3f[]");
    viewVectors<double>("Vector3d[]");
    viewTheirs();
    convertQuaternions();
    return failed;
}
