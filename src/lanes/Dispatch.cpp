// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "lanes/Kernels.h"

namespace KyMath::internal {

bool hasAvx2 = false;

namespace {

// Runs before all initialisers of ordinary priority.
__attribute__((constructor(101))) void askProcessor() {
    __builtin_cpu_init();
    hasAvx2 = __builtin_cpu_supports("avx2");
}

}  // namespace

}  // namespace KyMath::internal
