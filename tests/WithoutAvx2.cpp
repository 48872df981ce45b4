// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// In programs that link the archive: if WITHOUT_AVX2 or WITHOUT_AVX512 is set in the environment,
// the library behaves as on a processor without that, which has no AVX-512 in either case.
#include <cstdlib>

namespace KyMath {
namespace internal {

extern bool hasAvx2, hasAvx512;  // the library's own

}  // namespace internal
}  // namespace KyMath

namespace {

/// Runs after the library has asked the processor, and before main.
const bool asked = [] {
    const bool avx2 = std::getenv("WITHOUT_AVX2") == nullptr;
    KyMath::internal::hasAvx2 &= avx2;
    KyMath::internal::hasAvx512 &= avx2 && std::getenv("WITHOUT_AVX512") == nullptr;
    return true;
}();

}  // namespace
