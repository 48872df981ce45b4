// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// Between C++ and Python: all counting of references is in here. A table names each member once,
//
//     def<&Vector3d::cross>(type, "cross", "v");
//
// and arguments, result and signature follow from its C++ type. Several functions of one name are
// tried in their order. A lambda stands for what Python does in another way.
#ifndef KYMATH_PYTHON_LAYER_H
#define KYMATH_PYTHON_LAYER_H

#include "Values.h"

#include <cstdint>
#include <functional>
#include <new>
#include <utility>

namespace KyMath::python {

/// A Python error is set. Thrown through C++ up to guarded().
struct Raised {};

[[noreturn]] inline void raise(PyObject* error, const std::string& sentence) {
    PyErr_SetString(error, sentence.c_str());
    throw Raised();
}

/// Owns a reference.
class Ref {
public:
    explicit Ref(PyObject* owned) : object_(owned) {
        if (owned == nullptr) throw Raised();
    }
    ~Ref() {
        Py_XDECREF(object_);
    }
    Ref(Ref&& other) noexcept : object_(other.release()) {}
    Ref& operator=(Ref&&) = delete;
    PyObject* get() const {
        return object_;
    }
    PyObject* release() {
        return std::exchange(object_, nullptr);
    }

private:
    PyObject* object_;
};

inline PyObject* share(PyObject* object) {
    Py_XINCREF(object);
    return object;
}
inline void check(int status) {
    if (status < 0) throw Raised();
}

/// Called while an exception of C++ is on its way: makes it the one of Python.
void translateException();

/// What f returns, or the failure of a slot with a Python error set.
template <class F>
auto guarded(F f) noexcept -> decltype(f()) {
    try {
        return f();
    } catch (...) {
        translateException();
    }
    if constexpr (std::is_pointer_v<decltype(f())>) {
        return nullptr;
    } else {
        return -1;
    }
}

// ---- Objects

/// A C++ value as a Python object: its own, or a part of what its owner holds.
template <class V>
struct Object {
    PyObject_HEAD V* value;
    PyObject* owner;
    alignas(V) unsigned char memory[sizeof(V)];
};

template <class V>
inline PyTypeObject* typeOf = nullptr;

template <class V>
V* valueOf(PyObject* o) {
    return Py_TYPE(o) == typeOf<V> ? reinterpret_cast<Object<V>*>(o)->value : nullptr;
}

template <class V>
Object<V>* allocate() {
    auto* object = PyObject_New(Object<V>, typeOf<V>);
    if (object == nullptr) throw Raised();
    object->value = nullptr;
    object->owner = nullptr;
    return object;
}

template <class V>
PyObject* makeObject(const V& value) {
    Object<V>* const object = allocate<V>();
    Ref ref(reinterpret_cast<PyObject*>(object));
    if constexpr (Numeric<V>) {
        object->value = new (object->memory) V(value);
    } else {  // Assignment keeps corners and masks, the copy constructor makes them afresh.
        object->value = new (object->memory) V();
        *object->value = value;
    }
    return ref.release();
}

/// A live view: what it shows lives as long as it does.
template <class V>
PyObject* makeView(V& part, PyObject* owner) {
    Object<V>* const object = allocate<V>();
    object->value = &part;
    object->owner = share(owner);
    return reinterpret_cast<PyObject*>(object);
}

template <class V>
void destroy(PyObject* self) {
    auto* const object = reinterpret_cast<Object<V>*>(self);
    PyTypeObject* const type = Py_TYPE(self);
    if (object->owner == nullptr && object->value != nullptr) object->value->~V();
    Py_XDECREF(object->owner);
    PyObject_Free(self);
    Py_DECREF(type);
}

// ---- Results

/// The sentence of a TypeError, as the result of what is refused.
struct Refusal {
    const char* sentence;
    static std::string annotation() {
        return "";
    }
};

inline PyObject* toPython(bool value) {
    return share(value ? Py_True : Py_False);
}
inline PyObject* toPython(double value) {
    return PyFloat_FromDouble(value);
}
inline PyObject* toPython(float value) {
    return PyFloat_FromDouble(double(value));
}
inline PyObject* toPython(int value) {
    return PyLong_FromLong(value);
}
inline PyObject* toPython(unsigned value) {
    return PyLong_FromUnsignedLong(value);
}
inline PyObject* toPython(const std::string& value) {
    return PyUnicode_FromStringAndSize(value.data(), Py_ssize_t(value.size()));
}
inline PyObject* toPython(Refusal refusal) {
    raise(PyExc_TypeError, refusal.sentence);
}
template <Bound V>
PyObject* toPython(const V& value) {
    return makeObject(value);
}
template <class List>
requires requires(const List& list) {
    list.begin();
}
PyObject* toPython(const List& values) {
    Ref list(PyList_New(Py_ssize_t(values.size())));
    Py_ssize_t i = 0;
    for (const auto& value : values) {
        check(PyList_SetItem(list.get(), i++, Ref(toPython(value)).release()));
    }
    return list.release();
}
template <class... V>
PyObject* toPython(const std::tuple<V...>& values) {
    Ref tuple(PyTuple_New(sizeof...(V)));
    Py_ssize_t i = 0;
    const auto add = [&](const auto& value) {
        check(PyTuple_SetItem(tuple.get(), i++, Ref(toPython(value)).release()));
    };
    std::apply([&](const auto&... value) { (add(value), ...); }, values);
    return tuple.release();
}
template <class V>
PyObject* toPython(const std::optional<V>& value) {
    return value ? toPython(*value) : share(Py_None);
}

/// A reference into the object stays one: the object itself, or a view.
template <class R>
PyObject* toResult(R&& result, PyObject* self) {
    using V = std::remove_reference_t<R>;
    if constexpr (std::is_lvalue_reference_v<R> && Bound<V> && !std::is_const_v<V>) {
        return valueOf<V>(self) == &result ? share(self) : makeView(result, self);
    } else {
        return toPython(result);
    }
}

// ---- Arguments

template <class V>
bool fromPython(PyObject* o, std::vector<V>& values);

/// Reads an argument that C++ declares as A. Objects of a bound class are passed as they are.
template <class A>
struct Argument {
    using V = std::remove_cvref_t<A>;
    V value{};

    bool load(PyObject* o) {
        return fromPython(o, value);
    }
    void keepApart(const void*, std::size_t) {}
    A get() {
        return static_cast<A>(value);
    }
};
template <class A>
requires Bound<std::remove_cvref_t<A>>
struct Argument<A> {
    using V = std::remove_cvref_t<A>;
    V* value = nullptr;
    std::optional<V> copy;

    bool load(PyObject* o) {
        return (value = valueOf<V>(o)) != nullptr;
    }
    /// C++ may ask that an operand is no part of the object that it changes. In Python any two
    /// names may stand for one object.
    void keepApart(const void* changed, std::size_t size) {
        const auto distance =
            reinterpret_cast<std::uintptr_t>(value) - reinterpret_cast<std::uintptr_t>(changed);
        if (distance < size) value = &copy.emplace(*value);
    }
    A get() {
        return *value;
    }
};

/// The elements of a list or of any other sequence.
template <class V>
bool fromPython(PyObject* o, std::vector<V>& values) {
    if (!PySequence_Check(o)) return false;
    const Py_ssize_t count = PySequence_Size(o);
    check(count < 0 ? -1 : 0);
    for (Py_ssize_t i = 0; i < count; ++i) {
        const Ref item(PySequence_GetItem(o, i));
        Argument<V> element;
        if (!element.load(item.get())) return false;
        values.push_back(element.get());
    }
    return true;
}

// ---- Calls

/// The types of a function, as signatures name them.
struct Description {
    bool refuses;
    std::string (*result)();
    std::vector<std::string (*)()> arguments;
};

/// The arguments and the result of a function; an object comes first.
template <class R, class... A>
struct Signature {
    static constexpr std::size_t kCount = sizeof...(A);
    static constexpr bool kRefuses = std::is_same_v<R, Refusal>;

    template <auto kFunction>
    static PyObject* call(std::tuple<Argument<A>...>& in, PyObject* self) {
        const auto call = [](auto&... a) -> R { return std::invoke(kFunction, a.get()...); };
        if constexpr (std::is_void_v<R>) {
            std::apply(call, in);
            return share(Py_None);
        } else {
            return toResult<R>(std::apply(call, in), self);
        }
    }

    /// False if the arguments are of another number or kind.
    template <auto kFunction, std::size_t... I>
    static bool attempt(PyObject* self, PyObject* const* args, std::size_t count, PyObject*& result,
                        std::index_sequence<I...>) {
        const std::size_t first = self != nullptr ? 1 : 0;
        if (count + first != kCount) return false;
        std::tuple<Argument<A>...> in;
        if (!(std::get<I>(in).load(I < first ? self : args[I - first]) && ...)) return false;
        if constexpr (kCount > 1) {
            using First = std::tuple_element_t<0, std::tuple<A...>>;
            if constexpr (std::is_lvalue_reference_v<First> &&
                          !std::is_const_v<std::remove_reference_t<First>>) {
                const auto& changed = std::get<0>(in).value;
                ((I > 0 ? std::get<I>(in).keepApart(changed, sizeof *changed) : void()), ...);
            }
        }
        result = call<kFunction>(in, self);
        return true;
    }

    static Description describe() {
        return {
            kRefuses, annotation<std::remove_cvref_t<R>>, {annotation<std::remove_cvref_t<A>>...}};
    }
};

template <class F>
struct SignatureOf : SignatureOf<decltype(&F::operator())> {};
template <class R, class... A>
struct SignatureOf<R (*)(A...)> : Signature<R, A...> {};
template <class R, class C, class... A>
requires Bound<C>
struct SignatureOf<R (C::*)(A...)> : Signature<R, C&, A...> {
};
template <class R, class C, class... A>
requires Bound<C>
struct SignatureOf<R (C::*)(A...) const> : Signature<R, const C&, A...> {
};
template <class R, class L, class... A>
requires(!Bound<L>) struct SignatureOf<R (L::*)(A...) const> : Signature<R, A...> {
};

template <auto kFunction>
bool attempt(PyObject* self, PyObject* const* args, std::size_t count, PyObject*& result) {
    using S = SignatureOf<std::remove_const_t<decltype(kFunction)>>;
    return S::template attempt<kFunction>(self, args, count, result,
                                          std::make_index_sequence<S::kCount>());
}

/// One line for each function of a name, as `name(argument: type) -> type`.
template <auto... kFunction>
inline const char* signatures = "";

[[noreturn]] void raiseMismatch(const char* expected, PyObject* const* args, std::size_t count);

template <auto... kFunction>
PyObject* callAny(PyObject* self, PyObject* const* args, std::size_t count) {
    return guarded([&] {
        PyObject* result = nullptr;
        if (!(attempt<kFunction>(self, args, count, result) || ...)) {
            raiseMismatch(signatures<kFunction...>, args, count);
        }
        return result;
    });
}

template <auto... kFunction>
PyObject* method(PyObject* self, PyObject* const* args, Py_ssize_t count) {
    return callAny<kFunction...>(self, args, std::size_t(count));
}
template <auto... kFunction>
PyObject* function(PyObject*, PyObject* const* args, Py_ssize_t count) {
    return callAny<kFunction...>(nullptr, args, std::size_t(count));
}
template <auto... kFunction>
PyObject* construct(PyTypeObject*, PyObject* args, PyObject* keywords) {
    PyObject* items[16];
    const auto count = std::size_t(PyTuple_Size(args));
    for (std::size_t i = 0; i < count && i < 16; ++i) {
        items[i] = PyTuple_GetItem(args, Py_ssize_t(i));
    }
    if (keywords != nullptr || count > 16) {
        PyErr_SetString(PyExc_TypeError, "expected fewer arguments, and none by keyword");
        return nullptr;
    }
    return callAny<kFunction...>(nullptr, items, count);
}

/// The same operation by numpy where the other operand is one of its arrays, else NotImplemented.
PyObject* byNumpy(PyObject* left, PyObject* right, int slot);
PyObject* compareByNumpy(PyObject* self, PyObject* other, int operation);

template <int kSlot, auto... kFunction>
PyObject* binary(PyObject* left, PyObject* right) {
    return guarded([&] {
        PyObject* const args[] = {left, right};
        PyObject* result = nullptr;
        const bool done = (attempt<kFunction>(nullptr, args, 2, result) || ...);
        return done ? result : byNumpy(left, right, kSlot);
    });
}
template <auto... kFunction>
PyObject* inPlace(PyObject* self, PyObject* other) {
    return guarded([&] {
        PyObject* result = nullptr;
        const bool done = (attempt<kFunction>(self, &other, 1, result) || ...);
        return done ? result : share(Py_NotImplemented);
    });
}
template <auto kFunction>
PyObject* unary(PyObject* self) {
    return callAny<kFunction>(self, nullptr, 0);
}

// ---- Attributes

template <class V, auto kAccess>
PyObject* getAttribute(PyObject* self, void*) {
    return guarded([&] {
        auto& part = std::invoke(kAccess, *valueOf<V>(self));
        return toResult<decltype(part)>(part, self);
    });
}
template <class V, auto kAccess>
int setAttribute(PyObject* self, PyObject* to, void*) {
    return guarded([&] {
        auto& part = std::invoke(kAccess, *valueOf<V>(self));
        using Part = std::remove_reference_t<decltype(part)>;
        Argument<const Part&> in;
        if (to == nullptr || !in.load(to)) {
            raise(PyExc_TypeError, "expected a " + annotation<Part>());
        }
        part = in.get();
        return 0;
    });
}

// ---- Types

char* writeSignatures(const char* name, std::string names, bool method,
                      const std::vector<Description>& functions);

/// Text for as long as Python runs: what functions of one name take and give, a line for each. Of
/// several functions, "x y z|v" names the arguments of the first and of all others.
template <auto... kFunction>
const char* describe(const char* name, const char* names, bool method) {
    return signatures<kFunction...> = writeSignatures(
               name, names, method,
               {SignatureOf<std::remove_const_t<decltype(kFunction)>>::describe()...});
}
/// The comment of the header, or null.
const char* comment(const std::string& owner, const std::string& name);
/// Text for as long as Python runs: signatures, then the comment of the header.
char* writeDocument(const char* owner, const char* name, const char* lines, bool method);

/// Where Python looks for functions for as long as it runs.
class Functions {
public:
    template <bool kMethod, auto... kFunction>
    void add(const char* owner, const char* name, const char* names, int flags) {
        const auto entry = kMethod ? method<kFunction...> : function<kFunction...>;
        const char* const lines = describe<kFunction...>(name, names, kMethod);
        add(name, reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(entry)),
            METH_FASTCALL | flags, writeDocument(owner, name, lines, kMethod));
    }
    void add(const char* name, PyCFunction entry, int flags, const char* document = nullptr) {
        list_.push_back({name, entry, flags, document});
    }
    PyMethodDef* finish() {
        list_.push_back({});
        return list_.data();
    }

private:
    std::vector<PyMethodDef> list_;
};

/// Functions that belong to no class, in a module or in a namespace.
struct Namespace {
    const char* name;
    Functions& functions = *new Functions;
    std::vector<std::pair<const char*, double>> numbers = {};

    void addTo(PyObject* module) {
        check(PyModule_AddFunctions(module, functions.finish()));
    }
    void addAsMember(PyObject* module);
};
template <auto... kFunction>
void def(Namespace& space, const char* name, const char* names = "") {
    space.functions.add<false, kFunction...>(space.name, name, names, 0);
}

/// Makes a type and adds it to the module.
PyTypeObject* addType(PyObject* module, const char* name, std::size_t size, Functions& functions,
                      std::vector<PyGetSetDef>& attributes, std::vector<PyType_Slot>& slots);
/// An attribute of the type that gives a fresh copy of the value whenever it is read.
void addConstant(PyTypeObject* type, const char* name, PyObject* value);

template <class V>
struct Type {
    Functions& functions = *new Functions;
    std::vector<PyGetSetDef>& attributes = *new std::vector<PyGetSetDef>;
    std::vector<PyType_Slot> slots;
    std::vector<std::pair<const char*, PyObject* (*)()>> constants;
    char* document = nullptr;

    template <class F>
    void slot(int id, F* function) {
        slots.push_back({id, reinterpret_cast<void*>(function)});
    }
    void addTo(PyObject* module);
};

template <auto... kFunction, class V>
void init(Type<V>& type, const char* names) {
    const char* const lines = describe<kFunction...>(kName<V>, names, false);
    type.document = writeDocument(kName<V>, kName<V>, lines, false);
    type.slot(Py_tp_new, construct<kFunction...>);
}
template <auto... kFunction, class V>
void def(Type<V>& type, const char* name, const char* names = "") {
    type.functions.template add<true, kFunction...>(kName<V>, name, names, 0);
}
template <auto... kFunction, class V>
void defStatic(Type<V>& type, const char* name, const char* names = "") {
    type.functions.template add<false, kFunction...>(kName<V>, name, names, METH_STATIC);
}
template <auto kAccess, class V>
void attribute(Type<V>& type, const char* name) {
    type.attributes.push_back(
        {name, getAttribute<V, kAccess>, setAttribute<V, kAccess>, nullptr, nullptr});
}
template <const auto& kValue, class V>
void constant(Type<V>& type, const char* name) {
    type.constants.push_back({name, [] { return toPython(kValue); }});
}
template <int kValue, class V>
void enumerator(Type<V>& type, const char* name) {
    type.constants.push_back({name, [] { return toPython(kValue); }});
}
template <int kSlot, auto... kFunction, class V>
void op(Type<V>& type) {
    type.slot(kSlot, binary<kSlot, kFunction...>);
}
template <int kSlot, auto... kFunction, class V>
void opInPlace(Type<V>& type) {
    type.slot(kSlot, inPlace<kFunction...>);
}
template <int kSlot, auto kFunction, class V>
void opUnary(Type<V>& type) {
    type.slot(kSlot, unary<kFunction>);
}

}  // namespace KyMath::python

#endif
