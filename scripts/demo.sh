#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# demo.sh [OPTION...]: installs what is missing, builds the library and culls a real landscape with
# it, which writes build/cull.png. The options are those of the program: demo.sh --help shows them.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)

# make: what the compiler runs parallel link-time optimisation with
bash "$root/scripts/setup.sh" g++ make cmake ninja-build libpng-dev libcli11-dev
cd "$root"
echo "== Building"
cmake --preset release -DKYMATH_TESTS=OFF -DKYMATH_EXAMPLES=ON --log-level=WARNING
cmake --build --preset release
echo "== Culling"
cd - >/dev/null
[[ " $*" == *" --output"* ]] || set -- --output "$root/build/cull.png" "$@"
"$root/build/release/examples/cull" "$@"
