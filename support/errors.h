#pragma once

#include "platform/runtime/error.h"

namespace support
{

/// The number of the run-time error that `action` ends in; 0 where it succeeds.
template<class Action>
int errorOf(Action action)
{
    try {
        action();
    } catch (const runtime::RuntimeError &error) {
        return error.number();
    }
    return 0;
}

} // namespace support
