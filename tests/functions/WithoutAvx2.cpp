// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "lanes/Kernels.h"

namespace {

/// Runs after the library has asked the processor, and before main.
const bool withoutAvx2 = KyMath::internal::hasAvx2 = false;

}  // namespace
