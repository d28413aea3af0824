// SPDX-License-Identifier: MIT
#pragma once

// All string utilities at once.

#include "text/editing/BTL_STR_Cut.h"
#include "text/editing/BTL_STR_Join.h"
#include "text/editing/BTL_STR_LoadSPrintf.h"
#include "text/editing/BTL_STR_Replace.h"
#include "text/editing/BTL_STR_Search.h"
#include "text/editing/BTL_STR_StringTypeInfo.h"
#include "text/grammar/BTL_STR_Command.h"
#include "text/grammar/BTL_STR_Delimited.h"
#include "text/grammar/BTL_STR_Escape.h"
#include "text/grammar/BTL_STR_Ident.h"
#include "text/grammar/BTL_STR_Macro.h"
