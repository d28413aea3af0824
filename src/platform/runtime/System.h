// SPDX-License-Identifier: MIT
#pragma once

// The types that everything else speaks, all at once:
// - `System_Types.h`: the integers, characters and code pages by their names
// - `System_String.h`: text of both widths, `UnicodeString`, `AnsiString`, `UTF8String`
// - `System_CodePage.h`: text as bytes of a code page and back
// - `System_DateTime.h`: `TDateTime`; `System_Currency.h`: `Currency`
// - `System_DynamicArray.h`: arrays that share their elements; `System_Set.h`: sets of an enumeration
// - `System_Range.h`: what counts as a range of texts or values
// - `System_Variant.h`: `Variant`, a value that knows its type

#include "platform/base/System_CodePage.h"
#include "platform/base/System_DynamicArray.h"
#include "platform/base/System_Range.h"
#include "platform/base/System_Set.h"
#include "platform/base/System_String.h"
#include "platform/base/System_Types.h"
#include "platform/base/dates/System_DateTime.h"
#include "platform/base/numbers/System_Currency.h"
#include "platform/runtime/variants/System_Variant.h"
