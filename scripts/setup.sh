#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# setup.sh PACKAGE...: installs those of the Debian packages that are missing.
set -euo pipefail

missing=()
for package in "$@"; do
    [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
        missing+=("$package")
done
((${#missing[@]})) || exit 0

if ((EUID != 0)); then
    echo "Missing packages; as root: apt-get install ${missing[*]}" >&2
    exit 1
fi
echo "== Installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
apt-get update -qq
apt-get install -y --no-install-recommends "${missing[@]}"
