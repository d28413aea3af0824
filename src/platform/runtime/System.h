// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/System_CodePage.h"
#include "platform/runtime/System_String.h"
#include "platform/runtime/System_Types.h"
