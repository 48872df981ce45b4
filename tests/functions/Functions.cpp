// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// Every public member and free function with its exact signature, both instantiations. Whoever
// calls them draws the arguments; a function that is exported but not named here fails a test.
#include "Table.h"

namespace KyMath {
namespace test {
namespace {

class Table {
public:
    std::vector<Function> functions;

    /// What is added belongs to this layer and type, whose indices are below limit.
    void section(const char* layer, const std::string& type, unsigned limit) {
        layer_ = layer;
        type_ = type;
        limit_ = limit;
    }
    void limit(unsigned limit) {
        limit_ = limit;
    }
    void add(const char* name, void (*call)(Call&)) {
        functions.push_back({layer_, type_ + name, limit_, call});
    }

private:
    const char* layer_ = "";
    std::string type_;
    unsigned limit_ = 1;
};

template <class T>
const std::string kLetter = sizeof(T) == 4 ? "f" : "d";

// (result, class, name, (arguments) const), and for static members and free functions
// (result, class or namespace, name, (arguments)).
#define MEMBER(R, C, name, ...) \
    table.add("::" #name #__VA_ARGS__, Caller<static_cast<R(C::*) __VA_ARGS__>(&C::name)>::call)
#define STATIC(R, C, name, ...) \
    table.add("::" #name #__VA_ARGS__, Caller<static_cast<R(*) __VA_ARGS__>(&C::name)>::call)
// (class, argument types)
#define CONSTRUCT(...) table.add(" " #__VA_ARGS__, construct<__VA_ARGS__>)
#define CONSTANT(variable) table.add(" " #variable, read<&variable>)

// Members that several types share.

#define INDEXING(C, R, CR)                                \
    do {                                                  \
        MEMBER(R, C, operator[], (int));                  \
        MEMBER(R, C, operator[], (unsigned int));         \
        MEMBER(R, C, operator[], (long));                 \
        MEMBER(R, C, operator[], (unsigned long));        \
        MEMBER(CR, C, operator[], (int) const);           \
        MEMBER(CR, C, operator[], (unsigned int) const);  \
        MEMBER(CR, C, operator[], (long) const);          \
        MEMBER(CR, C, operator[], (unsigned long) const); \
    } while (false)

#define POINTERS(C, T)                                    \
    do {                                                  \
        MEMBER(T*, C, operator T*, ());                   \
        MEMBER(const T*, C, operator const T*, () const); \
    } while (false)

#define EQUALITY(C)                                    \
    do {                                               \
        MEMBER(bool, C, operator==, (const C&) const); \
        MEMBER(bool, C, operator!=, (const C&) const); \
    } while (false)

#define SUMS(C)                                    \
    do {                                           \
        MEMBER(C&, C, operator+=, (const C&));     \
        MEMBER(C, C, operator+, (const C&) const); \
        MEMBER(C&, C, operator-=, (const C&));     \
        MEMBER(C, C, operator-, (const C&) const); \
    } while (false)

// What the vectors of two, three and four share.
#define VECTOR(C, T)                                                \
    do {                                                            \
        INDEXING(C, T&, const T&);                                  \
        POINTERS(C, T);                                             \
        EQUALITY(C);                                                \
        MEMBER(bool, C, operator<, (const C&) const);               \
        MEMBER(bool, C, operator>, (const C&) const);               \
        STATIC(bool, C, areEqualTol, (const C&, const C&, double)); \
        SUMS(C);                                                    \
        MEMBER(C&, C, operator/=, (T));                             \
        MEMBER(T, C, normSquare, () const);                         \
        MEMBER(T, C, lengthSqr, () const);                          \
        MEMBER(T, C, norm, () const);                               \
        MEMBER(T, C, length, () const);                             \
        MEMBER(void, C, normalize, ());                             \
        MEMBER(bool, C, normalize, (T, T*));                        \
    } while (false)

// What the vectors of three and of four share besides.
#define SPACE_VECTOR(C, T)                         \
    do {                                           \
        VECTOR(C, T);                              \
        MEMBER(bool, C, isZero, () const);         \
        MEMBER(bool, C, isFinite, () const);       \
        MEMBER(C&, C, operator*=, (T));            \
        MEMBER(C, C, operator/, (const T&) const); \
        MEMBER(C, C, operator*, (const T&) const); \
        MEMBER(C, C, operator-, () const);         \
        MEMBER(T, C, operator*, (const C&) const); \
    } while (false)

// What a line and a segment share.
#define LINE(C)                                                            \
    do {                                                                   \
        CONSTRUCT(C);                                                      \
        CONSTRUCT(C, const Vector3d&, const Vector3d&);                    \
        MEMBER(double, C, closestPointFactor, (const Vector3d&) const);    \
        MEMBER(double, C, closestPointFactor, (const C&) const);           \
        MEMBER(Vector3d, C, closestPointTo, (const Vector3d&) const);      \
        MEMBER(Vector3d, C, closestPointTo, (const C&) const);             \
        MEMBER(double, C, distanceTo, (const Vector3d&, Vector3d*) const); \
        MEMBER(double, C, distanceTo, (const C&, Vector3d*) const);        \
    } while (false)

#define COMPONENT(C, T, name)         \
    do {                              \
        MEMBER(T, C, name, () const); \
        MEMBER(T&, C, name, ());      \
    } while (false)

template <class T>
void addVector2(Table& table) {
    table.section("vector", "Vector2" + kLetter<T>, 2);
    using V = Vector2T<T>;
    CONSTANT(V::kZero);
    CONSTRUCT(V);
    CONSTRUCT(V, const T*);
    CONSTRUCT(V, T, T);
    MEMBER(V&, V, operator=, (const V&));
    MEMBER(void, V, set, (T, T));
    COMPONENT(V, T, x);
    COMPONENT(V, T, y);
    VECTOR(V, T);
    MEMBER(V, V, operator/, (T) const);
    MEMBER(T, V, normSquare, ());
    MEMBER(T, V, dot, (const V&) const);
    MEMBER(T, V, cross, (const V&) const);
    MEMBER(V&, V, rotate, (T));
}

template <class T>
void addVector3(Table& table) {
    table.section("vector", "Vector3" + kLetter<T>, 3);
    using V = Vector3T<T>;
    CONSTANT(V::kZero);
    CONSTRUCT(V);
    CONSTRUCT(V, const T*);
    CONSTRUCT(V, T, T, T);
    MEMBER(void, V, set, (T, T, T));
    STATIC(void, V, set, (double*, const V&));
    COMPONENT(V, T, x);
    COMPONENT(V, T, y);
    COMPONENT(V, T, z);
    STATIC(V*, V, cast, (T*));
    STATIC(const V*, V, constCast, (const T*));
    SPACE_VECTOR(V, T);
    MEMBER(void, V, multComp, (const V&));
    STATIC(V, V, multComp, (const V&, const V&));
    MEMBER(void, V, addMultiple, (const T&, const V&));
    MEMBER(void, V, setLinear, (const T&, const V&, const T&, const V&));
    MEMBER(V, V, cross, (const V&) const);
    MEMBER(void, V, postCross, (const V&));
    MEMBER(void, V, preCross, (const V&));
    MEMBER(void, V, setCross, (const V&, const V&));
    STATIC(T, V, distanceSqr, (const V&, const V&));
    STATIC(T, V, distance, (const V&, const V&));
    MEMBER(int, V, maxComponentIndex, () const);
    MEMBER(bool, V, makeCleanBase, (T));
    MEMBER(void, V, setOrthogonal, (const V&));
    MEMBER(V, V, getOrthogonal, () const);
    MEMBER(void, V, orthogonalize, (const V&));
    MEMBER(void, V, project, (const V&, V*, V*) const);
    MEMBER(void, V, planeSpace, (V&, V&) const);
    STATIC(bool, V, planeNormal, (const V&, const V&, const V&, V&));
    MEMBER(void, V, print, (const char*) const);
}

template <class T>
void addVector4(Table& table) {
    table.section("vector", "Vector4" + kLetter<T>, 4);
    using V = Vector4T<T>;
    CONSTRUCT(V);
    CONSTRUCT(V, const V&);
    CONSTRUCT(V, const T*);
    CONSTRUCT(V, const std::array<T, 4>&);
    CONSTRUCT(V, T, T, T, T);
    CONSTRUCT(V, const Vector3T<T>&, T);
    MEMBER(V&, V, operator=, (const V&));
    MEMBER(V&, V, operator=, (const T*));
    MEMBER(void, V, set, (T, T, T, T));
    MEMBER(void, V, set, (const V&));
    COMPONENT(V, T, x);
    COMPONENT(V, T, y);
    COMPONENT(V, T, z);
    COMPONENT(V, T, w);
    MEMBER(Vector3T<T>, V, xyz, () const);
    SPACE_VECTOR(V, T);
    MEMBER(T, V, dot, (const V&) const);
}

void addVector6(Table& table) {
    table.section("vector", "Vector6", 6);
    CONSTRUCT(Vector6, double, double, double, double, double, double);
    CONSTRUCT(Vector6, const double*, const double*);
    MEMBER(Vector6&, Vector6, operator=, (const Vector6&));
    MEMBER(void, Vector6, set, (const Vector3d&, const Vector3d&));
    MEMBER(double&, Vector6, operator[], (int));
    MEMBER(const double&, Vector6, operator[], (int) const);
    MEMBER(void, Vector6, add, (const Vector6&));
    MEMBER(void, Vector6, sub, (const Vector6&));
    MEMBER(void, Vector6, scale, (double));
    MEMBER(double, Vector6, dot, (const Vector6&) const);
    MEMBER(double, Vector6, norm, () const);
    STATIC(std::ostream&, KyMath, operator<<, (std::ostream&, const Vector6&));
}

template <class T>
void addMatrix(Table& table) {
    table.section("matrix", "Matrix44" + kLetter<T>, 4);
    using M = Matrix44T<T>;
    using V = Vector4T<T>;
    CONSTANT(M::kZero);
    CONSTANT(M::kIdentity);
    CONSTRUCT(M);
    CONSTRUCT(M, T, T, T, T, T, T, T, T, T, T, T, T, T, T, T, T);
    CONSTRUCT(M, const T*);
    CONSTRUCT(M, const T(*)[4]);
    CONSTRUCT(M, const V&, const V&, const V&, const V&);
    CONSTRUCT(M, const double(*)[3]);
    CONSTRUCT(M, const M&);
    MEMBER(M&, M, operator=, (const M&));
    MEMBER(T&, M, operator(), (unsigned long, unsigned long));
    MEMBER(T, M, operator(), (unsigned long, unsigned long) const);
    INDEXING(M, T*, const T*);
    MEMBER(Vector4T<T>, M, row, (unsigned long) const);
    MEMBER(T*, M, column, (unsigned long));
    MEMBER(Vector4T<T>, M, column, (unsigned long) const);
    POINTERS(M, T);
    POINTERS(M, Ky::KyReal4);
    EQUALITY(M);
    MEMBER(bool, M, isEqual, (const M&, T) const);
    STATIC(bool, M, areEqualTol, (const M&, const M&, double));
    MEMBER(bool, M, isFinite, () const);
    STATIC(M, M, multiply, (const M&, const M&));
    STATIC(M, M, multiply, (const M&, T));
    STATIC(M, M, divide, (const M&, T));
    STATIC(Vector4T<T>, M, multiplyWithVector, (const M&, const Vector4T<T>&));
    MEMBER(M&, M, operator*=, (T));
    MEMBER(M&, M, operator/=, (T));
    MEMBER(M&, M, transpose, ());
    MEMBER(T, M, determinant3x3,
           (unsigned long, unsigned long, unsigned long, unsigned long, unsigned long,
            unsigned long) const);
    MEMBER(T, M, determinant, () const);
    MEMBER(M, M, inverse, () const);
    MEMBER(M&, M, invert, ());
    MEMBER(M, M, inverse_orthogonal, () const);
    MEMBER(M&, M, invert_orthogonal, ());
    MEMBER(M, M, inverse_affine, () const);
    MEMBER(M&, M, invert_affine, ());
}

template <class T>
void addTransformation(Table& table) {
    table.section("matrix", "Transformation" + kLetter<T>, 4);
    using M = Matrix44T<T>;
    using V = Vector3T<T>;
    using Q = QuaternionT<T>;
    STATIC(M, Transformation, createScaleT<T>, (T, T, T));
    STATIC(M, Transformation, createScaleT<T>, (const V&));
    STATIC(M, Transformation, createTranslationT<T>, (T, T, T));
    STATIC(M, Transformation, createTranslationT<T>, (const V&));
    STATIC(M, Transformation, createRotationT<T>, (T, T, T));
    STATIC(M, Transformation, createRotationT<T>, (const Q&));
    STATIC(M, Transformation, createRotationT<T>, (const V&, T));
    STATIC(M, Transformation, createRotationFromAxesT<T>, (const V&, const V&, const V&));
    STATIC(M, Transformation, createRotationFromOuterProductT<T>, (const V&, const V&));
    STATIC(M, Transformation, createObjectLookAtT<T>, (const V&, const V&, const V&));
    STATIC(M, Transformation, createCameraLookAtT<T>, (const V&, const V&, const V&));
    STATIC(M, Transformation, createOrthographicT<T>, (T, T, T, T, T, T));
    STATIC(bool, Transformation, getOrthographicT<T>, (const M&, T&, T&, T&, T&, T&, T&));
    STATIC(M, Transformation, createFrustumT<T>, (T, T, T, T, T, T));
    STATIC(bool, Transformation, getFrustumT<T>, (const M&, T&, T&, T&, T&, T&, T&));
    STATIC(M, Transformation, createPerspectiveT<T>, (T, T, T, T));
    STATIC(bool, Transformation, isPerspectiveProjectionT<T>, (const M&));
    STATIC(V, Transformation, getTranslationT<T>, (const M&));
    STATIC(V, Transformation, getScaleT<T>, (const M&));
    STATIC(V, Transformation, getRotationT<T>, (const M&, bool));
    STATIC(Q, Transformation, getRotationAsQuaternionT<T>, (const M&, bool));
    STATIC(void, Transformation, decomposeT<T>, (const M&, V&, V&, V&, T&));
    STATIC(M, Transformation, composeT<T>, (const V&, const V&, const V&, T));
    STATIC(void, Transformation, setTranslationT<T>, (M&, const V&));
    STATIC(M, Transformation, translateToT<T>, (const M&, const V&));
    STATIC(void, Transformation, setRotationT<T>, (M&, const V&));
    STATIC(M, Transformation, rotateToT<T>, (const M&, const V&));
    STATIC(void, Transformation, setScaleT<T>, (M&, const V&));
    STATIC(M, Transformation, scaleToT<T>, (const M&, const V&));
    STATIC(V, Transformation, transformPositionT<T>, (const M&, const V&));
    STATIC(V, Transformation, transformDirectionT<T>, (const M&, const V&));
    STATIC(V, Transformation, linearVelocityT<T>, (const M&, const M&, T));
    STATIC(V, Transformation, angularVelocityT<T>, (const M&, const M&, T));
    STATIC(bool, Transformation, isRotation<T>, (const M&, T));
}

template <class T>
void addQuaternion(Table& table) {
    table.section("rotation", "Quaternion" + kLetter<T>, 4);
    using Q = QuaternionT<T>;
    using V = Vector3T<T>;
    CONSTANT(Q::kIdentity);
    CONSTRUCT(Q);
    CONSTRUCT(Q, T, T, T, T);
    CONSTRUCT(Q, const T*);
    CONSTRUCT(Q, const V&, T);
    MEMBER(Q&, Q, operator=, (const Q&));
    MEMBER(Q&, Q, operator=, (const T*));
    MEMBER(void, Q, set, (T, T, T, T));
    MEMBER(void, Q, get, (T*, T*, T*, T*) const);
    MEMBER(void, Q, get, (T*) const);
    MEMBER(void, Q, get, (Q&) const);
    MEMBER(T, Q, w, () const);
    MEMBER(T, Q, x, () const);
    MEMBER(T, Q, y, () const);
    MEMBER(T, Q, z, () const);
    INDEXING(Q, T&, const T&);
    POINTERS(Q, T);
    EQUALITY(Q);
    STATIC(bool, Q, areEqualTol, (const Q&, const Q&, T));
    SUMS(Q);
    MEMBER(Q&, Q, operator*=, (const T&));
    MEMBER(Q, Q, operator*, (const T&) const);
    MEMBER(Q&, Q, operator/=, (const T&));
    MEMBER(Q, Q, operator/, (const T&) const);
    MEMBER(T, Q, dot, (const Q&) const);
    MEMBER(T, Q, norm, () const);
    MEMBER(Q&, Q, operator*=, (const Q&));
    MEMBER(Q, Q, operator*, (const Q&) const);
    MEMBER(void, Q, invert, ());
    MEMBER(void, Q, setInverse, (const Q&));
    MEMBER(Q, Q, getInverse, () const);
    MEMBER(V, Q, rotate, (const V&) const);
    MEMBER(V, Q, operator*, (const V&) const);
    MEMBER(void, Q, normalize, ());
    MEMBER(void, Q, fromAxisAngle, (T, T, T, T));
    MEMBER(void, Q, fromAxisAngle, (const V&, const T&));
    MEMBER(void, Q, toAxisAngle, (T*, T*, T*, T*) const);
    MEMBER(void, Q, toAxisAngle, (V*, T*) const);
    MEMBER(void, Q, fromEulerXYZ, (T, T, T));
    MEMBER(void, Q, toEulerXYZ, (T*, T*, T*) const);
    MEMBER(void, Q, toEulerXYZ, (V*) const);
    MEMBER(void, Q, finiteRotation, (const V&, T));
    MEMBER(Q, Q, slerp, (const Q&, T) const);
    MEMBER(void, Q, fromRotation, (const V&, const V&));
}

template <class T>
void addBoundingBox(Table& table) {
    table.section("bounds", "BoundingBox" + kLetter<T>, 8);
    using B = BoundingBoxT<T>;
    using V = Vector3T<T>;
    using M = Matrix44T<T>;
    CONSTRUCT(B);
    CONSTRUCT(B, T, T, T, T, T, T);
    CONSTRUCT(B, const V&, const V&);
    MEMBER(void, B, init, ());
    MEMBER(void, B, set, (T, T, T, T, T, T));
    MEMBER(void, B, set, (const V&, const V&));
    COMPONENT(B, T, xMin);
    COMPONENT(B, T, yMin);
    COMPONENT(B, T, zMin);
    COMPONENT(B, T, xMax);
    COMPONENT(B, T, yMax);
    COMPONENT(B, T, zMax);
    MEMBER(V&, B, getMin, ());
    MEMBER(V&, B, getMax, ());
    MEMBER(const V&, B, getMin, () const);
    MEMBER(const V&, B, getMax, () const);
    MEMBER(V, B, corner, (unsigned int) const);
    MEMBER(bool, B, valid, () const);
    MEMBER(V, B, center, () const);
    MEMBER(V, B, getBBSize, () const);
    MEMBER(T, B, radius, () const);
    MEMBER(T, B, radius2, () const);
    MEMBER(void, B, expandBy, (T, T, T));
    MEMBER(void, B, expandBy, (const BoundingSphere&));
    MEMBER(B&, B, operator+=, (const B&));
    MEMBER(B, B, operator+, (const B&) const);
    MEMBER(B&, B, operator+=, (const BoundingSphere&));
    MEMBER(B, B, operator+, (const BoundingSphere&) const);
    MEMBER(bool, B, contains, (const V&) const);
    MEMBER(bool, B, intersects, (const B&) const);
    MEMBER(B, B, intersect, (const B&) const);
    MEMBER(bool, B, intersect, (const V&, const V&) const);
    STATIC(bool, B, isBetween, (T, T, T));
    MEMBER(void, B, transform, (const M&));
    MEMBER(void, B, inverseTransform, (const M&));
}

template <class T>
void addPlane(Table& table) {
    table.section("bounds", "Plane" + kLetter<T>, 1);
    using P = PlaneT<T>;
    using V = Vector3T<T>;
    using V4 = Vector4T<T>;
    using M = Matrix44T<T>;
    CONSTRUCT(P);
    CONSTRUCT(P, const P&);
    CONSTRUCT(P, T, T, T, T);
    CONSTRUCT(P, const V4&);
    CONSTRUCT(P, const V&, const V&);
    CONSTRUCT(P, const V&, const V&, const V&);
    MEMBER(P&, P, operator=, (const P&));
    MEMBER(void, P, set, (T, T, T, T));
    MEMBER(void, P, set, (const V4&));
    MEMBER(const V4&, P, getAsVector4, () const);
    MEMBER(V, P, getNormal, () const);
    MEMBER(unsigned int, P, upperBBCorner, () const);
    MEMBER(unsigned int, P, lowerBBCorner, () const);
    EQUALITY(P);
    MEMBER(T, P, distance, (const V&) const);
    MEMBER(int, P, intersect, (const BoundingBoxT<T>&) const);
    MEMBER(int, P, intersectBoundingSphere, (const V&, T) const);
    MEMBER(void, P, makeUnitLength, ());
    MEMBER(unsigned int, P, calculateUpperLowerBBCorners, ());
    MEMBER(void, P, transform, (const M&));
    MEMBER(void, P, transformProvidingInverse, (const M&));
}

void addBoundingSphere(Table& table) {
    table.section("bounds", "BoundingSphere", 1);
    using S = BoundingSphere;
    CONSTRUCT(S);
    CONSTRUCT(S, const Vector3d&, double);
    MEMBER(void, S, init, ());
    MEMBER(void, S, set, (const Vector3d&, double));
    MEMBER(const Vector3d&, S, center, () const);
    MEMBER(Vector3d&, S, center, ());
    COMPONENT(S, double, radius);
    MEMBER(bool, S, valid, () const);
    MEMBER(void, S, expandBy, (const Vector3d&));
    MEMBER(void, S, expandBy, (const S&));
    MEMBER(void, S, expandBy, (const BoundingBoxd&));
    MEMBER(void, S, expandRadiusBy, (const Vector3d&));
    MEMBER(void, S, expandRadiusBy, (const S&));
    MEMBER(void, S, expandRadiusBy, (const BoundingBoxd&));
}

void addPolytope(Table& table) {
    table.section("bounds", "Polytope", 1);
    using P = Polytope;
    CONSTRUCT(P);  // and the destructor
    CONSTRUCT(P, const std::vector<Planed>&);
    CONSTRUCT(P, const P&);
    MEMBER(P&, P, operator=, (const P&));
    MEMBER(void, P, set, (const std::vector<Planed>&));
    MEMBER(void, P, add, (const Planed&));
    MEMBER(void, P, clear, ());
    MEMBER(void, P, setToBoundingBox, (const BoundingBoxd&));
    MEMBER(const std::vector<Planed>&, P, getPlanes, () const);
    MEMBER(void, P, setupMask, ());
    MEMBER(void, P, pushCurrentMask, ());
    MEMBER(void, P, popCurrentMask, ());
    MEMBER(unsigned int, P, getCurrentMask, () const);
    MEMBER(const std::vector<unsigned int>&, P, getMaskStack, () const);
    MEMBER(bool, P, contains, (const BoundingBoxd&));
    MEMBER(void, P, transformProvidingInverse, (const Matrix44d&));
    MEMBER(void, P, transform, (const Matrix44d&));
}

void addFrustum(Table& table) {
    table.section("bounds", "Frustum", 6);
    using F = Frustum;
    CONSTRUCT(F);
    CONSTRUCT(F, const F&);
    MEMBER(F&, F, operator=, (const F&));
    MEMBER(void, F, setToWorldSpaceFrustum, (const Matrix44f&, const Matrix44f&));
    MEMBER(const Planef&, F, getPlane, (unsigned int) const);
    STATIC(void, , getWorldSpaceSegment, (const Matrix44f&, const Vector3f&, Vector3f&, Vector3f&));
}

void addEulerAngles(Table& table) {
    table.section("rotation", "KyEulerAngles", 3);
    using E = Ky::KyEulerAngles;
    using Order = E::eEulerOrder;
    CONSTANT(E::defaultEulerOrder);
    CONSTRUCT(E);
    CONSTRUCT(E, double, double, double, Order);
    CONSTRUCT(E, const Vector3d&, Order);
    MEMBER(void, E, set, (double, double, double, Order));
    MEMBER(void, E, setOrder, (Order));
    MEMBER(double&, E, operator[], (int));
    MEMBER(const double&, E, operator[], (int) const);
    MEMBER(Vector3d, E, angles, () const);
    MEMBER(Order, E, order, () const);
    MEMBER(void, E, toMatrix44, (double(*)[4]) const);
    MEMBER(void, E, fromMatrix44, (const double(*)[4], Order));
    STATIC(Vector3d, E, getEulerAngles, (const Vector3d&, Order, Order));
    STATIC(bool, E, areEqualTolAndSameOrder, (const E&, const E&, double));
    STATIC(bool, E, areEqualTol, (const E&, const E&, double));
    STATIC(std::ostream&, Ky, operator<<, (std::ostream&, const E&));
}

void addTransform(Table& table) {
    table.section("rotation", "KyTransform", 4);
    using T = Ky::KyTransform;
    using V = Vector3d;
    using Q = Quaterniond;
    using D = double;
    CONSTANT(T::kIdentity);
    CONSTRUCT(T);
    CONSTRUCT(T, D, D, D, D, D, D, D, D, D, D, D, D, D, D, D, D);
    CONSTRUCT(T, const Matrix44d&);
    CONSTRUCT(T, const V&, const Ky::KyEulerAngles&);
    STATIC(T, T, createIdentity, ());
    MEMBER(void, T, set, (const float*));
    MEMBER(void, T, set, (const double*));
    MEMBER(void, T, set, (const double(*)[4]));
    MEMBER(void, T, set, (const Matrix44d&));
    MEMBER(double&, T, operator(), (unsigned long, unsigned long));
    MEMBER(double, T, operator(), (unsigned long, unsigned long) const);
    INDEXING(T, double*, const double*);
    POINTERS(T, double);
    POINTERS(T, Ky::KyReal4);
    MEMBER(Matrix44d, T, toMatrix44, () const);
    MEMBER(V, T, getTranslation, () const);
    MEMBER(void, T, setTranslation, (const V&));
    EQUALITY(T);
    MEMBER(bool, T, isIdentity, (double) const);
    MEMBER(bool, T, isValid, () const);
    MEMBER(void, T, setRotation, (const V&, const V&, const V&));
    MEMBER(T&, T, setRotation, (const Q&));
    MEMBER(bool, T, setRotation, (V, double));
    MEMBER(T&, T, makeRotationFromQuaternion, (const Q&));
    table.limit(3);
    MEMBER(void, T, makeOrthonormal, (int));
    table.limit(4);
    MEMBER(T&, T, rotateSelf, (const V&, double));
    MEMBER(T&, T, makeRotation, (const Q&));
    MEMBER(bool, T, makeRotation, (V, double));
    MEMBER(void, T, makeFromRotatedVector, (const V&, const V&));
    STATIC(T, T, outerProduct3x3, (const V&, const V&));
    MEMBER(void, T, toQuaternion, (Q&) const);
    MEMBER(V, T, transformPoint, (const V&) const);
    MEMBER(V, T, transformDirection, (const V&) const);
    MEMBER(T&, T, compound, (const T&, const T&));
    MEMBER(T&, T, compoundFirstThenInverseSecond, (const T&, const T&));
    MEMBER(T&, T, compoundInverseFirstThenSecond, (const T&, const T&));
    MEMBER(T&, T, postCompound, (const T&));
    MEMBER(T&, T, postCompoundWithInverse, (const T&));
    MEMBER(T&, T, preCompound, (const T&));
    MEMBER(T&, T, preCompoundWithInverse, (const T&));
    MEMBER(T&, T, interpolateRotation, (const T&, const T&, double));
    MEMBER(T&, T, interpolate, (const T&, const T&, double));
}

void addLines(Table& table) {
    table.section("bounds", "Segment3", 1);
    LINE(Segment3);
    table.section("bounds", "Line3", 3);
    LINE(Line3);
    MEMBER(bool, Line3, isValid, () const);
    MEMBER(bool, Line3, isParallel, (const Line3&) const);
    MEMBER(double, Line3, distanceTo, (const Vector3d&, double, int*, Vector3d*));
    STATIC(std::ostream&, KyMath, operator<<, (std::ostream&, const Line3&));
}

void addCurves(Table& table) {
    using Points = std::vector<Vector3d>;
    table.section("curve", "Curves", 40);
    STATIC(bool, KyMath, CreateLinearInterpolation,
           (const Vector3d&, const Vector3d&, unsigned, Points&));
    STATIC(bool, KyMath, CreateBezier, (const Points&, unsigned, Points&));
    STATIC(bool, KyMath, CreateCatmullRomSpline, (const Points&, unsigned, Points&));
    STATIC(bool, KyMath, CreateBSpline, (const Points&, unsigned, Points&));
    STATIC(bool, KyMath, CreateCurve, (eCurveType, const Points&, unsigned, Points&));
}

/// The functions on arrays, with seven elements. Bytes of results are packed into a number.
namespace batch {

template <class V>
using Array = std::array<V, 7>;

template <class Byte>
std::uint64_t pack(const Array<Byte>& bytes) {
    std::uint64_t packed = 0;
    for (const Byte b : bytes) packed = packed << 8 | static_cast<unsigned char>(b);
    return packed;
}

template <class T>
void transformPositions(const Matrix44T<T>& m, const Array<Vector3T<T>>& in,
                        Array<Vector3T<T>>& out) {
    Batch::transformPositions(m, in.data(), out.data(), in.size());
}
template <class T>
void transformDirections(const Matrix44T<T>& m, const Array<Vector3T<T>>& in,
                         Array<Vector3T<T>>& out) {
    Batch::transformDirections(m, in.data(), out.data(), in.size());
}
template <class T>
void transformBoxes(const Matrix44T<T>& m, const Array<BoundingBoxT<T>>& in,
                    Array<BoundingBoxT<T>>& out) {
    Batch::transformBoxes(m, in.data(), out.data(), in.size());
}
template <class T>
void multiply(const Array<Matrix44T<T>>& a, const Array<Matrix44T<T>>& b,
              Array<Matrix44T<T>>& out) {
    Batch::multiply(a.data(), b.data(), out.data(), a.size());
}
template <class T>
void multiplyByOne(const Matrix44T<T>& a, const Array<Matrix44T<T>>& b, Array<Matrix44T<T>>& out) {
    Batch::multiply(a, b.data(), out.data(), b.size());
}
void compound(const Array<Ky::KyTransform>& a, const Array<Ky::KyTransform>& b,
              Array<Ky::KyTransform>& out) {
    Batch::compound(a.data(), b.data(), out.data(), a.size());
}
template <class T>
std::uint64_t classify(const PlaneT<T>& plane, const Array<BoundingBoxT<T>>& boxes) {
    Array<signed char> sides;
    Batch::classify(plane, boxes.data(), sides.data(), boxes.size());
    return pack(sides);
}
std::uint64_t cull(const Polytope& region, const Array<BoundingBoxd>& boxes) {
    Array<unsigned char> visible;
    Batch::cull(region, boxes.data(), visible.data(), boxes.size());
    return pack(visible);
}

template <class T>
void add(Table& table) {
    using M = Matrix44T<T>;
    using Matrices = Array<M>;
    using Vectors = Array<Vector3T<T>>;
    using Boxes = Array<BoundingBoxT<T>>;
    table.section("bounds", "Batch" + kLetter<T>, 1);
    STATIC(void, batch, transformPositions<T>, (const M&, const Vectors&, Vectors&));
    STATIC(void, batch, transformDirections<T>, (const M&, const Vectors&, Vectors&));
    STATIC(void, batch, transformBoxes<T>, (const M&, const Boxes&, Boxes&));
    STATIC(void, batch, multiply<T>, (const Matrices&, const Matrices&, Matrices&));
    STATIC(void, batch, multiplyByOne<T>, (const M&, const Matrices&, Matrices&));
    STATIC(std::uint64_t, batch, classify<T>, (const PlaneT<T>&, const Boxes&));
}
void addDouble(Table& table) {
    using Transforms = Array<Ky::KyTransform>;
    table.section("bounds", "Batch", 1);
    STATIC(void, batch, compound, (const Transforms&, const Transforms&, Transforms&));
    STATIC(std::uint64_t, batch, cull, (const Polytope&, const Array<BoundingBoxd>&));
}

}  // namespace batch

template <class T>
void addTemplates(Table& table) {
    table.section("vector", "Tolerance" + kLetter<T>, 1);
    CONSTANT(Ky::KY_SMALL_REAL<T>::epsilon);
    addVector2<T>(table);
    addVector3<T>(table);
    addVector4<T>(table);
    addMatrix<T>(table);
    addTransformation<T>(table);
    addQuaternion<T>(table);
    addBoundingBox<T>(table);
    addPlane<T>(table);
}

}  // namespace

std::vector<Function> functions() {
    Table table;
    addTemplates<float>(table);
    addTemplates<double>(table);
    table.section("vector", "Ky", 1);
    STATIC(bool, Ky, KY_ARE_EQUAL<double>, (double, double));
    STATIC(bool, Ky, KyComputeAngle, (const Vector3d&, const Vector3d&, double&));
    addVector6(table);
    addBoundingSphere(table);
    addPolytope(table);
    addFrustum(table);
    addEulerAngles(table);
    addTransform(table);
    addLines(table);
    addCurves(table);
    batch::add<float>(table);
    batch::add<double>(table);
    batch::addDouble(table);
    return table.functions;
}

}  // namespace test
}  // namespace KyMath
