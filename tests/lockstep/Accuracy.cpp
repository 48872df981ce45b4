// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// Accuracy [COUNT]: the largest error of each function of src/internal/Libm.h, compared with MPFR,
// in units of the last place of the exact result, for COUNT arguments: of all magnitudes, up to pi,
// beside multiples of pi / 2, beside 1, beyond it, zeros, infinities and NaN. Fails where an error
// reaches one unit (two for atan2, whose results can be subnormal), or where a sign differs.
#include "internal/Libm.h"

#include <mpfr.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>

namespace libm = KyMath::internal;

namespace {

std::mt19937_64 random64(1);
bool failed = false;
mpfr_t exactX, exactY, exact;

template <class T>
T uniform(double limit) {
    return T(std::ldexp(double(std::int64_t(random64())), -63) * limit);
}

template <class T>
T draw() {
    constexpr T inf = std::numeric_limits<T>::infinity(),
                least = std::numeric_limits<T>::denorm_min();
    constexpr T special[] = {0,     1,        inf,     std::numeric_limits<T>::quiet_NaN(),
                             least, T(1e-17), T(1e22), std::numeric_limits<T>::max()};
    const std::uint64_t bits = random64();
    T x;
    std::memcpy(&x, &bits, sizeof x);
    switch (random64() % 5) {
        case 0:
            return x;
        case 1:
            return uniform<T>(3.2);
        case 2:
            return T(std::ldexp(uniform<double>(1), -int(bits % 30)));
        case 3: {
            const T turn = T(double(bits % 100000 >> bits % 17) * 1.5707963267948966);
            return bits & 1 << 20 ? -turn : std::nextafter(turn, T(bits & 1 << 21 ? 1e9 : 0));
        }
        default:
            x = special[bits % 8];
            break;
    }
    if (bits & 1 << 22) x = std::nextafter(x, T(0));
    return bits & 1 << 23 ? -x : x;
}

constexpr double kWrong = std::numeric_limits<double>::infinity();

/// The error of r, in units of the last place of `exact`.
template <class T>
double error(T r) {
    using Limits = std::numeric_limits<T>;
    if (mpfr_nan_p(exact) || std::isnan(r)) return mpfr_nan_p(exact) && std::isnan(r) ? 0 : kWrong;
    if (bool(mpfr_signbit(exact)) != std::signbit(r)) return kWrong;
    if (mpfr_zero_p(exact)) return r == 0 ? 0 : kWrong;
    const long last = std::max<long>(mpfr_get_exp(exact), Limits::min_exponent) - Limits::digits;
    mpfr_sub_d(exact, exact, double(r), MPFR_RNDN);
    mpfr_mul_2si(exact, exact, -last, MPFR_RNDN);
    return std::abs(mpfr_get_d(exact, MPFR_RNDN));
}

/// Prints the largest error of call(y, x), whose exact value compute() leaves in `exact`.
template <class T, class Call, class Compute>
void measure(const char* name, long count, Call call, Compute compute) {
    double largest = 0;
    T largestX = 0, largestY = 0;
    for (long i = 0; i < count; ++i) {
        const T x = draw<T>(), y = draw<T>();
        mpfr_set_d(exactX, double(x), MPFR_RNDN);
        mpfr_set_d(exactY, double(y), MPFR_RNDN);
        compute();
        const double e = error(call(y, x));
        if (e <= largest) continue;
        largest = e;
        largestX = x;
        largestY = y;
    }
    failed |= largest >= (std::strcmp(name, "atan2") == 0 ? 2 : 1);
    std::printf("%-14s %s %.3f (y = %a, x = %a)\n", name, sizeof(T) == 4 ? "f" : "d", largest,
                double(largestY), double(largestX));
}

#define KY_MEASURE(T, name, result, function, ...)                           \
    measure<T>(                                                              \
        name, count, []([[maybe_unused]] T y, T x) { return libm::result; }, \
        [] { mpfr_##function(exact, __VA_ARGS__, MPFR_RNDN); })

template <class T>
void measureAll(long count) {
    KY_MEASURE(T, "sin", sin(x), sin, exactX);
    KY_MEASURE(T, "sinCos, sine", sinCos(x).s, sin, exactX);
    KY_MEASURE(T, "sinCos, cosine", sinCos(x).c, cos, exactX);
    KY_MEASURE(T, "asin", asin(x), asin, exactX);
    KY_MEASURE(T, "acos", acos(x), acos, exactX);
    KY_MEASURE(T, "atan2", atan2(y, x), atan2, exactY, exactX);
}

}  // namespace

int main(int argc, char** argv) {
    const long count = argc > 1 ? std::atol(argv[1]) : 10000;
    mpfr_inits2(140, exactX, exactY, exact, mpfr_ptr(nullptr));
    measureAll<float>(count);
    measureAll<double>(count);
    KY_MEASURE(double, "tan", tan(x), tan, exactX);
    return failed;
}
