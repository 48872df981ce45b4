// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// The functions of libm that the library may use, and operator new, in front of the real ones: a
// program's own definitions come first, for a shared library too.
#include "Uses.h"

#include <dlfcn.h>
#include <cstdlib>
#include <new>

namespace KyMath::test {

Use use;

namespace {

bool counting = false;

template <class F>
F* real(F*, const char* name) {
    return reinterpret_cast<F*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

void startCounting() {
    counting = true;
    use.libm = use.allocations = 0;
    use.kept = 0;
}
void stopCounting() {
    counting = false;
}

}  // namespace KyMath::test

using KyMath::test::counting;
using KyMath::test::use;

__attribute__((noinline)) void* operator new(std::size_t size) {
    if (counting && use.allocations++ == use.failAt) throw std::bad_alloc();
    void* const p = std::malloc(size);
    if (p == nullptr) throw std::bad_alloc();
    if (counting) ++use.kept;
    return p;
}
__attribute__((noinline)) void operator delete(void* p) noexcept {
    if (counting && p != nullptr) --use.kept;
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
    operator delete(p);
}

#define KY_COUNTED(T, name, declared, ...)                                                        \
    extern "C" T name declared noexcept {                                                         \
        static const auto function = KyMath::test::real(static_cast<T(*) declared>(name), #name); \
        if (counting) ++use.libm;                                                                 \
        return function(__VA_ARGS__);                                                             \
    }
// The memory sanitizer does not see libm write.
#define KY_COUNTED_PAIR(T, name) \
    KY_COUNTED(void, name, (T x, T * s, T * c), (static_cast<void>(*s = *c = 0), x), s, c)

KY_COUNTED(float, sinf, (float x), x)
KY_COUNTED(double, sin, (double x), x)
KY_COUNTED(double, tan, (double x), x)
KY_COUNTED(float, asinf, (float x), x)
KY_COUNTED(double, asin, (double x), x)
KY_COUNTED(float, acosf, (float x), x)
KY_COUNTED(double, acos, (double x), x)
KY_COUNTED(float, atan2f, (float y, float x), y, x)
KY_COUNTED(double, atan2, (double y, double x), y, x)
KY_COUNTED_PAIR(float, sincosf)
KY_COUNTED_PAIR(double, sincos)

namespace KyMath::test {

void addLibm(Inputs& in, Digest& digest) {
    float f[4];
    double d[4];
    in.components(f, 4);
    in.components(d, 4);
    sincosf(f[0], f + 2, f + 3);
    sincos(d[0], d + 2, d + 3);
    const float floats[] = {sinf(f[0]), asinf(f[1]), acosf(f[1]), atan2f(f[0], f[1]), f[2], f[3]};
    const double doubles[] = {sin(d[0]),         tan(d[0]), asin(d[1]), acos(d[1]),
                              atan2(d[0], d[1]), d[2],      d[3]};
    digest.add(floats, 6);
    digest.add(doubles, 7);
    in.nextCall();
}

}  // namespace KyMath::test
