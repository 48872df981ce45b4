#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# hardened.sh LIBRARY: nothing in the library is both writable and executable, its tables of addresses
# are read-only once it is loaded, the processor can check indirect jumps and returns, and the library
# names no folder to search.
set -euo pipefail
segments=$(readelf -lW "$1") dynamic=$(readelf -dW "$1") notes=$(readelf -nW "$1")
addresses() { sed -nE "s/^[ 0]*([0-9a-f]+)$1/\1/p" | LC_ALL=C sort -u; }
unmarked=$(LC_ALL=C comm -23 <(nm -D --defined-only "$1" | addresses ' [TW] .*') \
                             <(objdump -d --no-show-raw-insn "$1" | addresses ':\s*endbr64.*'))
failures=0
fail() { echo "$1"; failures=1; }
needs() { grep -qE "$2" <<<"$1" || fail "$3"; }
bars() { ! grep -qE "$2" <<<"$1" || fail "$3"; }

needs "$segments" '^ +LOAD .* R E ' "cannot read $1"
needs "$segments" '^ +GNU_RELRO ' "tables of addresses stay writable: -z relro"
needs "$dynamic" '\(BIND_NOW\)|\(FLAGS.* NOW( |$)' "functions are bound late: -z now"
needs "$segments" '^ +GNU_STACK .* RW ' "the stack is not said to be plain data: -z noexecstack"
needs "$notes" 'x86 feature:.*IBT' "not marked for checked jumps: -z ibt"
needs "$notes" 'x86 feature:.*SHSTK' "not marked for checked returns: -z shstk"
bars "$unmarked" . "exported functions that begin without endbr64: -fcf-protection"
bars "$segments" '^ +[A-Z_]+ .* RWE ' "a segment is writable and executable"
bars "$dynamic" TEXTREL "relocations in the code: -fPIC"
bars "$dynamic" '\(R(UN)?PATH\)' "a folder to search"
((failures)) || echo "full RELRO, no executable stack, checked jumps and returns"
exit $failures
