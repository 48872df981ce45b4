// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_TESTS_USES_H
#define KYMATH_TESTS_USES_H

#include "Values.h"

namespace KyMath::test {

/// What this program, the library included, did between startCounting() and stopCounting().
struct Use {
    int libm;         ///< calls of the functions of libm that the library may use
    int allocations;  ///< calls of operator new
    long kept;        ///< blocks that operator new gave and that are still held
    int failAt = -1;  ///< the number, from 0, of the allocation that shall fail
};
extern Use use;

void startCounting();
void stopCounting();

/// Adds what each of those functions of libm gives for some argument.
void addLibm(Inputs& in, Digest& digest);

}  // namespace KyMath::test

#endif
