// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// A function on single values as a generalised universal function of numpy, which takes care of
// broadcasting, strides, types, overlap and threads. Loops and signature follow from the C++ type:
//
//     add<&Quaternionf::slerp, &Quaterniond::slerp>(space, "slerp");    // (4),(4),()->(4)
#ifndef KYMATH_PYTHON_ARRAYS_H
#define KYMATH_PYTHON_ARRAYS_H

#include "Layer.h"

#define NPY_NO_DEPRECATED_API NPY_1_20_API_VERSION
#include <numpy/ndarraytypes.h>
#include <numpy/ufuncobject.h>

#include <cfenv>

namespace KyMath::python {

// ---- One value in an array

/// The last dimensions of an array hold one V.
template <class V>
struct Core {
    static constexpr int kRank = 0;
    static constexpr char kType = std::is_same_v<V, bool>     ? NPY_BOOL
                                  : std::is_same_v<V, float>  ? NPY_FLOAT
                                  : std::is_same_v<V, double> ? NPY_DOUBLE
                                                              : NPY_LONG;
    static constexpr const char* kShape = "()";

    static V load(const char* at, const npy_intp*, const npy_intp*) {
        if constexpr (kType == NPY_LONG) {
            return V(*reinterpret_cast<const npy_long*>(at));
        } else {
            return *reinterpret_cast<const V*>(at);
        }
    }
    static void store(const V& value, char* at, const npy_intp*) {
        using Stored = std::conditional_t<kType == NPY_LONG, npy_long, V>;
        *reinterpret_cast<Stored*>(at) = Stored(value);
    }
};

template <Numeric V>
struct Core<V> {
    using L = Layout<V>;
    using T = typename L::Scalar;
    static constexpr int kRank = L::kRank;
    static constexpr char kType = Core<T>::kType;
    static constexpr const char* kShape = kRank == 1          ? L::kShape[0] == 2   ? "(2)"
                                                                : L::kShape[0] == 3 ? "(3)"
                                                                : L::kShape[0] == 4 ? "(4)"
                                                                                    : "(6)"
                                          : L::kShape[0] == 2 ? "(2,3)"
                                          : L::kShape[0] == 3 ? "(3,3)"
                                                              : "(4,4)";

    static constexpr npy_intp kCOrder[] = {
        npy_intp(sizeof(T)) * (kRank == 2 ? L::kShape[kRank - 1] : 1), sizeof(T)};

    static bool isPlain(const npy_intp* strides) {
        return std::equal(L::kStrides, std::end(L::kStrides), strides);
    }
    static bool isCOrder(const npy_intp* strides) {
        return std::equal(kCOrder, kCOrder + kRank, strides);
    }
    static V load(const char* at, const npy_intp* strides, const npy_intp*) {
        return isPlain(strides) ? *reinterpret_cast<const V*>(at) : gather(at, strides);
    }
    static void store(const V& v, char* at, const npy_intp* strides) {
        if (isPlain(strides)) {
            *reinterpret_cast<V*>(at) = v;
        } else {
            scatter(v, at, strides);
        }
    }
    // Not inlined: hundreds of copies would leave no room to inline the functions themselves.
    [[gnu::noinline]] static V gather(const char* at, const npy_intp* strides) {
        return isCOrder(strides) ? gathered(at, kCOrder) : gathered(at, strides);
    }
    [[gnu::noinline]] static void scatter(const V& v, char* at, const npy_intp* strides) {
        const auto write = [&v, at](const auto& s) {
            each(s, [&](Py_ssize_t r, Py_ssize_t c, npy_intp offset) {
                *reinterpret_cast<T*>(at + offset) = element(v, r, c);
            });
        };
        isCOrder(strides) ? write(kCOrder) : write(strides);
    }

private:
    template <class Strides, class F>
    static void each(const Strides& strides, F f) {
        for (Py_ssize_t r = 0; r < L::kShape[0]; ++r) {
            for (Py_ssize_t c = 0; c < (kRank == 2 ? L::kShape[kRank - 1] : 1); ++c) {
                f(r, c, r * strides[0] + (kRank == 2 ? c * strides[kRank - 1] : 0));
            }
        }
    }
    /// With those of C order as a constant, which the compiler makes use of.
    template <class Strides>
    static V gathered(const char* at, const Strides& strides) {
        V v = Numbers<V>::fresh();
        each(strides, [&](Py_ssize_t r, Py_ssize_t c, npy_intp offset) {
            element(v, r, c) = *reinterpret_cast<const T*>(at + offset);
        });
        return v;
    }
};

/// A plane by its coefficients.
template <class T>
struct Core<PlaneT<T>> : Core<Vector4T<T>> {
    using Base = Core<Vector4T<T>>;
    static PlaneT<T> load(const char* at, const npy_intp* strides, const npy_intp* sizes) {
        return PlaneT<T>(Base::load(at, strides, sizes));
    }
    static void store(const PlaneT<T>& plane, char* at, const npy_intp* strides) {
        Base::store(plane.getAsVector4(), at, strides);
    }
};

/// A sphere by its centre and its radius.
template <>
struct Core<BoundingSphere> : Core<Vector4d> {
    using Base = Core<Vector4d>;
    static BoundingSphere load(const char* at, const npy_intp* strides, const npy_intp* sizes) {
        const Vector4d v = Base::load(at, strides, sizes);
        return BoundingSphere(v.xyz(), v.w());
    }
    static void store(const BoundingSphere& sphere, char* at, const npy_intp* strides) {
        Base::store(Vector4d(sphere.center(), sphere.radius()), at, strides);
    }
};

/// A line by its two points.
template <std::derived_from<Line3> Line>
struct Core<Line> : Core<BoundingBoxd> {
    static Line load(const char* at, const npy_intp* strides, const npy_intp* sizes) {
        const BoundingBoxd points = Core<BoundingBoxd>::load(at, strides, sizes);
        return Line(points.getMin(), points.getMax());
    }
};

template <class T>
std::vector<PlaneT<T>> loadPlanes(const char* at, npy_intp count, const npy_intp* strides) {
    std::vector<PlaneT<T>> planes;
    for (npy_intp i = 0; i < count; ++i) {
        planes.push_back(Core<PlaneT<T>>::load(at + i * strides[0], strides + 1, nullptr));
    }
    return planes;
}

/// A region by its planes, all of them to be tested. It is the first argument: the first of the
/// sizes is their number.
template <>
struct Core<Polytope> : Core<Planed> {
    static constexpr int kRank = 2;
    static constexpr const char* kShape = "(n,4)";
    static Polytope load(const char* at, const npy_intp* strides, const npy_intp* sizes) {
        return Polytope(loadPlanes<double>(at, sizes[0], strides));
    }
};
template <>
struct Core<Frustum> : Core<Planef> {
    static constexpr int kRank = 2;
    static constexpr const char* kShape = "(6,4)";
    static Frustum load(const char* at, const npy_intp* strides, const npy_intp*) {
        return frustumOf(loadPlanes<float>(at, 6, strides));
    }
};

// ---- What a function takes and gives

/// The outputs of a result. An optional one is whether there is one, and then what it is, or zeros.
inline std::tuple<> outputs() {
    return {};
}
template <class V>
std::tuple<V> outputs(const V& value) {
    return {value};
}
template <class... V>
std::tuple<V...> outputs(const std::tuple<V...>& values) {
    return values;
}
template <class V>
auto outputs(const std::optional<V>& value) {
    return std::tuple_cat(std::tuple(value.has_value()), outputs(value.value_or(V{})));
}

/// The outputs of a call: what it returns, before that the object that it changes.
template <auto kFunction, class R, class First, class... A>
auto outputsOf(First& first, A&... rest) {
    using V = std::remove_cvref_t<First>;
    const auto call = [&]() -> R { return std::invoke(kFunction, first, rest...); };
    constexpr bool returns = !std::is_void_v<R> && !std::is_same_v<R, V&>;
    if constexpr (std::is_const_v<First>) {
        return outputs(call());
    } else if constexpr (returns) {
        const R result = call();
        return std::tuple_cat(std::tuple<V>(first), outputs(result));
    } else {
        call();
        return std::tuple<V>(first);
    }
}

/// Calls f, which needs no lock of Python's, between numpy and C++.
template <class F>
void guardedLoop(F f) noexcept {
    try {
        f();
    } catch (const std::bad_alloc&) {
        const PyGILState_STATE state = PyGILState_Ensure();
        PyErr_NoMemory();
        PyGILState_Release(state);
    }
    std::feclearexcept(FE_ALL_EXCEPT);  // which numpy would warn of: a single call does not
}

/// A faster loop for a function, by an array call of the library: false if the arguments are not
/// as the array call wants them.
using Kernel = bool (*)(char** args, const npy_intp* counts, const npy_intp* steps);

template <auto kFunction, Kernel kKernel, class R, class... A>
struct Loop {
    /// Objects that the function changes are not const, all else is.
    template <class P>
    using Held = std::conditional_t<std::is_lvalue_reference_v<P>, std::remove_reference_t<P>,
                                    const std::remove_cvref_t<P>>;
    using Outputs = decltype(outputsOf<kFunction, R>(std::declval<Held<A>&>()...));
    using Inputs = std::tuple<std::remove_cvref_t<A>...>;
    static constexpr std::size_t kInputs = sizeof...(A);
    static constexpr std::size_t kAll = kInputs + std::tuple_size_v<Outputs>;

    template <template <class> class Of, class... Out>
    static constexpr auto list(std::tuple<Out...>*) {
        return std::array{Of<std::remove_cvref_t<A>>::value..., Of<Out>::value...};
    }
    template <class V>
    struct Rank {
        static constexpr int value = Core<V>::kRank;
    };
    template <class V>
    struct TypeOf {
        static constexpr char value = Core<V>::kType;
    };
    template <class V>
    struct Shape {
        static constexpr const char* value = Core<V>::kShape;
    };
    static constexpr auto kTypes = list<TypeOf>(static_cast<Outputs*>(nullptr));
    static constexpr auto kShapes = list<Shape>(static_cast<Outputs*>(nullptr));

    static void run(char** args, const npy_intp* counts, const npy_intp* steps, void*) {
        guardedLoop([&] {
            if (kKernel == nullptr || !kKernel(args, counts, steps)) {
                run(args, counts, steps, std::make_index_sequence<kInputs>(),
                    std::make_index_sequence<kAll - kInputs>());
            }
        });
    }

    template <std::size_t... I, std::size_t... O>
    static void run(char** args, const npy_intp* counts, const npy_intp* steps,
                    std::index_sequence<I...>, std::index_sequence<O...>) {
        constexpr auto ranks = list<Rank>(static_cast<Outputs*>(nullptr));
        const npy_intp* strides[kAll];  // of the dimensions of each value
        strides[0] = steps + kAll;
        for (std::size_t i = 1; i < kAll; ++i) strides[i] = strides[i - 1] + ranks[i - 1];
        for (npy_intp n = 0; n < counts[0]; ++n) {
            std::tuple<Held<A>...> in{Core<std::remove_cvref_t<A>>::load(
                args[I] + n * steps[I], strides[I], counts + 1)...};
            const Outputs out = outputsOf<kFunction, R>(std::get<I>(in)...);
            (Core<std::tuple_element_t<O, Outputs>>::store(
                 std::get<O>(out), args[kInputs + O] + n * steps[kInputs + O],
                 strides[kInputs + O]),
             ...);
        }
    }
};

/// A function that has a faster loop, as the tables name it.
template <auto kFunction, Kernel kKernel>
struct WithKernel {};

template <auto kFunction, Kernel kKernel, class R, class... A>
Loop<kFunction, kKernel, R, A...> loopOf(const Signature<R, A...>&);
template <auto kFunction, class F>
struct LoopFor {
    using Type = decltype(loopOf<kFunction, nullptr>(SignatureOf<F>()));
};
template <auto kAny, auto kFunction, Kernel kKernel>
struct LoopFor<kAny, WithKernel<kFunction, kKernel>> {
    using F = std::remove_const_t<decltype(kFunction)>;
    using Type = decltype(loopOf<kFunction, kKernel>(SignatureOf<F>()));
};
template <auto kFunction>
using LoopOf = typename LoopFor<kFunction, std::remove_const_t<decltype(kFunction)>>::Type;

// ---- Adding them

/// The functions of a class, without its scalar type.
struct Space {
    const char* name;
    Ref module;
};

/// What numpy keeps pointers to: a loop for each scalar type, and for each the types of all inputs
/// and outputs.
struct Ufunc {
    PyUFuncGenericFunction* loops;
    char* types;
    int count, inputs, all;
    const char* const* shapes;
};
void addUfunc(Space& space, const char* name, const Ufunc& ufunc);

/// The forms of a function for each scalar type, float first.
template <auto kFirst, auto... kOther>
void add(Space& space, const char* name) {
    using L = LoopOf<kFirst>;
    static PyUFuncGenericFunction loops[] = {L::run, LoopOf<kOther>::run...};
    static std::remove_const_t<decltype(L::kTypes)> types[] = {L::kTypes,
                                                               LoopOf<kOther>::kTypes...};
    addUfunc(space, name,
             {loops, types[0].data(), 1 + sizeof...(kOther), int(L::kInputs), int(L::kAll),
              L::kShapes.data()});
}

}  // namespace KyMath::python

#endif
