// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// In programs that link the archive: with WITHOUT_AVX2 in the environment, the library takes the
// processor for one that has no AVX2.
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
