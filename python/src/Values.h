// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// What the layer knows of the library's types: their names, their numbers in memory, and the
// arguments that make them anew.
#ifndef KYMATH_PYTHON_VALUES_H
#define KYMATH_PYTHON_VALUES_H

#define PY_SSIZE_T_CLEAN
#define Py_LIMITED_API 0x030b0000  // one binary for Python 3.11 and later
#include <Python.h>

#include <Ky/Ky.h>
#include <KyMath/KyMath.h>

#include <algorithm>
#include <array>
#include <concepts>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace KyMath::python {

using Ky::KyEulerAngles;
using Ky::KyTransform;

// ---- Names

template <class V>
inline constexpr const char* kName = nullptr;

#define KY_BIND(V) \
    template <>    \
    inline constexpr const char* kName<V> = #V;
KY_BIND(Vector2f)
KY_BIND(Vector2d)
KY_BIND(Vector3f)
KY_BIND(Vector3d)
KY_BIND(Vector4f)
KY_BIND(Vector4d)
KY_BIND(Vector6)
KY_BIND(Matrix44f)
KY_BIND(Matrix44d)
KY_BIND(Quaternionf)
KY_BIND(Quaterniond)
KY_BIND(KyTransform)
KY_BIND(KyEulerAngles)
KY_BIND(BoundingBoxf)
KY_BIND(BoundingBoxd)
KY_BIND(BoundingSphere)
KY_BIND(Planef)
KY_BIND(Planed)
KY_BIND(Polytope)
KY_BIND(Frustum)
KY_BIND(Line3)
KY_BIND(Segment3)
#undef KY_BIND

template <class V>
concept Bound = kName<V>
!= nullptr;

// ---- Numbers in memory

/// Of types that are numbers and nothing else: how many, and in what order.
template <class V>
struct Layout {
    static constexpr int kRank = 0;
};
template <class T, Py_ssize_t kCount>
struct Row {
    using Scalar = T;
    static constexpr int kRank = 1;
    static constexpr Py_ssize_t kShape[] = {kCount};
    static constexpr Py_ssize_t kStrides[] = {sizeof(T)};
};
template <class T, Py_ssize_t kRows, Py_ssize_t kColumns, bool kByColumn>
struct Table {
    using Scalar = T;
    static constexpr int kRank = 2;
    static constexpr Py_ssize_t kShape[] = {kRows, kColumns};
    static constexpr Py_ssize_t kStrides[] = {sizeof(T) * (kByColumn ? 1 : kColumns),
                                              sizeof(T) * (kByColumn ? kRows : 1)};
};
template <class T>
struct Layout<Vector2T<T>> : Row<T, 2> {};
template <class T>
struct Layout<Vector3T<T>> : Row<T, 3> {};
template <class T>
struct Layout<Vector4T<T>> : Row<T, 4> {};
template <>
struct Layout<Vector6> : Row<double, 6> {};
template <class T>
struct Layout<QuaternionT<T>> : Row<T, 4> {};
template <class T>
struct Layout<BoundingBoxT<T>> : Table<T, 2, 3, false> {};
template <class T>
struct Layout<Matrix44T<T>> : Table<T, 4, 4, true> {};
template <>
struct Layout<KyTransform> : Table<double, 4, 4, true> {};

template <>
struct Layout<KyEulerAngles> : Row<double, 3> {};

template <class V>
concept Numeric = Layout<V>::kRank >
0;
template <class V>
concept Listed = Layout<V>::kRank == 1;
template <class V>
concept Tabulated = Layout<V>::kRank == 2;

template <class V>
auto element(const V& value, Py_ssize_t row, Py_ssize_t column = 0) -> typename Layout<V>::Scalar& {
    using L = Layout<V>;
    Py_ssize_t at = row * L::kStrides[0];
    if constexpr (L::kRank == 2) at += column * L::kStrides[1];
    auto* const memory = reinterpret_cast<char*>(const_cast<V*>(&value));
    return *reinterpret_cast<typename L::Scalar*>(memory + at);
}

// ---- The arguments that make a value anew, for repr(), pickle and comparison

template <Numeric V>
auto fields(const V& v) {
    using L = Layout<V>;
    constexpr auto count = std::size_t(L::kShape[0]);
    if constexpr (L::kRank == 1) {
        std::array<typename L::Scalar, count> numbers;
        for (std::size_t i = 0; i < count; ++i) numbers[i] = element(v, Py_ssize_t(i));
        return std::apply([](auto... number) { return std::tuple(number...); }, numbers);
    } else {
        std::array<std::array<typename L::Scalar, L::kShape[1]>, count> rows;
        for (std::size_t r = 0; r < count; ++r) {
            for (std::size_t c = 0; c < rows[r].size(); ++c) {
                rows[r][c] = element(v, Py_ssize_t(r), Py_ssize_t(c));
            }
        }
        return std::tuple(rows);
    }
}
inline auto fields(const KyEulerAngles& e) {
    return std::tuple(e[0], e[1], e[2], int(e.order()));
}
inline auto fields(const BoundingSphere& s) {
    return std::tuple(s.center(), s.radius());
}
template <class T>
auto fields(const PlaneT<T>& plane) {
    const Vector4T<T>& v = plane.getAsVector4();
    return std::tuple(v[0], v[1], v[2], v[3]);
}
inline auto fields(const Polytope& p) {
    return std::tuple(p.getPlanes());
}
inline auto fields(const Frustum& f) {
    std::vector<Planef> planes;
    for (unsigned i = 0; i < 6; ++i) planes.push_back(f.getPlane(i));
    return std::tuple(planes);
}
/// A frustum of six planes.
inline Frustum frustumOf(const std::vector<Planef>& planes) {
    Frustum frustum;
    for (unsigned i = 0; i < 6; ++i) {
        // Of a frustum that is not const, as its planes are not.
        const_cast<Planef&>(frustum.getPlane(i)) = planes[i];
    }
    return frustum;
}
template <std::derived_from<Line3> L>
auto fields(const L& line) {
    return std::tuple(line.p1, line.p2);
}

// ---- Arguments that are no objects of the library

/// An index below kLimit, which is checked.
template <unsigned kLimit>
struct Index {
    unsigned value = 0;
    operator unsigned() const {
        return value;
    }
};

/// The numbers of a V, from any sequence or array of that shape, read by index.
template <class V>
struct Numbers {
    V value = fresh();

    static V fresh() {
        if constexpr (std::is_default_constructible_v<V>) {
            return V();
        } else {
            return V(0, 0, 0, 0, 0, 0);
        }
    }
};

/// Any real number: of Python, of numpy, or of a type that says so.
bool realFromPython(PyObject* o, double& value);
inline bool fromPython(PyObject* o, double& value) {
    if (!Py_IS_TYPE(o, &PyFloat_Type)) return realFromPython(o, value);
    value = PyFloat_AsDouble(o);
    return true;
}
inline bool fromPython(PyObject* o, float& value) {
    double wide;
    if (!fromPython(o, wide)) return false;
    value = float(wide);
    return true;
}
bool fromPython(PyObject* o, bool& value);
/// An integer within [low, high]; outside of them, an error with the sentence.
bool integerFromPython(PyObject* o, Py_ssize_t low, Py_ssize_t high, PyObject* error,
                       Py_ssize_t& value);
template <class I>
requires(std::is_enum_v<I> || std::is_same_v<I, unsigned>) bool fromPython(PyObject* o, I& value) {
    Py_ssize_t n = 0;
    const bool sign = std::is_enum_v<I>;
    const Py_ssize_t high = sign ? 0x7fffffff : 0xffffffff;
    const bool read = integerFromPython(o, sign ? -high - 1 : 0, high, PyExc_ValueError, n);
    value = I(n);
    return read;
}
template <unsigned kLimit>
bool fromPython(PyObject* o, Index<kLimit>& index) {
    Py_ssize_t n = 0;
    const bool read = integerFromPython(o, 0, kLimit - 1, PyExc_IndexError, n);
    index.value = unsigned(n);
    return read;
}

/// Reads numbers of a shape into what has these strides. False if o is no such thing at all.
bool numbersFromPython(PyObject* o, int rank, const Py_ssize_t* shape, const Py_ssize_t* strides,
                       bool single, char* out);
/// Whether o is of one of the module's types, other than those of the name up to its last letter.
bool isOfAnotherClass(PyObject* o, const std::string& name);

template <class V>
bool fromPython(PyObject* o, Numbers<V>& numbers) {
    using L = Layout<V>;
    return !isOfAnotherClass(o, kName<V>) &&
           numbersFromPython(o, L::kRank, L::kShape, L::kStrides,
                             std::is_same_v<typename L::Scalar, float>,
                             reinterpret_cast<char*>(&numbers.value));
}

// ---- Types as signatures name them

template <class T>
struct Annotation {
    static std::string text() {
        if constexpr (std::is_void_v<T>) {
            return "None";
        } else if constexpr (std::is_same_v<T, bool>) {
            return "bool";
        } else if constexpr (std::is_floating_point_v<T>) {
            return "float";
        } else if constexpr (std::is_same_v<T, std::string>) {
            return "str";
        } else if constexpr (std::is_integral_v<T> || std::is_enum_v<T>) {
            return "int";
        } else if constexpr (Bound<T>) {
            return kName<T>;
        } else {
            return T::annotation();
        }
    }
};
template <class T>
std::string annotation() {
    return Annotation<T>::text();
}
template <unsigned kLimit>
struct Annotation<Index<kLimit>> {
    static std::string text() {
        return "int";
    }
};
template <class V>
struct Annotation<Numbers<V>> {
    static std::string text() {
        return "Numbers";
    }
};
template <class V>
struct Annotation<std::vector<V>> {
    static std::string text() {
        return "list[" + annotation<V>() + "]";
    }
};
template <class V>
struct Annotation<std::optional<V>> {
    static std::string text() {
        return annotation<V>() + " | None";
    }
};
template <class... V>
struct Annotation<std::tuple<V...>> {
    static std::string text() {
        std::string list;
        (list.append(list.empty() ? "" : ", ").append(annotation<V>()), ...);
        return "tuple[" + list + "]";
    }
};

}  // namespace KyMath::python

#endif
