// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_TESTS_SUPPORT_H
#define KYMATH_TESTS_SUPPORT_H

#include <KyMath/KyMath.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

namespace KyMath {
namespace test {

using Scalars = ::testing::Types<float, double>;

template <class T>
constexpr T kNaN = std::numeric_limits<T>::quiet_NaN();
template <class T>
constexpr T kInf = std::numeric_limits<T>::infinity();
template <class T>
constexpr T kMax = std::numeric_limits<T>::max();
template <class T>
constexpr T kEps = std::numeric_limits<T>::epsilon();

/// One representable step from x towards +infinity, or -infinity.
template <class T>
T above(T x) {
    return std::nextafter(x, kInf<T>);
}
template <class T>
T below(T x) {
    return std::nextafter(x, -kInf<T>);
}

/// A value that the compiler must take from memory: keeps libm calls with literal arguments from
/// being folded at compile time, which may round differently.
template <class T>
T runtime(T x) {
    volatile T v = x;
    return v;
}

/// Sine and cosine by the one call that the library makes for the pair.
inline void sinCos(float angle, float& sine, float& cosine) {
    ::sincosf(runtime(angle), &sine, &cosine);
}
inline void sinCos(double angle, double& sine, double& cosine) {
    ::sincos(runtime(angle), &sine, &cosine);
}

/// The scalar type of a vector, quaternion or matrix.
template <template <class> class V, class T>
T scalarOf(const V<T>&);
template <class V>
using ScalarOf = decltype(scalarOf(std::declval<V>()));

template <class V>
constexpr int kCount = static_cast<int>(sizeof(V) / sizeof(ScalarOf<V>));

/// The vector, quaternion or matrix whose value i, in memory order, is value(i).
template <class V, class F>
V each(F value) {
    V v;
    ScalarOf<V>* const p = v;
    for (int i = 0; i < kCount<V>; ++i) p[i] = value(i);
    return v;
}

/// What v is after op(v).
template <class V, class F>
V after(V v, F op) {
    op(v);
    return v;
}

/// The sum of products in index order, from the first product on.
template <class V>
ScalarOf<V> dot(const V& a, const V& b) {
    ScalarOf<V> sum = a[0] * b[0];
    for (int i = 1; i < kCount<V>; ++i) sum = sum + a[i] * b[i];
    return sum;
}

template <class V>
V scaled(const V& v, ScalarOf<V> s) {
    return each<V>([&](int i) { return v[i] * s; });
}

template <class T>
Vector3T<T> crossed(const Vector3T<T>& a, const Vector3T<T>& b) {
    return Vector3T<T>(a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2],
                       a[0] * b[1] - a[1] * b[0]);
}

/// The mixed tolerance rule of one pair of numbers: only their difference is formed in T.
template <class T>
bool equalWithin(T p, T q, double tol) {
    const auto d = static_cast<double>(std::abs(p - q));
    const auto a = static_cast<double>(std::abs(p)), b = static_cast<double>(std::abs(q));
    return a <= tol || b <= tol ? d <= tol : d / a <= tol && d / b <= tol;
}

/// Whether V refuses both construction and assignment from each of the types Others.
template <class V, class... Others>
constexpr bool kRefuses =
    !((std::is_constructible<V, Others>::value || std::is_assignable<V&, Others>::value) || ...);

/// Whether `std::ostream << V` compiles.
template <class V, class = void>
struct IsStreamable : std::false_type {};
template <class V>
struct IsStreamable<V, decltype(void(std::declval<std::ostream&>() << std::declval<V>()))>
    : std::true_type {};

/// Equality to the last bit: 0 is not -0. All NaNs are alike, since their signs and payloads are
/// not part of any result.
template <class T>
bool sameBits(T a, T b) {
    if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
    return std::memcmp(&a, &b, sizeof a) == 0;
}

inline ::testing::AssertionResult sameScalar(const char* ea, const char* eb, float a, float b) {
    if (sameBits(a, b)) return ::testing::AssertionSuccess();
    std::ostringstream s;
    s << std::hexfloat << a << " is not " << b;
    return ::testing::AssertionFailure() << ea << " against " << eb << ": " << s.str();
}
inline ::testing::AssertionResult sameScalar(const char* ea, const char* eb, double a, double b) {
    if (sameBits(a, b)) return ::testing::AssertionSuccess();
    std::ostringstream s;
    s.precision(17);
    s << a << " is not " << b << std::hexfloat << " (" << a << ", " << b << ")";
    return ::testing::AssertionFailure() << ea << " against " << eb << ": " << s.str();
}

template <template <class> class V, class T>
::testing::AssertionResult sameAny(const char* ea, const char* eb, const V<T>& a, const V<T>& b) {
    const T* const p = a;
    const T* const q = b;
    for (int i = 0; i < kCount<V<T>>; ++i) {
        if (sameBits(p[i], q[i])) continue;
        const std::string at = "[" + std::to_string(i) + "]";
        return sameScalar((ea + at).c_str(), (eb + at).c_str(), p[i], q[i]);
    }
    return ::testing::AssertionSuccess();
}
template <class T>
::testing::AssertionResult sameAny(const char* ea, const char* eb, const BoundingBoxT<T>& a,
                                   const BoundingBoxT<T>& b) {
    const auto min = sameAny(ea, eb, a.getMin(), b.getMin());
    return min ? sameAny(ea, eb, a.getMax(), b.getMax()) : min;
}
template <class T>
::testing::AssertionResult sameAny(const char* ea, const char* eb, const PlaneT<T>& a,
                                   const PlaneT<T>& b) {
    if (a.upperBBCorner() != b.upperBBCorner() || a.lowerBBCorner() != b.lowerBBCorner()) {
        return ::testing::AssertionFailure() << "corners of " << ea << " against " << eb;
    }
    return sameAny(ea, eb, a.getAsVector4(), b.getAsVector4());
}
inline ::testing::AssertionResult sameAny(const char* ea, const char* eb, float a, float b) {
    return sameScalar(ea, eb, a, b);
}
inline ::testing::AssertionResult sameAny(const char* ea, const char* eb, double a, double b) {
    return sameScalar(ea, eb, a, b);
}
inline ::testing::AssertionResult sameAny(const char* ea, const char* eb, const BoundingSphere& a,
                                          const BoundingSphere& b) {
    const auto center = sameAny(ea, eb, a.center(), b.center());
    return center ? sameAny(ea, eb, a.radius(), b.radius()) : center;
}

struct SameBits {
    template <class A, class B>
    ::testing::AssertionResult operator()(const char* ea, const char* eb, const A& a,
                                          const B& b) const {
        return sameAny(ea, eb, a, b);
    }
};

/// Expects two scalars, vectors, quaternions, matrices, boxes, spheres or planes of one type to
/// agree to the last bit, planes in their corner indices too.
#define EXPECT_BITS(expected, actual) \
    EXPECT_PRED_FORMAT2(::KyMath::test::SameBits(), expected, actual)

/// Expects op(v) to turn v into expected and to return it by reference.
template <class V, class F>
void expectInPlace(const V& expected, V v, F op) {
    EXPECT_EQ(&v, &op(v));
    EXPECT_BITS(expected, v);
}

/// Expects subscript i of v, of every index type and constant or not, to be at stride * i of the
/// values that v converts to.
template <class V>
void expectSubscripts(V& v, int stride = 1) {
    const auto address = [](const auto& found) -> const void* {
        if constexpr (std::is_pointer<std::decay_t<decltype(found)>>::value) return found;
        return &found;
    };
    const V& k = v;
    const ScalarOf<V>* const values = k;
    EXPECT_EQ(static_cast<const void*>(&v), static_cast<ScalarOf<V>*>(v));
    EXPECT_EQ(static_cast<const void*>(&v), values);
    for (int i = 0; i < 4 && i * stride < kCount<V>; ++i) {
        const auto check = [&](auto index) {
            EXPECT_EQ(values + i * stride, address(v[index]));
            EXPECT_EQ(values + i * stride, address(k[index]));
        };
        check(i), check(static_cast<unsigned>(i)), check(static_cast<long>(i));
        check(static_cast<unsigned long>(i));
    }
}

/// Expects sums, differences, multiples and the given quotient of a and s by component, returned
/// and in place.
template <class V>
void expectComponentwise(const V& a, const V& b, ScalarOf<V> s, const V& quotient) {
    const V sum = each<V>([&](int i) { return a[i] + b[i]; });
    const V difference = each<V>([&](int i) { return a[i] - b[i]; });
    EXPECT_BITS(sum, a + b);
    EXPECT_BITS(difference, a - b);
    EXPECT_BITS(scaled(a, s), a * s);
    EXPECT_BITS(quotient, a / s);
    expectInPlace(sum, a, [&](V& v) -> V& { return v += b; });
    expectInPlace(difference, a, [&](V& v) -> V& { return v -= b; });
    expectInPlace(scaled(a, s), a, [&](V& v) -> V& { return v *= s; });
    expectInPlace(quotient, a, [&](V& v) -> V& { return v /= s; });
}

/// A fixed stream of scalars that leans towards what breaks code: about a quarter are zeros of both
/// signs, ones, subnormals, huge, infinite or NaN.
template <class T>
class Corpus {
public:
    explicit Corpus(std::uint32_t seed) : bits_(seed) {}

    /// Uniform in [-10, 10): exactly representable for both types and the same for each.
    T plain() {
        return static_cast<T>(static_cast<std::int32_t>(bits_() >> 8) - (1 << 23)) *
               static_cast<T>(10.0 / (1 << 23));
    }

    T any() {
        static const T kSpecial[] = {T(0),    -T(0),
                                     T(1),    T(-1),
                                     kMax<T>, -kMax<T>,
                                     kInf<T>, -kInf<T>,
                                     kNaN<T>, std::numeric_limits<T>::denorm_min(),
                                     kEps<T>, std::numeric_limits<T>::min()};
        const auto r = static_cast<std::uint32_t>(bits_());
        if (r % 4 == 0) return kSpecial[(r / 4) % 12];
        return plain();
    }

    Vector3T<T> vector() {
        const T x = plain(), y = plain(), z = plain();
        return Vector3T<T>(x, y, z);
    }
    Vector4T<T> vector4() {
        const T x = plain(), y = plain(), z = plain(), w = plain();
        return Vector4T<T>(x, y, z, w);
    }
    Vector3T<T> anyVector() {
        const T x = any(), y = any(), z = any();
        return Vector3T<T>(x, y, z);
    }
    BoundingBoxT<T> anyBox() {
        const Vector3T<T> min = anyVector(), max = anyVector();
        return BoundingBoxT<T>(min, max);
    }
    /// A valid box.
    BoundingBoxT<T> box() {
        BoundingBoxT<T> b(vector(), Vector3T<T>());
        b.getMax() = b.getMin();
        const Vector3T<T> p = vector();
        for (int i = 0; i < 3; ++i) (p[i] < b.getMin()[i] ? b.getMin() : b.getMax())[i] = p[i];
        return b;
    }
    QuaternionT<T> unitQuaternion() {
        const T w = plain(), x = plain(), y = plain(), z = plain();
        QuaternionT<T> q(w, x, y, z);
        q.normalize();
        return q;
    }
    Matrix44T<T> matrix() {
        Matrix44T<T> m;
        for (int i = 0; i < 16; ++i) static_cast<T*>(m)[i] = plain();
        return m;
    }

    /// A vector, quaternion or matrix of any() values.
    template <class V>
    V anyOf() {
        return each<V>([this](int) { return any(); });
    }

private:
    std::mt19937 bits_;
};

/// Calls f(a, b, s) for 500 pairs of vectors, quaternions or matrices, in turn plain and of any
/// values, and any scalars.
template <class V, class F>
void forCorpus(std::uint32_t seed, F f) {
    Corpus<ScalarOf<V>> corpus(seed);
    for (int n = 0; n < 500; ++n) {
        const auto next = [&](int) { return n % 2 == 0 ? corpus.plain() : corpus.any(); };
        const V a = each<V>(next), b = each<V>(next);
        f(a, b, corpus.any());
    }
}

}  // namespace test
}  // namespace KyMath

#endif
