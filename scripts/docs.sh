#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# docs.sh: installs what is missing and turns the headers, the README and docs into pages to browse,
# build/docs/html/index.html, with a search that knows headings and terms. It fails for a warning of
# Doxygen, for a link that leads nowhere, and if the search does not find what users look for first.
. "$(dirname "$(readlink -f "$0")")/common.sh"
takes '' "$@"

prepare docs
rm -rf build/docs
mkdir -p build/docs
doxygen docs/Doxyfile
python3 -B docs/search.py build/docs/html
cd build/docs/html
status=0
for target in $(grep -ohE '(href|src)="[^":#]+["#]' *.html | cut -d '"' -f 2 | tr -d '#' | sort -u); do
    [[ -e $target ]] || { echo "a link leads nowhere: $target" && status=1; }
done
((status)) || echo "build/docs/html/index.html"
exit $status
