// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/System_CodePage.h"
#include "platform/runtime/System_Currency.h"
#include "platform/runtime/System_DateTime.h"
#include "platform/runtime/System_DynamicArray.h"
#include "platform/runtime/System_String.h"
#include "platform/runtime/System_Types.h"
#include "platform/runtime/System_Variant.h"
