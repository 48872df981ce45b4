#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# lanes.sh ARCHIVE LIBRARY, compiled for every x86-64: of functions, each source that is compiled for AVX2
# or AVX-512 defines its own set of kernels and nothing else. Where other sources define a function too, the
# linker could take that of this one, which crashes on a processor without these instructions, and passes
# every other test on one that has them. Those sources hold no instruction beyond their set, every other none
# beyond SSE2, and the library nothing that changes the mode of the processor, as -ffast-math links.
set -euo pipefail
set=1
for source in Avx2 Avx512; do
    defined=$(nm -AC --defined-only --extern-only "$1" | grep -E "$source\.cpp\.o:[0-9a-f]+ [TW] " || true)
    [[ $defined == *transformPositions* ]] || { echo "cannot read $1"; exit 1; }
    if grep -vF "Kernels<(KyMath::internal::Isa)$set>::" <<<"$defined"; then
        echo "compiled for $source, and not of its set"
        exit 1
    fi
    set=$((set + 1))
done

# "rep bsf" reads as tzcnt, and is for every processor. Those of SSE3 are named, as emulators run them on
# every processor; those of AVX begin with v.
beyond='addsubp[ds]|h(add|sub)p[ds]|lddqu|mov(d|sh|sl)dup|fisttp.*|andn|bextr|bls(i|r|msk)|bzhi|mulx|pdep|pext|rorx|s[ahr][lr]x|lzcnt|ldmxcsr'
found=$({ objdump -d --no-show-raw-insn "$1"; echo 'Avx512.cpp.o:'; objdump -d --no-show-raw-insn "$2"; } |
    awk -F '\t' -v beyond="^($beyond|vfn?m(add|sub).*) " '
        /\.o:/ { avx512 = /Avx512\.cpp/; avx2 = avx512 || /Avx2\.cpp/; source = $1 }
        $2 ~ beyond || (!avx512 && /%zmm|%k[0-7]|{1to|%[xy]mm(1[6-9]|[23][0-9])/) ||
        (!avx2 && $2 ~ /^v|^popcnt/) {
            print source, $2
        }')
if [[ $found ]]; then
    head -n 9 <<<"$found"
    echo "$(wc -l <<<"$found") instructions that not every processor has"
    exit 1
fi
