#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# client_object.sh OBJECT: the object of a client defines nothing of the library, neither out of line
# nor inline; all of it is undefined, for the linker to find in the library.
set -euo pipefail
undefined=$(nm -C --undefined-only "$1" | grep -cE 'KyMath::|Ky::' || true)
((undefined > 500)) || { echo "only $undefined names of the library in $1"; exit 1; }

defined=$(nm --defined-only "$1" | awk '{print $3}' | grep -E '^_ZN?K?(6KyMath|2Ky)|^_Z20getWorldSpaceSegment' || true)
if [[ -n $defined ]]; then
    echo "copies in the client:"
    c++filt <<<"$defined"
    exit 1
fi
