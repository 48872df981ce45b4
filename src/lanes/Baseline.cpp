// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// For every x86-64 processor.
#define KY_ISA Isa::baseline
#include "lanes/Kernels.inc"
