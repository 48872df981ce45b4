// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// In programs that link the archive: if WITHOUT_AVX2 is set in the environment, the library behaves
// as on a processor without AVX2.
#include <cstdlib>

namespace KyMath {
namespace internal {

extern bool hasAvx2;  // the library's own

}  // namespace internal
}  // namespace KyMath

namespace {

/// Runs after the library has asked the processor, and before main.
const bool asked = [] {
    if (std::getenv("WITHOUT_AVX2") == nullptr) return false;
    KyMath::internal::hasAvx2 = false;
    return true;
}();

}  // namespace
