// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0

// Calls any function of one layer of the library with any arguments: no undefined behaviour, and a
// second call gives the same result.
#include "Input.h"

#include "../functions/Table.h"

#include <cstring>

using namespace KyMath::test;

namespace {

std::vector<Function> layer() {
    std::vector<Function> found;
    for (const Function& function : functions()) {
        if (std::strcmp(function.layer, KYMATH_LAYER) == 0) found.push_back(function);
    }
    require(!found.empty());
    return found;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::vector<Function> table = layer();
    if (size < 2) return 0;
    const Function& function = table[(256u * data[0] + data[1]) % table.size()];
    std::uint64_t results[2];
    for (std::uint64_t& result : results) {
        Inputs in(data + 2, size - 2);
        result = call(function, in).digest;
    }
    require(results[0] == results[1]);
    return 0;
}
