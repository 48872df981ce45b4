// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Tables.h"

namespace KyMath::python {

namespace {

template <class Q, int kIndex>
auto& componentOf(Q& q) {
    return q[kIndex];
}

template <Scalar T>
void addQuaternion(PyObject* module) {
    using Q = QuaternionT<T>;
    using V = Vector3T<T>;
    const auto get = [](const Q& q) { return std::tuple(q.w(), q.x(), q.y(), q.z()); };
    Type<Q> type;
    init<make<Q>, make<Q, T, T, T, T>, make<Q, const V&, const T&>, read<Q>>(
        type, "|w x y z|axis angle|numbers");
    constant<Q::kIdentity>(type, "kIdentity");
    def<&Q::set>(type, "set", "w x y z");
    def<get>(type, "get");
    attribute<componentOf<Q, 0>>(type, "w");
    attribute<componentOf<Q, 1>>(type, "x");
    attribute<componentOf<Q, 2>>(type, "y");
    attribute<componentOf<Q, 3>>(type, "z");
    defStatic<&Q::areEqualTol>(type, "areEqualTol", "a b tol");
    addSums(type);
    op<Py_nb_multiply, static_cast<Q (Q::*)(const Q&) const>(&Q::operator*),
       static_cast<V (Q::*)(const V&) const>(&Q::operator*),
       static_cast<Q (Q::*)(const T&) const>(&Q::operator*), [](T s, const Q& q) { return q * s; }>(
        type);
    opInPlace<Py_nb_inplace_multiply, static_cast<Q& (Q::*)(const Q&)>(&Q::operator*=),
              static_cast<Q& (Q::*)(const T&)>(&Q::operator*=)>(type);
    op < Py_nb_true_divide, &Q::operator/>(type);
    opInPlace < Py_nb_inplace_true_divide, &Q::operator/=>(type);
    def<&Q::dot>(type, "dot", "q");
    def<&Q::norm>(type, "norm");
    def<&Q::invert>(type, "invert");
    def<&Q::setInverse>(type, "setInverse", "q");
    def<&Q::getInverse>(type, "getInverse");
    def<&Q::rotate>(type, "rotate", "v");
    def<&Q::normalize>(type, "normalize");
    def<static_cast<void (Q::*)(T, T, T, T)>(&Q::fromAxisAngle),
        static_cast<void (Q::*)(const V&, const T&)>(&Q::fromAxisAngle)>(
        type, "fromAxisAngle", "ax ay az angle|axis angle");
    def<toAxisAngle<T>>(type, "toAxisAngle");
    def<&Q::fromEulerXYZ>(type, "fromEulerXYZ", "rx ry rz");
    def<toEulerXYZ<T>>(type, "toEulerXYZ");
    def<&Q::finiteRotation>(type, "finiteRotation", "omega dt");
    def<&Q::slerp>(type, "slerp", "q t");
    def<&Q::fromRotation>(type, "fromRotation", "from_ to");
    type.addTo(module);
}

using E = KyEulerAngles;
using Order = E::eEulerOrder;

void fromMatrix44(E& angles, const Matrix44d& m, Order order) {
    angles.fromMatrix44(m, order);
}

void addEulerAngles(PyObject* module) {
    using D = double;
    Type<E> type;
    init<make<E>, make<E, D, D, D>, make<E, D, D, D, Order>, make<E, const Vector3d&>,
         make<E, const Vector3d&, Order>>(type, "|a0 a1 a2|a0 a1 a2 order|angles|angles order");
#define KY_ORDER(name) enumerator<E::name>(type, #name)
    KY_ORDER(eXYZs), KY_ORDER(eZYXr), KY_ORDER(eXYXs), KY_ORDER(eXYXr), KY_ORDER(eXZYs);
    KY_ORDER(eYZXr), KY_ORDER(eXZXs), KY_ORDER(eXZXr), KY_ORDER(eYZXs), KY_ORDER(eXZYr);
    KY_ORDER(eYZYs), KY_ORDER(eYZYr), KY_ORDER(eYXZs), KY_ORDER(eZXYr), KY_ORDER(eYXYs);
    KY_ORDER(eYXYr), KY_ORDER(eZXYs), KY_ORDER(eYXZr), KY_ORDER(eZXZs), KY_ORDER(eZXZr);
    KY_ORDER(eZYXs), KY_ORDER(eXYZr), KY_ORDER(eZYZs), KY_ORDER(eZYZr), KY_ORDER(eNegated);
#undef KY_ORDER
    def<&E::set>(type, "set", "a0 a1 a2 order");
    def<&E::setOrder>(type, "setOrder", "order");
    def<&E::angles>(type, "angles");
    def<&E::order>(type, "order");
    def<toMatrix44>(type, "toMatrix44");
    def<fromMatrix44>(type, "fromMatrix44", "m order");
    defStatic<&E::getEulerAngles>(type, "getEulerAngles", "angles from_ to");
    defStatic<&E::areEqualTolAndSameOrder>(type, "areEqualTolAndSameOrder", "a b tol");
    defStatic<&E::areEqualTol>(type, "areEqualTol", "a b tol");
    type.slot(Py_tp_str, stream<E>);
    type.addTo(module);
}

void addTransform(PyObject* module) {
    using T = KyTransform;
    using V = Vector3d;
    using Q = Quaterniond;
    Type<T> type;
    init<make<T>, make<T, const Matrix44d&>, make<T, const V&, const E&>, read<T>>(
        type, "|m|position angles|rows");
    constant<T::kIdentity>(type, "kIdentity");
    defStatic<&T::createIdentity>(type, "createIdentity");
    def<static_cast<void (T::*)(const Matrix44d&)>(&T::set),
        [](T& t, Numbers<T> rows) { t = rows.value; }>(type, "set", "m|rows");
    def<&T::toMatrix44>(type, "toMatrix44");
    def<&T::getTranslation>(type, "getTranslation");
    def<&T::setTranslation>(type, "setTranslation", "t");
    def<&T::isIdentity>(type, "isIdentity", "tol");
    def<&T::isValid>(type, "isValid");
    def<static_cast<void (T::*)(const V&, const V&, const V&)>(&T::setRotation),
        static_cast<T& (T::*)(const Q&)>(&T::setRotation),
        static_cast<bool (T::*)(V, double)>(&T::setRotation)>(type, "setRotation",
                                                              "x y z|q|dir tol");
    def<&T::makeRotationFromQuaternion>(type, "makeRotationFromQuaternion", "q");
    def<[](T& t, Index<3> axis) { t.makeOrthonormal(int(axis.value)); }>(type, "makeOrthonormal",
                                                                         "axis");
    def<&T::rotateSelf>(type, "rotateSelf", "omega dt");
    def<static_cast<T& (T::*)(const Q&)>(&T::makeRotation),
        static_cast<bool (T::*)(V, double)>(&T::makeRotation)>(type, "makeRotation", "q|dir tol");
    def<&T::makeFromRotatedVector>(type, "makeFromRotatedVector", "from_ to");
    defStatic<&T::outerProduct3x3>(type, "outerProduct3x3", "a b");
    def<toQuaternion>(type, "toQuaternion");
    def<&T::transformPoint>(type, "transformPoint", "p");
    def<&T::transformDirection>(type, "transformDirection", "d");
    def<&T::compound>(type, "compound", "a b");
    def<&T::compoundFirstThenInverseSecond>(type, "compoundFirstThenInverseSecond", "a b");
    def<&T::compoundInverseFirstThenSecond>(type, "compoundInverseFirstThenSecond", "a b");
    def<&T::postCompound>(type, "postCompound", "o");
    def<&T::postCompoundWithInverse>(type, "postCompoundWithInverse", "o");
    def<&T::preCompound>(type, "preCompound", "o");
    def<&T::preCompoundWithInverse>(type, "preCompoundWithInverse", "o");
    def<&T::interpolateRotation>(type, "interpolateRotation", "a b s");
    def<&T::interpolate>(type, "interpolate", "a b s");
    type.addTo(module);
}

}  // namespace

void addRotations(PyObject* module) {
    addQuaternion<float>(module);
    addQuaternion<double>(module);
    addEulerAngles(module);
    addTransform(module);
}

}  // namespace KyMath::python
