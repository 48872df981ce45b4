// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// Calls every function of the library 4000 times, and prints per function a digest of all
// results and what it used beyond its own code: libm, memory. The first line is a digest of libm.
//   --threads   each call that changes nothing is made by eight threads at once instead
//   --memory    each allocation fails in turn instead
//   --traps     ordinary arguments instead: no call raises what a program may trap
#include "Table.h"
#include "Uses.h"

#include <unistd.h>
#include <cfenv>
#include <cstdio>
#include <cstring>

using namespace KyMath;
using namespace KyMath::test;

namespace {

/// Standard output, where the library itself must not write: its messages go nowhere.
std::FILE* const out = [] {
    std::FILE* const own = fdopen(dup(STDOUT_FILENO), "w");
    return std::freopen("/dev/null", "w", stdout) != nullptr ? own : nullptr;
}();

std::uint64_t seedOf(const Function& function) {
    Digest digest;
    digest.add(function.name);
    return digest.value();
}

void printLibm() {
    Inputs in(1);
    Digest digest;
    for (int i = 0; i < 20000; ++i) addLibm(in, digest);
    std::fprintf(out, "libm %016llx\n", static_cast<unsigned long long>(digest.value()));
}

void printResults(const Function& function) {
    Inputs in(seedOf(function));
    Digest digest;
    bool libm = false, memory = false;
    for (int i = 0; i < 4000; ++i) {
        in.nextCall();
        Call call{in, function.limit, {}};
        function.call(call);
        digest.add(call.digest.value());
        libm |= use.libm > 0;
        memory |= use.allocations > 0;
    }
    std::fprintf(out, "%016llx %s%s%s\n", static_cast<unsigned long long>(digest.value()),
                 function.name.c_str(), libm ? " [libm]" : "", memory ? " [memory]" : "");
}

/// Whether all threads got the result of one.
bool checkThreads(const Function& function) {
    Inputs in(seedOf(function));
    for (int i = 0; i < 10; ++i) {
        in.nextCall();
        Call call{in, function.limit, {}};
        call.threads = 8;
        function.call(call);
        if (!call.threadsAgree) return false;
    }
    return true;
}

/// Whether a call that runs out of memory, at whichever of its allocations, changes nothing and
/// keeps nothing. (A stream records the failure instead.)
bool checkMemory(const Function& function, int& failures) {
    Inputs in(seedOf(function));
    for (int i = 0; i < 100; ++i) {
        in.nextCall();
        const Inputs start = in;
        for (use.failAt = 0;; ++use.failAt) {
            in = start;
            Call call{in, function.limit, {}};
            function.call(call);
            if (use.allocations <= use.failAt) break;
            ++failures;
            if (call.threw && (!call.unchanged || use.kept != 0)) return false;
        }
        use.failAt = -1;
    }
    return true;
}

/// Whether no call with ordinary arguments raises a floating-point exception other than inexact and
/// underflow.
bool checkTraps(const Function& function) {
    static int raised;
    raised = 0;
    hooks = {[] { std::feclearexcept(FE_ALL_EXCEPT); },
             [] { raised |= std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW); }};
    Inputs in(seedOf(function), true);
    for (int i = 0; i < 1000; ++i) {
        in.nextCall();
        Call call{in, function.limit, {}};
        function.call(call);
    }
    return raised == 0;
}

/// Whether curves through many points leave nothing behind but these points.
bool checkManyPoints() {
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

}  // namespace

int main(int argc, char** argv) {
    const char* const mode = argc > 1 ? argv[1] : "";
    int failures = 0;
    bool good = true;
    const auto require = [&good](bool holds, const Function& function, const char* otherwise) {
        if (!holds) std::fprintf(out, "%s: %s\n", function.name.c_str(), otherwise);
        good &= holds;
    };
    if (std::strcmp(mode, "--threads") == 0) {
        for (const Function& f : functions()) require(checkThreads(f), f, "threads disagree");
        std::fprintf(out, "%zu functions by 8 threads\n", functions().size());
        return good ? 0 : 1;
    }
    if (std::strcmp(mode, "--traps") == 0) {
        for (const Function& f : functions()) require(checkTraps(f), f, "would be trapped");
        return good ? 0 : 1;
    }
    hooks = {startCounting, stopCounting};
    if (std::strcmp(mode, "--memory") == 0) {
        for (const Function& f : functions()) {
            require(checkMemory(f, failures), f, "changed or kept something without memory");
        }
        std::fprintf(out, "%d allocations failed\n", failures);
        if (!checkManyPoints())
            std::fprintf(out, "curves of many points keep memory\n"), good = false;
        return good && failures > 0 ? 0 : 1;
    }
    printLibm();
    for (const Function& function : functions()) printResults(function);
    return 0;
}
