#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# check.sh SOURCE_DIR: called by sh through a link, in a path with a blank and with CDPATH set, each
# script answers --help and refuses what it does not know, before it does anything else; on a system
# without apt-get, setup.sh says what is needed.
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/a path" "$work/bin"
cp -r "$1/scripts" "$1/.ci" "$work/a path"
cd "$work"
failures=0
export CDPATH=.
expect() { # STATUS PATTERN COMMAND...: what it ends with, and what it says
    local said status=0
    said=$("${@:3}" 2>&1) || status=$?
    # shellcheck disable=SC2053  # a pattern
    [[ $status == "$1" && $said == $2 ]] || { printf '%s (status %d):\n%s\n' "${*:3}" $status "$said" && failures=1; }
}

for script in "a path"/{scripts/*.sh,.ci/run}; do
    [[ -x $script ]] || continue # what the others read
    ln -sf "$script" script
    expect 0 "${script##*/}*:*" sh script --help
    [[ $script == */demo.sh ]] || expect 1 "* does not take --other;*" sh script --other
done
ln -s "$(command -v bash)" "$(command -v dirname)" "$(command -v readlink)" "$(command -v sort)" bin
expect 1 "*one number*" sh "a path/scripts/fuzz.sh" 1 2
PATH=$work/bin expect 0 "*Not a Debian system*cmake*ninja-build*" bash "a path/scripts/setup.sh" library
[[ ! -e "a path/build" ]] || { echo "something was built"; failures=1; }
exit $failures
