// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Layer.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <sstream>
#include <stdexcept>

namespace KyMath::python {

namespace {

/// An object that stays for as long as Python runs.
PyObject* import(const char* module, const char* name) {
    Ref imported(PyImport_ImportModule(module));
    return Ref(PyObject_GetAttrString(imported.get(), name)).release();
}

bool isInstance(PyObject* o, PyObject* type) {
    const int answer = PyObject_IsInstance(o, type);
    check(answer);
    return answer > 0;
}

/// A number of Python, of numpy, or of any other type that says it is real.
bool isReal(PyObject* o) {
    if (PyFloat_Check(o) || PyLong_Check(o)) return true;
    static PyObject* const real = import("numbers", "Real");
    return isInstance(o, real);
}

std::string nameOf(PyObject* o) {
    Ref name(PyType_GetName(Py_TYPE(o)));
    const char* const text = PyUnicode_AsUTF8AndSize(name.get(), nullptr);
    if (text == nullptr) throw Raised();
    return text;
}

/// Whatever has an array's memory, but is no single number.
bool isArray(PyObject* o) {
    // One string for ever: Python's cache of attributes would keep thousands of equal ones.
    static PyObject* const name = Ref(PyUnicode_InternFromString("__array_interface__")).release();
    return !isReal(o) && PyObject_HasAttr(o, name) != 0;
}
Ref asArray(PyObject* o) {
    static PyObject* const convert = import("numpy", "asarray");
    return Ref(PyObject_CallFunctionObjArgs(convert, o, nullptr));
}

std::vector<PyTypeObject*> types;

}  // namespace

void translateException() {
    try {
        throw;
    } catch (const Raised&) {
    } catch (const std::bad_alloc&) {
        PyErr_NoMemory();
    } catch (const std::length_error&) {
        PyErr_NoMemory();
    }
}

// ---- Arguments

bool realFromPython(PyObject* o, double& value) {
    if (!isReal(o)) return false;
    value = PyFloat_AsDouble(o);
    if (value == -1.0 && PyErr_Occurred() != nullptr) {
        if (PyErr_ExceptionMatches(PyExc_OverflowError) == 0) throw Raised();
        raise(PyExc_ValueError, "the integer is too large for a float");
    }
    return true;
}
bool fromPython(PyObject* o, bool& value) {
    if (PyNumber_Check(o) == 0 || PySequence_Check(o) != 0) return false;
    const int truth = PyObject_IsTrue(o);
    check(truth);
    value = truth > 0;
    return true;
}

bool integerFromPython(PyObject* o, Py_ssize_t low, Py_ssize_t high, PyObject* error,
                       Py_ssize_t& value) {
    if (PyIndex_Check(o) == 0 || PySequence_Check(o) != 0) return false;
    value = PyNumber_AsSsize_t(o, error);
    if (value == -1 && PyErr_Occurred() != nullptr) throw Raised();
    if (value < low || value > high) {
        raise(error, std::to_string(value) + " is not in " + std::to_string(low) + " to " +
                         std::to_string(high));
    }
    return true;
}

namespace {

using Writer = void (*)(char* to, double value);

void fill(PyObject* o, int rank, const Py_ssize_t* shape, const Py_ssize_t* strides, Writer write,
          char* out) {
    if (rank == 0) {
        double value;
        if (!fromPython(o, value)) {
            raise(PyExc_TypeError, "expected a number, not a " + nameOf(o));
        }
        return write(out, value);
    }
    const Py_ssize_t size = PySequence_Check(o) != 0 ? PySequence_Size(o) : 0;
    check(size < 0 ? -1 : 0);
    if (size != *shape) {
        raise(PyExc_ValueError, "expected " + std::to_string(*shape) +
                                    (rank == 2 ? " rows of numbers" : " numbers") + ", not " +
                                    (size > 0 ? std::to_string(size) : "a " + nameOf(o)));
    }
    for (Py_ssize_t i = 0; i < size; ++i) {
        const Ref item(PySequence_GetItem(o, i));
        fill(item.get(), rank - 1, shape + 1, strides + 1, write, out + i * *strides);
    }
}

}  // namespace

bool numbersFromPython(PyObject* o, int rank, const Py_ssize_t* shape, const Py_ssize_t* strides,
                       bool single, char* out) {
    if (PyUnicode_Check(o) || PyBytes_Check(o) || PyByteArray_Check(o)) return false;
    if (PySequence_Check(o) == 0 && PyObject_CheckBuffer(o) == 0) return false;
    const Writer writeFloat = [](char* to, double value) {
        const float narrow = float(value);
        std::memcpy(to, &narrow, sizeof narrow);
    };
    const Writer writeDouble = [](char* to, double value) {
        std::memcpy(to, &value, sizeof value);
    };
    const bool byIndex = PySequence_Check(o) != 0 && !PyMemoryView_Check(o);
    const Ref list(
        byIndex ? share(o)
                : PyObject_CallMethod(Ref(PyMemoryView_FromObject(o)).get(), "tolist", nullptr));
    fill(list.get(), rank, shape, strides, single ? writeFloat : writeDouble, out);
    return true;
}

bool isOfAnotherClass(PyObject* o, const std::string& name) {
    if (std::find(types.begin(), types.end(), Py_TYPE(o)) == types.end()) return false;
    const std::string other = nameOf(o);
    return other.compare(0, other.size() - 1, name, 0, name.size() - 1) != 0;
}

std::pair<Py_ssize_t, Py_ssize_t> rowAndColumn(PyObject* key, const Py_ssize_t* shape) {
    if (!PyTuple_Check(key) || PyTuple_Size(key) != 2) {
        raise(PyExc_TypeError, "row or column? Use m[r, c], m.row(r) or m.column(c)");
    }
    Py_ssize_t at[2];
    for (Py_ssize_t i = 0; i < 2; ++i) {
        const bool read = integerFromPython(PyTuple_GetItem(key, i), -shape[i], shape[i] - 1,
                                            PyExc_IndexError, at[i]);
        if (!read) raise(PyExc_TypeError, "an index of a matrix is an integer");
        if (at[i] < 0) at[i] += shape[i];
    }
    return {at[0], at[1]};
}

// ---- Text

namespace {

/// The fewest digits that give the number back.
template <class T>
std::string shortest(T value) {
    if (!std::isfinite(value)) {
        return std::isnan(value) ? "float('nan')" : value > 0 ? "float('inf')" : "-float('inf')";
    }
    char digits[32];
    const std::string text(digits, std::to_chars(digits, std::end(digits), value).ptr);
    return text.find_first_of(".e") == std::string::npos ? text + ".0" : text;
}

}  // namespace

std::string print(double value) {
    return shortest(value);
}
std::string print(float value) {
    const std::string text = shortest(value);
    // Python reads a double first: hardly ever, that rounds to another float.
    return std::isfinite(value) && float(std::stod(text)) != value ? shortest(double(value)) : text;
}

// ---- Calls

void raiseMismatch(const char* expected, PyObject* const* args, std::size_t count) {
    std::string given;
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0) given += ", ";
        given += nameOf(args[i]);
    }
    std::string sentence = expected;
    for (std::size_t at; (at = sentence.find('\n')) != std::string::npos;) {
        sentence.replace(at, 1, ", or ");
    }
    raise(PyExc_TypeError, sentence + "; given (" + given + ")");
}

PyObject* byNumpy(PyObject* left, PyObject* right, int slot) {
    const auto apply = slot == Py_nb_add               ? PyNumber_Add
                       : slot == Py_nb_subtract        ? PyNumber_Subtract
                       : slot == Py_nb_multiply        ? PyNumber_Multiply
                       : slot == Py_nb_matrix_multiply ? PyNumber_MatrixMultiply
                                                       : PyNumber_TrueDivide;
    const auto isOurs = [](PyObject* o) {
        return std::find(types.begin(), types.end(), Py_TYPE(o)) != types.end();
    };
    if (isOurs(left) || !isArray(left)) return share(Py_NotImplemented);
    return Ref(apply(left, asArray(right).get())).release();
}
PyObject* compareByNumpy(PyObject* self, PyObject* other, int operation) {
    if (!isArray(other)) return share(Py_NotImplemented);
    return Ref(PyObject_RichCompare(asArray(self).get(), other, operation)).release();
}

// ---- Types

namespace {

char* keep(const std::string& text) {
    return (new std::string(text))->data();
}

/// The arguments as inspect reads them.
std::string plainSignature(const std::string& line, bool method) {
    const std::size_t end = line.find(')');
    std::size_t at = line.find('(') + 1;
    std::string text = line.substr(0, at) + (method ? "$self, " : "");
    const bool none = at == end && !method;
    while (at < end) {
        text += line.substr(at, line.find(':', at) - at) + ", ";
        at = std::min(line.find(", ", at), end) + 2;
    }
    return text + (none ? ")" : "/)") + "\n--\n\n";
}

}  // namespace

char* writeSignatures(const char* name, std::string names, bool method,
                      const std::vector<Description>& functions) {
    std::string text;
    for (const Description& function : functions) {
        if (function.refuses) continue;
        if (!text.empty()) text += "\n";
        text += std::string(name) + "(";
        const std::size_t end = names.find('|');
        std::istringstream list(names.substr(0, end));
        std::string argument;
        for (std::size_t i = method ? 1 : 0; i < function.arguments.size(); ++i) {
            list >> argument;
            text += (text.back() == '(' ? "" : ", ") + argument + ": " + function.arguments[i]();
        }
        text += ") -> " + function.result();
        if (end != std::string::npos) names.erase(0, end + 1);
    }
    return keep(text);
}

char* writeDocument(const char* owner, const char* name, const char* lines, bool method) {
    std::string text = lines;
    if (text.find('\n') == std::string::npos) text = plainSignature(text, method) + text;
    const char* const about = comment(owner, name);
    if (about != nullptr) text += std::string("\n\n") + about;
    return keep(text);
}

PyTypeObject* addType(PyObject* module, const char* name, std::size_t size, Functions& functions,
                      std::vector<PyGetSetDef>& attributes, std::vector<PyType_Slot>& slots) {
    attributes.push_back({});
    slots.push_back({Py_tp_methods, functions.finish()});
    slots.push_back({Py_tp_getset, attributes.data()});
    slots.push_back({});
    PyType_Spec layout = {keep(std::string("kymath.") + name), int(size), 0, Py_TPFLAGS_DEFAULT,
                          slots.data()};
    Ref type(PyType_FromSpec(&layout));
    // Before the numbers and the arrays of numpy, which would take a vector for an array.
    Ref priority(PyFloat_FromDouble(1000));
    check(PyObject_SetAttrString(type.get(), "__array_priority__", priority.get()));
    check(PyModule_AddObjectRef(module, name, type.get()));
    types.push_back(reinterpret_cast<PyTypeObject*>(type.get()));
    return reinterpret_cast<PyTypeObject*>(type.release());
}

namespace {

struct Constant {
    PyObject_HEAD PyObject* value;
};

PyObject* readConstant(PyObject* self, PyObject*, PyObject*) {
    static PyObject* const name = PyUnicode_InternFromString("__copy__");
    return PyObject_CallMethodObjArgs(reinterpret_cast<Constant*>(self)->value, name, nullptr);
}

}  // namespace

void addConstant(PyTypeObject* type, const char* name, PyObject* value) {
    if (PyLong_Check(value)) {
        return check(PyObject_SetAttrString(reinterpret_cast<PyObject*>(type), name, value));
    }
    static PyTypeObject* const constantType = [] {
        PyType_Slot slots[] = {{Py_tp_descr_get, reinterpret_cast<void*>(readConstant)}, {}};
        PyType_Spec layout = {"kymath.Constant", sizeof(Constant), 0, Py_TPFLAGS_DEFAULT, slots};
        return reinterpret_cast<PyTypeObject*>(Ref(PyType_FromSpec(&layout)).release());
    }();
    auto* const constant = PyObject_New(Constant, constantType);
    const Ref ref(reinterpret_cast<PyObject*>(constant));
    constant->value = value;
    check(PyObject_SetAttrString(reinterpret_cast<PyObject*>(type), name, ref.get()));
}

void Namespace::addAsMember(PyObject* module) {
    Ref members(share(PyImport_AddModule((std::string("kymath.") + name).c_str())));
    addTo(members.get());
    for (const auto& [key, value] : numbers) {
        check(PyModule_AddObjectRef(members.get(), key, Ref(toPython(value)).get()));
    }
    check(PyModule_AddObjectRef(module, name, members.get()));
}

}  // namespace KyMath::python
