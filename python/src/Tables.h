// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// The tables of the module: what there is of each class, in the order of its header.
#ifndef KYMATH_PYTHON_TABLES_H
#define KYMATH_PYTHON_TABLES_H

#include "Results.h"
#include "Slots.h"

namespace KyMath::python {

void addVectors(PyObject* module);
void addMatrices(PyObject* module);
void addRotations(PyObject* module);
void addBounds(PyObject* module);
void addLines(PyObject* module);

/// A constructor.
template <class V, class... A>
V make(A... a) {
    return V(static_cast<A>(a)...);
}
/// From any sequence or array of the same shape.
template <class V>
V read(Numbers<V> numbers) {
    return numbers.value;
}

/// A component that C++ reads and writes through the same name.
template <class V, class T>
using Component = T& (V::*)();

/// The operators `+`, `-` and their forms in place.
template <class V>
void addSums(Type<V>& type) {
    op<Py_nb_add, static_cast<V (V::*)(const V&) const>(&V::operator+)>(type);
    op<Py_nb_subtract, static_cast<V (V::*)(const V&) const>(&V::operator-)>(type);
    opInPlace<Py_nb_inplace_add, static_cast<V& (V::*)(const V&)>(&V::operator+=)>(type);
    opInPlace<Py_nb_inplace_subtract, static_cast<V& (V::*)(const V&)>(&V::operator-=)>(type);
}

}  // namespace KyMath::python

#endif
