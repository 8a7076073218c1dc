// The standard error handler of a procedure: catches every failure, shows the standard error box
// and lets the procedure return the result that it had so far.
#pragma once

#include <string>
#include <string_view>
#include <type_traits>

#include "automation/boundary.h"
#include "runtime/failure.h"

namespace kovrel {

/// The parts of the error box that depend on the procedure.
struct Handler {
    /// The length of a literal is taken from its type: counting it in every call is slow.
    template <std::size_t Size>
    constexpr Handler(const wchar_t (&literal)[Size], const std::wstring* box_title = nullptr)
        : trailing(literal, Size - 1), title(box_title) {}
    constexpr Handler(std::wstring_view text) : trailing(text) {}

    /// Ends the text: ") en procedimiento " and the procedure's name and place.
    std::wstring_view trailing;
    /// The box's title; null: the library's application title.
    const std::wstring* title = nullptr;
};

/// Shows the standard error box. Failures while showing it are ignored.
void show_failure(const Failure& failure, const Handler& handler) noexcept;

/// Runs a procedure's body in the one shared catch block.
void run_guarded(const Handler& handler, void (*body)(void*), void* context) noexcept;

/// Runs the body of a procedure.
template <class Body>
void guarded(const Handler& handler, Body&& body) {
    run_guarded(
        handler, [](void* context) { (*static_cast<std::remove_reference_t<Body>*>(context))(); },
        &body);
}

/// Runs the body of a function, which assigns its result through a reference. After a failure the
/// result is what it had assigned so far.
template <class Result, class Body>
Result guarded(const Handler& handler, Body&& body) {
    Result result{};
    guarded(handler, [&] { body(result); });
    return result;
}

/// Runs a step and ignores its failure; true when there was none.
template <class Body>
bool attempt(Body&& body) noexcept {
    try {
        body();
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace kovrel
