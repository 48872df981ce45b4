#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# demo.sh [OPTION...]: installs what is missing, builds the library and culls a real landscape with
# it, which writes build/cull.png. The options are those of the program:
# build/release/examples/cull --help shows them once it is built.
. "$(dirname "$(readlink -f "$0")")/common.sh"

prepare library examples
echo "== Building"
configure release -DKYMATH_TESTS=OFF
cmake --build --preset release
echo "== Culling"
cd - >/dev/null
[[ " $*" == *" --output"* ]] || set -- --output "$root/build/cull.png" "$@"
"$root/build/release/examples/cull" "$@"
