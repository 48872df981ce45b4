// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Table.h"

#include <exception>
#include <thread>

namespace KyMath::test {
namespace {

// Whether the function returned, rather than threw.
bool once(const Code& code, void* const* arguments, Digest& result) {
    bool threw = false;
    hooks.before();
    try {
        code.signature->call(code.code, arguments, code.isMember ? *arguments : nullptr, result);
    } catch (const std::exception&) {
        threw = true;
    }
    hooks.after();
    if (threw) result.add(std::string("threw"));
    return !threw;
}

}  // namespace

Outcome call(const Function& function, Inputs& in, int threads) {
    const Signature& signature = *function.code.signature;
    std::vector<std::unique_ptr<Argument>> arguments;
    std::vector<void*> addresses;
    in.nextCall(function.limit);
    for (auto make = signature.arguments; *make != nullptr; ++make) {
        arguments.push_back((*make)());
        arguments.back()->draw(in);
        addresses.push_back(arguments.back()->address);
    }
    const auto state = [&arguments] {
        Digest digest;
        for (const auto& argument : arguments) argument->addTo(digest);
        return digest.value();
    };
    const std::uint64_t before = state();
    const auto make = [&](Digest& result) { return once(function.code, addresses.data(), result); };
    Digest result, whole;
    std::vector<Digest> others(signature.readOnly ? std::size_t(threads - 1) : 0);
    std::vector<std::thread> running;
    for (Digest& other : others) running.emplace_back([&] { make(other); });
    const bool returned = make(result);
    for (std::thread& thread : running) thread.join();
    bool agree = true;
    for (const Digest& other : others) agree &= other.value() == result.value();
    const std::uint64_t after = state();
    whole.add(result.value());
    whole.add(after);
    return {whole.value(), !returned, before == after, agree};
}

}  // namespace KyMath::test
