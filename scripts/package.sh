#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# package.sh: installs what is missing, builds the Debian packages libkymath1, libkymath-dev,
# libkymath-doc (with the pages that docs.sh makes), libkymathlockstep1, libkymathlockstep-dev and
# python3-kymath into build/packages, checks them with lintian, and builds programs with what they hold. DEBFULLNAME and DEBEMAIL say who makes the
# packages: set them for packages that others get.
. "$(dirname "$(readlink -f "$0")")/common.sh"
takes '' "$@"

prepare library lockstep examples packages docs module
build=build/package packages=build/packages
umask 022 # as Debian wants its folders
rm -rf $packages $build/*.deb
mkdir -p $packages

echo "== Building"
bash scripts/docs.sh
# The same packages from the same sources: times in them are that of the last change.
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || date +%s)}
configure install -B $build -DCMAKE_INSTALL_PREFIX=/usr \
    -DCMAKE_INSTALL_DOCDIR=share/doc/libkymath-doc -DKYMATH_PYTHON=ON -DKYMATH_LOCKSTEP=ON \
    -DPython3_EXECUTABLE=/usr/bin/python3 -DKYMATH_PYTHON_DIR=lib/python3/dist-packages
cmake --build $build
contact="${DEBFULLNAME:-The KyMath authors} <${DEBEMAIL:-kymath@example.org}>"
cpack --config $build/CPackConfig.cmake -B $build -D "CPACK_PACKAGE_CONTACT=$contact" \
    >$build/cpack.log 2>&1 || { cat $build/cpack.log && exit 1; }
mv $build/*.deb $packages

echo "== Checking"
# initial-upload-closes-no-bugs: nobody has asked Debian for these packages, so no report waits.
lintian --allow-root --fail-on error,warning --suppress-tags initial-upload-closes-no-bugs \
    $packages/*.deb
bash tests/packages/check.sh "$root" $packages
echo "To install: apt-get install" ./$packages/*.deb
