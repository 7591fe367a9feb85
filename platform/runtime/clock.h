#pragma once

#include "platform/runtime/value.h"

#include <optional>

namespace runtime
{

/// The present moment by the machine's local time, whole seconds. The one place that reads the clock.
Date Now();

/// The present date without time of day.
Date Today();

/// Stops the program's clock at `moment`; std::nullopt lets it run again. For tests.
void setClock(std::optional<Date> moment);

} // namespace runtime
