// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_BENCHMARKS_BENCH_H
#define KYMATH_BENCHMARKS_BENCH_H

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

namespace bench {

/// Number of inputs of each operation: too many for the compiler to fold anything.
constexpr std::size_t kCount = 1024;

/// Whether this program measures the limits instead of the library.
#ifdef KYMATH_BENCHMARK_LIMITS
constexpr bool kLimits = true;
#else
constexpr bool kLimits = false;
#endif

/// N values in memory order: inputs and results of the limits.
template <class T, std::size_t N>
struct Values {
    T v[N];
};

/// Four values in one vector; lane k of a result depends only on lane k of the operands.
template <class T>
struct Lanes {
    typedef T Type __attribute__((vector_size(4 * sizeof(T))));
};

/// @name Inputs, the same in every program and source
/// Sequences of T; a value of a library takes several of them.
/// @{

/// n values in [low, high), the same for the same seed.
template <class T>
std::vector<T> numbers(std::size_t n, double low, double high, std::uint64_t seed) {
    std::mt19937_64 random(seed);
    std::vector<T> values(n);
    for (T& x : values) x = T(low + (high - low) * (double(random() >> 11) * 0x1p-53));
    return values;
}

/// Unit quaternions w, x, y, z.
template <class T>
std::vector<T> quaternions(std::uint64_t seed) {
    std::vector<T> q = numbers<T>(4 * kCount, -1, 1, seed);
    for (std::size_t i = 0; i < q.size(); i += 4) {
        const T norm = std::sqrt(q[i] * q[i] + q[i + 1] * q[i + 1] + q[i + 2] * q[i + 2] +
                                 q[i + 3] * q[i + 3]);
        for (std::size_t k = i; k < i + 4; ++k) q[k] /= norm;
    }
    return q;
}

/// Matrices of a rotation times a scale in [1, maxScale) along each axis, and a translation, column
/// by column.
template <class T>
std::vector<T> transforms(double maxScale, std::uint64_t seed) {
    const std::vector<T> turns = quaternions<T>(seed);
    const std::vector<T> scales = numbers<T>(3 * kCount, 1, maxScale, seed + 1);
    const std::vector<T> moves = numbers<T>(3 * kCount, -10, 10, seed + 2);
    std::vector<T> matrices(16 * kCount);
    for (std::size_t i = 0; i < kCount; ++i) {
        const T* const q = &turns[4 * i];
        const T w = q[0], x = q[1], y = q[2], z = q[3];
        const T turn[] = {
            1 - 2 * (y * y + z * z), 2 * (x * y + w * z),     2 * (x * z - w * y),
            2 * (x * y - w * z),     1 - 2 * (x * x + z * z), 2 * (y * z + w * x),
            2 * (x * z + w * y),     2 * (y * z - w * x),     1 - 2 * (x * x + y * y)};
        T* const m = &matrices[16 * i];
        for (std::size_t c = 0; c < 3; ++c) {
            for (std::size_t r = 0; r < 3; ++r) m[4 * c + r] = turn[3 * c + r] * scales[3 * i + c];
            m[12 + c] = moves[3 * i + c];
        }
        m[15] = 1;
    }
    return matrices;
}

/// Well-conditioned matrices of no special form.
template <class T>
std::vector<T> matrices(std::uint64_t seed) {
    std::vector<T> m = numbers<T>(16 * kCount, -1, 1, seed);
    for (std::size_t i = 0; i < m.size(); ++i) m[i] += i % 5 == i / 16 % 5 ? T(3) : T(0);
    return m;
}

/// Boxes, about half of which overlap: minimum, then maximum.
template <class T>
std::vector<T> boxes(std::uint64_t seed) {
    std::vector<T> b = numbers<T>(6 * kCount, 0, 2, seed);
    for (std::size_t i = 0; i < b.size(); i += 6) {
        for (std::size_t k = i; k < i + 3; ++k) b[k + 3] += b[k];
    }
    return b;
}

// The inputs of each family.

template <class T>
struct VectorsInputs {
    std::vector<T> inputs = numbers<T>(3 * kCount, -1, 1, 1);
    std::vector<T> others = numbers<T>(3 * kCount, -1, 1, 2);
};
template <class T>
struct MatricesInputs {
    std::vector<T> inputs = matrices<T>(1), others = matrices<T>(2);
    std::vector<T> rigid = transforms<T>(1, 3);
    std::vector<T> points = numbers<T>(4 * kCount, -1, 1, 4);
};
template <class T>
struct RotationsInputs {
    std::vector<T> angles = numbers<T>(3 * kCount, -1.2, 1.2, 1);
    std::vector<T> scales = numbers<T>(3 * kCount, 0.5, 2, 2);
    std::vector<T> points = numbers<T>(3 * kCount, -1, 1, 3);
    std::vector<T> times = numbers<T>(kCount, 0, 1, 4);
    std::vector<T> inputs = quaternions<T>(5), others = quaternions<T>(6);
    std::vector<T> turns = transforms<T>(1, 7), otherTurns = transforms<T>(1, 8);
};
struct RigidInputs {
    std::vector<double> inputs = transforms<double>(1, 7), others = transforms<double>(1, 8);
    std::vector<double> angles = numbers<double>(3 * kCount, -1.2, 1.2, 9);
};
template <class T>
struct BoundsInputs {
    std::vector<T> inputs = boxes<T>(1), others = boxes<T>(2);
    std::vector<T> moves = transforms<T>(2, 3);
    std::vector<T> origins = numbers<T>(3 * kCount, -4, 4, 4);
    std::vector<T> directions = numbers<T>(3 * kCount, -1, 1, 5);
};
inline std::vector<float> frustumViews() {
    return transforms<float>(1, 1);
}
/// @}

/// An array of values of a library, each made by make(pointer to its k inputs). Never freed,
/// because the benchmarks refer to it.
template <class V, class T, class Make>
const V* load(const std::vector<T>& inputs, std::size_t k, Make make) {
    const std::size_t n = inputs.size() / k;
    V* const values = ::new (std::align_val_t(64)) V[n]();
    for (std::size_t i = 0; i < n; ++i) values[i] = make(&inputs[k * i]);
    return values;
}

/// The same for values that consist of their inputs.
template <class V, class T>
const V* load(const std::vector<T>& inputs) {
    constexpr std::size_t size = sizeof(T);
    static_assert(sizeof(V) % size == 0, "consists of values of T");
    return load<V>(inputs, sizeof(V) / size, [](const T* p) {
        V v = V();
        std::memcpy(static_cast<void*>(&v), p, sizeof(V));
        return v;
    });
}

/// Makes the compiler assume that r is used: a number in its register, anything else in memory.
template <class R>
inline void keep(const R& r) {
    if constexpr (std::is_floating_point_v<R>) {
        __asm__ volatile("" : : "x"(r));
    } else if constexpr (std::is_integral_v<R>) {
        __asm__ volatile("" : : "r"(r));
    } else {
        __asm__ volatile("" : : "m"(r));
    }
}

/// Adds a benchmark that calls operation(i) for each i below count.
template <class F>
void add(const std::string& name, F operation, std::size_t count = kCount) {
    benchmark::RegisterBenchmark(name.c_str(), [operation, count](benchmark::State& state) {
        F local = operation;
        for ([[maybe_unused]] auto _ : state) {
            for (std::size_t i = 0; i < count; ++i) {
                decltype(auto) r = local(i);
                keep(r);
            }
        }
        state.SetItemsProcessed(state.iterations() * std::int64_t(count));
    });
}

/// Adds a benchmark of all items at once: operation() returns an array of results.
template <class F>
void addWhole(const std::string& name, F operation, std::size_t items) {
    benchmark::RegisterBenchmark(name.c_str(), [operation, items](benchmark::State& state) {
        F local = operation;
        for ([[maybe_unused]] auto _ : state) {
            benchmark::DoNotOptimize(local());
            benchmark::ClobberMemory();
        }
        state.SetItemsProcessed(state.iterations() * std::int64_t(items));
    });
}

/// "OPERATION/d/WHO", or f
template <class T>
std::string name(const std::string& operation, const std::string& who) {
    return operation + (std::is_same_v<T, float> ? "/f/" : "/d/") + who;
}

/// Stops the program unless both results have the same bits.
inline void demandSame(const std::string& operation, std::size_t i, const void* a, std::size_t size,
                       const void* b, std::size_t otherSize) {
    if (size == otherSize && std::memcmp(a, b, size) == 0) return;
    std::fprintf(stderr, "%s: the limit differs from the library at input %zu\n", operation.c_str(),
                 i);
    std::exit(1);
}

/// Adds an operation of the library, or in the program of limits the same arithmetic written
/// inline, after comparing their results for all inputs.
template <class T, class Ours, class Limit>
void ours(const std::string& operation, Ours library, Limit limit) {
    for (std::size_t i = 0; i < kCount; ++i) {
        decltype(auto) a = library(i);
        decltype(auto) b = limit(i);
        demandSame(operation, i, &a, sizeof a, &b, sizeof b);
    }
    if constexpr (kLimits) {
        add(name<T>(operation, "limit"), limit);
    } else {
        add(name<T>(operation, "ours"), library);
    }
}

/// The same for an operation on all items at once. Each of the two has its own results.
template <class T, class Ours, class Limit>
void oursWhole(const std::string& operation, Ours library, Limit limit, std::size_t items) {
    const auto* const a = library();
    const auto* const b = limit();
    demandSame(operation, 0, a, items * sizeof *a, b, items * sizeof *b);
    if constexpr (kLimits) {
        addWhole(name<T>(operation, "limit"), limit, items);
    } else {
        addWhole(name<T>(operation, "ours"), library, items);
    }
}

/// Adds the same operation of another library.
template <class T, class F>
void peer(const std::string& operation, const std::string& who, F f) {
    add(name<T>(operation, who), f);
}

/// Adds an operation on arrays of kCount elements, which writes its results to an array of Out.
template <class T, class Out, class F>
void array(const std::string& operation, const std::string& who, F f) {
    const auto out = std::make_shared<std::vector<Out>>(kCount);
    addWhole(
        name<T>("array: " + operation, who),
        [f, out] {
            f(out->data());
            return out->data();
        },
        kCount);
}

/// Adds the loop over arrays that users of another library write.
template <class T, class F>
void peerLoop(const std::string& operation, const std::string& who, F f) {
    using Out = std::decay_t<decltype(f(0))>;
    array<T, Out>(operation, who, [f](Out* out) {
        for (std::size_t i = 0; i < kCount; ++i) out[i] = f(i);
    });
}

/// Adds one operation of another library, and the loop over arrays.
template <class T, class F>
void peerAndLoop(const std::string& operation, const std::string& who, F f) {
    peer<T>(operation, who, f);
    peerLoop<T>(operation, who, f);
}

}  // namespace bench

/// @name The usual form of an operation: an expression of the input's index i
/// @{
#define KY_OURS(T, operation, expression, limit)              \
    bench::ours<T>(                                           \
        operation, [=](std::size_t i) { return expression; }, \
        [=](std::size_t i) { return limit; })
#define KY_PEER(T, operation, who, expression) \
    bench::peer<T>(operation, #who, [=](std::size_t i) { return expression; })
#define KY_PEER_LOOP(T, operation, who, expression) \
    bench::peerLoop<T>(operation, #who, [=](std::size_t i) { return expression; })
#define KY_PEER_AND_LOOP(T, operation, who, expression) \
    bench::peerAndLoop<T>(operation, #who, [=](std::size_t i) { return expression; })
/// @}

/// Each family of operations has two sources: one for the library, one for the others.
void addVectors();
void addMatrices();
void addRotations();
void addBounds();
void addCulling();
void addArrays();
void addLoops();

#endif
