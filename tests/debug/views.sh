#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# views.sh PROGRAM LIBRARY SOURCE_DIR BUILD_DIR [--update]: gdb loads the views by itself, beside the
# library as built and as installed, and shows the variables of PROGRAM as views.txt has them. An
# editor can unfold them, and every expression of the natvis file holds.
set -euo pipefail
program=$1
built=$(dirname "$2")
here=$3/tests/debug
build=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

debug=(gdb -nx -batch -ex "set width 0" -ex "break stop" -ex run -ex "echo views\n")
views() { # LIBRARY_DIR
    LD_LIBRARY_PATH=$1 "${debug[@]}" -iex "add-auto-load-safe-path $1" -ex "print reference" \
        -ex "print *pointer" -ex up -ex "info locals" -ex "print &box" "$program" 2>&1 |
        sed -n '/^views$/,$p' | sed -E '1d; s/0x[0-9a-f]{6,}/ADDRESS/; s/^(#1|[0-9]+\t).*/FRAME/'
}

cmake --install "$build" --prefix "$work/prefix" >/dev/null
for dir in "$built" "$(dirname "$(find "$work/prefix" -name libKyMath.so)")"; do
    views "$dir" >"$work/views.txt"
    [[ ${5:-} != --update ]] || cp "$work/views.txt" "$here/views.txt"
    diff "$here/views.txt" "$work/views.txt"
done

# Where gdb looks for the views of a system's own libraries, and nothing beside these.
DESTDIR=$work/system cmake --install "$build" --prefix /usr >/dev/null
(cd "$work/system" && diff <(find usr -name '*-gdb.py' | sort) \
    <(find usr -name '*.so.?.?.?' -printf 'usr/share/gdb/auto-load/%p-gdb.py\n' | sort))

LD_LIBRARY_PATH=$built "${debug[@]}" -iex "add-auto-load-safe-path $built" -ex up -ex "set \$natvis = \"$(find "$work/prefix" -name '*.natvis')\"" \
    -x "$here/natvis.py" "$program" >"$work/natvis" 2>&1 || true
grep -q 'natvis: all expressions hold' "$work/natvis" || { tail -3 "$work/natvis"; exit 1; }

# What an editor says to gdb.
gdb -nx -q --interpreter=mi -iex "add-auto-load-safe-path $built" "$program" >"$work/mi" <<'MI'
-enable-pretty-printing
-break-insert stop
-exec-run
-interpreter-exec console "up"
-var-create box * box
-var-create room * room
-var-list-children --all-values room
-var-create rigid * rigid
-var-list-children --all-values rigid
-gdb-exit
MI
for text in 'name="box",numchild="0",value="min (-1, -2, -3), max (1, 2, 3)"' \
    'exp="[5]",numchild="0",value="(0, 0, -1, 10), upper' 'exp="(1, 3)",numchild="0",value="2"'; do
    grep -qF "$text" "$work/mi" || { cat "$work/mi"; echo "missing: $text"; exit 1; }
done
