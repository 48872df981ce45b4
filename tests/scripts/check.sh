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
expect() { # OUTPUT PATTERN
    # shellcheck disable=SC2053  # a pattern
    [[ $1 == $2 ]] || { printf '%s says:\n%s\n' "$script" "$1" && failures=1; }
}

for script in "a path"/{scripts/*.sh,.ci/run}; do
    [[ -x $script ]] || continue # what the others read
    ln -sf "$script" script
    expect "$(sh script --help 2>&1)" "${script##*/}*:*"
    [[ $script == */demo.sh ]] || expect "$(sh script --other 2>&1)" "* does not take --other;*"
done
ln -s "$(command -v bash)" "$(command -v dirname)" "$(command -v readlink)" "$(command -v sort)" bin
script="a path/scripts/setup.sh"
expect "$(PATH=$work/bin bash "$script" library 2>&1)" "*Not a Debian system*cmake*ninja-build*"
[[ ! -e "a path/build" ]] || { echo "something was built"; failures=1; }
exit $failures
