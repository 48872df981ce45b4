// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// What every type of the module does: repr(), copies, pickles, comparison, and what its numbers in
// memory allow, the buffer protocol and indices.
#ifndef KYMATH_PYTHON_SLOTS_H
#define KYMATH_PYTHON_SLOTS_H

#include "Layer.h"

#include <numeric>
#include <sstream>

namespace KyMath::python {

// ---- Values

std::string print(double value);
std::string print(float value);
inline std::string print(int value) {
    return std::to_string(value);
}
template <Bound V>
std::string print(const V& value);
template <class List>
requires requires(const List& list) {
    list.begin();
}
std::string print(const List& values);
template <class V>
void printNext(std::string& list, const V& value) {
    if (!list.empty()) list += ", ";
    list += print(value);
}
template <class... V>
std::string print(const std::tuple<V...>& values) {
    std::string text;
    std::apply([&](const auto&... value) { (printNext(text, value), ...); }, values);
    return text;
}
template <class List>
requires requires(const List& list) {
    list.begin();
}
std::string print(const List& values) {
    std::string text;
    for (const auto& value : values) printNext(text, value);
    return "[" + text + "]";
}
template <Bound V>
std::string print(const V& value) {
    return std::string(kName<V>) + "(" + print(fields(value)) + ")";
}

template <class V>
PyObject* represent(PyObject* self) {
    return guarded([&] { return toPython(print(*valueOf<V>(self))); });
}

/// str(), by the operator << of C++.
template <class V>
PyObject* stream(PyObject* self) {
    return guarded([&] {
        std::ostringstream text;
        text << *valueOf<V>(self);
        return toPython(text.str());
    });
}

template <class V>
PyObject* copyOf(PyObject* self, PyObject*) {
    return guarded([&] { return makeObject(*valueOf<V>(self)); });
}

/// For pickle: the type, and the arguments that make the value anew.
template <class V>
PyObject* reduce(PyObject* self, PyObject*) {
    return guarded([&] {
        Ref arguments(toPython(fields(*valueOf<V>(self))));
        return PyTuple_Pack(2, typeOf<V>, arguments.get());
    });
}

template <class V>
PyObject* compare(PyObject* self, PyObject* other, int operation) {
    return guarded([&] {
        const V* const a = valueOf<V>(self);
        const V* const b = valueOf<V>(other);
        if (b == nullptr) return compareByNumpy(self, other, operation);
        if (operation != Py_EQ && operation != Py_NE) {
            if constexpr (requires { a->normSquare(); }) {
                raise(PyExc_TypeError, "vectors have no order: compare their normSquare()");
            }
            return share(Py_NotImplemented);
        }
        bool equal;
        if constexpr (requires { a->operator==(*b); }) {
            equal = *a == *b;
        } else {
            equal = fields(*a) == fields(*b);
        }
        return toPython(equal == (operation == Py_EQ));
    });
}

// ---- Numbers in memory

template <Numeric V>
int getBuffer(PyObject* self, Py_buffer* view, int flags) {
    using L = Layout<V>;
    const bool byColumn = L::kStrides[0] < L::kStrides[L::kRank - 1];
    const auto asks = [flags](int flag) { return (flags & flag) == flag; };
    view->obj = nullptr;
    if (byColumn && (!asks(PyBUF_STRIDES) || asks(PyBUF_C_CONTIGUOUS))) {
        PyErr_SetString(PyExc_BufferError, "the values are in Fortran order, column by column");
        return -1;
    }
    if (!byColumn && L::kRank == 2 && asks(PyBUF_F_CONTIGUOUS)) {
        PyErr_SetString(PyExc_BufferError, "the values are in C order, row by row");
        return -1;
    }
    using T = typename L::Scalar;
    *view = Py_buffer{};
    view->buf = valueOf<V>(self);
    view->obj = share(self);
    view->len =
        std::accumulate(L::kShape, L::kShape + L::kRank, Py_ssize_t(sizeof(T)), std::multiplies());
    view->itemsize = sizeof(T);
    view->ndim = L::kRank;
    static char format[] = {std::is_same_v<T, float> ? 'f' : 'd', '\0'};
    if (asks(PyBUF_FORMAT)) view->format = format;
    if (asks(PyBUF_ND)) view->shape = const_cast<Py_ssize_t*>(L::kShape);
    if (asks(PyBUF_STRIDES)) view->strides = const_cast<Py_ssize_t*>(L::kStrides);
    return 0;
}

/// The vector in three (or as many) adjacent numbers of a buffer, which stays writable.
template <Listed V>
PyObject* cast(PyObject*, PyObject* buffer) {
    return guarded([&] {
        using T = typename Layout<V>::Scalar;
        Ref memory(PyMemoryView_FromObject(buffer));
        Py_buffer view;
        check(PyObject_GetBuffer(memory.get(), &view, PyBUF_CONTIG | PyBUF_FORMAT));
        const std::string format = view.format != nullptr ? view.format : "B";
        V* const value = static_cast<V*>(view.buf);
        const bool fits = view.len == sizeof(V) && format == (sizeof(T) == 4 ? "f" : "d") &&
                          reinterpret_cast<std::uintptr_t>(value) % alignof(T) == 0;
        PyBuffer_Release(&view);
        if (!fits) raise(PyExc_ValueError, "expected the buffer of as many numbers of this type");
        return makeView(*value, memory.get());
    });
}

template <Listed V>
Py_ssize_t length(PyObject*) {
    return Layout<V>::kShape[0];
}
template <class V>
auto& checkedElement(PyObject* self, Py_ssize_t i) {
    if (i < 0 || i >= Layout<V>::kShape[0]) raise(PyExc_IndexError, "index out of range");
    return element(*valueOf<V>(self), i);
}
template <Listed V>
PyObject* getItem(PyObject* self, Py_ssize_t i) {
    return guarded([&] { return toPython(checkedElement<V>(self, i)); });
}
template <class T>
int assign(T& element, PyObject* number) {
    if (number == nullptr || !fromPython(number, element)) {
        raise(PyExc_TypeError, "expected a number");
    }
    return 0;
}
template <Listed V>
int setItem(PyObject* self, Py_ssize_t i, PyObject* number) {
    return guarded([&] { return assign(checkedElement<V>(self, i), number); });
}
template <Listed V>
PyObject* iterate(PyObject* self) {
    return guarded([&] {
        Ref numbers(toPython(fields(*valueOf<V>(self))));
        return PyObject_GetIter(numbers.get());
    });
}

/// Row and column of m[r, c], negative ones from the end.
std::pair<Py_ssize_t, Py_ssize_t> rowAndColumn(PyObject* key, const Py_ssize_t* shape);

template <Tabulated V>
PyObject* getCell(PyObject* self, PyObject* key) {
    return guarded([&] {
        const auto [r, c] = rowAndColumn(key, Layout<V>::kShape);
        return toPython(element(*valueOf<V>(self), r, c));
    });
}
template <Tabulated V>
int setCell(PyObject* self, PyObject* key, PyObject* number) {
    return guarded([&] {
        const auto [r, c] = rowAndColumn(key, Layout<V>::kShape);
        return assign(element(*valueOf<V>(self), r, c), number);
    });
}
template <Tabulated V>
PyObject* refuseToIterate(PyObject*) {
    PyErr_SetString(PyExc_TypeError, "rows or columns? Call row(i) or column(i)");
    return nullptr;
}

template <class V>
PyObject* refuseToBeANumber(PyObject*) {
    PyErr_SetString(PyExc_TypeError, (std::string("a ") + kName<V> + " is not a number").c_str());
    return nullptr;
}

// ---- All of it

template <class V>
void Type<V>::addTo(PyObject* module) {
    functions.add("__copy__", copyOf<V>, METH_NOARGS);
    functions.add("__deepcopy__", copyOf<V>, METH_O);
    functions.add("__reduce__", reduce<V>, METH_NOARGS);
    slots.push_back({Py_tp_doc, document});
    slot(Py_tp_dealloc, destroy<V>);
    slot(Py_tp_repr, represent<V>);
    slot(Py_tp_richcompare, compare<V>);
    slot(Py_tp_hash, PyObject_HashNotImplemented);
    slot(Py_nb_float, refuseToBeANumber<V>);
    slot(Py_nb_int, refuseToBeANumber<V>);
    if constexpr (Numeric<V>) slot(Py_bf_getbuffer, getBuffer<V>);
    if constexpr (requires { &V::cast; }) {
        const std::string line = std::string("cast(buffer: Any) -> ") + kName<V>;
        functions.add("cast", cast<V>, METH_O | METH_STATIC,
                      writeDocument(kName<V>, "cast", line.c_str(), false));
    }
    if constexpr (Listed<V>) {
        slot(Py_sq_length, length<V>);
        slot(Py_sq_item, getItem<V>);
        slot(Py_sq_ass_item, setItem<V>);
        slot(Py_tp_iter, iterate<V>);
    }
    if constexpr (std::is_same_v<V, KyTransform> || requires(V v) { v.transpose(); }) {
        slot(Py_mp_subscript, getCell<V>);
        slot(Py_mp_ass_subscript, setCell<V>);
        slot(Py_tp_iter, refuseToIterate<V>);
    }
    typeOf<V> = addType(module, kName<V>, sizeof(Object<V>), functions, attributes, slots);
    for (const auto& [name, value] : constants) addConstant(typeOf<V>, name, value());
}

}  // namespace KyMath::python

#endif
