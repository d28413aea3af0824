// SPDX-License-Identifier: MIT
#pragma once

// The foundation, all at once:
// - `UTL_ASRT_Assert.h`: internal faults, `THROW_XAssert` and `Warn`
// - `UTL_LOG_Log.h`, `UTL_LOG_LogFile.h`, `UTL_LOG_LogStream.h`, `UTL_LOG_Sink.h`: the logs
// - `UTL_STR_String.h`: `CString`, a `std::string` with helpers; `UTL_STR_SimpleString.h`: `CSimpleString`
// - `UTL_STR_Utilities.h`: functions on zero-terminated texts
// - `UTL_SV_IntVector.h`, `UTL_SV_Int64Vector.h`, `UTL_SV_DoubleVector.h`, `UTL_SV_BoolVector.h`: growable
// arrays
// - `UTL_CVariant.h`, `UTL_CVariants.h`: small values that know their type, and lists of them
// - `UTL_Flags.h`: rows of flags; `UTL_List.h`: intrusive lists; `UTL_AutoPtr.h`: counted objects
// - `UTL_Tag.h`: a word of 32 bits; `UTL_Toggle.h`: a flag that a scope sets and puts back
// - `UTL_I18N_Texts.h`: the two texts of the foundation itself
//
// Not among them, since it is slow to compile: `UTL_SV_GSimpleVector.h`, for vectors of a type of your own.

#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_AutoPtr.h"
#include "foundation/UTL_CVariant.h"
#include "foundation/UTL_CVariants.h"
#include "foundation/UTL_Flags.h"
#include "foundation/UTL_I18N_Texts.h"
#include "foundation/UTL_List.h"
#include "foundation/UTL_STR_SimpleString.h"
#include "foundation/UTL_STR_String.h"
#include "foundation/UTL_STR_Utilities.h"
#include "foundation/UTL_Tag.h"
#include "foundation/UTL_Toggle.h"
#include "foundation/logs/UTL_LOG_Form.h"
#include "foundation/logs/UTL_LOG_Log.h"
#include "foundation/logs/UTL_LOG_LogFile.h"
#include "foundation/logs/UTL_LOG_LogStream.h"
#include "foundation/logs/UTL_LOG_Sink.h"
#include "foundation/vectors/UTL_SV_BoolVector.h"
#include "foundation/vectors/UTL_SV_DoubleVector.h"
#include "foundation/vectors/UTL_SV_Int64Vector.h"
#include "foundation/vectors/UTL_SV_IntVector.h"
