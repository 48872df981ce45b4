// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Bench.h"

#include <sched.h>

namespace {

/// Pins the process to its current core, because a move to another one would cost its caches.
void stayOnThisCore() {
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(static_cast<unsigned int>(sched_getcpu()), &set);
    sched_setaffinity(0, sizeof set, &set);
}

}  // namespace

int main(int argc, char** argv) {
    stayOnThisCore();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    for (const auto add :
         {addVectors, addMatrices, addRotations, addBounds, addCulling, addArrays, addLoops}) {
        add();
    }
    benchmark::RunSpecifiedBenchmarks();
}
