#pragma once

#include <type_traits>
#include <utility>

/// Translates the exception in flight into a number and a description and reports it to the log. A
/// report that fails in its turn is lost. To be called from a catch block only.
void ReportCurrentException(const char* functionName, const char* objectName) noexcept;

/// Runs the body of a public procedure. An error in it is reported under the given names and the
/// procedure's default result is returned: no exception of the body or of the report leaves here.
template <typename Result, typename Body>
Result Guarded(const char* functionName, const char* objectName, Result defaultResult,
               Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        ReportCurrentException(functionName, objectName);
    }
    return defaultResult;
}

/// The same for a procedure without a result.
template <typename Body>
requires std::is_void_v<std::invoke_result_t<Body>>
void Guarded(const char* functionName, const char* objectName, Body&& body) {
    try {
        std::forward<Body>(body)();
    } catch (...) {
        ReportCurrentException(functionName, objectName);
    }
}
