#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# lanes.sh ARCHIVE: of functions, the source that is compiled for AVX2 defines its own set of kernels
# and nothing else. Where other sources define a function too, the linker could take that of this one,
# which crashes on a processor without AVX2, and passes every other test on one that has it.
set -euo pipefail
defined=$(nm -AC --defined-only --extern-only "$1" | grep -E 'Avx2\.cpp\.o:[0-9a-f]+ [TW] ' || true)
[[ $defined == *multiply* ]] || { echo "cannot read $1"; exit 1; }
if grep -vF 'Kernels<(KyMath::internal::Isa)1>::' <<<"$defined"; then
    echo "compiled for AVX2, and not of its set"
    exit 1
fi
