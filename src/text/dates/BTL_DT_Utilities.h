// SPDX-License-Identifier: MIT
#pragma once

// All date and time utilities at once.

#include "text/dates/BTL_DT_Calendar.h"
#include "text/dates/BTL_DT_Reading.h"
#include "text/dates/BTL_DT_Texts.h"
