#pragma once

#include "platform/runtime/error.h"

namespace shell
{

/// Runs one step of the start and passes over its run-time error: the program comes up with what it has.
template<class F>
void passaErros(F &&passo)
{
    try {
        passo();
    } catch (const runtime::RuntimeError &) {
        // The next step runs all the same.
    }
}

} // namespace shell
