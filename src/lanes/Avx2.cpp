// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// Compiled with -mavx2: nothing of this may run before hasAvx2 is known.
#define KY_SET Set::avx2
#include "lanes/Kernels.inc"
