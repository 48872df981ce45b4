// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Table.h"

namespace KyMath {
namespace test {

namespace {

// Whether the function returned, rather than threw.
bool once(Subject& subject, Digest& result) {
    hooks.before();
    bool threw = false;
    try {
        subject.call(result);
    } catch (const std::exception&) {
        threw = true;
    }
    hooks.after();
    if (threw) result.add(std::string("threw"));
    return !threw;
}

std::uint64_t stateOf(const Subject& subject) {
    Digest digest;
    subject.addArguments(digest);
    return digest.value();
}

}  // namespace

void perform(Call& call, Subject& subject) {
    subject.draw(call);
    const std::uint64_t before = stateOf(subject);
    Digest result;
    std::vector<Digest> others(subject.readOnly ? std::size_t(call.threads - 1) : 0);
    std::vector<std::thread> threads;
    for (Digest& other : others) threads.emplace_back([&] { once(subject, other); });
    call.threw = !once(subject, result);
    for (std::thread& thread : threads) thread.join();
    for (const Digest& other : others) call.threadsAgree &= other.value() == result.value();
    const std::uint64_t after = stateOf(subject);
    call.digest.add(result.value());
    call.digest.add(after);
    call.unchanged = before == after;
}

}  // namespace test
}  // namespace KyMath
