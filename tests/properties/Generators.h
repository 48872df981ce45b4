// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_TESTS_PROPERTIES_GENERATORS_H
#define KYMATH_TESTS_PROPERTIES_GENERATORS_H

#include "Support.h"

#include <rapidcheck/gtest.h>
#include <algorithm>
#include <array>

/// Defines a property as a test of a typed suite; args are those of a function template of T.
#define KY_PROPERTY(Suite, Name, args)                  \
    template <class T>                                  \
    void Suite##Name args;                              \
    TYPED_TEST(Suite, Name) {                           \
        rc::detail::checkGTest(Suite##Name<TypeParam>); \
    }                                                   \
    template <class T>                                  \
    void Suite##Name args

namespace KyMath {

/// Shows the numbers that a value is made of: a counterexample can be copied from the report.
template <template <class> class V, class T, class = std::enable_if_t<internal::IsScalar<T>::value>>
void showValue(const V<T>& v, std::ostream& os) {
    os.precision(std::numeric_limits<T>::max_digits10);
    for (const double number : test::numbers(v)) os << ' ' << number;
}

namespace test {

using KyMath::showValue;
// Generated quaternions are of unit length, boxes valid.

/// Scale by 1/8 to 8, then a rotation, then a translation.
template <class T>
struct Frame {
    Mat<T> rigid() const {
        return Transformation::translateToT(Transformation::createRotationT(turn), shift);
    }
    Mat<T> affine() const {
        return Mat<T>::multiply(rigid(), Transformation::createScaleT(scale));
    }
    Vec<T> scale;
    Quat<T> turn;
    Vec<T> shift;
};

/// The length of the vector of all values, in double. A NaN stays one and fails every bound.
template <class V>
double size(const V& v) {
    const ScalarOf<V>* const p = v;
    double sum = 0;
    for (int i = 0; i < kCount<V>; ++i) sum += double(p[i]) * double(p[i]);
    return std::sqrt(sum);
}
template <class V>
double gap(const V& a, const V& b) {
    const ScalarOf<V>*const p = a, *const q = b;
    return size(each<V>([&](int i) { return p[i] - q[i]; }));
}
/// Agreement to the last bit.
template <class V>
bool same(const V& a, const V& b) {
    return same("", "", a, b);
}
/// k machine epsilons of a magnitude, and the smallest normal number for what underflows.
template <class T = double>
double bound(double k, double magnitude) {
    return k * double(kEps<T>) * magnitude + double(std::numeric_limits<T>::min());
}
/// Within 2 epsilons of unit length; the first axis for zero.
template <class V>
V unit(V v) {
    if (size(v) == 0) v[0] = 1;
    return v *= ScalarOf<V>(1 / size(v));
}

/// A whole number, most of them small, and two times in three a fraction. Shrinks to small whole
/// numbers; those of the first cases of a run are nearly all zero.
template <class T>
rc::Gen<T> coordinate() {
    using namespace rc::gen;
    return apply([](int n, int f) { return T(n + std::ldexp(double(f), -31)); },
                 cast<int>(scale(0.7, arbitrary<std::int8_t>())),
                 weightedOneOf<int>({{2, arbitrary<int>()}, {1, just(0)}}));
}
/// The value made of coordinates: some vectors are 256 times as long or short as others.
template <class V, class T>
V make(const T* c) {
    const auto eighths = [&](int i) { return std::min(1 + std::abs(c[i]), T(64)) / 8; };
    if constexpr (std::is_same<V, Vec<T>>::value) {
        return V(c) * (c[3] > 32 ? T(256) : c[3] < -32 ? T(1) / 256 : T(1));
    } else if constexpr (std::is_same<V, Quat<T>>::value) {
        return unit(V(c));
    } else if constexpr (std::is_same<V, Box<T>>::value) {
        return V(c, c) + V(c + 3, c + 3);
    } else if constexpr (std::is_same<V, Frame<T>>::value) {
        return {each<Vec<T>>(eighths), unit(Quat<T>(c + 3)), Vec<T>(c + 7)};
    } else {
        return V(c);
    }
}
template <class V, class T>
struct Generated {
    static rc::Gen<V> arbitrary() {
        using Coordinates = std::array<T, sizeof(V) / sizeof(T) + 1>;
        return rc::gen::map(rc::gen::container<Coordinates>(coordinate<T>()),
                            [](const Coordinates& c) { return make<V>(c.data()); });
    }
};
}  // namespace test
}  // namespace KyMath

template <template <class> class V>
struct rc::Arbitrary<V<float>> : KyMath::test::Generated<V<float>, float> {};
template <template <class> class V>
struct rc::Arbitrary<V<double>> : KyMath::test::Generated<V<double>, double> {};

#endif
