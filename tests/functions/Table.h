// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_TESTS_TABLE_H
#define KYMATH_TESTS_TABLE_H

#include "Values.h"

#include <array>
#include <exception>
#include <sstream>
#include <string>
#include <thread>
#include <tuple>
#include <type_traits>
#include <vector>

namespace KyMath {
namespace test {

/// Called just before and after each call of the library.
struct Hooks {
    void (*before)() = [] {};
    void (*after)() = [] {};
};
inline Hooks hooks;

/// One call of a function: the source of its arguments, and its outcome.
struct Call {
    Inputs& in;
    unsigned limit;  ///< indices and counts are below
    /// Results, and the object and all arguments after the call.
    Digest digest;
    bool threw = false;
    bool unchanged = true;  ///< the object and all arguments are as before
    /// If above 1: so many threads make the call on the same object and arguments, where it is not
    /// meant to change them.
    int threads = 1;
    bool threadsAgree = true;
};

struct Function {
    const char* layer;
    std::string name;
    unsigned limit;
    void (*call)(Call&);
};

/// All functions of the library, in the order of their headers.
std::vector<Function> functions();

// The rest is how the table is made.

template <class V>
V make() {
    return V();
}
template <>
inline Vector6 make<Vector6>() {
    return Vector6(0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
}

/// An argument of the declared type A: by value or by reference.
template <class A>
struct Argument {
    std::decay_t<A> value = make<std::decay_t<A>>();

    void draw(Call& call) {
        using V = std::decay_t<A>;
        if constexpr (std::is_integral<V>::value && !std::is_same<V, bool>::value) {
            value = V(call.in.below(call.limit));
        } else {
            call.in.draw(value);
        }
    }
    A get() {
        return static_cast<A>(value);
    }
    void addTo(Digest& digest) const {
        digest.add(value);
    }
};

/// Sixteen numbers, as they are or by columns, or two objects.
template <class E>
struct Argument<E*> {
    using V = std::remove_cv_t<std::remove_all_extents_t<E>>;
    static constexpr std::size_t kCount = std::is_arithmetic<V>::value ? 16 : 2;
    V values[kCount] = {};

    void draw(Call& call) {
        if constexpr (std::is_same<V, int>::value) {
            values[0] = int(call.in.below(call.limit));
        } else {
            for (V& value : values) call.in.draw(value);
        }
    }
    E* get() {
        return reinterpret_cast<E*>(values);
    }
    void addTo(Digest& digest) const {
        digest.add(values, int(kCount));
    }
};

template <>
struct Argument<const char*> {
    void draw(Call&) {}
    const char* get() {
        return "label";
    }
    void addTo(Digest&) const {}
};

template <>
struct Argument<std::ostream&> {
    std::ostringstream stream;

    void draw(Call&) {}
    std::ostream& get() {
        return stream;
    }
    void addTo(Digest& digest) const {
        digest.add(stream.str());
    }
};

/// Adds a result and, where it refers into the object, where it points.
template <class R>
void addResult(Digest& digest, R&& result, const void* object) {
    using V = std::decay_t<R>;
    if constexpr (std::is_base_of<std::ios_base, V>::value) {
        return;  // the stream is an argument
    } else if constexpr (std::is_pointer<V>::value) {
        if constexpr (std::is_array<std::remove_pointer_t<V>>::value) {
            addResult(digest, result[0][0], object);
        } else {
            addResult(digest, *result, object);
        }
    } else {
        digest.add(result);
        if (std::is_lvalue_reference<R&&>::value && object != nullptr) {
            digest.add(
                int(reinterpret_cast<const char*>(&result) - static_cast<const char*>(object)));
        }
    }
}

template <class A>
constexpr bool kReadOnly =
    std::is_pointer<A>::value
        ? std::is_const<std::remove_pointer_t<A>>::value
        : !std::is_reference<A>::value || std::is_const<std::remove_reference_t<A>>::value;

/// A function with its arguments.
struct Subject {
    bool readOnly;  ///< It changes none of them.

    explicit Subject(bool changesNothing) : readOnly(changesNothing) {}
    virtual void draw(Call& call) = 0;
    virtual void addArguments(Digest& digest) const = 0;
    virtual void call(Digest& result) = 0;

protected:
    ~Subject() = default;
};

/// Draws the arguments and makes the call.
void perform(Call& call, Subject& subject);

/// With an object, it is the first argument.
template <bool kHasObject, class R, class... A, class F>
void perform(Call& call, F f) {
    struct Bound final : Subject {
        F f;
        std::tuple<Argument<A>...> arguments;

        explicit Bound(F function) : Subject((kReadOnly<A> && ...)), f(function) {}
        void draw(Call& call) override {
            std::apply([&](auto&... argument) { (argument.draw(call), ...); }, arguments);
        }
        void addArguments(Digest& digest) const override {
            std::apply([&](auto&... argument) { (argument.addTo(digest), ...); }, arguments);
        }
        void call(Digest& result) override {
            const auto get = [this](auto&... argument) -> R { return f(argument.get()...); };
            if constexpr (std::is_void<R>::value) {
                std::apply(get, arguments);
            } else {
                const void* object = nullptr;
                if constexpr (kHasObject) object = &std::get<0>(arguments).value;
                addResult<R>(result, std::apply(get, arguments), object);
            }
        }
    } bound(f);
    perform(call, bound);
}

template <auto kFunction>
struct Caller;
template <class R, class C, class... A, R (C::*kMember)(A...)>
struct Caller<kMember> {
    static void call(Call& call) {
        perform<true, R, C&, A...>(
            call, [](C& object, A... a) -> R { return (object.*kMember)(static_cast<A>(a)...); });
    }
};
template <class R, class C, class... A, R (C::*kMember)(A...) const>
struct Caller<kMember> {
    static void call(Call& call) {
        perform<true, R, const C&, A...>(call, [](const C& object, A... a) -> R {
            return (object.*kMember)(static_cast<A>(a)...);
        });
    }
};
template <class R, class... A, R (*kFree)(A...)>
struct Caller<kFree> {
    static void call(Call& call) {
        perform<false, R, A...>(call, kFree);
    }
};

template <class C, class... A>
void construct(Call& call) {
    perform<false, C, A...>(call, [](A... a) { return C(static_cast<A>(a)...); });
}
template <auto* kVariable>
void read(Call& call) {
    using V = std::remove_pointer_t<decltype(kVariable)>;
    perform<false, const V&>(call, []() -> const V& { return *kVariable; });
}

}  // namespace test
}  // namespace KyMath

#endif
