// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Tables.h"

namespace KyMath::python {

namespace {

/// The length before, or nothing for a vector that is too short and stays.
template <class V, Scalar T>
std::optional<T> normalize(V& v, T tol) {
    T length;
    return v.normalize(tol, &length) ? std::optional(length) : std::nullopt;
}

template <class V>
Refusal refuseProduct(const V&, const V&) {
    return {
        "a * b could be two products: a @ b is the dot product, multComp(a, b) that by component"};
}

/// What the vectors of two, three and four share.
template <class V, Scalar T>
void addVector(Type<V>& type) {
    attribute<Component<V, T>(&V::x)>(type, "x");
    attribute<Component<V, T>(&V::y)>(type, "y");
    defStatic<&V::areEqualTol>(type, "areEqualTol", "a b tol");
    addSums(type);
    op<Py_nb_true_divide, [](const V& v, T s) { return v / s; }>(type);
    opInPlace < Py_nb_inplace_true_divide, &V::operator/=>(type);
    def<static_cast<T (V::*)() const>(&V::normSquare)>(type, "normSquare");
    def<&V::lengthSqr>(type, "lengthSqr");
    def<&V::norm>(type, "norm");
    def<&V::length>(type, "length");
    def<static_cast<void (V::*)()>(&V::normalize), normalize<V, T>>(type, "normalize", "|tol");
}

/// What the vectors of three and of four share besides.
template <class V, Scalar T>
void addSpaceVector(Type<V>& type) {
    addVector<V, T>(type);
    attribute<Component<V, T>(&V::z)>(type, "z");
    def<&V::isZero>(type, "isZero");
    def<&V::isFinite>(type, "isFinite");
    op<Py_nb_multiply, [](const V& v, T s) { return v * s; }, [](T s, const V& v) { return v * s; },
       refuseProduct<V>>(type);
    opInPlace < Py_nb_inplace_multiply, &V::operator*=>(type);
    opUnary<Py_nb_negative, static_cast<V (V::*)() const>(&V::operator-)>(type);
    op<Py_nb_matrix_multiply, static_cast<T (V::*)(const V&) const>(&V::operator*)>(type);
}

template <Scalar T>
void addVector2(PyObject* module) {
    using V = Vector2T<T>;
    Type<V> type;
    init<make<V>, make<V, T, T>, read<V>>(type, "|x y|numbers");
    constant<V::kZero>(type, "kZero");
    def<&V::set>(type, "set", "x y");
    addVector<V, T>(type);
    op<Py_nb_multiply, refuseProduct<V>>(type);
    op<Py_nb_matrix_multiply, &V::dot>(type);
    def<&V::dot>(type, "dot", "v");
    def<&V::cross>(type, "cross", "v");
    def<&V::rotate>(type, "rotate", "angle");
    type.addTo(module);
}

template <Scalar T>
void addVector3(PyObject* module) {
    using V = Vector3T<T>;
    Type<V> type;
    init<make<V>, make<V, T, T, T>, read<V>>(type, "|x y z|numbers");
    constant<V::kZero>(type, "kZero");
    def<static_cast<void (V::*)(T, T, T)>(&V::set)>(type, "set", "x y z");
    addSpaceVector<V, T>(type);
    defStatic<static_cast<V (*)(const V&, const V&)>(&V::multComp)>(type, "multComp", "a b");
    def<&V::addMultiple>(type, "addMultiple", "s v");
    def<&V::setLinear>(type, "setLinear", "a u b v");
    def<&V::cross>(type, "cross", "v");
    def<&V::postCross>(type, "postCross", "v");
    def<&V::preCross>(type, "preCross", "v");
    def<&V::setCross>(type, "setCross", "a b");
    defStatic<&V::distanceSqr>(type, "distanceSqr", "a b");
    defStatic<&V::distance>(type, "distance", "a b");
    def<&V::maxComponentIndex>(type, "maxComponentIndex");
    def<&V::makeCleanBase>(type, "makeCleanBase", "tol");
    def<&V::setOrthogonal>(type, "setOrthogonal", "v");
    def<&V::getOrthogonal>(type, "getOrthogonal");
    def<&V::orthogonalize>(type, "orthogonalize", "v");
    def<project<T>>(type, "project", "dir");
    def<planeSpace<T>>(type, "planeSpace");
    defStatic<planeNormal<T>>(type, "planeNormal", "a b c");
    type.addTo(module);
}

template <Scalar T>
void addVector4(PyObject* module) {
    using V = Vector4T<T>;
    Type<V> type;
    init<make<V>, make<V, T, T, T, T>, make<V, const Vector3T<T>&, T>, read<V>>(
        type, "|x y z w|v w|numbers");
    def<static_cast<void (V::*)(T, T, T, T)>(&V::set), static_cast<void (V::*)(const V&)>(&V::set)>(
        type, "set", "x y z w|v");
    addSpaceVector<V, T>(type);
    attribute<Component<V, T>(&V::w)>(type, "w");
    def<&V::xyz>(type, "xyz");
    def<&V::dot>(type, "dot", "v");
    type.addTo(module);
}

void addVector6(PyObject* module) {
    using V = Vector6;
    using D = double;
    Type<V> type;
    init<make<V, D, D, D, D, D, D>,
         [](const Vector3d& first, const Vector3d& second) {
             return Vector6(static_cast<const double*>(first), static_cast<const double*>(second));
         },
         read<V>>(type, "a0 a1 a2 a3 a4 a5|first second|numbers");
    def<&V::set>(type, "set", "first second");
    def<&V::add>(type, "add", "v");
    def<&V::sub>(type, "sub", "v");
    def<&V::scale>(type, "scale", "s");
    def<&V::dot>(type, "dot", "v");
    def<&V::norm>(type, "norm");
    type.slot(Py_tp_str, stream<V>);
    type.addTo(module);
}

}  // namespace

void addVectors(PyObject* module) {
    addVector2<float>(module);
    addVector2<double>(module);
    addVector3<float>(module);
    addVector3<double>(module);
    addVector4<float>(module);
    addVector4<double>(module);
    addVector6(module);
    Namespace space{"kymath"};
    def<&Ky::KY_ARE_EQUAL<double>>(space, "KY_ARE_EQUAL", "a b");
    def<computeAngle>(space, "KyComputeAngle", "a b");
    space.addTo(module);
    Namespace{.name = "KY_SMALL_REALf",
              .numbers = {{"epsilon", double(Ky::KY_SMALL_REAL<float>::epsilon)}}}
        .addAsMember(module);
    Namespace{.name = "KY_SMALL_REALd",
              .numbers = {{"epsilon", Ky::KY_SMALL_REAL<double>::epsilon}}}
        .addAsMember(module);
}

}  // namespace KyMath::python
