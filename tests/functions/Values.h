// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_TESTS_VALUES_H
#define KYMATH_TESTS_VALUES_H

#include <Ky/Ky.h>
#include <KyMath/KyMath.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

namespace KyMath::test {

/// Text for a function that prints.
struct Label {
    char text[6] = "label";
};

/// Values for the arguments of any function of the library, made from a fixed stream of random
/// bytes or from those of a fuzzer. About a quarter are what breaks code: zeros of both signs,
/// subnormal, huge, infinite, NaN, at and one step beside the tolerances of the library, equal or
/// parallel to an earlier value of the same call. Most of the others are in the domain of the
/// functions: unit vectors, rotations with and without scale, projections, valid boxes.
///
/// Integers, exact conversions and single roundings make all of it, so that a stream gives the same
/// values wherever these sources are compiled without contraction or fast-math.
class Inputs {
public:
    /// With ordinary: finite values of everyday size alone, in the domain of the functions.
    explicit Inputs(std::uint64_t seed, bool ordinary = false)
        : state_(seed), ordinary_(ordinary) {}
    Inputs(const std::uint8_t* data, std::size_t size) : data_(data), left_(size) {}

    /// Forgets the earlier values: what follows is for another call, whose integers are below
    /// limit.
    void nextCall(unsigned limit = 1);

    unsigned below(unsigned limit);  ///< Limit at most 256.
    void draw(bool& value);
    void draw(float& value);
    void draw(double& value);

    void draw(std::ostringstream&) {}
    void draw(Label&) {}
    template <class I, class = std::enable_if_t<std::is_integral<I>::value>>
    void draw(I& value) {
        value = I(below(limit_));
    }
    template <template <class> class V, class T>
    void draw(V<T>& v) {
        components<T>(v, int(sizeof v / sizeof(T)));
    }
    void draw(Vector6& v);
    template <class T>
    void draw(QuaternionT<T>& q);
    template <class T>
    void draw(Matrix44T<T>& m) {
        matrix<T>(m);
    }
    template <class T>
    void draw(BoundingBoxT<T>& box);
    template <class T>
    void draw(PlaneT<T>& plane);
    void draw(BoundingSphere& sphere);
    void draw(Polytope& polytope);
    Polytope& polytope();  ///< Drawn anew at each call, for callers that shall not construct one.
    void draw(Frustum& frustum);
    void draw(Line3& line);
    void draw(Ky::KyEulerAngles& angles);
    void draw(Ky::KyEulerAngles::eEulerOrder& order);
    void draw(Ky::KyTransform& transform);
    void draw(eCurveType& type);
    void draw(std::vector<Vector3d>& points);
    void draw(std::vector<Planed>& planes);
    template <class V, std::size_t N>
    void draw(std::array<V, N>& values) {
        // Of integers the first: no function takes more.
        for (V& value : values) {
            draw(value);
            if (std::is_integral<V>::value) return;
        }
    }

    template <class T>
    void components(T* out, int n);  ///< Of a vector.
    template <class T>
    void matrix(T* out);  ///< Sixteen values, column by column.

private:
    std::uint64_t bits(int count);
    unsigned pick(unsigned limit, unsigned ordinary);  ///< Of a value: below limit.
    template <class T>
    T scalar();
    template <class T>
    T plain();
    template <class T>
    T threshold();
    template <class T>
    void rotation(T (&rows)[3][3], int (&quaternion)[4]);

    std::uint64_t state_ = 0;
    bool ordinary_ = false;
    unsigned limit_ = 1;
    const std::uint8_t* data_ = nullptr;
    std::size_t left_ = 0;
    std::vector<double> earlier_;                ///< scalars of this call
    std::vector<std::vector<double>> earlierV_;  ///< and vectors
};

/// A 64-bit digest (FNV-1a by words) of results, to the last bit. All NaNs are alike: their signs
/// and payloads are not part of any result.
class Digest {
public:
    std::uint64_t value() const {
        return hash_;
    }

    static inline std::FILE* trace = nullptr;  ///< If not null: each word goes there too.

    void add(std::uint64_t word) {
        if (trace != nullptr) {
            std::fprintf(trace, "%llx ", static_cast<unsigned long long>(word));
        }
        hash_ = (hash_ ^ word) * 0x100000001b3u;
        hash_ ^= hash_ >> 29;
    }
    template <class T,
              class = std::enable_if_t<std::is_integral<T>::value || std::is_enum<T>::value>>
    void add(T value) {
        add(std::uint64_t(value));
    }
    void add(float value);
    void add(double value);
    void add(const std::string& text);
    void add(const std::ostringstream& stream) {
        add(stream.str());
    }
    void add(const Label&) {}
    template <class T>
    void add(const T* values, int count) {
        for (int i = 0; i < count; ++i) add(values[i]);
    }

    template <class V, std::size_t N>
    void add(const std::array<V, N>& values) {
        add(values.data(), int(N));
    }
    template <class V>
    void add(const std::vector<V>& values) {
        add(unsigned(values.size()));
        for (const V& value : values) add(value);
    }
    /// The numbers of a vector, matrix, quaternion or box.
    template <template <class> class V, class T,
              class = std::enable_if_t<internal::IsScalar<T>::value>>
    void add(const V<T>& v) {
        add(reinterpret_cast<const T*>(&v), int(sizeof v / sizeof(T)));
    }
    template <class T>
    void add(const PlaneT<T>& plane) {
        add(plane.getAsVector4());
        add(8 * plane.upperBBCorner() + plane.lowerBBCorner());
    }
    /// Of doubles alone, like all other types.
    template <class V>
    std::enable_if_t<std::is_class<V>::value> add(const V& v) {
        add(reinterpret_cast<const double*>(&v), int(sizeof v / sizeof(double)));
    }
    void add(const Polytope& polytope);
    void add(const Frustum& frustum);
    void add(const Ky::KyEulerAngles& angles);

private:
    std::uint64_t hash_ = 0xcbf29ce484222325u;
};

}  // namespace KyMath::test

#endif
