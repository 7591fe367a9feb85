#pragma once

#include "platform/runtime/clock.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/error.h"
#include "platform/runtime/format.h"
#include "platform/runtime/numbers.h"
#include "platform/runtime/text.h"
#include "platform/runtime/value.h"
