// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Layer.h"

#include <algorithm>
#include <iterator>

namespace KyMath::python {

namespace {

struct Entry {
    const char* name;
    const char* text;
};

// Sorted by name.
constexpr Entry kEntries[] = {
#include "Docstrings.inc"
};

}  // namespace

const char* comment(const std::string& owner, const std::string& name) {
    std::string key = owner.substr(0, owner.find_last_not_of("fd") + 1);
    if (name != owner) key += "." + name;
    const auto before = [](const Entry& entry, const std::string& k) { return entry.name < k; };
    const Entry* const end = std::end(kEntries);
    const Entry* const found = std::lower_bound(std::begin(kEntries), end, key, before);
    return found != end && key == found->name ? found->text : nullptr;
}

}  // namespace KyMath::python
