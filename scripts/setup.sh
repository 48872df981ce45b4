#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
#
# setup.sh PURPOSE...: installs the Debian packages that are missing for
#
#     library       to build it
#     lockstep      to build the library on SLEEF as well
#     examples      the programs in examples
#     peers         other libraries that examples and benchmarks are compared with
#     tests         to run the tests
#     module        to build the Python module
#     python        to test it
#     pydebug       to test it with a Python that counts references
#     clang         to build and test by Clang as well
#     lint docs packages coverage benchmarks   the script of that name
. "$(dirname "$(readlink -f "$0")")/common.sh"
takes 'library|lockstep|examples|peers|tests|module|python|pydebug|clang|lint|docs|packages|coverage|benchmarks' "$@"

declare -A packages=(
    [library]="g++ make cmake ninja-build" # make: for link-time optimisation on all cores
    [lockstep]="libsleef-dev"
    [examples]="libpng-dev libcli11-dev"
    [peers]="libeigen3-dev libglm-dev libimath-dev libbullet-dev libassimp-dev assimp-testmodels"
    [tests]="libmpfr-dev libgtest-dev librapidcheck-dev libeigen3-dev libfmt-dev pkg-config abigail-tools xz-utils gdb python3 qemu-user-static"
    [module]="python3-dev python3-numpy"
    [python]="python3-dev python3-numpy python3-pytest python3-hypothesis python3-matplotlib python3-dask mypy"
    [pydebug]="python3-dbg"
    [clang]="clang clang-19 libclang-rt-dev libc++-dev libc++abi-dev llvm googletest"
    [lint]="clang-format clang-tidy reuse"
    [docs]="doxygen doxygen-awesome-css python3"
    [packages]="dpkg-dev lintian pkg-config"
    [coverage]="clang-19 libclang-rt-19-dev llvm-19 jq"
    [benchmarks]="libbenchmark-dev python3-matplotlib"
)
needed=$(for purpose in "$@"; do printf '%s\n' ${packages[$purpose]}; done | sort -u)

if ! command -v apt-get >/dev/null; then
    echo "Not a Debian system: nothing is installed. The packages needed are, by Debian's names:" $needed >&2
    exit 0
fi
missing=$(comm -23 <(echo "$needed") \
    <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' | sed -n 's/^installed //p' | sort -u) | xargs)
log=$(mktemp)
trap 'rm -f "$log"' EXIT
apt() { apt-get -qq -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 "$@" >>"$log" 2>&1; }
without() { grep "^E:" "$log" | head -n 3 >&2; stop "cannot $1: is there a network?"; }
if [[ $missing ]]; then
    install="apt-get install -y --no-install-recommends $missing"
    ((EUID == 0)) || stop "packages are missing. As root: apt-get update && $install"
    echo "== Installing $missing"
    export DEBIAN_FRONTEND=noninteractive
    apt update || true # lists that are there may do
    apt ${install#apt-get } || without "install these"
fi

# The libc++ that has std::format cannot be installed beside libc++-dev: it is only unpacked.
libcxx=$root/build/libc++-19
if [[ " $* " == *" clang "* && ! -d $libcxx ]]; then
    mkdir -p "$libcxx.new"
    cd "$libcxx.new"
    apt update || true
    apt download libc++-19-dev libc++abi-19-dev || without "download libc++-19-dev"
    for package in *.deb; do dpkg-deb -x "$package" .; done
    mv "$libcxx.new" "$libcxx"
fi
