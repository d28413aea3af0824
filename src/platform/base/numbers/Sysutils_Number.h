// SPDX-License-Identifier: MIT
#pragma once

// All texts of numbers at once.

// Integers: `IntToStr`, `IntToHex`, `StrToInt`, `System::Val`.
#include "platform/base/numbers/Sysutils_Integer.h"
// Floats written by a form: `FloatToStr`, `FloatToStrF`, `FloatToBuffer`.
#include "platform/base/numbers/Sysutils_FloatText.h"
// Floats written by a picture: `FormatFloat`.
#include "platform/base/numbers/Sysutils_FloatPicture.h"
// Floats read: `StrToFloat`, `TextToFloat`, `ScanShortFloat`, `BufferToFloat`.
#include "platform/base/numbers/Sysutils_FloatReading.h"
