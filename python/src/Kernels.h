// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// Functions of kymath.arrays that have an array call in the library, and how their loops use it.
#ifndef KYMATH_PYTHON_KERNELS_H
#define KYMATH_PYTHON_KERNELS_H

#include "Arrays.h"
#include "Results.h"

#include <KyMath/Batch.h>

namespace KyMath::python {

// ---- What an array call takes

/// An argument of a loop: where it is, how far its next value is, and the strides within a value.
struct Place {
    char* at;
    npy_intp step;
    const npy_intp *strides, *sizes;
};

/// One value for all elements.
template <class V>
class One {
public:
    static constexpr int kRank = Core<V>::kRank;

    One(const Place& place) {
        if (place.step == 0) value_.emplace(Core<V>::load(place.at, place.strides, place.sizes));
    }
    bool fits(npy_intp) const {
        return value_.has_value();
    }
    bool isCopied() const {
        return false;
    }
    void read(npy_intp, npy_intp) {}
    void write(npy_intp, npy_intp) {}
    std::tuple<const V&> value(npy_intp) {
        return *value_;
    }
    std::tuple<> stride() const {
        return {};
    }

private:
    std::optional<V> value_;
};

constexpr npy_intp kBlock = 64;

/// Values where they are if they stand there as in C++; otherwise copies of kBlock at a time.
template <class V, bool kResult, bool kStrided>
class Many {
public:
    static constexpr int kRank = Core<V>::kRank;

    Many(const Place& place) : place_(place) {}
    /// Whether it is worth it.
    bool fits(npy_intp count) const {
        return !isCopied() || count >= kBlock;
    }
    bool isCopied() const {
        constexpr auto size = npy_intp(sizeof(V));
        const npy_intp step = place_.step;
        const bool apart = kStrided ? step >= size || (!kResult && step == 0) : step == size;
        if constexpr (Numeric<V>) {
            return !apart || !Core<V>::isPlain(place_.strides);
        } else {
            return !apart || Core<V>::kType == NPY_LONG;  // which is wider
        }
    }
    [[gnu::noinline]] void read(npy_intp first, npy_intp size) {
        if (!isCopied()) return;
        if (!copies_) copies_.emplace();
        for (npy_intp i = 0; i < (kResult ? 0 : size); ++i) {
            new (&(*copies_)[std::size_t(i)])
                V(Core<V>::load(at(first + i), place_.strides, place_.sizes));
        }
    }
    [[gnu::noinline]] void write(npy_intp first, npy_intp size) {
        if (!kResult || !isCopied()) return;
        for (npy_intp i = 0; i < size; ++i) {
            Core<V>::store((*copies_)[std::size_t(i)], at(first + i), place_.strides);
        }
    }
    std::tuple<V*> value(npy_intp first) {
        return copies_ ? copies_->data() : reinterpret_cast<V*>(at(first));
    }
    auto stride() const {
        if constexpr (kStrided) {
            return std::tuple(copies_ ? sizeof(V) : std::size_t(place_.step));
        } else {
            return std::tuple();
        }
    }

private:
    char* at(npy_intp i) const {
        return place_.at + i * place_.step;
    }
    Place place_;
    std::optional<std::array<V, kBlock>> copies_;
};
template <class V>
using In = Many<V, false, true>;
template <class V>
using Out = Many<V, true, true>;
/// Without a stride.
template <class V>
using InRow = Many<V, false, false>;
template <class V>
using OutRow = Many<V, true, false>;

/// Calls kBatch with the values, their count and the strides. Overlap is no concern: numpy copies.
template <auto kBatch, class... A>
bool byArrayCall(char** args, const npy_intp* counts, const npy_intp* steps) {
    const npy_intp* strides = steps + sizeof...(A);
    const auto next = [&](int rank) {
        return Place{*args++, *steps++, std::exchange(strides, strides + rank), counts + 1};
    };
    std::tuple<A...> all{next(A::kRank)...};
    const auto run = [count = counts[0]](A&... a) {
        if (!(a.fits(count) && ...)) return false;
        const npy_intp block = (a.isCopied() || ...) ? kBlock : count;
        for (npy_intp first = 0; first < count; first += block) {
            const npy_intp size = std::min(block, count - first);
            (a.read(first, size), ...);
            std::apply(kBatch, std::tuple_cat(a.value(first)..., std::tuple(std::size_t(size)),
                                              a.stride()...));
            (a.write(first, size), ...);
        }
        return true;
    };
    return std::apply(run, all);
}

// ---- Functions that have one

template <auto kCall, class... A, class... Result>
constexpr Kernel kernelOf(std::tuple<A...>*, std::tuple<Result...>*) {
    return byArrayCall<kCall, In<A>..., Out<Result>...>;
}
/// A function with its array call. Unless its arguments and results are named, all are arrays.
template <auto kFunction, auto kCall, class... A>
constexpr auto batched() {
    if constexpr (sizeof...(A) > 0) {
        return WithKernel<kFunction, byArrayCall<kCall, A...>>();
    } else {
        using L = LoopOf<kFunction>;
        constexpr Kernel kernel = kernelOf<kCall>(static_cast<typename L::Inputs*>(nullptr),
                                                  static_cast<typename L::Outputs*>(nullptr));
        return WithKernel<kFunction, kernel>();
    }
}
/// A function with the first that fits of several array calls.
template <Kernel... kKernels>
bool anyOf(char** args, const npy_intp* counts, const npy_intp* steps) {
    return (kKernels(args, counts, steps) || ...);
}
template <auto kFunction, Kernel... kKernels>
constexpr auto batchedByAnyOf() {
    return WithKernel<kFunction, anyOf<kKernels...>>();
}
#define KY_CALL(function) [](const auto&... a) { function(a...); }

template <Scalar T>
constexpr Matrix44T<T> (*kProduct)(const Matrix44T<T>&,
                                   const Matrix44T<T>&) = &Matrix44T<T>::multiply;

/// Products in C order. Read column by column, that is the product of both transposed in reverse,
/// of the same terms in the same order.
template <Scalar T>
bool productsInCOrder(char** args, const npy_intp* counts, const npy_intp* steps) {
    using M = Matrix44T<T>;
    const auto count = std::size_t(counts[0]);
    for (int i = 0; i < 3; ++i) {
        const npy_intp step = steps[i];
        if (step != sizeof(M) && !(i == 1 && step == 0)) return false;
        if (!std::equal(Core<M>::kCOrder, Core<M>::kCOrder + 2, steps + 3 + 2 * i)) return false;
    }
    const auto* const a = reinterpret_cast<const M*>(args[0]);
    const auto* const b = reinterpret_cast<const M*>(args[1]);
    auto* const out = reinterpret_cast<M*>(args[2]);
    if (steps[1] == 0) {
        Batch::multiply(M(*b), a, out, count);
    } else {
        Batch::multiply(b, a, out, count);
    }
    return true;
}

// Functions of single values that have no name in C++ or another form.

template <Scalar T>
T dot(const Vector3T<T>& a, const Vector3T<T>& b) {
    return a * b;
}
inline bool contains(const Polytope& region, const BoundingBoxd& box) {
    return Polytope(region).contains(box);
}
inline bool cull(const Frustum& frustum, const BoundingBoxf& box) {
    unsigned char visible;
    Batch::cull(frustum, &box, &visible, 1);
    return visible != 0;
}
/// A mask is 0 where it has no meaning.
inline void cullWithMasks(const Polytope& region, const BoundingBoxd* boxes, signed char* sides,
                          unsigned* masks, std::size_t count, std::size_t stride) {
    Batch::cullWithMasks(region, boxes, sides, masks, count, stride);
    for (std::size_t i = 0; i < count; ++i) masks[i] = sides[i] == 0 ? masks[i] : 0;
}
inline std::tuple<signed char, unsigned> cullWithMask(const Polytope& region,
                                                      const BoundingBoxd& box) {
    std::tuple<signed char, unsigned> result;
    cullWithMasks(region, &box, &std::get<0>(result), &std::get<1>(result), 1, sizeof box);
    return result;
}
/// The corners of a triangle.
template <Scalar T>
struct Triangle {
    Vector3T<T> a, b, c;
};
template <class T>
struct Layout<Triangle<T>> : Table<T, 3, 3, false> {};

template <Scalar T>
std::tuple<T, T> intersectBoxes(const Vector3T<T>& origin, const Vector3T<T>& direction,
                                const BoundingBoxT<T>& box) {
    std::tuple<T, T> part;
    Rays::intersectBoxes(origin, direction, &box, &std::get<0>(part), &std::get<1>(part), 1);
    return part;
}
template <Scalar T>
T intersectTriangles(const Vector3T<T>& origin, const Vector3T<T>& direction,
                     const Triangle<T>& triangle) {
    T t;
    Rays::intersectTriangles(origin, direction, &triangle.a, &t, 1);
    return t;
}

}  // namespace KyMath::python

#endif
