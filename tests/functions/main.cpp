// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// Calls every function of the library 4000 times, and prints per function a digest of all
// results and what it used beyond its own code: libm, memory. The first line is a digest of libm.
//   --threads   each call that changes nothing is made by eight threads at once instead
//   --memory    each allocation fails in turn instead
//   --traps     ordinary arguments instead: no call raises what a program may trap
//   --values    30 calls, and not the digest but what goes into it: the arguments, the result and
//   the
//               arguments after the call
#include "Table.h"
#include "Uses.h"

#include <unistd.h>
#include <cfenv>
#include <cstdio>

using namespace KyMath;
using namespace KyMath::test;

namespace {

/// Standard output, where the library itself must not write: its messages go nowhere.
std::FILE* const out = [] {
    std::FILE* const own = fdopen(dup(STDOUT_FILENO), "w");
    return std::freopen("/dev/null", "w", stdout) != nullptr ? own : nullptr;
}();

Inputs inputsOf(const Function& function, bool ordinary = false) {
    Digest seed;
    seed.add(function.name);
    return Inputs(seed.value(), ordinary);
}

void printLibm() {
    Inputs in(1);
    Digest digest;
    for (int i = 0; i < 20000; ++i) addLibm(in, digest);
    std::fprintf(out, "libm %016llx\n", static_cast<unsigned long long>(digest.value()));
}

bool printResults(const Function& function) {
    Inputs in = inputsOf(function);
    Digest digest;
    bool libm = false, memory = false;
    for (int i = 0; i < 4000; ++i) {
        digest.add(call(function, in).digest);
        libm |= use.libm > 0;
        memory |= use.allocations > 0;
    }
    std::fprintf(out, "%016llx %s%s%s\n", static_cast<unsigned long long>(digest.value()),
                 function.name.c_str(), libm ? " [libm]" : "", memory ? " [memory]" : "");
    return true;
}

bool printValues(const Function& function) {
    std::fprintf(out, "%s\n", function.name.c_str());
    Inputs in = inputsOf(function);
    Digest::trace = out;
    for (int i = 0; i < 30; ++i) {
        call(function, in);
        std::fprintf(out, "\n");
    }
    Digest::trace = nullptr;
    return true;
}

/// All threads get the result of one.
bool threadsAgree(const Function& function) {
    Inputs in = inputsOf(function);
    bool agree = true;
    for (int i = 0; i < 10; ++i) agree &= call(function, in, 8).threadsAgree;
    return agree;
}

int failures = 0;
/// A call that runs out of memory, at whichever of its allocations, changes nothing and keeps
/// nothing. (A stream records the failure instead.)
bool isSafeWithoutMemory(const Function& function) {
    Inputs in = inputsOf(function);
    for (int i = 0; i < 100; ++i) {
        const Inputs start = in;
        for (use.failAt = 0;; ++use.failAt) {
            in = start;
            const Outcome outcome = call(function, in);
            if (use.allocations <= use.failAt) break;
            ++failures;
            if (outcome.threw && (!outcome.unchanged || use.kept != 0)) return false;
        }
        use.failAt = -1;
    }
    return true;
}

/// Curves through many points leave nothing behind but these points.
bool manyPointsAreFreed() {
    int kept = 0;
    for (const auto create : {CreateBSpline, CreateBezier, CreateCatmullRomSpline}) {
        startCounting();
        {
            std::vector<Vector3d> points(1000);
            create(points, 1001, points);
        }
        stopCounting();
        kept += use.kept != 0;
    }
    return kept == 0;
}

/// No call with ordinary arguments raises a floating-point exception other than inexact and
/// underflow.
bool raisesNothing(const Function& function) {
    static int trapped, raised;
    // A box and a line along an axis: the largest number, in place of 1 / 0, may overflow.
    const bool line =
        function.name.find("intersect(const V&, const V&) const") != std::string::npos;
    trapped = FE_INVALID | FE_DIVBYZERO | (line ? 0 : FE_OVERFLOW);
    raised = 0;
    hooks = {[] { std::feclearexcept(FE_ALL_EXCEPT); },
             [] { raised |= std::fetestexcept(trapped); }};
    Inputs in = inputsOf(function, true);
    for (int i = 0; i < 1000; ++i) call(function, in);
    return raised == 0;
}

/// Whether it holds for all functions.
bool forAll(bool (*holds)(const Function&), const char* otherwise) {
    bool good = true;
    for (const Function& function : functions()) {
        if (holds(function)) continue;
        std::fprintf(out, "%s %s\n", function.name.c_str(), otherwise);
        good = false;
    }
    return good;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string mode = argc > 1 ? argv[1] : "";
    bool good = true;
    if (mode == "--traps") return !forAll(raisesNothing, "would be trapped");
    if (mode == "--threads") {
        good = forAll(threadsAgree, "differs between threads");
        std::fprintf(out, "%zu functions by 8 threads\n", functions().size());
        return !good;
    }
    if (mode == "--values") return !forAll(printValues, "");
    hooks = {startCounting, stopCounting};
    if (mode == "--memory") {
        good = forAll(isSafeWithoutMemory, "changed or kept something without memory");
        const bool freed = manyPointsAreFreed();
        std::fprintf(out, "%d allocations failed%s\n", failures, freed ? "" : ", curves leak");
        return !(good && freed && failures > 0);
    }
    printLibm();
    return !forAll(printResults, "");
}
