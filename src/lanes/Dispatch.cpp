// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "lanes/Kernels.h"

namespace KyMath::internal {

bool hasAvx2 = false, hasAvx512 = false;

namespace {

// Runs before all initialisers of ordinary priority.
__attribute__((constructor(101))) void askProcessor() {
    __builtin_cpu_init();
    hasAvx2 = __builtin_cpu_supports("avx2");
    hasAvx512 = hasAvx2 & bool(__builtin_cpu_supports("avx512f")) &
                bool(__builtin_cpu_supports("avx512bw")) &
                bool(__builtin_cpu_supports("avx512dq")) & bool(__builtin_cpu_supports("avx512vl"));
}

}  // namespace

}  // namespace KyMath::internal
