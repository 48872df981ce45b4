// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// Every public member and free function with its exact signature, in both instantiations. The
// signature says which arguments are drawn. A function that is exported but not listed here fails a
// test.
#include "Table.h"

namespace KyMath::test {
namespace {

/// The functions of a type, whose indices are below limit.
struct Table : std::vector<Function> {
    template <class... E>
    void add(const char* layer, const std::string& type, unsigned limit, const E&... entries) {
        for (const Entry* e : {&entries...}) push_back({layer, type + e->name, limit, e->code});
    }
};

template <class T>
const std::string kLetter = sizeof(T) == 4 ? "f" : "d";

// Entries: (result, name, (arguments) const) of a member of Self, the same without const of a
// static member of Self or a free function, (class, argument types...) of a constructor. Their text
// is the name in results.txt.
#define MEMBER(R, name, ...)                                                                      \
    Entry("::" #name #__VA_ARGS__, Plain<static_cast<R(Self::*) __VA_ARGS__>(&Self::name)>::call, \
          true)
#define STATIC(R, name, ...) FREE_AS(R, Self::name, "::" #name, __VA_ARGS__)
#define FREE(R, name, ...) FREE_AS(R, name, "::" #name, __VA_ARGS__)
#define FREE_AS(R, function, name, ...) \
    Entry(name #__VA_ARGS__, Plain<static_cast<R(*) __VA_ARGS__>(&function)>::call)
#define CONSTRUCT(...) Entry(" " #__VA_ARGS__, construct<__VA_ARGS__>)
#define CONSTANT(name) \
    Entry(             \
        " " #name, +[]() -> const decltype(name)& { return name; })

// What several types share.
#define INDEXING(R, CR)                                                                    \
    MEMBER(R, operator[], (int)), MEMBER(R, operator[], (unsigned int)),                   \
        MEMBER(R, operator[], (long)), MEMBER(R, operator[], (unsigned long)),             \
        MEMBER(CR, operator[], (int) const), MEMBER(CR, operator[], (unsigned int) const), \
        MEMBER(CR, operator[], (long) const), MEMBER(CR, operator[], (unsigned long) const)
#define POINTERS(T) MEMBER(T*, operator T*, ()), MEMBER(const T*, operator const T*, () const)
#define EQUALITY(C) \
    MEMBER(bool, operator==, (const C&) const), MEMBER(bool, operator!=, (const C&) const)
#define SUMS(C)                                                                 \
    MEMBER(C&, operator+=, (const C&)), MEMBER(C, operator+, (const C&) const), \
        MEMBER(C&, operator-=, (const C&)), MEMBER(C, operator-, (const C&) const)
#define COMPONENT(T, name) MEMBER(T, name, () const), MEMBER(T&, name, ())
#define VECTOR(C, T)                                                                             \
    INDEXING(T&, const T&), POINTERS(T), EQUALITY(C), MEMBER(bool, operator<, (const C&) const), \
        MEMBER(bool, operator>, (const C&) const),                                               \
        STATIC(bool, areEqualTol, (const C&, const C&, double)), SUMS(C),                        \
        MEMBER(C&, operator/=, (T)), MEMBER(T, normSquare, () const),                            \
        MEMBER(T, lengthSqr, () const), MEMBER(T, norm, () const), MEMBER(T, length, () const),  \
        MEMBER(void, normalize, ()), MEMBER(bool, normalize, (T, T*))
#define SPACE_VECTOR(C, T)                                                          \
    VECTOR(C, T), MEMBER(bool, isZero, () const), MEMBER(bool, isFinite, () const), \
        MEMBER(C&, operator*=, (T)), MEMBER(C, operator/, (const T&) const),        \
        MEMBER(C, operator*, (const T&) const), MEMBER(C, operator-, () const),     \
        MEMBER(T, operator*, (const C&) const)
#define LINE(C)                                                         \
    CONSTRUCT(C), CONSTRUCT(C, const Vector3d&, const Vector3d&),       \
        MEMBER(double, closestPointFactor, (const Vector3d&) const),    \
        MEMBER(double, closestPointFactor, (const C&) const),           \
        MEMBER(Vector3d, closestPointTo, (const Vector3d&) const),      \
        MEMBER(Vector3d, closestPointTo, (const C&) const),             \
        MEMBER(double, distanceTo, (const Vector3d&, Vector3d*) const), \
        MEMBER(double, distanceTo, (const C&, Vector3d*) const)

template <class T>
void addVector2(Table& table) {
    using V = Vector2T<T>;
    using Self = V;
    table.add("vector", "Vector2" + kLetter<T>, 2, CONSTANT(V::kZero), CONSTRUCT(V),
              CONSTRUCT(V, const T*), CONSTRUCT(V, T, T), MEMBER(V&, operator=, (const V&)),
              MEMBER(void, set, (T, T)), COMPONENT(T, x), COMPONENT(T, y), VECTOR(V, T),
              MEMBER(V, operator/, (T) const), MEMBER(T, normSquare, ()),
              MEMBER(T, dot, (const V&) const), MEMBER(T, cross, (const V&) const),
              MEMBER(V&, rotate, (T)));
}

template <class T>
void addVector3(Table& table) {
    using V = Vector3T<T>;
    using Self = V;
    table.add(
        "vector", "Vector3" + kLetter<T>, 3, CONSTANT(V::kZero), CONSTRUCT(V),
        CONSTRUCT(V, const T*), CONSTRUCT(V, T, T, T), MEMBER(void, set, (T, T, T)),
        STATIC(void, set, (double*, const V&)), COMPONENT(T, x), COMPONENT(T, y), COMPONENT(T, z),
        STATIC(V*, cast, (T*)), STATIC(const V*, constCast, (const T*)), SPACE_VECTOR(V, T),
        MEMBER(void, multComp, (const V&)), STATIC(V, multComp, (const V&, const V&)),
        MEMBER(void, addMultiple, (const T&, const V&)),
        MEMBER(void, setLinear, (const T&, const V&, const T&, const V&)),
        MEMBER(V, cross, (const V&) const), MEMBER(void, postCross, (const V&)),
        MEMBER(void, preCross, (const V&)), MEMBER(void, setCross, (const V&, const V&)),
        STATIC(T, distanceSqr, (const V&, const V&)), STATIC(T, distance, (const V&, const V&)),
        MEMBER(int, maxComponentIndex, () const), MEMBER(bool, makeCleanBase, (T)),
        MEMBER(void, setOrthogonal, (const V&)), MEMBER(V, getOrthogonal, () const),
        MEMBER(void, orthogonalize, (const V&)), MEMBER(void, project, (const V&, V*, V*) const),
        MEMBER(void, planeSpace, (V&, V&) const),
        STATIC(bool, planeNormal, (const V&, const V&, const V&, V&)),
        MEMBER(void, print, (const char*) const));
}

template <class T>
void addVector4(Table& table) {
    using V = Vector4T<T>;
    using Self = V;
    table.add("vector", "Vector4" + kLetter<T>, 4, CONSTRUCT(V), CONSTRUCT(V, const V&),
              CONSTRUCT(V, const T*), CONSTRUCT(V, const std::array<T, 4>&),
              CONSTRUCT(V, T, T, T, T), CONSTRUCT(V, const Vector3T<T>&, T),
              MEMBER(V&, operator=, (const V&)), MEMBER(V&, operator=, (const T*)),
              MEMBER(void, set, (T, T, T, T)), MEMBER(void, set, (const V&)), COMPONENT(T, x),
              COMPONENT(T, y), COMPONENT(T, z), COMPONENT(T, w), MEMBER(Vector3T<T>, xyz, () const),
              SPACE_VECTOR(V, T), MEMBER(T, dot, (const V&) const));
}

void addVector6(Table& table) {
    using Self = Vector6;
    table.add(
        "vector", "Vector6", 6, CONSTRUCT(Vector6, double, double, double, double, double, double),
        CONSTRUCT(Vector6, const double*, const double*),
        MEMBER(Vector6&, operator=, (const Vector6&)),
        MEMBER(void, set, (const Vector3d&, const Vector3d&)), MEMBER(double&, operator[], (int)),
        MEMBER(const double&, operator[], (int) const), MEMBER(void, add, (const Vector6&)),
        MEMBER(void, sub, (const Vector6&)), MEMBER(void, scale, (double)),
        MEMBER(double, dot, (const Vector6&) const), MEMBER(double, norm, () const),
        FREE(std::ostream&, operator<<, (std::ostream&, const Vector6&)));
}

template <class T>
void addMatrix(Table& table) {
    using M = Matrix44T<T>;
    using Self = M;
    using V = Vector4T<T>;
    table.add(
        "matrix", "Matrix44" + kLetter<T>, 4, CONSTANT(M::kZero), CONSTANT(M::kIdentity),
        CONSTRUCT(M), CONSTRUCT(M, T, T, T, T, T, T, T, T, T, T, T, T, T, T, T, T),
        CONSTRUCT(M, const T*), CONSTRUCT(M, const T(*)[4]),
        CONSTRUCT(M, const V&, const V&, const V&, const V&), CONSTRUCT(M, const double(*)[3]),
        CONSTRUCT(M, const M&), MEMBER(M&, operator=, (const M&)),
        MEMBER(T&, operator(), (unsigned long, unsigned long)),
        MEMBER(T, operator(), (unsigned long, unsigned long) const), INDEXING(T*, const T*),
        MEMBER(Vector4T<T>, row, (unsigned long) const), MEMBER(T*, column, (unsigned long)),
        MEMBER(Vector4T<T>, column, (unsigned long) const), POINTERS(T), POINTERS(Ky::KyReal4),
        EQUALITY(M), MEMBER(bool, isEqual, (const M&, T) const),
        STATIC(bool, areEqualTol, (const M&, const M&, double)), MEMBER(bool, isFinite, () const),
        STATIC(M, multiply, (const M&, const M&)), STATIC(M, multiply, (const M&, T)),
        STATIC(M, divide, (const M&, T)),
        STATIC(Vector4T<T>, multiplyWithVector, (const M&, const Vector4T<T>&)),
        MEMBER(M&, operator*=, (T)), MEMBER(M&, operator/=, (T)), MEMBER(M&, transpose, ()),
        MEMBER(T, determinant3x3,
               (unsigned long, unsigned long, unsigned long, unsigned long, unsigned long,
                unsigned long) const),
        MEMBER(T, determinant, () const), MEMBER(M, inverse, () const), MEMBER(M&, invert, ()),
        MEMBER(M, inverse_orthogonal, () const), MEMBER(M&, invert_orthogonal, ()),
        MEMBER(M, inverse_affine, () const), MEMBER(M&, invert_affine, ()));
}

template <class T>
void addTransformation(Table& table) {
    using namespace Transformation;
    using M = Matrix44T<T>;
    using V = Vector3T<T>;
    using Q = QuaternionT<T>;
    table.add("matrix", "Transformation" + kLetter<T>, 4, FREE(M, createScaleT<T>, (T, T, T)),
              FREE(M, createScaleT<T>, (const V&)), FREE(M, createTranslationT<T>, (T, T, T)),
              FREE(M, createTranslationT<T>, (const V&)), FREE(M, createRotationT<T>, (T, T, T)),
              FREE(M, createRotationT<T>, (const Q&)), FREE(M, createRotationT<T>, (const V&, T)),
              FREE(M, createRotationFromAxesT<T>, (const V&, const V&, const V&)),
              FREE(M, createRotationFromOuterProductT<T>, (const V&, const V&)),
              FREE(M, createObjectLookAtT<T>, (const V&, const V&, const V&)),
              FREE(M, createCameraLookAtT<T>, (const V&, const V&, const V&)),
              FREE(M, createOrthographicT<T>, (T, T, T, T, T, T)),
              FREE(bool, getOrthographicT<T>, (const M&, T&, T&, T&, T&, T&, T&)),
              FREE(M, createFrustumT<T>, (T, T, T, T, T, T)),
              FREE(bool, getFrustumT<T>, (const M&, T&, T&, T&, T&, T&, T&)),
              FREE(M, createPerspectiveT<T>, (T, T, T, T)),
              FREE(bool, isPerspectiveProjectionT<T>, (const M&)),
              FREE(V, getTranslationT<T>, (const M&)), FREE(V, getScaleT<T>, (const M&)),
              FREE(V, getRotationT<T>, (const M&, bool)),
              FREE(Q, getRotationAsQuaternionT<T>, (const M&, bool)),
              FREE(void, decomposeT<T>, (const M&, V&, V&, V&, T&)),
              FREE(M, composeT<T>, (const V&, const V&, const V&, T)),
              FREE(void, setTranslationT<T>, (M&, const V&)),
              FREE(M, translateToT<T>, (const M&, const V&)),
              FREE(void, setRotationT<T>, (M&, const V&)),
              FREE(M, rotateToT<T>, (const M&, const V&)), FREE(void, setScaleT<T>, (M&, const V&)),
              FREE(M, scaleToT<T>, (const M&, const V&)),
              FREE(V, transformPositionT<T>, (const M&, const V&)),
              FREE(V, transformDirectionT<T>, (const M&, const V&)),
              FREE(V, linearVelocityT<T>, (const M&, const M&, T)),
              FREE(V, angularVelocityT<T>, (const M&, const M&, T)),
              FREE(bool, isRotation<T>, (const M&, T)));
}

template <class T>
void addQuaternion(Table& table) {
    using Q = QuaternionT<T>;
    using Self = Q;
    using V = Vector3T<T>;
    table.add("rotation", "Quaternion" + kLetter<T>, 4, CONSTANT(Q::kIdentity), CONSTRUCT(Q),
              CONSTRUCT(Q, T, T, T, T), CONSTRUCT(Q, const T*), CONSTRUCT(Q, const V&, T),
              MEMBER(Q&, operator=, (const Q&)), MEMBER(Q&, operator=, (const T*)),
              MEMBER(void, set, (T, T, T, T)), MEMBER(void, get, (T*, T*, T*, T*) const),
              MEMBER(void, get, (T*) const), MEMBER(void, get, (Q&) const), MEMBER(T, w, () const),
              MEMBER(T, x, () const), MEMBER(T, y, () const), MEMBER(T, z, () const),
              INDEXING(T&, const T&), POINTERS(T), EQUALITY(Q),
              STATIC(bool, areEqualTol, (const Q&, const Q&, T)), SUMS(Q),
              MEMBER(Q&, operator*=, (const T&)), MEMBER(Q, operator*, (const T&) const),
              MEMBER(Q&, operator/=, (const T&)), MEMBER(Q, operator/, (const T&) const),
              MEMBER(T, dot, (const Q&) const), MEMBER(T, norm, () const),
              MEMBER(Q&, operator*=, (const Q&)), MEMBER(Q, operator*, (const Q&) const),
              MEMBER(void, invert, ()), MEMBER(void, setInverse, (const Q&)),
              MEMBER(Q, getInverse, () const), MEMBER(V, rotate, (const V&) const),
              MEMBER(V, operator*, (const V&) const), MEMBER(void, normalize, ()),
              MEMBER(void, fromAxisAngle, (T, T, T, T)),
              MEMBER(void, fromAxisAngle, (const V&, const T&)),
              MEMBER(void, toAxisAngle, (T*, T*, T*, T*) const),
              MEMBER(void, toAxisAngle, (V*, T*) const), MEMBER(void, fromEulerXYZ, (T, T, T)),
              MEMBER(void, toEulerXYZ, (T*, T*, T*) const), MEMBER(void, toEulerXYZ, (V*) const),
              MEMBER(void, finiteRotation, (const V&, T)), MEMBER(Q, slerp, (const Q&, T) const),
              MEMBER(void, fromRotation, (const V&, const V&)));
}

template <class T>
void addBoundingBox(Table& table) {
    using B = BoundingBoxT<T>;
    using Self = B;
    using V = Vector3T<T>;
    using M = Matrix44T<T>;
    table.add(
        "bounds", "BoundingBox" + kLetter<T>, 8, CONSTRUCT(B), CONSTRUCT(B, T, T, T, T, T, T),
        CONSTRUCT(B, const V&, const V&), MEMBER(void, init, ()),
        MEMBER(void, set, (T, T, T, T, T, T)), MEMBER(void, set, (const V&, const V&)),
        COMPONENT(T, xMin), COMPONENT(T, yMin), COMPONENT(T, zMin), COMPONENT(T, xMax),
        COMPONENT(T, yMax), COMPONENT(T, zMax), MEMBER(V&, getMin, ()), MEMBER(V&, getMax, ()),
        MEMBER(const V&, getMin, () const), MEMBER(const V&, getMax, () const),
        MEMBER(V, corner, (unsigned int) const), MEMBER(bool, valid, () const),
        MEMBER(V, center, () const), MEMBER(V, getBBSize, () const), MEMBER(T, radius, () const),
        MEMBER(T, radius2, () const), MEMBER(void, expandBy, (T, T, T)),
        MEMBER(void, expandBy, (const V&)), MEMBER(void, expandBy, (const BoundingSphere&)),
        MEMBER(B&, operator+=, (const B&)), MEMBER(B, operator+, (const B&) const),
        MEMBER(B&, operator+=, (const BoundingSphere&)),
        MEMBER(B, operator+, (const BoundingSphere&) const),
        MEMBER(bool, contains, (const V&) const), MEMBER(bool, intersects, (const B&) const),
        MEMBER(B, intersect, (const B&) const), MEMBER(bool, intersect, (const V&, const V&) const),
        STATIC(bool, isBetween, (T, T, T)), MEMBER(void, transform, (const M&)),
        MEMBER(void, inverseTransform, (const M&)));
}

template <class T>
void addPlane(Table& table) {
    using P = PlaneT<T>;
    using Self = P;
    using V = Vector3T<T>;
    using V4 = Vector4T<T>;
    using M = Matrix44T<T>;
    table.add(
        "bounds", "Plane" + kLetter<T>, 1, CONSTRUCT(P), CONSTRUCT(P, const P&),
        CONSTRUCT(P, T, T, T, T), CONSTRUCT(P, const V4&), CONSTRUCT(P, const V&, const V&),
        CONSTRUCT(P, const V&, const V&, const V&), MEMBER(P&, operator=, (const P&)),
        MEMBER(void, set, (T, T, T, T)), MEMBER(void, set, (const V4&)),
        MEMBER(const V4&, getAsVector4, () const), MEMBER(V, getNormal, () const),
        MEMBER(unsigned int, upperBBCorner, () const),
        MEMBER(unsigned int, lowerBBCorner, () const), EQUALITY(P),
        MEMBER(T, distance, (const V&) const),
        MEMBER(int, intersect, (const BoundingBoxT<T>&) const),
        MEMBER(int, intersectBoundingSphere, (const V&, T) const), MEMBER(void, makeUnitLength, ()),
        MEMBER(unsigned int, calculateUpperLowerBBCorners, ()), MEMBER(void, transform, (const M&)),
        MEMBER(void, transformProvidingInverse, (const M&)));
}

template <class T>
void addRays(Table& table) {
    using V = Vector3T<T>;
    using Rays::intersect;
    table.add(
        "bounds", "Rays" + kLetter<T>, 1,
        FREE(bool, intersect, (const V&, const V&, const BoundingBoxT<T>&, T*, T*)),
        FREE(bool, intersect, (const V&, const V&, const PlaneT<T>&, T*)),
        FREE(bool, intersect, (const V&, const V&, const V&, const V&, const V&, T*, T*, T*)));
}

void addBoundingSphere(Table& table) {
    using S = BoundingSphere;
    using Self = S;
    table.add("bounds", "BoundingSphere", 1, CONSTRUCT(S), CONSTRUCT(S, const Vector3d&, double),
              MEMBER(void, init, ()), MEMBER(void, set, (const Vector3d&, double)),
              MEMBER(const Vector3d&, center, () const), MEMBER(Vector3d&, center, ()),
              COMPONENT(double, radius), MEMBER(bool, valid, () const),
              MEMBER(void, expandBy, (const Vector3d&)), MEMBER(void, expandBy, (const S&)),
              MEMBER(void, expandBy, (const BoundingBoxd&)),
              MEMBER(void, expandRadiusBy, (const Vector3d&)),
              MEMBER(void, expandRadiusBy, (const S&)),
              MEMBER(void, expandRadiusBy, (const BoundingBoxd&)));
}

void addPolytope(Table& table) {
    using P = Polytope;
    using Self = P;
    table.add("bounds", "Polytope", 1, CONSTRUCT(P), CONSTRUCT(P, const std::vector<Planed>&),
              CONSTRUCT(P, const P&), MEMBER(P&, operator=, (const P&)),
              MEMBER(void, set, (const std::vector<Planed>&)), MEMBER(void, add, (const Planed&)),
              MEMBER(void, clear, ()), MEMBER(void, setToBoundingBox, (const BoundingBoxd&)),
              MEMBER(const std::vector<Planed>&, getPlanes, () const), MEMBER(void, setupMask, ()),
              MEMBER(void, pushCurrentMask, ()), MEMBER(void, popCurrentMask, ()),
              MEMBER(unsigned int, getCurrentMask, () const),
              MEMBER(const std::vector<unsigned int>&, getMaskStack, () const),
              MEMBER(bool, contains, (const BoundingBoxd&)),
              MEMBER(void, transformProvidingInverse, (const Matrix44d&)),
              MEMBER(void, transform, (const Matrix44d&)));
}

void addFrustum(Table& table) {
    using F = Frustum;
    using Self = F;
    table.add("bounds", "Frustum", 6, CONSTRUCT(F), CONSTRUCT(F, const F&),
              MEMBER(F&, operator=, (const F&)),
              MEMBER(void, setToWorldSpaceFrustum, (const Matrix44f&, const Matrix44f&)),
              MEMBER(const Planef&, getPlane, (unsigned int) const),
              FREE(void, getWorldSpaceSegment,
                   (const Matrix44f&, const Vector3f&, Vector3f&, Vector3f&)));
}

void addEulerAngles(Table& table) {
    using E = Ky::KyEulerAngles;
    using Self = E;
    using Order = E::eEulerOrder;
    using Ky::operator<<;
    table.add("rotation", "KyEulerAngles", 3, CONSTANT(E::defaultEulerOrder), CONSTRUCT(E),
              CONSTRUCT(E, double, double, double, Order), CONSTRUCT(E, const Vector3d&, Order),
              MEMBER(void, set, (double, double, double, Order)), MEMBER(void, setOrder, (Order)),
              MEMBER(double&, operator[], (int)), MEMBER(const double&, operator[], (int) const),
              MEMBER(Vector3d, angles, () const), MEMBER(Order, order, () const),
              MEMBER(void, toMatrix44, (double(*)[4]) const),
              MEMBER(void, fromMatrix44, (const double(*)[4], Order)),
              STATIC(Vector3d, getEulerAngles, (const Vector3d&, Order, Order)),
              STATIC(bool, areEqualTolAndSameOrder, (const E&, const E&, double)),
              STATIC(bool, areEqualTol, (const E&, const E&, double)),
              FREE(std::ostream&, operator<<, (std::ostream&, const E&)));
}

void addTransform(Table& table) {
    using T = Ky::KyTransform;
    using Self = T;
    using V = Vector3d;
    using Q = Quaterniond;
    using D = double;
    table.add("rotation", "KyTransform", 4, CONSTANT(T::kIdentity), CONSTRUCT(T),
              CONSTRUCT(T, D, D, D, D, D, D, D, D, D, D, D, D, D, D, D, D),
              CONSTRUCT(T, const Matrix44d&), CONSTRUCT(T, const V&, const Ky::KyEulerAngles&),
              STATIC(T, createIdentity, ()), MEMBER(void, set, (const float*)),
              MEMBER(void, set, (const double*)), MEMBER(void, set, (const double(*)[4])),
              MEMBER(void, set, (const Matrix44d&)),
              MEMBER(double&, operator(), (unsigned long, unsigned long)),
              MEMBER(double, operator(), (unsigned long, unsigned long) const),
              INDEXING(double*, const double*), POINTERS(double), POINTERS(Ky::KyReal4),
              MEMBER(Matrix44d, toMatrix44, () const), MEMBER(V, getTranslation, () const),
              MEMBER(void, setTranslation, (const V&)), EQUALITY(T),
              MEMBER(bool, isIdentity, (double) const), MEMBER(bool, isValid, () const),
              MEMBER(void, setRotation, (const V&, const V&, const V&)),
              MEMBER(T&, setRotation, (const Q&)), MEMBER(bool, setRotation, (V, double)),
              MEMBER(T&, makeRotationFromQuaternion, (const Q&)));
    table.add("rotation", "KyTransform", 3, MEMBER(void, makeOrthonormal, (int)));
    table.add("rotation", "KyTransform", 4, MEMBER(T&, rotateSelf, (const V&, double)),
              MEMBER(T&, makeRotation, (const Q&)), MEMBER(bool, makeRotation, (V, double)),
              MEMBER(void, makeFromRotatedVector, (const V&, const V&)),
              STATIC(T, outerProduct3x3, (const V&, const V&)),
              MEMBER(void, toQuaternion, (Q&) const), MEMBER(V, transformPoint, (const V&) const),
              MEMBER(V, transformDirection, (const V&) const),
              MEMBER(T&, compound, (const T&, const T&)),
              MEMBER(T&, compoundFirstThenInverseSecond, (const T&, const T&)),
              MEMBER(T&, compoundInverseFirstThenSecond, (const T&, const T&)),
              MEMBER(T&, postCompound, (const T&)), MEMBER(T&, postCompoundWithInverse, (const T&)),
              MEMBER(T&, preCompound, (const T&)), MEMBER(T&, preCompoundWithInverse, (const T&)),
              MEMBER(T&, interpolateRotation, (const T&, const T&, double)),
              MEMBER(T&, interpolate, (const T&, const T&, double)));
}

void addSegment(Table& table) {
    using Self = Segment3;
    table.add("bounds", "Segment3", 1, LINE(Segment3));
}
void addLine(Table& table) {
    using Self = Line3;
    table.add("bounds", "Line3", 3, LINE(Line3), MEMBER(bool, isValid, () const),
              MEMBER(bool, isParallel, (const Line3&) const),
              MEMBER(double, distanceTo, (const Vector3d&, double, int*, Vector3d*)),
              FREE(std::ostream&, operator<<, (std::ostream&, const Line3&)));
}

void addCurves(Table& table) {
    using Points = std::vector<Vector3d>;
    table.add("curve", "Curves", 40,
              FREE(bool, CreateLinearInterpolation,
                   (const Vector3d&, const Vector3d&, unsigned, Points&)),
              FREE(bool, CreateBezier, (const Points&, unsigned, Points&)),
              FREE(bool, CreateCatmullRomSpline, (const Points&, unsigned, Points&)),
              FREE(bool, CreateBSpline, (const Points&, unsigned, Points&)),
              FREE(bool, CreateCurve, (eCurveType, const Points&, unsigned, Points&)));
}

/// The functions on arrays, here of seven elements. Bytes of results are packed into a number.
namespace batch {

using namespace Batch;
constexpr std::size_t kCount = 7;
template <class V>
using Array = std::array<V, kCount>;

template <class V>
V* pass(Array<V>& array) {
    return array.data();
}
template <class V>
const V* pass(const Array<V>& array) {
    return array.data();
}
template <class V>
const V& pass(const V& one) {
    return one;
}
#define ARRAYS(R, name, ...)       \
    Entry("::" #name #__VA_ARGS__, \
          static_cast<R(*) __VA_ARGS__>([](auto&... a) { return name(pass(a)..., kCount); }))

template <class Byte>
std::uint64_t pack(const Array<Byte>& bytes) {
    std::uint64_t packed = 0;
    for (const Byte b : bytes) packed = packed << 8 | static_cast<unsigned char>(b);
    return packed;
}
template <class T>
std::uint64_t classify(const PlaneT<T>& plane, const BoundingBoxT<T>* boxes, std::size_t count) {
    Array<signed char> sides;
    Batch::classify(plane, boxes, sides.data(), count);
    return pack(sides);
}
std::uint64_t cull(const Polytope& region, const BoundingBoxd* boxes, std::size_t count) {
    Array<unsigned char> visible;
    Batch::cull(region, boxes, visible.data(), count);
    return pack(visible);
}
/// Sides, and where they are 0, masks.
std::uint64_t pack(const Array<signed char>& sides, const Array<unsigned int>& masks) {
    std::uint64_t packed = 0;
    for (std::size_t i = 0; i < kCount; ++i) {
        packed = packed * 37 + (sides[i] == 0 ? masks[i] : static_cast<unsigned int>(sides[i] + 5));
    }
    return packed;
}
std::uint64_t cullWithMasks(const Polytope& region, const BoundingBoxd* boxes, std::size_t count) {
    Array<signed char> sides;
    Array<unsigned int> masks;
    Batch::cullWithMasks(region, boxes, sides.data(), masks.data(), count);
    return pack(sides, masks);
}
std::uint64_t cullTree(const Polytope& region, const BoundingBoxd* boxes, std::size_t count) {
    const Array<unsigned int> descendants = {6, 2, 0, 0, 2, 1, 0};
    Array<signed char> sides;
    Array<unsigned int> masks;
    Batch::cullTree(region, boxes, descendants.data(), sides.data(), masks.data(), count);
    return pack(sides, masks);
}
template <class T>
void multiplyByOne(const Matrix44T<T>& a, const Matrix44T<T>* b, Matrix44T<T>* out,
                   std::size_t count) {
    Batch::multiply(a, b, out, count);
}

std::uint64_t cullByFrustum(const Frustum& frustum, const BoundingBoxf* boxes, std::size_t count) {
    Array<unsigned char> visible;
    Batch::cull(frustum, boxes, visible.data(), count);
    return pack(visible);
}
template <class T>
std::uint64_t classifySpheres(const PlaneT<T>& plane, const Vector3T<T>* centers, const T* radii,
                              std::size_t count) {
    Array<signed char> sides;
    Batch::classify(plane, centers, radii, sides.data(), count);
    return pack(sides);
}
template <class T>
BoundingBoxT<T> expandBy(const BoundingBoxT<T>& box, const Vector3T<T>* points, std::size_t count) {
    BoundingBoxT<T> grown(box);
    Batch::expandBy(grown, points, count);
    return grown;
}
template <class T>
void getRotationsAsQuaternions(const Matrix44T<T>* in, QuaternionT<T>* out, std::size_t count) {
    Batch::getRotationsAsQuaternions(in, true, out, count);
}
template <class T>
void getRotations(const Matrix44T<T>* in, Vector3T<T>* out, std::size_t count) {
    Batch::getRotations(in, true, out, count);
}
template <class T>
void intersectTriangles(const Vector3T<T>& origin, const Vector3T<T>& direction,
                        const Vector3T<T>* corners, T* t, std::size_t count) {
    Rays::intersectTriangles(origin, direction, corners, t, count / 3);
}

template <class T>
void add(Table& table) {
    using M = Matrix44T<T>;
    using V = Vector3T<T>;
    using Box = BoundingBoxT<T>;
    using Scalars = Array<T>;
    using Matrices = Array<M>;
    using Quaternions = Array<QuaternionT<T>>;
    using Vectors = Array<Vector3T<T>>;
    using Boxes = Array<BoundingBoxT<T>>;
    table.add(
        "bounds", "Batch" + kLetter<T>, 1,
        ARRAYS(void, transformPositions<T>, (const M&, const Vectors&, Vectors&)),
        ARRAYS(void, transformDirections<T>, (const M&, const Vectors&, Vectors&)),
        ARRAYS(void, transformBoxes<T>, (const M&, const Boxes&, Boxes&)),
        ARRAYS(void, multiply<T>, (const Matrices&, const Matrices&, Matrices&)),
        ARRAYS(void, multiplyByOne<T>, (const M&, const Matrices&, Matrices&)),
        ARRAYS(std::uint64_t, classify<T>, (const PlaneT<T>&, const Boxes&)),
        ARRAYS(void, dot<T>, (const Vectors&, const Vectors&, Scalars&)),
        ARRAYS(void, cross<T>, (const Vectors&, const Vectors&, Vectors&)),
        ARRAYS(void, norm<T>, (const Vectors&, Scalars&)),
        ARRAYS(void, normalize<T>, (const Vectors&, Vectors&)),
        ARRAYS(void, planeNormals<T>, (const Vectors&, const Vectors&, const Vectors&, Vectors&)),
        ARRAYS(void, multiply<T>, (const Quaternions&, const Quaternions&, Quaternions&)),
        ARRAYS(void, rotate<T>, (const Quaternions&, const Vectors&, Vectors&)),
        ARRAYS(void, slerp<T>,
               (const Quaternions&, const Quaternions&, const Scalars&, Quaternions&)),
        ARRAYS(void, normalize<T>, (const Quaternions&, Quaternions&)),
        ARRAYS(void, createRotations<T>, (const Quaternions&, Matrices&)),
        ARRAYS(void, createRotations<T>, (const Vectors&, Matrices&)),
        ARRAYS(void, getRotationsAsQuaternions<T>, (const Matrices&, Quaternions&)),
        ARRAYS(void, getRotations<T>, (const Matrices&, Vectors&)),
        ARRAYS(void, inverse<T>, (const Matrices&, Matrices&)),
        ARRAYS(Box, expandBy<T>, (const Box&, const Vectors&)),
        ARRAYS(std::uint64_t, classifySpheres<T>,
               (const PlaneT<T>&, const Vectors&, const Scalars&)));
    using Rays::intersectBox;
    using Rays::intersectBoxes;
    using Rays::intersectTriangle;
    table.add("bounds", "Rays" + kLetter<T>, 1,
              ARRAYS(void, intersectBoxes, (const V&, const V&, const Boxes&, Scalars&, Scalars&)),
              ARRAYS(void, intersectBox,
                     (const Vectors&, const Vectors&, const Box&, Scalars&, Scalars&)),
              ARRAYS(void, intersectTriangles, (const V&, const V&, const Vectors&, Scalars&)),
              ARRAYS(void, intersectTriangle,
                     (const Vectors&, const Vectors&, const V&, const V&, const V&, Scalars&)));
}
void addDouble(Table& table) {
    using Transforms = Array<Ky::KyTransform>;
    using Vectors = Array<Vector3d>;
    table.add("bounds", "Batch", 1,
              ARRAYS(void, transformPoints, (const Ky::KyTransform&, const Vectors&, Vectors&)),
              ARRAYS(void, transformDirections, (const Ky::KyTransform&, const Vectors&, Vectors&)),
              ARRAYS(std::uint64_t, cullByFrustum, (const Frustum&, const Array<BoundingBoxf>&)),
              ARRAYS(void, compound, (const Transforms&, const Transforms&, Transforms&)),
              ARRAYS(std::uint64_t, cull, (const Polytope&, const Array<BoundingBoxd>&)),
              ARRAYS(std::uint64_t, cullWithMasks, (const Polytope&, const Array<BoundingBoxd>&)),
              ARRAYS(std::uint64_t, cullTree, (const Polytope&, const Array<BoundingBoxd>&)));
}

}  // namespace batch

template <class T>
void addTemplates(Table& table) {
    table.add("vector", "Tolerance" + kLetter<T>, 1, CONSTANT(Ky::KY_SMALL_REAL<T>::epsilon));
    addVector2<T>(table);
    addVector3<T>(table);
    addVector4<T>(table);
    addMatrix<T>(table);
    addTransformation<T>(table);
    addQuaternion<T>(table);
    addBoundingBox<T>(table);
    addPlane<T>(table);
    addRays<T>(table);
}

}  // namespace

std::vector<Function> functions() {
    Table table;
    addTemplates<float>(table);
    addTemplates<double>(table);
    using namespace Ky;
    table.add("vector", "Ky", 1, FREE(bool, KY_ARE_EQUAL<double>, (double, double)),
              FREE(bool, KyComputeAngle, (const Vector3d&, const Vector3d&, double&)));
    addVector6(table);
    addBoundingSphere(table);
    addPolytope(table);
    addFrustum(table);
    addEulerAngles(table);
    addTransform(table);
    addSegment(table);
    addLine(table);
    addCurves(table);
    batch::add<float>(table);
    batch::add<double>(table);
    batch::addDouble(table);
    using Ky::KyTransform;
    table.add(
        "bounds", "Convert", 1, FREE(Vector2f, toFloat, (const Vector2d&)),
        FREE(Vector3f, toFloat, (const Vector3d&)), FREE(Vector4f, toFloat, (const Vector4d&)),
        FREE(Quaternionf, toFloat, (const Quaterniond&)),
        FREE(Matrix44f, toFloat, (const Matrix44d&)),
        FREE(Matrix44f, toFloat, (const KyTransform&)),
        FREE(BoundingBoxf, toFloat, (const BoundingBoxd&)), FREE(Planef, toFloat, (const Planed&)),
        FREE(Vector2d, toDouble, (const Vector2f&)), FREE(Vector3d, toDouble, (const Vector3f&)),
        FREE(Vector4d, toDouble, (const Vector4f&)),
        FREE(Quaterniond, toDouble, (const Quaternionf&)),
        FREE(Matrix44d, toDouble, (const Matrix44f&)),
        FREE(BoundingBoxd, toDouble, (const BoundingBoxf&)),
        FREE(Planed, toDouble, (const Planef&)),
        FREE(KyTransform, toTransform, (const Vector3d&, const Quaterniond&)),
        FREE(Quaterniond, toQuaternion, (const KyTransform&)),
        FREE(KyTransform, inverseOf, (const KyTransform&)),
        FREE(Polytope, toPolytope, (const Frustum&)));
    table.add("bounds", "Rays", 1,
              FREE_AS(bool, Rays::intersect, "::intersect",
                      (const Vector3d&, const Vector3d&, const BoundingSphere&, double*, double*)));
    return table;
}

}  // namespace KyMath::test
