// SPDX-License-Identifier: MIT
#pragma once

// All string utilities at once.

#include "text/BTL_STR_Command.h"
#include "text/BTL_STR_Cut.h"
#include "text/BTL_STR_Delimited.h"
#include "text/BTL_STR_Escape.h"
#include "text/BTL_STR_Ident.h"
#include "text/BTL_STR_Join.h"
#include "text/BTL_STR_LoadSPrintf.h"
#include "text/BTL_STR_Macro.h"
#include "text/BTL_STR_Replace.h"
#include "text/BTL_STR_Search.h"
#include "text/BTL_STR_StringTypeInfo.h"
