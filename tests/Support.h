// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_TESTS_SUPPORT_H
#define KYMATH_TESTS_SUPPORT_H

#include <KyMath/KyMath.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <iomanip>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace KyMath::test {

using Scalars = ::testing::Types<float, double>;
using Vectors = ::testing::Types<Vector2f, Vector2d, Vector3f, Vector3d, Vector4f, Vector4d>;

/// A suite whose tests run for float and for double; the body of a test is a function template of
/// T.
#define KY_SUITE(Suite)                      \
    template <class T>                       \
    class Suite : public ::testing::Test {}; \
    TYPED_TEST_SUITE(Suite, Scalars, )
#define KY_TEST(Suite, Name)      \
    template <class T>            \
    void Suite##Name();           \
    TYPED_TEST(Suite, Name) {     \
        Suite##Name<TypeParam>(); \
    }                             \
    template <class T>            \
    void Suite##Name()

template <class T>
using Vec = Vector3T<T>;
template <class T>
using Vec4 = Vector4T<T>;
template <class T>
using Mat = Matrix44T<T>;
template <class T>
using Quat = QuaternionT<T>;
template <class T>
using Box = BoundingBoxT<T>;

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

/// The numbers that a value is made of.
using Numbers = std::vector<double>;
template <class T, class = std::enable_if_t<std::is_arithmetic<T>::value>>
Numbers numbers(T x) {
    return {static_cast<double>(x)};
}
template <template <class> class V, class T>
Numbers numbers(const V<T>& v) {
    const auto p = reinterpret_cast<const T*>(&v);
    return Numbers(p, p + sizeof v / sizeof(T));
}
template <class T>
Numbers numbers(const PlaneT<T>& p) {
    Numbers all = numbers(p.getAsVector4());
    all.insert(all.end(), {double(p.upperBBCorner()), double(p.lowerBBCorner())});
    return all;
}
inline Numbers numbers(const BoundingSphere& s) {
    return {s.center().x(), s.center().y(), s.center().z(), s.radius()};
}

template <class V>
::testing::AssertionResult same(const char* ea, const char* eb, const V& a, const V& b) {
    const Numbers p = numbers(a), q = numbers(b);
    std::ostringstream s;
    for (std::size_t i = 0; i < p.size(); ++i) {
        if (sameBits(p[i], q[i])) continue;
        s << std::defaultfloat << std::setprecision(17) << " [" << i << "] " << p[i] << " and "
          << q[i] << std::hexfloat << " (" << p[i] << ", " << q[i] << ")";
    }
    if (s.str().empty()) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << ea << " is not " << eb << ":" << s.str();
}

/// Expects two scalars, vectors, quaternions, matrices, boxes, spheres or planes of one type to
/// agree to the last bit, planes in their corner indices too.
#define EXPECT_BITS(expected, actual) EXPECT_PRED_FORMAT2(::KyMath::test::same, expected, actual)

/// Expects op(v) to turn v into expected and to return it by reference.
template <class V, class F>
void expectInPlace(const V& expected, V v, F op) {
    EXPECT_EQ(&v, &op(v));
    EXPECT_BITS(expected, v);
}

/// A fixed pseudo-random stream of scalars and of values made of them.
template <class T>
class Corpus {
public:
    explicit Corpus(std::uint32_t seed) : bits_(seed) {}

    /// Uniform in [-10, 10): exactly representable for both types and the same for each.
    T plain() {
        return static_cast<T>(static_cast<std::int32_t>(bits_() >> 8) - (1 << 23)) *
               static_cast<T>(10.0 / (1 << 23));
    }

    Vector3T<T> vector() {
        return each<Vector3T<T>>([this](int) { return plain(); });
    }
    /// A valid box.
    BoundingBoxT<T> box() {
        const Vector3T<T> p = vector(), q = vector();
        return BoundingBoxT<T>(p, p) + BoundingBoxT<T>(q, q);
    }
    Matrix44T<T> matrix() {
        return each<Matrix44T<T>>([this](int) { return plain(); });
    }

private:
    std::mt19937 bits_;
};

}  // namespace KyMath::test

#endif
