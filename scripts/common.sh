# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# What every script begins with:
#
#     . "$(dirname "$(readlink -f "$0")")/common.sh"
#
# It finds the repository, $root, and answers --help with the comment at the head of the script.

[ "${BASH_VERSION:-}" ] || exec bash "$0" "$@" # not bash, but sh script.sh
set -euo pipefail
unset CDPATH    # with it, cd prints where it goes
export LC_ALL=C # times without a decimal comma, the same order everywhere
root=$(dirname "$(dirname "$(readlink -f "$0")")")

for argument in "$@"; do
    if [[ $argument == -h || $argument == --help ]]; then
        sed -n '5,/^[^#]/s/^# \{0,1\}//p' "$0"
        exit
    fi
done

stop() {
    echo "$(basename "$0"): $1" >&2
    exit 1
}

# takes PATTERN ARGUMENT...: stops at an argument that is not as the regular expression says.
takes() {
    local argument
    for argument in "${@:2}"; do
        [[ $argument =~ ^($1)$ ]] || stop "does not take $argument; see --help"
    done
}

# prepare PURPOSE...: installs what is missing for that, as setup.sh knows it, and goes to the root of
# the repository, which must have room for a build.
prepare() {
    mkdir -p "$root/build" 2>/dev/null && [[ -w $root/build ]] ||
        stop "cannot write to $root/build: take a copy of the repository, or another user"
    bash "$root/scripts/setup.sh" "$@"
    cd "$root"
}

# configure PRESET [OPTION...]
configure() { cmake --preset "$@" --log-level=WARNING >/dev/null; }
