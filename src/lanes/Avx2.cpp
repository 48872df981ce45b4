// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// Compiled with -mavx2: nothing here may run before hasAvx2 is known.
#define KY_ISA Isa::avx2
#include "lanes/Kernels.inc"
