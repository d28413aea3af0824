// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_CodePage.h"
#include "platform/base/System_DynamicArray.h"
#include "platform/base/System_String.h"
#include "platform/base/System_Types.h"
#include "platform/base/dates/System_DateTime.h"
#include "platform/base/numbers/System_Currency.h"
#include "platform/runtime/variants/System_Variant.h"
