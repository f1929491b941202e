#pragma once

#include "core/RuntimeError.h"

/// The object behind a pointer; error 91 when an earlier step gave nothing.
template <typename Pointer>
auto& Require(const Pointer& object) {
    if (!object)
        throw RuntimeError(ErrorNumber::NoObject, QStringLiteral("Object variable not set"));
    return *object;
}
