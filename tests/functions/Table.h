// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_TESTS_TABLE_H
#define KYMATH_TESTS_TABLE_H

#include "Values.h"

#include <memory>
#include <utility>

namespace KyMath::test {

/// An argument of a call, or its object.
struct Argument {
    void* const address;

    explicit Argument(void* value) : address(value) {}
    virtual ~Argument() = default;
    virtual void draw(Inputs& in) = 0;
    virtual void addTo(Digest& digest) const = 0;
};

/// What the functions of one type have in common.
struct Signature {
    bool readOnly;                                    ///< They change none of their arguments.
    std::unique_ptr<Argument> (*const* arguments)();  ///< Each makes one; the last is null.
    /// Calls code, a function of this type. Adds its result and, where that refers into the object,
    /// where it points.
    void (*call)(void (*code)(), void* const* arguments, const void* object, Digest& result);
    void (*run)(void (*code)(), void* const* arguments);  ///< The call alone, to be timed.
};

/// A function that takes plain arguments: of a member, the object comes first.
struct Code {
    bool isMember;
    void (*code)();
    const Signature* signature;
};

struct Function {
    const char* layer;
    std::string name;
    unsigned limit;  ///< indices and counts are below
    Code code;
};

/// All functions of the library, in the order of their headers.
std::vector<Function> functions();

/// Called just before and after each call of the library.
struct Hooks {
    void (*before)() = [] {};
    void (*after)() = [] {};
};
inline Hooks hooks;

struct Outcome {
    std::uint64_t digest;  ///< of the result, and of the object and all arguments after the call
    bool threw;
    bool unchanged;  ///< the object and all arguments are as before
    bool threadsAgree;
};

/// Draws arguments and calls the function. If it is not meant to change them, so many threads make
/// the same call at once.
Outcome call(const Function& function, Inputs& in, int threads = 1);

// The rest makes the table. Functions of one type share the code that unpacks their arguments, and
// arguments of one type the code that draws them: a line of the table costs the compiler one call.

template <class V>
struct Value final : Argument {
    V value = [] {
        if constexpr (std::is_default_constructible<V>::value) {
            return V();
        } else {
            return V(0, 0, 0, 0, 0, 0);
        }
    }();

    Value() : Argument(&value) {}
    void draw(Inputs& in) override {
        in.draw(value);
    }
    void addTo(Digest& digest) const override {
        digest.add(value);
    }
};
template <class V>
std::unique_ptr<Argument> makeArgument() {
    return std::make_unique<Value<V>>();
}

/// What holds an argument of the declared type A, and how it is passed.
template <class A>
struct Passed {
    using V = std::decay_t<A>;
    static A get(void* value) {
        return static_cast<A>(*static_cast<V*>(value));
    }
};
/// Sixteen numbers, as they are or by columns, or two objects.
template <class E>
struct Passed<E*> {
    using Element = std::remove_cv_t<std::remove_all_extents_t<E>>;
    using V = std::array<Element, std::is_arithmetic<Element>::value ? 16 : 2>;
    static E* get(void* values) {
        return static_cast<E*>(values);
    }
};
template <>
struct Passed<const char*> {
    using V = Label;
    static const char* get(void* label) {
        return static_cast<Label*>(label)->text;
    }
};
template <>
struct Passed<std::ostream&> {
    using V = std::ostringstream;
    static std::ostream& get(void* stream) {
        return *static_cast<V*>(stream);
    }
};

template <class A>
constexpr bool kReadOnly =
    std::is_pointer<A>::value
        ? std::is_const<std::remove_pointer_t<A>>::value
        : !std::is_reference<A>::value || std::is_const<std::remove_reference_t<A>>::value;

template <class R>
void addResult(Digest& digest, R&& result, const void* object) {
    using V = std::decay_t<R>;
    if constexpr (std::is_array<std::remove_pointer_t<V>>::value) {
        addResult(digest, result[0][0], object);
    } else if constexpr (std::is_pointer<V>::value) {
        addResult(digest, *result, object);
    } else if constexpr (!std::is_same<V, std::ostream>::value) {  // the stream is an argument
        digest.add(result);
        if (std::is_lvalue_reference<R&&>::value && object != nullptr) {
            digest.add(
                int(reinterpret_cast<const char*>(&result) - static_cast<const char*>(object)));
        }
    }
}

template <class Arguments, class R, class... A>
struct Caller;
template <std::size_t... I, class R, class... A>
struct Caller<std::index_sequence<I...>, R, A...> {
    static void call(void (*code)(), [[maybe_unused]] void* const* arguments,
                     [[maybe_unused]] const void* object, [[maybe_unused]] Digest& result) {
        auto* const function = reinterpret_cast<R (*)(A...)>(code);
        if constexpr (std::is_void<R>::value) {
            function(Passed<A>::get(arguments[I])...);
        } else {
            addResult<R>(result, function(Passed<A>::get(arguments[I])...), object);
        }
    }
    static void run(void (*code)(), [[maybe_unused]] void* const* arguments) {
        if constexpr (std::is_void<R>::value) {
            reinterpret_cast<R (*)(A...)>(code)(Passed<A>::get(arguments[I])...);
        } else {
            R&& result = reinterpret_cast<R (*)(A...)>(code)(Passed<A>::get(arguments[I])...);
            __asm__ volatile("" : : "g"(&result) : "memory");
        }
    }
    static constexpr std::unique_ptr<Argument> (*kArguments[])() = {
        makeArgument<typename Passed<A>::V>..., nullptr};
    static constexpr Signature kSignature = {(kReadOnly<A> && ...), kArguments, call, run};
};

/// A line of the table: the name without the type, and the function.
struct Entry {
    const char* name;
    Code code;

    template <class R, class... A>
    Entry(const char* itsName, R (*function)(A...), bool isMember = false)
        : name(itsName),
          code{isMember, reinterpret_cast<void (*)()>(function),
               &Caller<std::index_sequence_for<A...>, R, A...>::kSignature} {}
};

/// A member or constructor as a function. It names what it calls, so that a compiler that
/// knows its body may inline it.
template <auto kMember>
struct Plain;
template <class R, class C, class... A, R (C::*kMember)(A...)>
struct Plain<kMember> {
    static R call(C& object, A... a) {
        return (object.*kMember)(static_cast<A>(a)...);
    }
};
template <class R, class C, class... A, R (C::*kMember)(A...) const>
struct Plain<kMember> {
    static R call(const C& object, A... a) {
        return (object.*kMember)(static_cast<A>(a)...);
    }
};
template <class R, class... A, R (*kFree)(A...)>
struct Plain<kFree> {
    static R call(A... a) {
        return kFree(static_cast<A>(a)...);
    }
};
template <class C, class... A>
C construct(A... a) {
    return C(static_cast<A>(a)...);
}

}  // namespace KyMath::test

#endif
