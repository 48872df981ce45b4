// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_BENCHMARKS_LOOPS_H
#define KYMATH_BENCHMARKS_LOOPS_H

#include "Bench.h"

namespace bench {

/// The types of a library, and what not all libraries write in the same way.
template <class T, class V, class Q>
struct Library {
    using Scalar = T;
    using Vector = V;
    using Quaternion = Q;

    static T dot(const V& a, const V& b) {
        return a.dot(b);
    }
    static V cross(const V& a, const V& b) {
        return a.cross(b);
    }
    static void normalize(V& v) {
        v.normalize();
    }
    static V rotate(const Q& q, const V& v) {
        return q * v;
    }
};

/// Loops as users write them, with the operators of a library.
template <class L>
class Loops {
    using T = typename L::Scalar;
    using V = typename L::Vector;
    using Q = typename L::Quaternion;
    using Vectors = std::vector<V>;

    static Vectors vectors(double low, double high, std::uint64_t seed) {
        const std::vector<T> values = numbers<T>(3 * kCount, low, high, seed);
        Vectors v;
        for (std::size_t i = 0; i < values.size(); i += 3) {
            v.push_back(V(values[i], values[i + 1], values[i + 2]));
        }
        return v;
    }
    static std::vector<Q> turns(std::uint64_t seed) {
        const std::vector<T> values = quaternions<T>(seed);
        std::vector<Q> q;
        for (std::size_t i = 0; i < values.size(); i += 4) {
            q.push_back(Q(values[i], values[i + 1], values[i + 2], values[i + 3]));
        }
        return q;
    }

    Vectors a_ = vectors(-1, 1, 1), b_ = vectors(-1, 1, 2), c_ = vectors(-1, 1, 3);
    Vectors origins_ = vectors(-4, 4, 4), speeds_ = vectors(-1, 1, 5), results_ = vectors(0, 1, 6);
    Vectors directions_ = vectors(-0.5, 0.5, 8);
    std::vector<Q> turns_ = turns(7), worldTurns_ = turns_;
    std::vector<T> distances_ = std::vector<T>(kCount);

public:
    Loops() {
        for (std::size_t i = 0; i < kCount; ++i) directions_[i] -= origins_[i];
    }

    /// Particles under gravity and drag.
    const Vectors& particles() {
        const T dt = T(1) / 64, drag = T(1) / 8;
        const V gravity(0, T(-9.81), 0);
        for (std::size_t i = 0; i < kCount; ++i) {
            speeds_[i] += (gravity - speeds_[i] * drag) * dt;
            results_[i] += speeds_[i] * dt;
        }
        return results_;
    }

    /// Distances along rays to triangles, -1 for a miss.
    const std::vector<T>& rays() {
        for (std::size_t i = 0; i < kCount; ++i) {
            const V ab = b_[i] - a_[i];
            const V ac = c_[i] - a_[i];
            const V p = L::cross(directions_[i], ac);
            const T scale = 1 / L::dot(ab, p);
            const V s = origins_[i] - a_[i];
            const V q = L::cross(s, ab);
            const T u = L::dot(s, p) * scale;
            const T v = L::dot(directions_[i], q) * scale;
            const bool hit = u >= 0 && v >= 0 && u + v <= 1;
            distances_[i] = hit ? L::dot(ac, q) * scale : T(-1);
        }
        return distances_;
    }

    /// Unit normals of triangles.
    const Vectors& normals() {
        for (std::size_t i = 0; i < kCount; ++i) {
            V normal = L::cross(b_[i] - a_[i], c_[i] - a_[i]);
            L::normalize(normal);
            results_[i] = normal;
        }
        return results_;
    }

    /// Bones in the space of the skeleton, from their rotations and offsets in that of the parent.
    const Vectors& bones() {
        for (std::size_t i = 1; i < kCount; ++i) {
            const std::size_t parent = i - 1 - i % 3 / 2;
            worldTurns_[i] = worldTurns_[parent] * turns_[i];
            results_[i] = results_[parent] + L::rotate(worldTurns_[parent], a_[i]);
        }
        return results_;
    }
};

/// Adds a loop, with the sum of what its first pass gives: libraries must agree about that.
template <class L, class R>
void addLoop(const char* loop, const std::string& who, const R& (Loops<L>::*member)()) {
    using T = typename L::Scalar;
    benchmark::RegisterBenchmark(name<T>(loop, who).c_str(), [member](benchmark::State& state) {
        Loops<L> loops;
        double sum = 0;
        for (const auto& r : (loops.*member)()) {
            if constexpr (std::is_same_v<R, std::vector<T>>) {
                sum += double(r);
            } else {
                for (int k = 0; k < 3; ++k) sum += double(r[k]) * (k + 1);
            }
        }
        for ([[maybe_unused]] auto _ : state) {
            benchmark::DoNotOptimize(&(loops.*member)());
            benchmark::ClobberMemory();
        }
        state.SetItemsProcessed(state.iterations() * std::int64_t(kCount));
        state.counters["sum"] = sum;
    });
}

template <class L>
void addLoopsOf(const std::string& who) {
    addLoop("loop: particles", who, &Loops<L>::particles);
    addLoop("loop: rays and triangles", who, &Loops<L>::rays);
    addLoop("loop: normals", who, &Loops<L>::normals);
    addLoop("loop: bones", who, &Loops<L>::bones);
}

}  // namespace bench

#endif
