# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# Begins a test of the program $1 in a folder of its own; the test ends with ((failures == 0)).
program=$(realpath "$1") data=$(realpath "${2:-.}") work=$(mktemp -d) failures=0
trap 'rm -rf "$work" "$work.out" "$work.err"' EXIT
cd "$work"
mkdir folder folder.png folder.svg

fail() {
    echo "FAILED: $*: $(tr '\n' ';' <"$work.out")"
    failures=$((failures + 1))
}

# runs LAST_LINE ARGUMENTS...: status 0, and the last line is as given.
runs() {
    "$program" "${@:2}" >"$work.out" 2>&1 || fail "${*:2}: status $?"
    [[ $(tail -n 1 "$work.out") == "$1" ]] || fail "${*:2}: the last line is not '$1'"
}

# rejects TEXT ARGUMENTS...: status 2, one line with TEXT on standard error and no other, no new file.
rejects() {
    local status=0 before
    before=$(find . | sort)
    "$program" "${@:2}" >"$work.out" 2>"$work.err" || status=$?
    [[ $status == 2 && ! -s $work.out ]] || fail "$*: status $status"
    [[ $(<"$work.err") == *"$1"* && $(wc -l <"$work.err") == 1 ]] || fail "$*: $(<"$work.err")"
    [[ $(find . | sort) == "$before" ]] || fail "$*: left a file behind"
}

"$program" --version >"$work.out" && grep -q " of KyMath [0-9]" "$work.out" || fail "--version"
