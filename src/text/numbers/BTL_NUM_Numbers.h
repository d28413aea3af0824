// SPDX-License-Identifier: MIT
#pragma once

// Numbers as text, all of it at once.

#include "text/numbers/BTL_NUM_FindNumber.h"          // the first number within a text
#include "text/numbers/BTL_NUM_FindValue.h"           // numbers with units within a text
#include "text/numbers/BTL_NUM_FloatText.h"           // the canonical text of a float, its prefix and size
#include "text/numbers/BTL_NUM_Floats.h"              // floats from text
#include "text/numbers/BTL_NUM_Integers.h"            // integers, also hexadecimal ones, to and from text
#include "text/numbers/BTL_NUM_SetDecimalSeparator.h" // `.` and `,` adapted to the active separator
