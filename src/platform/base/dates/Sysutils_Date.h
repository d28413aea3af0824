// SPDX-License-Identifier: MIT
#pragma once

// All of dates and times at once:
// - `Sysutils_Calendar.h`: the calendar, the local clock, values made of days and times and taken apart again
// - `Sysutils_DateText.h`: values as texts, by pictures
// - `Sysutils_DateReading.h`: texts as values
// - `Sysutils_FileDate.h`: the packed dates of files

#include "platform/base/dates/Sysutils_Calendar.h"
#include "platform/base/dates/Sysutils_DateReading.h"
#include "platform/base/dates/Sysutils_DateText.h"
#include "platform/base/dates/Sysutils_FileDate.h"
