// SPDX-License-Identifier: MIT
#pragma once

// All functions on the platform's variants, by topic.

#include "text/variants/BTL_VARI_Arrays.h"      // VarToBytes, BytesToVar, ForEeachVar_Sum
#include "text/variants/BTL_VARI_BestValue.h"   // StringToBestVariant, StringToBestPropertyValue
#include "text/variants/BTL_VARI_Compare.h"     // Compare, AreEqual
#include "text/variants/BTL_VARI_Conversions.h" // ToInt, ToBool, VarToDouble, VarToStr, IsIntType and their kin
#include "text/variants/BTL_VARI_SqlValue.h"    // VarToSqlValue
#include "text/variants/BTL_VARI_Stored.h"      // VarToVStr, VStrToVar
#include "text/variants/BTL_VARI_StoredProp.h" // GetStoredProp, SetStoredProp
